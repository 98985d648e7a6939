#include "core/documents/invoicememo.h"

#include "core/documents/printframe.h"
#include "core/io/store.h"
#include "core/io/textfile.h"

namespace tresvane
{
namespace
{
// The memo's column: from 2 inches to a quarter inch before the printable edge.
constexpr double kMemoLeft = 2880;
constexpr double kMemoWidth = 5.75 * 1440;
} // namespace

QString InvoiceMemoFileName()
{
    return QStringLiteral("/ServiceInvoiceMemo.txt");
}

Result<InvoiceMemo> ReadInvoiceMemo(Store& store)
{
    InvoiceMemo memo;
    if (!store.FileExists(InvoiceMemoFileName())) return memo;
    Result<QByteArray> bytes = store.ReadAll(InvoiceMemoFileName());
    if (!bytes) return bytes.status();
    memo.exists = true;
    memo.lines = ReadPlainLines(*bytes);
    return memo;
}

Status WriteInvoiceMemo(Store& store, const QString& text)
{
    QString normal = text;
    normal.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    normal.replace(u'\r', u'\n');
    return store.RewriteTextFile(InvoiceMemoFileName(), WritePlainLines(normal.split(u'\n')));
}

Status PrintInvoiceMemo(PrintJob& job, Store& store, bool addMemo, double y)
{
    if (!addMemo) return {};
    Result<InvoiceMemo> memo = ReadInvoiceMemo(store);
    if (!memo) return memo.status();
    PrintInvoiceMemo(job, *memo, addMemo, y);
    return {};
}

void PrintInvoiceMemo(PrintJob& job, const InvoiceMemo& memo, bool addMemo, double y)
{
    if (!addMemo || !memo.exists) return;
    PrintSurface& p = job.printer;
    const qint32 held = p.foreColor();
    p.setForeColor(BodyColor(job));
    double top = y * 1440;
    for (const QString& line : memo.lines) {
        if (line.trimmed().isEmpty()) {
            p.setCurrentY(top);
            p.print(QString());
        } else {
            PrintWrapped(p, kMemoLeft, kMemoWidth, top, line);
        }
        top = p.currentY();
    }
    p.setForeColor(held);
}

double InvoiceMemoHeight(const PrintJob& job, const InvoiceMemo& memo, bool addMemo)
{
    if (!addMemo || !memo.exists) return 0;
    const PrintSurface& p = job.printer;
    double height = 0;
    for (const QString& line : memo.lines) {
        const qsizetype count =
            line.trimmed().isEmpty() ? 1 : WrappedLines(p, kMemoWidth, line).size();
        height += count * p.textHeight(line);
    }
    return height;
}
} // namespace tresvane
