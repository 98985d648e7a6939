#include "screens/schedule/teammonthframe.h"

#include "screens/shell/taborder.h"
#include "screens/shell/updown.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
QColor TeamMonthFrame::bookedColor()
{
    return QColor(255, 0, 0);
}
QColor TeamMonthFrame::freeColor()
{
    return QColor(0, 0, 255);
}

TeamMonthFrame::TeamMonthFrame(QWidget* parent) : QGroupBox(parent)
{
    setObjectName(QStringLiteral("fraTeamCal"));
    setTitle(QStringLiteral("Hours Availability/Usage by Team"));
    setAutoFillBackground(true);

    txtCurrentTeam = new QLineEdit(this);
    txtCurrentTeam->setObjectName(QStringLiteral("txtCurrentTeam"));
    txtCurrentTeam->setReadOnly(true);
    txtCurrentDate = new QLineEdit(this);
    txtCurrentDate->setObjectName(QStringLiteral("txtCurrentDate"));
    txtCurrentDate->setReadOnly(true);
    txtCurrentDate->setMaximumWidth(110);
    UpDnTeam = new UpDown(QStringLiteral("UpDnTeam"), this);
    UpDnTeam->setToolTip(QStringLiteral("Next or previous team"));

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Team:"), this));
    top->addWidget(txtCurrentTeam, 1);
    top->addWidget(UpDnTeam);
    top->addSpacing(12);
    top->addWidget(new QLabel(QStringLiteral("Month:"), this));
    top->addWidget(txtCurrentDate);

    lblDaysSMTWTFS = new QLabel(this);
    lblDaysSMTWTFS->setObjectName(QStringLiteral("lblDaysSMTWTFS"));
    lblDaysSMTWTFS->hide(); // the heading is drawn as one label per column below
    auto* sheet = new QGridLayout;
    sheet->setSpacing(3);
    const char* days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    for (int d = 0; d < 7; ++d) {
        auto* heading = new QLabel(QString::fromLatin1(days[d]), this);
        heading->setAlignment(Qt::AlignCenter);
        QFont f = heading->font();
        f.setBold(true);
        heading->setFont(f);
        sheet->addWidget(heading, 0, d);
    }
    for (int i = 0; i < 42; ++i) {
        auto* box = new QLineEdit(this);
        box->setObjectName(QStringLiteral("Text1_%1").arg(i));
        box->setReadOnly(true);
        box->setAlignment(Qt::AlignCenter);
        box->setMinimumSize(44, 30);
        box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        box->setCursor(Qt::PointingHandCursor);
        QFont f = box->font();
        f.setBold(true);
        f.setPointSizeF(f.pointSizeF() * 1.15);
        box->setFont(f);
        box->installEventFilter(this);
        Text1[i] = box;
        sheet->addWidget(box, 1 + i / 7, i % 7);
    }
    for (int row = 1; row <= 6; ++row)
        sheet->setRowStretch(row, 1);

    lblNote = new QLabel(QStringLiteral("No's in Red are Hours Already Scheduled"), this);
    lblNote->setObjectName(QStringLiteral("lblNote"));
    cmdHide = new QPushButton(QStringLiteral("Hide"), this);
    cmdHide->setObjectName(QStringLiteral("cmdHide"));
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblNote, 1);
    bottom->addWidget(cmdHide);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addLayout(sheet, 1);
    layout->addLayout(bottom);
    SetTabChain({txtCurrentTeam, UpDnTeam->up, UpDnTeam->down, txtCurrentDate});

    connect(cmdHide, &QPushButton::clicked, this, &QWidget::hide);
}

void TeamMonthFrame::showMonth(const TeamMonth& month)
{
    m_month = month;
    txtCurrentDate->setText(month.txtCurrentDate);
    for (int i = 0; i < 42; ++i) {
        Text1[i]->setText(month.Text1[i]);
        QPalette p = Text1[i]->palette();
        p.setColor(QPalette::Text, month.red[i] ? bookedColor() : freeColor());
        Text1[i]->setPalette(p);
    }
}

bool TeamMonthFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        for (int i = 0; i < 42; ++i)
            if (watched == Text1[i] && !Text1[i]->text().isEmpty()) {
                emit boxClicked(i);
                return true;
            }
    }
    return QGroupBox::eventFilter(watched, event);
}
} // namespace tresvane
