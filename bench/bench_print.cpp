// The crews' schedules of a whole day into a PDF: all 30 teams, each with twelve one-hour
// slips, found among the 50,000 slips of a full Slips.txt, drawn and written. Then one
// team's invoices of that day, twelve pages in each style with full price lists and a
// memo.
#include "benchharness.h"

#include "core/documents/invoices.h"
#include "core/documents/printframe.h"
#include "core/documents/workschedule.h"
#include "core/io/itemrecords.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/usforms.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"
#include "screens/documents/printrun.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

using namespace tresvane;

namespace
{
void write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        Must(Status::failure(path));
}
} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    const QString limit = LimitFolder();
    QTemporaryDir dir;
    const QString folder = dir.path();
    const QDate day(2026, 6, 2);

    // The limit installation's slips, and a full day for every team on top of them.
    QFile source(limit + QStringLiteral("/Slips.txt"));
    if (!source.open(QIODevice::ReadOnly)) Must(Status::failure(source.fileName()));
    QByteArray slips = source.readAll();
    QByteArray teams;
    DispatchingVariables v;
    BuildTimeLabels(v);
    v.gAssignTo = {QStringLiteral("populated")};
    for (int t = 1; t <= 30; ++t) {
        const QString name = QStringLiteral("Crew %1").arg(t);
        v.gAssignTo << name;
        teams += "\"" + name.toLatin1() + "\"\r\n";
        QByteArray dayFile;
        for (int s = 1; s <= 12; ++s) {
            const QString number = QStringLiteral("SA153-%1").arg((t - 1) * 12 + s);
            const QString customer = QStringLiteral("Customer %1-%2").arg(t).arg(s);
            SlipRecord r;
            r.setText(SlipField::RecType, QStringLiteral("Service"));
            r.setText(SlipField::ConfirmationNo, number);
            r.setText(SlipField::TeamNo, QString::number(t));
            r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
            r.setText(SlipField::Hours, QStringLiteral("1"));
            r.setText(SlipField::EventDate, FormatShortDate(day));
            r.setText(SlipField::StartSlot, QString::number(s));
            r.setText(SlipField::Reference, QStringLiteral("Annual service of the furnace"));
            r.setText(SlipField::AcctNo, QStringLiteral("A-%1").arg(t * 100 + s));
            r.setText(SlipField::Name, customer);
            r.setText(SlipField::Street, QStringLiteral("%1 Main Street").arg(s * 10));
            r.setText(SlipField::City, QStringLiteral("Springfield"));
            r.setText(SlipField::St, QStringLiteral("IL"));
            r.setText(SlipField::Zip, QStringLiteral("62701"));
            slips += r.bytes();
            dayFile += "\"" + (number + u' ' + customer).toLatin1() + "\"\r\n";
        }
        write(QStringLiteral("%1/2026/Team#%2/%3.txt").arg(folder).arg(t).arg(day.dayOfYear()),
              dayFile);
    }
    write(folder + QStringLiteral("/Slips.txt"), slips);
    write(folder + QStringLiteral("/Assignto.txt"), teams);

    Store store(folder, Store::Access::ReadOnly);
    const QString pdf = dir.filePath(QStringLiteral("schedules.pdf"));
    int pages = 0;
    const double ms = MedianMs(
        [&] {
            Result<int> written = PrintDocumentsToPdf(pdf, [&](PrintSurface& surface) {
                PrintJob job{surface, DocumentSettingsOf(v)};
                return PrintWorkSchedules(job, store, v, {day, 0, ScheduleForm::WorkDay}).status();
            });
            Must(written.status());
            pages = *written;
        },
        5);
    Report(QStringLiteral("schedules pdf"), ms, FloorMs(folder, {"/Slips.txt"}, 5));
    std::fprintf(stderr, "%d pages, %lld bytes\n", pages, qint64(QFileInfo(pdf).size()));
    if (pages != 30) return 1;

    // Full lists on every invoice: eight services, eight items, the repair list's thirteen.
    QByteArray services, items, repair;
    for (int i = 1; i <= 13; ++i) {
        ServiceRecord service;
        service.setText(ServiceField::ServiceName, QStringLiteral("Seasonal service %1").arg(i));
        service.setText(ServiceField::ServicePrice, QStringLiteral("%1.50").arg(40 + i));
        InventoriedItemRecord item;
        item.setText(InventoriedItemField::StockName, QStringLiteral("Replacement part %1").arg(i));
        item.setCurrency(InventoriedItemField::StockPrice, 125000 * i);
        InvoiceItemRecord line;
        line.setText(InvoiceItemField::ItemName, QStringLiteral("Repair item %1").arg(i));
        line.setText(InvoiceItemField::ItemPrice, QStringLiteral("%1.00").arg(10 * i));
        if (i <= 8) services += service.bytes();
        if (i <= 8) items += item.bytes();
        repair += line.bytes();
    }
    write(folder + CurrentServicesFileName(), services);
    write(folder + CurrentItemsFileName(), items);
    write(folder + InventoriedItemsFileName(), items);
    write(folder + InvoiceItemsFileName(), repair);
    write(folder + QStringLiteral("/ServiceInvoiceMemo.txt"),
          "Thank you for your business. Payment is due within 30 days of the invoice date.\r\n");
    const std::pair<InvoiceStyle, const char*> styles[] = {
        {InvoiceStyle::ServiceOrder, "service order"},
        {InvoiceStyle::Repair, "repair"},
        {InvoiceStyle::Office, "office"}};
    for (const auto& [style, name] : styles) {
        const InvoiceRequest request{day, 1, style, true, true, 0};
        int invoices = 0;
        const double invoiceMs = MedianMs(
            [&] {
                Result<int> written = PrintDocumentsToPdf(pdf, [&](PrintSurface& surface) {
                    PrintJob job{surface, DocumentSettingsOf(v)};
                    return PrintInvoices(job, store, v, request).status();
                });
                Must(written.status());
                invoices = *written;
            },
            5);
        Report(QStringLiteral("invoices pdf (%1)").arg(QString::fromLatin1(name)), invoiceMs,
               FloorMs(folder, {"/Slips.txt"}, 5));
        if (invoices != 12) return 1;
    }
    return 0;
}
