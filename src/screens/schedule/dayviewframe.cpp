#include "screens/schedule/dayviewframe.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace tresvane
{
DayViewFrame::DayViewFrame(QWidget* parent) : QGroupBox(parent)
{
    setObjectName(QStringLiteral("fraDay"));
    setAutoFillBackground(true);
    auto* layout = new QGridLayout(this);
    layout->setHorizontalSpacing(8);
    layout->setVerticalSpacing(4);
    for (int i = 0; i < 12; ++i) {
        auto* label = new QLabel(this);
        label->setObjectName(QStringLiteral("Label2_%1").arg(i));
        label->setAlignment(Qt::AlignRight | Qt::AlignTop);
        QFont f = label->font();
        f.setBold(true);
        label->setFont(f);
        label->installEventFilter(this);
        Label2[i] = label;
        auto* box = new QPlainTextEdit(this);
        box->setObjectName(QStringLiteral("txtHourSlot_%1").arg(i));
        box->setReadOnly(true);
        box->setLineWrapMode(QPlainTextEdit::NoWrap);
        box->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        box->document()->setDocumentMargin(2);
        // Five lines: name, street, city, telephone, problem.
        box->setMinimumHeight(box->fontMetrics().lineSpacing() * 5 + 10);
        txtHourSlot[i] = box;
        // Morning on the left, afternoon on the right.
        const int row = i % 6;
        const int col = (i / 6) * 2;
        layout->addWidget(label, row, col);
        layout->addWidget(box, row, col + 1);
        layout->setRowStretch(row, 1);
    }
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
}

void DayViewFrame::setHourLabels(const std::array<QString, 12>& labels)
{
    for (int i = 0; i < 12; ++i)
        Label2[i]->setText(labels[i]);
}

void DayViewFrame::showView(const DayView& view)
{
    m_view = view;
    for (int i = 0; i < 12; ++i) {
        const DayViewSlot& slot = view.hours[i];
        txtHourSlot[i]->setPlainText(slot.text);
        txtHourSlot[i]->setToolTip(slot.nameTip);
        Label2[i]->setToolTip(slot.phoneTip);
    }
}

bool DayViewFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress)
        for (int i = 0; i < 12; ++i)
            if (watched == Label2[i] && !Label2[i]->toolTip().isEmpty()) emit dialRequested(i);
    return QGroupBox::eventFilter(watched, event);
}
} // namespace tresvane
