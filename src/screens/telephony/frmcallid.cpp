#include "screens/telephony/frmcallid.h"

#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/ports/seriallink.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/named.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
const QString kCustomerFile = QStringLiteral("/CustomerData.txt");
} // namespace

frmCallID::frmCallID(CoreContext& ctx, SerialLink& link, QWidget* parent)
    : QWidget(parent), c(ctx), m_link(link)
{
    setObjectName(QStringLiteral("frmCallID"));
    setWindowTitle(QStringLiteral("Unattended Call Monitoring"));

    fgCallSummary = named(new FlexGrid(this), QStringLiteral("fgCallSummary"));
    fgCallSummary->setHeadings(
        {QStringLiteral("Time"), QStringLiteral("Number"), QStringLiteral("Name")});
    fraSummary = named(new QFrame(this), QStringLiteral("fraSummary"));
    lblName = named(new QLabel(fraSummary), QStringLiteral("lblName"));
    lblNumber = named(new QLabel(fraSummary), QStringLiteral("lblNumber"));
    lblTime = named(new QLabel(fraSummary), QStringLiteral("lblTime"));
    updnCalls = named(new QSpinBox(fraSummary), QStringLiteral("updnCalls"));
    static const char* const countCaptions[4] = {"Calls", "Customers", "Others", "Stored"};
    auto* counts = new QGridLayout;
    for (int i = 0; i < 4; ++i) {
        lblCount[i] = named(new QLabel(QStringLiteral("0"), fraSummary),
                            QStringLiteral("lblCount_%1").arg(i));
        counts->addWidget(new QLabel(QString::fromLatin1(countCaptions[i]), fraSummary), i, 0);
        counts->addWidget(lblCount[i], i, 1);
    }
    auto* summary = new QVBoxLayout(fraSummary);
    summary->addWidget(lblName);
    summary->addWidget(lblNumber);
    summary->addWidget(lblTime);
    summary->addWidget(updnCalls);
    summary->addLayout(counts);

    Image1 = named(new QLabel(QStringLiteral("Monitoring..."), this), QStringLiteral("Image1"));
    // The sign blinks: the room stays while it is off, so the screen does not jump.
    QSizePolicy keep = Image1->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    Image1->setSizePolicy(keep);
    Image1->setCursor(Qt::PointingHandCursor);
    Image1->setToolTip(QStringLiteral("Click to dial the call on show"));
    Image1->installEventFilter(this);
    imgLogo = named(new QPushButton(QStringLiteral("Click on the LOGO to Reset this Form"), this),
                    QStringLiteral("imgLogo"));
    cmdDial = named(new QPushButton(QStringLiteral("&Dial"), this), QStringLiteral("cmdDial"));
    cmdClear = named(new QPushButton(QStringLiteral("&Clear All Calls"), this),
                     QStringLiteral("cmdClear"));
    mnuSummary =
        named(new QPushButton(QStringLiteral("Summary"), this), QStringLiteral("mnuSummary"));
    cmdExit =
        named(new QPushButton(QStringLiteral(" &Main Menu"), this), QStringLiteral("cmdExit"));

    auto* buttons = new QHBoxLayout;
    for (QWidget* w : {static_cast<QWidget*>(imgLogo), static_cast<QWidget*>(cmdDial),
                       static_cast<QWidget*>(cmdClear), static_cast<QWidget*>(mnuSummary),
                       static_cast<QWidget*>(cmdExit)})
        buttons->addWidget(w);
    auto* columns = new QHBoxLayout;
    columns->addWidget(fgCallSummary, 2);
    columns->addWidget(fraSummary, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Image1);
    layout->addLayout(columns, 1);
    layout->addLayout(buttons);

    connect(updnCalls, &QSpinBox::valueChanged, this, [this](int v) { ShowCall(v); });
    connect(imgLogo, &QPushButton::clicked, this, &frmCallID::Form_Activate);
    connect(cmdDial, &QPushButton::clicked, this, &frmCallID::cmdDial_Click);
    connect(cmdClear, &QPushButton::clicked, this, &frmCallID::cmdClear_Click);
    connect(mnuSummary, &QPushButton::clicked, this, &frmCallID::mnuSummary_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmCallID::cmdExit_Click);

    // The watch is off while a tick works; the tick starts it again.
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &frmCallID::Tick);
    Form_Load();
}

void frmCallID::setIntervals(int firstMs, int laterMs)
{
    m_firstMs = firstMs;
    m_laterMs = laterMs;
}

void frmCallID::Form_Load()
{
    m_directory.load(c.store.FileExists(kCustomerFile) ? c.store.ReadAll(kCustomerFile).valueOr({})
                                                       : QByteArray());
}

void frmCallID::Form_Activate()
{
    ResetDisplay();
    m_parser = CallerIdParser();
    m_timer.stop();
    m_callerId = false;
    if (!m_link.isOpen() && !m_link.open()) return; // no port: nothing to watch
    m_link.clear();
    m_link.send(QByteArrayLiteral("AT#CID=1\r"));
    m_firstTick = true;
    m_timer.start(m_firstMs);
}

