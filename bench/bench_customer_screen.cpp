// The customer screen at 32,767 accounts: bringing it up (the count, the name and city
// lists, the first account shown), and a key typed in the name list, which completes
// the name from the sorted list while the user types.
#include "benchharness.h"

#include "customers/frmcustomer.h"
#include "shell/silentdialogs.h"
#include "store/clock.h"
#include "store/corecontext.h"
#include "store/dispatchingvariables.h"
#include "store/store.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <cstdio>

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
    v.Mode = 2;
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
