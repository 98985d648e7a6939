// The waits of the record screen at the formats' limits: coming to the front, which builds
// the summary of every slip and meeting into the grid, and a search by account.
#include "benchharness.h"

#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/screenframe.h"
#include "screens/sliprecords/frmcallrecord.h"

#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <cstdio>

using namespace tresvane;

int main(int argc, char* argv[])
{
    QApplication qapp(argc, argv);
    ScreenFrame::setGeometryKept(false);
    const QString folder = LimitFolder();
    Store store(folder);
    FixedClock clock(QDateTime(QDate(2026, 5, 4), QTime(9, 0)));
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};
    BuildTimeLabels(v);
    v.gYear = QStringLiteral("2026");
    v.gDayOfYear = qint16(clock.today().dayOfYear());

    frmCallRecord screen(c);
    screen.show();
    QApplication::processEvents();
    const double activate = MedianMs([&] { screen.Form_Activate(); });
    Report("summary on screen", activate, FloorMs(folder, {"/Meetings.txt", "/Slips.txt"}));

    // The account of the last slip: the whole file is walked, and the panel filled.
    const QByteArray slips = *store.ReadAll("/Slips.txt");
    const QString account =
        SlipRecord(QByteArrayView(slips).last(kSlipRecordLength)).text(SlipField::AcctNo);
    screen.optSearchfor[0]->click();
    screen.optSearchby[1]->click();
    const double search = MedianMs([&] {
        screen.txtTelNo->setEnabled(true);
        screen.txtTelNo->setText(account);
        screen.cmdSearch_Click();
    });
    Report("slip search on screen", search, FloorMs(folder, {"/Slips.txt"}));
    std::fprintf(stderr, "%d grid rows; account %s shown: %s\n", screen.fgSummary->rows(),
                 qPrintable(account), qPrintable(screen.txtAcctNo->text()));
    return screen.fgSummary->rows() > 0 ? 0 : 1;
}
