#include "screens/setup/setupoperationstab.h"

#include "core/exports/exportsettings.h"

#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/schedule/numbering.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/logo.h"
#include "screens/shell/named.h"
#include "screens/telephony/modemsettings.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
QString sizeCaption(bool letter)
{
    return letter ? QStringLiteral("USA Letter Size") : QStringLiteral("A4 Size");
}
} // namespace

SetupOperationsTab::SetupOperationsTab(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("tabOperations"));
    tabSub = named(new QTabWidget(this), "tabSub");

    // 0: work week and first hour
    auto* week = new QWidget;
    auto* hours = new QGroupBox(QStringLiteral("Work Day Starts"), week);
    ck7 = named(new QRadioButton(QStringLiteral("07:00 am"), hours), "ck7");
    ck8 = named(new QRadioButton(QStringLiteral("08:00 am"), hours), "ck8");
    auto* hoursLayout = new QVBoxLayout(hours);
    hoursLayout->addWidget(ck7);
    hoursLayout->addWidget(ck8);
    hoursLayout->addStretch(1);
    auto* days = new QGroupBox(QStringLiteral("Work Week"), week);
    optMF = named(new QRadioButton(WorkWeekCaption(5), days), "optMF");
    optMS = named(new QRadioButton(WorkWeekCaption(61), days), "optMS");
    optSF = named(new QRadioButton(WorkWeekCaption(62), days), "optSF");
    optSS = named(new QRadioButton(WorkWeekCaption(7), days), "optSS");
    auto* daysLayout = new QVBoxLayout(days);
    for (QRadioButton* b : {optMF, optMS, optSF, optSS})
        daysLayout->addWidget(b);
    daysLayout->addStretch(1);
    auto* calendars = new QGroupBox(QStringLiteral("Crew Calendars"), week);
    ckExportCalendars = named(
        new QCheckBox(QStringLiteral("Export the crews' calendars after every change"), calendars),
        "ckExportCalendars");
    txtCalendarDays = named(new QSpinBox(calendars), "txtCalendarDays");
    txtCalendarDays->setRange(1, kLongestCalendarDays);
    txtCalendarDays->setSuffix(QStringLiteral(" days ahead"));
    auto* calendarsLayout = new QHBoxLayout(calendars);
    calendarsLayout->addWidget(ckExportCalendars);
    calendarsLayout->addWidget(txtCalendarDays);
    calendarsLayout->addStretch(1);
    // The options stay together at the top, however tall the window.
    auto* weekRow = new QHBoxLayout;
    weekRow->addWidget(hours, 0, Qt::AlignTop);
    weekRow->addWidget(days, 0, Qt::AlignTop);
    weekRow->addStretch(1);
    auto* weekLayout = new QVBoxLayout(week);
    weekLayout->addLayout(weekRow);
    weekLayout->addWidget(calendars);
    weekLayout->addStretch(1);
    tabSub->addTab(week, QStringLiteral("Work Week"));

    // 1: invoice style and paper
    auto* invoices = new QWidget;
    auto* style = new QGroupBox(QStringLiteral("Invoice Style"), invoices);
    optServiceInvoice[0] = named(new QRadioButton(QStringLiteral("Office Style Invoices"), style),
                                 "optServiceInvoice_0");
    optServiceInvoice[1] =
        named(new QRadioButton(QStringLiteral("Repair Invoices (perforated paper)"), style),
              "optServiceInvoice_1");
    optServiceInvoice[2] = named(new QRadioButton(QStringLiteral("Service Order/Invoice"), style),
                                 "optServiceInvoice_2");
    auto* styleLayout = new QVBoxLayout(style);
    for (QRadioButton* b : optServiceInvoice)
        styleLayout->addWidget(b);
    ckSize = named(new QCheckBox(sizeCaption(true), invoices), "ckSize");
    auto* invoiceLayout = new QVBoxLayout(invoices);
    invoiceLayout->addWidget(style);
    invoiceLayout->addWidget(ckSize);
    invoiceLayout->addStretch(1);
    tabSub->addTab(invoices, QStringLiteral("Invoices"));
    // Open only when the catalogue of a sibling program exists.
    optServiceInvoice[2]->setVisible(false);

    // 2: phone, alarms and prompts
    auto* phone = new QWidget;
    ckPhone =
        named(new QCheckBox(QStringLiteral("Telephone is connected through the Modem"), phone),
              "ckPhone");
    ckCallerID =
        named(new QCheckBox(QStringLiteral("Modem reports Caller ID"), phone), "ckCallerID");
    lblCallID = named(new QLabel(QStringLiteral("Caller ID requires a service from your "
                                                "telephone company"),
                                 phone),
                      "lblCallID");
    ckAlarms = named(new QCheckBox(QStringLiteral("Sound Alarm on Errors"), phone), "ckAlarms");
    ckPrompts =
        named(new QCheckBox(QStringLiteral("Show Prompts and Confirmations"), phone), "ckPrompts");
    auto* modem = new QGroupBox(QStringLiteral("Modem"), phone);
    txtModemPort = named(new QLineEdit(modem), "txtModemPort");
    txtModemPort->setMaximumWidth(60);
    txtModemPort->setToolTip(QStringLiteral("The modem's COM port number: 1 is /dev/ttyS0"));
    cboModemDevice = named(new QComboBox(modem), "cboModemDevice");
    cboModemDevice->setEditable(true);
    cboModemDevice->setToolTip(
        QStringLiteral("A serial device such as /dev/ttyACM0; empty: the COM port number"));
    lblModem = named(new QLabel(modem), "lblModem");
    auto* modemLayout = new QFormLayout(modem);
    modemLayout->addRow(QStringLiteral("COM Port #"), txtModemPort);
    modemLayout->addRow(QStringLiteral("Modem Device"), cboModemDevice);
    modemLayout->addRow(lblModem);
    fraPhone = named(new QGroupBox(QStringLiteral("Telephone"), phone), "fraPhone");
    auto* telephoneLayout = new QVBoxLayout(fraPhone);
    for (QWidget* w : std::initializer_list<QWidget*>{ckPhone, ckCallerID, lblCallID})
        telephoneLayout->addWidget(w);
    auto* phoneLayout = new QVBoxLayout(phone);
    for (QWidget* w : std::initializer_list<QWidget*>{modem, fraPhone, ckAlarms, ckPrompts})
        phoneLayout->addWidget(w);
    phoneLayout->addStretch(1);
    tabSub->addTab(phone, QStringLiteral("Phone and Alerts"));
    // Tab runs down the sub-tab as it reads: the modem first, then the telephone and alerts.
    QWidget::setTabOrder(txtModemPort, cboModemDevice);
    QWidget::setTabOrder(cboModemDevice, ckPhone);
    QWidget::setTabOrder(ckPhone, ckCallerID);
    QWidget::setTabOrder(ckCallerID, ckAlarms);
    QWidget::setTabOrder(ckAlarms, ckPrompts);

    // 3: slip numbering
    auto* slips = new QWidget;
    ckSlipStyle =
        named(new QCheckBox(
                  QStringLiteral("Program   =       SA -110-1 Continuous    =     100001"), slips),
              "ckSlipStyle");
    auto* slipHint =
        new QLabel(QStringLiteral("Unchecked - enter once then auto increments"), slips);
    fraSlipNo = named(new QGroupBox(QStringLiteral("Next Service Slip"), slips), "fraSlipNo");
    txtNextSlip = named(new QLineEdit(fraSlipNo), "txtNextSlip");
    txtNextSlip->setMaximumWidth(120);
    static const char* const captions[3] = {"Clear", "Reset", "Reload"};
    static const char* const tips[3] = {"Clears the Slip Box", "Sets the Slip No to 1000",
                                        "Reloads the Slip No from File"};
    auto* slipRow = new QHBoxLayout(fraSlipNo);
    slipRow->addWidget(txtNextSlip);
    for (int i = 0; i < 3; ++i) {
        cmdServiceSlip[i] = new QPushButton(QString::fromLatin1(captions[i]), fraSlipNo);
        cmdServiceSlip[i]->setObjectName(QStringLiteral("cmdServiceSlip_%1").arg(i));
        cmdServiceSlip[i]->setToolTip(QString::fromLatin1(tips[i]));
        slipRow->addWidget(cmdServiceSlip[i]);
        connect(cmdServiceSlip[i], &QPushButton::clicked, this,
                [this, i] { cmdServiceSlip_Click(i); });
    }
    slipRow->addStretch(1);
    auto* slipLayout = new QVBoxLayout(slips);
    slipLayout->addWidget(ckSlipStyle);
    slipLayout->addWidget(slipHint);
    slipLayout->addWidget(fraSlipNo);
    slipLayout->addStretch(1);
    tabSub->addTab(slips, QStringLiteral("Slip Numbers"));

    Image1_5 = named(new QToolButton(this), "Image1_5");
    Image1_5->setIcon(QIcon(ProgramMark(32)));
    Image1_5->setIconSize(QSize(32, 32));
    Image1_5->setText(QStringLiteral("Advance SubTab  --->"));
    Image1_5->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Image1_5->setAutoRaise(true);
    Image1_5->setToolTip(QStringLiteral("Yes, I'm the LOGO"));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabSub, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(Image1_5);
    layout->addLayout(bottom);

    connect(Image1_5, &QToolButton::clicked, this, &SetupOperationsTab::Image1_Click);
    connect(ckSlipStyle, &QCheckBox::clicked, this, &SetupOperationsTab::ckSlipStyle_Click);
    connect(ckSize, &QCheckBox::toggled, this,
            [this](bool on) { ckSize->setText(sizeCaption(on)); });
    connect(ck7, &QRadioButton::clicked, this, [this] { c.v.gStartHour = 7; });
    connect(ck8, &QRadioButton::clicked, this, [this] { c.v.gStartHour = 8; });
    const std::pair<QRadioButton*, int> weeks[] = {
        {optMF, 5}, {optMS, 61}, {optSF, 62}, {optSS, 7}};
    for (auto [button, code] : weeks)
        connect(button, &QRadioButton::clicked, this, [this, code = code] {
            c.v.gWorkDays = quint8(code);
            c.v.settings.workWeekOption = code;
        });
    for (QRadioButton* b : optServiceInvoice)
        connect(b, &QRadioButton::toggled, this, [this](bool on) {
            if (on && !m_loading) emit invoiceStyleChanged();
        });
}

