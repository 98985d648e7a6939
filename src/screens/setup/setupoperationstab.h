#pragma once

#include "core/setup/setupsave.h"

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QTabWidget;
class QToolButton;

namespace tresvane
{
// Tab 3 of the setup screen, Operations, with its sub-tabs: 0 the work week and the first
// hour, 1 the invoice style and paper, 2 phone, alarms and prompts, 3 slip numbering.
class SetupOperationsTab : public QWidget
{
    Q_OBJECT
public:
    explicit SetupOperationsTab(CoreContext& ctx, QWidget* parent = nullptr);

    QTabWidget* tabSub;
    QToolButton* Image1_5; // advances the sub-tab
    // Sub-tab 0
    QRadioButton* ck7;
    QRadioButton* ck8;
    QRadioButton* optMF;
    QRadioButton* optMS;
    QRadioButton* optSF;
    QRadioButton* optSS;
    // The crews' calendars, kept in Exports/CalendarExport.txt and not in the settings
    // file, which sibling programs share.
    QCheckBox* ckExportCalendars;
    QSpinBox* txtCalendarDays;
    // Sub-tab 1
    std::array<QRadioButton*, 3> optServiceInvoice;
    QCheckBox* ckSize;
    // Sub-tab 2. fraPhone holds what needs a modem and is disabled without one; the modem's
    // port and device stay open, so a modem not found can be pointed to.
    QGroupBox* fraPhone;
    QLineEdit* txtModemPort;
    QComboBox* cboModemDevice;
    QLabel* lblModem;
    QCheckBox* ckPhone;
    QCheckBox* ckCallerID;
    QLabel* lblCallID;
    QCheckBox* ckAlarms;
    QCheckBox* ckPrompts;
    // Sub-tab 3
    QCheckBox* ckSlipStyle;
    QGroupBox* fraSlipNo;
    QLineEdit* txtNextSlip;
    std::array<QPushButton*, 3> cmdServiceSlip;

    // Controls from the settings in memory, and back.
    void loadFromSettings();
    // The tab's controls into the setup's exit values.
    void fillExit(SetupExit& e) const;
    // Writes the calendar options to their own file when they differ from it.
    Status storeCalendarOptions();
    // Shows the port as stored and keeps the chosen device for this computer.
    void storeModemDevice();
    // The index of the sub-tab with the phone settings.
    int phoneTabIndex() const;
    // The settings that need a modem open (one was found) or closed.
    void setPhoneFeatures(bool shown);
    // Whether the Service Order style can be chosen (its catalogue exists).
    void setServiceOrderAvailable(bool available);

    void ckSlipStyle_Click();
    void cmdServiceSlip_Click(int index);
    void Image1_Click();

signals:
    void invoiceStyleChanged();

private:
    CoreContext& c;
    bool m_loading = false;
};
} // namespace tresvane
