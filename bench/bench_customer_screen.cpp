// The customer screen at 32,767 accounts: bringing it up (the count, the name and city
// lists, the first account shown), and a key typed in the name list, which completes
// the name from the sorted list while the user types; and a step through the stored calls,
// each caller looked up among all the accounts.
#include "benchharness.h"

#include "core/customers/customerfiles.h"
#include "core/io/customerrecords.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "core/telephony/storedcalls.h"
#include "screens/customers/frmcustomer.h"
#include "screens/customers/storedcallpanel.h"
#include "screens/shell/updown.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>
#include <cstdio>

using namespace tresvane;

namespace
{

void typeKey(QLineEdit* edit, Qt::Key key, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(edit, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(edit, &release);
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qapp(argc, argv);
    const QString folder = LimitFolder();
    Store store(folder);
    FixedClock clock(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext ctx{store, clock, dialogs, v};
    const double floor = FloorMs(folder, {"/CustomerData.txt"});

    frmCustomer w(ctx);
    v.Mode = Mode::ServiceSlip;
    const double bringUp = MedianMs([&] {
        w.hide();
        w.show();
        w.Form_Activate();
        QApplication::processEvents();
    });
    Report("customer screen", bringUp, floor);

    // The name list open, a few keys typed: each completes from the list of every account.
    w.Command1[1]->click();
    QLineEdit* edit = w.cboAccounts->lineEdit();
    const QList<std::pair<Qt::Key, QString>> keys = {{Qt::Key_S, "s"},
                                                     {Qt::Key_M, "m"},
                                                     {Qt::Key_I, "i"},
                                                     {Qt::Key_Backspace, ""},
                                                     {Qt::Key_T, "t"}};
    qsizetype typed = 0;
    const double perKey = MedianMs([&] {
                              edit->clear();
                              for (const auto& [key, text] : keys)
                                  typeKey(edit, key, text);
                              QApplication::processEvents();
                              typed = edit->text().size();
                          }) /
                          keys.size();
    Report("account type-ahead", perKey, floor);

    // A step through the calls kept while the office was away: the account on show saved,
    // the next call read, and its caller looked up by telephone in every account. On a copy
    // of the accounts, since the step writes the account it leaves.
    QTemporaryDir copy;
    for (const char* name : {"/CustomerData.txt", "/ContractInfo.txt", "/CycleInfo.txt"})
        QFile::copy(folder + QLatin1String(name), copy.path() + QLatin1String(name));
    Store callStore(copy.path());
    DispatchingVariables cv;
    CoreContext callCtx{callStore, clock, dialogs, cv};
    QByteArray calls;
    for (qint32 n : {qint32(w.at.gLastrec), qint32(w.at.gLastrec / 2), 1}) {
        const CustomerRecord account(
            *callStore.ReadRecordAt(CustomerFileName(), kCustomerRecordLength, n));
        CallRecord call;
        call.setText(CallField::CallName, QStringLiteral("CALLER"));
        call.setText(CallField::CallNumber, account.text(CustomerField::Phone));
        call.setText(CallField::CallTime, QStringLiteral("08:00 am"));
        calls += call.bytes();
    }
    Must(callStore.WriteFile(StoredCalls::kFile, calls));
    frmCustomer cw(callCtx);
    cv.Mode = Mode::ServiceSlip;
    cw.show();
    cw.Form_Activate();
    cw.calls->cmdCallLater->click();
    const double step = MedianMs([&] {
        cw.calls->updnCalls->up->click();
        QApplication::processEvents();
    });
    Report("stored call step", step, floor);

    std::fprintf(stderr, "%d accounts in the name list, %d cities, last text %lld characters\n",
                 w.cboAccounts->count(), w.cboCity->count(), static_cast<long long>(typed));
    return w.cboAccounts->count() != w.at.gLastrec || cw.at.gLastrec != w.at.gLastrec;
}