void SetupOperationsTab::loadFromSettings()
{
    m_loading = true;
    const SetupSettings& s = c.v.settings;
    ck7->setChecked(s.ck7);
    ck8->setChecked(s.ck8);
    QRadioButton* week = s.workWeekOption == 5    ? optMF
                         : s.workWeekOption == 61 ? optMS
                         : s.workWeekOption == 62 ? optSF
                         : s.workWeekOption == 7  ? optSS
                                                  : nullptr;
    for (QRadioButton* b : {optMF, optMS, optSF, optSS}) {
        b->setAutoExclusive(false);
        b->setChecked(b == week);
        b->setAutoExclusive(true);
    }
    for (int i = 0; i < 3; ++i)
        optServiceInvoice[i]->setChecked(s.optServiceInvoice[i]);
    ckSize->setChecked(s.ckSize == 1);
    ckSize->setText(sizeCaption(s.ckSize == 1));
    ckPhone->setChecked(s.ckPhone == 1);
    ckCallerID->setChecked(s.ckCallerID == 1);
    txtModemPort->setText(QString::number(c.v.gModemPort));
    cboModemDevice->clear();
    cboModemDevice->addItem(QString());
    cboModemDevice->addItems(SerialDevicesOnSystem());
    cboModemDevice->setCurrentText(ConfiguredModemDevice(c.store.baseName()));
    lblCallID->setVisible(s.lblCallIDVisible);
    ckAlarms->setChecked(s.ckAlarms == 1);
    ckPrompts->setChecked(s.ckPrompts == 1);
    ckSlipStyle->setChecked(s.ckSlipStyle == 1);
    fraSlipNo->setVisible(s.fraSlipNoVisible);
    txtNextSlip->setText(s.txtNextSlip);
    // A calendar file that cannot be read shows the defaults; saving writes it anew.
    const CalendarExportSettings calendars =
        ReadCalendarExportSettings(c.store).valueOr(CalendarExportSettings{});
    ckExportCalendars->setChecked(calendars.afterEveryChange);
    txtCalendarDays->setValue(calendars.days);
    m_loading = false;
}

