#pragma once

#include "core/io/result.h"
#include "core/setup/pricelists.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace tresvane
{
class Store;

// Work orders, service orders, repair orders and estimates are one document under four
// headings: a narrative of the job and a list of parts and services with prices. Nothing of
// it is kept in a slip or a customer record; the narrative alone may be kept as a template.

QStringList WorkOrderHeadings(); // "Work Order", "Service Order", "Repair Order", "Estimate"

QString NarrativeTemplateFileName(); // "/Templates/WONarrative.txt"
// The narrative of the job being printed; the document prints it when the file is there.
QString PrintNarrativeFileName(); // "/Templates/WONarrativeTEMP.txt"

// The narrative template: plain lines, replaced as a whole. Loading a missing template
// gives no value.
Status SaveNarrativeTemplate(Store& store, const QString& narrative);
Result<std::optional<QString>> LoadNarrativeTemplate(Store& store);

// Hands the narrative to the print: written when it holds any text, removed when it does
// not, so a narrative of an earlier print never comes out with a later one.
Status PrepareNarrativeForPrint(Store& store, const QString& narrative);
Status RemovePrintNarrative(Store& store);
// The lines to print; no value when there is no narrative.
Result<std::optional<QStringList>> ReadPrintNarrative(Store& store);

// What was chosen for this document, in the order chosen. A name is listed once.
class ChosenList
{
public:
    // False, and nothing added, when the name is already listed.
    bool add(const PriceEntry& entry);
    // Adds every offered entry whose name is not listed yet, at its offered price; returns
    // how many were added.
    int addMissing(const QList<PriceEntry>& offered);
    void clear() { m_entries.clear(); }
    bool contains(const QString& name) const;
    bool isEmpty() const { return m_entries.isEmpty(); }
    const QList<PriceEntry>& entries() const { return m_entries; }

private:
    QList<PriceEntry> m_entries;
};
} // namespace tresvane