void frmCallID::ResetDisplay()
{
    for (int i = 0; i < 3; ++i)
        lblCount[i]->setText(QStringLiteral("0"));
    CustomerCalls = OtherCalls = 0;
    const QList<CallRecord> calls = StoredCalls::ReadAll(c.store);
    QList<QStringList> rows;
    for (const CallRecord& call : calls)
        rows << QStringList{call.text(CallField::CallTime), call.text(CallField::CallNumber),
                            call.text(CallField::CallName)};
    fgCallSummary->setRows(rows);
    TotalCalls = qint32(calls.size());
    lblCount[3]->setText(QString::number(TotalCalls));
    QSignalBlocker quiet(updnCalls);
    if (calls.isEmpty()) {
        lblName->setText(QStringLiteral("Name"));
        lblNumber->setText(QStringLiteral("Number"));
        lblTime->setText(QStringLiteral("Time Recv'd"));
        updnCalls->setRange(0, 0);
        updnCalls->setEnabled(false);
        cmdClear->setEnabled(false);
        return;
    }
    lblCount[0]->setText(QString::number(TotalCalls));
    updnCalls->setRange(1, TotalCalls);
    updnCalls->setValue(1);
    updnCalls->setEnabled(true);
    cmdClear->setEnabled(true);
    ShowCall(1);
}

void frmCallID::ShowCall(int callNo)
{
    if (callNo < 1 || callNo > fgCallSummary->rows()) return;
    lblTime->setText(fgCallSummary->textMatrix(callNo - 1, 0));
    lblNumber->setText(fgCallSummary->textMatrix(callNo - 1, 1));
    lblName->setText(fgCallSummary->textMatrix(callNo - 1, 2));
}

void frmCallID::Tick()
{
    c.v.gCallerID = true;
    if (m_firstTick) {
        m_firstTick = false;
        const QByteArray answer = m_link.readAll();
        cmdExit->setEnabled(true);
        // A modem that does not answer OK has no caller ID: the watch stops without a word.
        m_callerId = answer.contains("OK");
        c.v.gCallerID = m_callerId;
        if (m_callerId) m_timer.start(m_laterMs);
        return;
    }
    Image1->setVisible(!Image1->isVisible());
    const QByteArray bytes = m_link.isOpen() ? m_link.readAll() : QByteArray();
    // A quiet second ends a report that is waiting for more lines.
    const QList<CallerIdReport> calls =
        bytes.isEmpty() ? m_parser.endOfInput() : m_parser.feed(bytes);
    for (const CallerIdReport& call : calls)
        StoreCall(call);
    if (m_link.isOpen()) m_timer.start(m_laterMs);
}

void frmCallID::StoreCall(const CallerIdReport& call)
{
    const QString time = StoredCalls::TimeText(c.clock.now().time());
    const Result<qint32> stored = StoredCalls::Append(c.store, call, time);
    if (!stored) {
        c.dialogs.message(stored.message());
        return;
    }
    TotalCalls = *stored;
    fgCallSummary->grid()->appendRow({time, call.number, call.name});
    cmdClear->setEnabled(true);
    lblName->setText(call.name);
    lblNumber->setText(call.number);
    lblTime->setText(time);
    {
        QSignalBlocker quiet(updnCalls);
        updnCalls->setRange(1, TotalCalls);
        updnCalls->setValue(TotalCalls);
        updnCalls->setEnabled(true);
    }
    lblCount[0]->setText(QString::number(TotalCalls));
    lblCount[3]->setText(QString::number(TotalCalls));
    if (!call.number.isEmpty() && m_directory.isCustomer(call.number))
        lblCount[1]->setText(QString::number(++CustomerCalls));
    else
        lblCount[2]->setText(QString::number(++OtherCalls));
}

void frmCallID::cmdDial_Click()
{
    int row = fgCallSummary->currentRow();
    if (row < 0) row = updnCalls->value() - 1;
    if (row < 0 || row >= fgCallSummary->rows()) return;
    const QString number = fgCallSummary->textMatrix(row, 1);
    const QString name = fgCallSummary->textMatrix(row, 2);
    LeaveMonitoring();
    emit dialRequested(name, number);
}

void frmCallID::Image1_Click()
{
    // Before any call the labels hold their captions: there is no one to dial.
    if (lblName->text() == QStringLiteral("Name")) return;
    const QString name = lblName->text();
    const QString number = lblNumber->text();
    LeaveMonitoring();
    emit dialRequested(name, number);
}

bool frmCallID::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Image1) {
        // The press is taken, so the release comes back here and clicks.
        if (event->type() == QEvent::MouseButtonPress) return true;
        if (event->type() == QEvent::MouseButtonRelease) {
            Image1_Click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void frmCallID::cmdClear_Click()
{
    if (TotalCalls == 0) return;
    if (c.dialogs.message(QStringLiteral("Clear All Entries?"), QStringLiteral("Clear Call List"),
                          Dialogs::Buttons::YesNo, Dialogs::Icon::Question) != Dialogs::Answer::Yes)
        return;
    const Status deleted = StoredCalls::DeleteAll(c.store);
    if (!deleted) c.dialogs.message(deleted.message());
    TotalCalls = 0;
    ResetDisplay();
    cmdExit->setEnabled(true);
}

void frmCallID::mnuSummary_Click()
{
    fraSummary->setVisible(!fraSummary->isVisible());
    mnuSummary->setText(fraSummary->isVisible() ? QStringLiteral("Summary")
                                                : QStringLiteral("List"));
}

void frmCallID::cmdExit_Click()
{
    LeaveMonitoring();
    hide();
    emit showMenu();
}

void frmCallID::LeaveMonitoring()
{
    m_timer.stop();
    if (!m_link.isOpen()) return;
    m_link.send(QByteArrayLiteral("AT#CID=0;\r"));
    m_link.readAll();
    m_link.close();
}

void frmCallID::hideEvent(QHideEvent* event)
{
    LeaveMonitoring();
    QWidget::hideEvent(event);
}
} // namespace tresvane