Status SetupOperationsTab::storeCalendarOptions()
{
    Result<CalendarExportSettings> stored = ReadCalendarExportSettings(c.store);
    CalendarExportSettings settings = stored.valueOr(CalendarExportSettings{});
    if (stored && settings.afterEveryChange == ckExportCalendars->isChecked() &&
        settings.days == txtCalendarDays->value())
        return {};
    settings.afterEveryChange = ckExportCalendars->isChecked();
    settings.days = txtCalendarDays->value();
    // No file and nothing asked for: the folder stays as it was.
    if (!c.store.IsFile(CalendarExportSettingsFile()) && !settings.afterEveryChange &&
        settings.days == kDefaultCalendarDays)
        return {};
    return WriteCalendarExportSettings(c.store, settings);
}

void SetupOperationsTab::fillExit(SetupExit& e) const
{
    e.ck7 = ck7->isChecked();
    e.ck8 = ck8->isChecked();
    for (int i = 0; i < 3; ++i)
        e.optServiceInvoice[i] = optServiceInvoice[i]->isChecked();
    e.ckSize = ckSize->isChecked();
    e.ckPhone = ckPhone->isChecked();
    e.ckCallerID = ckCallerID->isChecked();
    // A port number the user typed is the one stored; anything else leaves it as it was.
    bool number = false;
    const int port = txtModemPort->text().trimmed().toInt(&number);
    e.modemPort.reset();
    if (number && port >= 0 && port <= 16) e.modemPort = qint16(port);
    e.ckAlarms = ckAlarms->isChecked();
    e.ckPrompts = ckPrompts->isChecked();
    e.ckSlipStyle = ckSlipStyle->isChecked();
    e.txtNextSlip = txtNextSlip->text();
}

