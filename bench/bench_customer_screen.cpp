// The customer screen at 32,767 accounts: bringing it up (the count, the name and city
// lists, the first account shown), and a key typed in the name list, which completes
// the name from the sorted list while the user types.
#include "benchharness.h"

#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "screens/customers/frmcustomer.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
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

    std::fprintf(stderr, "%d accounts in the name list, %d cities, last text %lld characters\n",
                 w.cboAccounts->count(), w.cboCity->count(), static_cast<long long>(typed));
    return w.cboAccounts->count() != w.at.gLastrec;
}
