#pragma once

#include "core/calendar/slippopup.h"
#include "core/state/corecontext.h"

#include <QDialog>

class QFrame;
class QLabel;
class QPushButton;
class QToolButton;

namespace tresvane
{
// "Service Attention Slip": the record behind an hour clicked on the board of teams,
// read only, with a button that calls the customer where a telephone hangs behind the
// modem. A small modal dialog: its close box closes it alone.
class frmSlip : public QDialog
{
    Q_OBJECT
public:
    explicit frmSlip(CoreContext& ctx, QWidget* parent = nullptr);

    // Whether the dial button is offered: a modem was found and a telephone is chained.
    void setDialAvailable(bool available);

    // Finds the record of the clicked hour and shows it over the board. Where no record
    // belongs to the hour the user is told "No Data Available" and the popup stays closed;
    // the answer is then false.
    bool ShowSlip(const ClickedSlot& clicked, const QString& teamName);

signals:
    void dialRequested(const QString& name, const QString& number);

private:
    void LoadRecData(const SlipPopupText& text);

    CoreContext& c;
    QLabel* lblName;
    QLabel* lblStreet;
    QLabel* lblApt;
    QLabel* lblCity;
    QLabel* lblState;
    QLabel* lblZip;
    QLabel* lblTel;
    QLabel* lblAccount;
    QLabel* lblAssignTo;
    QLabel* lblDuration;
    QLabel* lblTime;
    QLabel* lblDate;
    QLabel* lblReference;
    QFrame* fraDial;
    QToolButton* imgDialer;
    QPushButton* cmdAttn;
    bool m_dialAvailable = false;
};
} // namespace tresvane