void SetupOperationsTab::storeModemDevice()
{
    txtModemPort->setText(QString::number(c.v.gModemPort));
    const QString device = cboModemDevice->currentText().trimmed();
    if (device != ConfiguredModemDevice(c.store.baseName()))
        SetConfiguredModemDevice(c.store.baseName(), device);
}

int SetupOperationsTab::phoneTabIndex() const
{
    return tabSub->indexOf(fraPhone->parentWidget());
}

void SetupOperationsTab::setPhoneFeatures(bool shown)
{
    fraPhone->setEnabled(shown);
}

void SetupOperationsTab::setServiceOrderAvailable(bool available)
{
    optServiceInvoice[2]->setVisible(available);
}

void SetupOperationsTab::ckSlipStyle_Click()
{
    c.v.settings.ckSlipStyle = ckSlipStyle->isChecked() ? 1 : 0;
    if (ckSlipStyle->isChecked()) {
        fraSlipNo->setVisible(false);
        c.v.settings.fraSlipNoVisible = false;
        return;
    }
    fraSlipNo->setVisible(true);
    c.v.settings.fraSlipNoVisible = true;
    if (Status s = LoadSlipNo(c); !s) c.dialogs.message(s.message());
    txtNextSlip->setText(c.v.settings.txtNextSlip);
}

void SetupOperationsTab::cmdServiceSlip_Click(int index)
{
    c.v.settings.txtNextSlip = txtNextSlip->text();
    ServiceSlipButton(c.v, index);
    txtNextSlip->setText(c.v.settings.txtNextSlip);
    if (index == 0) txtNextSlip->setFocus();
}

void SetupOperationsTab::Image1_Click()
{
    tabSub->setCurrentIndex((tabSub->currentIndex() + 1) % tabSub->count());
}
} // namespace tresvane
