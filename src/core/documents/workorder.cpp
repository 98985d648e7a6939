#include "core/documents/workorder.h"

#include "core/io/store.h"
#include "core/io/textfile.h"

namespace tresvane
{
namespace
{

// A narrative of the text box: lines as typed, kept as CR LF lines in Windows-1252.
QByteArray narrativeBytes(const QString& narrative)
{
    if (narrative.isEmpty()) return {};
    QString text = narrative;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return WritePlainLines(text.split(u'\n'));
}

} // namespace

QStringList WorkOrderHeadings()
{
    return {QStringLiteral("Work Order"), QStringLiteral("Service Order"),
            QStringLiteral("Repair Order"), QStringLiteral("Estimate")};
}

QString NarrativeTemplateFileName()
{
    return QStringLiteral("/Templates/WONarrative.txt");
}

QString PrintNarrativeFileName()
{
    return QStringLiteral("/Templates/WONarrativeTEMP.txt");
}

Status SaveNarrativeTemplate(Store& store, const QString& narrative)
{
    return store.WriteFile(NarrativeTemplateFileName(), narrativeBytes(narrative));
}

Result<std::optional<QString>> LoadNarrativeTemplate(Store& store)
{
    if (!store.FileExists(NarrativeTemplateFileName())) return std::optional<QString>();
    Result<QByteArray> bytes = store.ReadAll(NarrativeTemplateFileName());
    if (!bytes) return bytes.status();
    return std::optional<QString>(ReadPlainLines(*bytes).join(u'\n'));
}

Status PrepareNarrativeForPrint(Store& store, const QString& narrative)
{
    if (narrative.trimmed().isEmpty()) return RemovePrintNarrative(store);
    return store.WriteFile(PrintNarrativeFileName(), narrativeBytes(narrative));
}

Status RemovePrintNarrative(Store& store)
{
    return store.KillIfPresent(PrintNarrativeFileName());
}

Result<std::optional<QStringList>> ReadPrintNarrative(Store& store)
{
    if (!store.IsFile(PrintNarrativeFileName())) return std::optional<QStringList>();
    Result<QByteArray> bytes = store.ReadAll(PrintNarrativeFileName());
    if (!bytes) return bytes.status();
    return std::optional<QStringList>(ReadPlainLines(*bytes));
}

bool ChosenList::contains(const QString& name) const
{
    for (const PriceEntry& e : m_entries)
        if (e.name == name) return true;
    return false;
}

bool ChosenList::add(const PriceEntry& entry)
{
    if (contains(entry.name)) return false;
    m_entries.append(entry);
    return true;
}

int ChosenList::addMissing(const QList<PriceEntry>& offered)
{
    int added = 0;
    for (const PriceEntry& e : offered)
        if (add(e)) ++added;
    return added;
}
} // namespace tresvane
