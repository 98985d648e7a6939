#pragma once

#include "core/documents/printframe.h"
#include "core/setup/pricelists.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace tresvane
{
// What a work order prints: one of the four headings, the account, the narrative and the
// parts and services chosen.
struct WorkOrderContent {
    QString heading;
    QDate date;
    QString account;
    // The customer's name and address lines, printed at the left under the header.
    QStringList customerLines;
    // The narrative's lines; none for the ruled form to write the instructions on.
    std::optional<QStringList> narrative;
    QList<PriceEntry> items;
    QList<PriceEntry> services;
};

// The work order as one document, ended by EndDoc: every page under the document's
// header with the date, the account and the page number; the narrative running over as
// many pages as it needs, or the ruled "Enter Instructions" form; then, when anything was
// chosen, the "Parts and Services List" on pages of its own, items first.
void PrintWorkOrder(PrintJob& job, const WorkOrderContent& content);

// The completion summary the crew fills in on the job: start, completion and service times,
// the odometer, what was found before the work began, what could not be done and why, and
// who did the work. A document of its own, ended by EndDoc.
void PrintCompletionSummary(PrintJob& job, const WorkOrderContent& content);
} // namespace tresvane
