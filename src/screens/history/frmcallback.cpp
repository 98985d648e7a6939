#include "screens/history/frmcallback.h"

#include "core/history/courtesycalls.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/schedule/slipfiles.h"
#include "screens/shell/datecheck.h"
#include "screens/shell/flexgrid.h"

#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
frmCallBack::frmCallBack(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmCallBack"));
    setWindowTitle(QStringLiteral("Courtesy Calling"));

    auto dateBox = [this](const QString& name) {
        auto* box = new QDateEdit(this);
        box->setObjectName(name);
        box->setCalendarPopup(true);
        box->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
        WireDateCheck(box, c.dialogs);
        return box;
    };
    DTStarting = dateBox(QStringLiteral("DTStarting"));
    DTEnding = dateBox(QStringLiteral("DTEnding"));

    const std::array<std::pair<int, QString>, 4> buttons{{
        {3, QStringLiteral("&Load Grid")},
        {5, QStringLiteral("Next Year")},
        {6, QStringLiteral("Next Month")},
        {7, QStringLiteral("Next Qtr")},
    }};
    for (const auto& [index, caption] : buttons) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(QStringLiteral("cmdWeekly_%1").arg(index));
        connect(b, &QPushButton::clicked, this, [this, i = index] { cmdWeekly_Click(i); });
        cmdWeekly[index] = b;
    }

    fgTomorrow = new FlexGrid(this);
    fgTomorrow->setObjectName(QStringLiteral("fgTomorrow"));
    fgTomorrow->setHeadings({QStringLiteral("Name"), QStringLiteral("Date"), QStringLiteral("Time"),
                             QStringLiteral("Telephone"), QStringLiteral("Assigned To"),
                             QStringLiteral("Reference"), QStringLiteral("Order")});
    fgTomorrow->setColumnWidth(0, 180);
    fgTomorrow->setColumnWidth(1, 85);
    fgTomorrow->setColumnWidth(2, 75);
    fgTomorrow->setColumnWidth(3, 110);
    fgTomorrow->setColumnWidth(4, 130);
    fgTomorrow->setColumnWidth(5, 220);
    // The date order column is only there to sort on.
    fgTomorrow->setColumnHidden(6, true);
    fgTomorrow->viewport()->installEventFilter(this);

    lblHint = new QLabel(QStringLiteral("Left Click to Select, Right Click to Call"), this);
    lblHint->setObjectName(QStringLiteral("lblHint"));
    cmdTomorrow = new QPushButton(QStringLiteral("&Menu"), this);
    cmdTomorrow->setObjectName(QStringLiteral("cmdTomorrow"));
    connect(cmdTomorrow, &QPushButton::clicked, this, &frmCallBack::showMenu);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Starting"), this));
    top->addWidget(DTStarting);
    top->addWidget(new QLabel(QStringLiteral("Ending"), this));
    top->addWidget(DTEnding);
    for (QPushButton* b : cmdWeekly)
        if (b) top->addWidget(b);
    top->addStretch(1);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblHint);
    bottom->addStretch(1);
    bottom->addWidget(cmdTomorrow);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(fgTomorrow, 1);
    layout->addLayout(bottom);
    resize(900, 560);
}

void frmCallBack::Form_Activate()
{
    const QDate today = c.clock.today();
    DTStarting->setDate(today);
    DTEnding->setDate(today.addMonths(1));
    if (c.store.FileExists(SlipsFileName()))
        LoadGrid();
    else
        c.dialogs.message(QStringLiteral("No Service Slips were found"));
}

void frmCallBack::cmdWeekly_Click(int index)
{
    if (index != 3 && index != 5 && index != 6 && index != 7) return;
    DTEnding->setDate(CourtesyEnding(index, c.clock.today(), DTEnding->date()));
    LoadGrid();
}

void frmCallBack::LoadGrid()
{
    Result<QList<QStringList>> rows = LoadCourtesyCalls(c, DTStarting->date(), DTEnding->date());
    if (!rows) {
        c.dialogs.message(rows.message());
        return;
    }
    fgTomorrow->setRows(std::move(*rows));
}

bool frmCallBack::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == fgTomorrow->viewport() && event->type() == QEvent::MouseButtonPress) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::RightButton) {
            const int row = fgTomorrow->rowAt(mouse->position().toPoint().y());
            if (row >= 0)
                emit callCustomer(fgTomorrow->textMatrix(row, CourtesyColumn::Tel),
                                  fgTomorrow->textMatrix(row, CourtesyColumn::Name));
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
} // namespace tresvane
