// The waits of the contract and work order screens: filling the contract template, the
// program's own and one a user has grown with a large picture, and the work order screen
// coming up over a sibling program's stock of 10,000 items.
#include "benchharness.h"

#include "core/documents/contract.h"
#include "core/io/itemrecords.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "screens/documents/frmworkorder.h"
#include "screens/documents/printdialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tresvane;

namespace
{
ContractTerms terms()
{
    ContractTerms t;
    t.service = QStringLiteral("Furnace inspection and cleaning");
    t.price = QStringLiteral("$1,234.50");
    t.businessName = QStringLiteral("Acme Heating & Cooling");
    t.customerName = QStringLiteral("Margaret Ellison");
    t.created = QDate(2026, 4, 30);
    t.duration = QStringLiteral("1 Year");
    t.durationIndex = 3;
    t.commencing = QDate(2026, 5, 4);
    t.frequency = QStringLiteral("Quarterly");
    t.renew = true;
    t.contractorAddress = QStringLiteral("Acme Heating & Cooling\n1200 Main Street\nSpringfield");
    t.customerAddress = QStringLiteral("Margaret Ellison\n418 Walnut Avenue\nSpringfield");
    return t;
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
}
} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString folder = dir.path();
    QDir(folder).mkpath(QStringLiteral("Templates/Contracts"));

    // The program's template, and the same with a logo of 1 MiB in hex as a word
    // processor stores it, before the title.
    const QByteArray generic = BuiltInGenericContract();
    QByteArray withLogo = generic;
    withLogo.insert(withLogo.indexOf("\\pard"),
                    "{\\pict\\pngblip\\picw2000\\pich800 " + QByteArray(1 << 20, 'a') + "}\n");
    write(folder + QStringLiteral("/Templates/Contracts/GenericContract.rtf"), generic);
    write(folder + QStringLiteral("/Templates/Contracts/Logo.rtf"), withLogo);
    for (const auto& [name, bytes] :
         {std::pair{QStringLiteral("contract fill"), generic},
          std::pair{QStringLiteral("contract fill 1 MiB logo"), withLogo}}) {
        const double floor = FloorMs(folder, {bytes.size() > generic.size()
                                                  ? QStringLiteral("/Templates/Contracts/Logo.rtf")
                                                  : GenericContractFileName()});
        Report(name, MedianMs([&] {
                   RtfDocument body(bytes);
                   FillContract(body, terms());
               }),
               floor);
    }

    // A stock of 10,000 items and 500 services.
    Store store(folder);
    QList<InventoriedItemRecord> stock;
    for (int i = 0; i < 10000; ++i) {
        InventoriedItemRecord r;
        r.setText(InventoriedItemField::StockName, QStringLiteral("Part number %1").arg(i));
        r.setCurrency(InventoriedItemField::StockPrice, 10000 + i);
        stock << r;
    }
    write(folder + InventoriedItemsFileName(), [&] {
        QByteArray bytes;
        for (const InventoriedItemRecord& r : stock)
            bytes += r.bytes();
        return bytes;
    }());
    QList<ServiceRecord> services;
    for (int i = 0; i < 500; ++i) {
        ServiceRecord r;
        r.setText(ServiceField::ServiceName, QStringLiteral("Service %1").arg(i));
        r.setText(ServiceField::ServicePrice, QStringLiteral("%1.50").arg(i));
        services << r;
    }
    Must(WriteServices(store, ServicesFileName(), services));
    FixedClock clock(QDateTime(QDate(2026, 4, 30), QTime(9, 0)));
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext ctx{store, clock, dialogs, v};
    QtPrintDialogs print;
    frmWorkOrder form(ctx, print);
    form.show();
    Report(QStringLiteral("work order activation 10,000 items"),
           MedianMs([&] { form.Form_Activate(); }),
           FloorMs(folder, {InventoriedItemsFileName(), ServicesFileName()}));
    return 0;
}
