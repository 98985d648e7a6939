#pragma once

#include "core/io/callrecord.h"
#include "core/io/customerrecords.h"
#include "core/io/itemrecords.h"
#include "core/io/sliprecord.h"
#include "core/state/mode.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <array>

namespace tresvane
{
// The settings that live on the setup screen: what its check boxes, options and boxes
// hold. Every screen that needs one reads it here; the setup screen shows and edits it.
struct SetupSettings {
    // Print in colour (1 ticked, 0 not).
    qint16 ckColor = 1;
    // 1: program numbers "SA<day>-<n>"; 0: continuous numbers from SlipNo.txt.
    qint16 ckSlipStyle = 1;
    // 1: USA letter paper, 0: A4. Stored and shown only.
    qint16 ckSize = 1;
    // Invoice style, one of three options: [0] Office, [1] Repair, [2] Service Order.
    std::array<bool, 3> optServiceInvoice = {false, true, false};
    // Sets one option as a click or an assignment would: true clears the other two.
    void setInvoiceOption(int index, bool value)
    {
        if (value) optServiceInvoice = {false, false, false};
        optServiceInvoice[index] = value;
    }
    bool ck7 = false; // start hour option "07:00 am"
    bool ck8 = true;  // start hour option "08:00 am"
    // The work week option shown: 5, 61, 62 or 7; 0 when the reader selected none.
    int workWeekOption = 0;
    qint16 ckAlarms = 1;
    qint16 ckPrompts = 1;
    qint16 ckPhone = 0;
    qint16 ckCallerID = 0;
    bool lblCallIDVisible = false;
    // The continuous-number frame and its box.
    bool fraSlipNoVisible = false;
    QString txtNextSlip;
    bool SlipNumberBad = false;
    // Print colours and font.
    QString txtBorders;
    QString txtData;
    QString lblFont;
    // Problem descriptions (the setup list cboProblems, copied to the booking list).
    QStringList cboProblems;
    // Services of Services.txt (lstServices): a slot holding only one of these is free.
    QStringList lstServices;
    // The business boxes txtBusiness(0..8).
    std::array<QString, 9> txtBusiness;
    // The caption of the address style button: the layout on screen, "USA Style Address"
    // or "International Style Address". Documents compare with the first.
    QString cmdAddress = QStringLiteral("USA Style Address");
};

// The customer in hand: the routine after the customer screen books, prints or fills in
// for this customer.
struct CurrentCustomer {
    QString account, name, address1, address2, state, city, zip, phone;
};

// The shared variables of the program under their own names. The App owns one; every
// screen gets it by reference; a test makes its own.
struct DispatchingVariables {
    // Dates and calendar
    QString gYear;         // four digits of the current year
    qint16 gDayOfYear = 0; // today's day of the year; the booking calendar overwrites it
    QString CurrentJulian; // day of the year of the day file last addressed
    QString CurrentTeam;   // number of the team on the screen
    QString DayFilePath;   // the current day file, program-relative
    QString gBackupPath;   // "/Backup/"

    // Numbering
    QString gConfirmation; // the number the next slip will get
    QString gJulianDay;    // the day of the year in that number
    qint16 gSequence = 1;  // running number within the day
    qint16 gNextSlip = 0;  // next number of the continuous scheme
    bool gCounterExists = false;
    bool gKeepSlipNumber = false; // never set by any routine; kept for its readers
    bool gNumberStepTold = false; // the user was told this run that a number on file was skipped

    // Settings in memory
    quint8 gStartHour = 8;
    quint8 gWorkDays = 5;
    bool gAlarms = true;
    bool gPrompts = true;
    bool gPrintColor = true;
    quint8 gCopies = 1;
    qint32 gBorderColor = 0;
    bool gPhoneChained = false;
    bool gCallerID = false;
    qint16 gModemPort = 0;

    SetupSettings settings;

    // Reference lists
    QStringList gAssignTo = {QStringLiteral("empty")}; // [0] "empty"/"populated", [n] team n
    std::array<QString, 13> TimeLabels;                // 1..12
    std::array<QString, 13> DaySlots;                  // 0..12
    std::array<QString, 9> gBusiness;

    // Record buffers
    CustomerRecord gCustomer;
    ContractRecord gContract;
    CycleRecord gCycle;
    SlipRecord gSlip;

    // The customer in hand, set by SaveCustomer (and by a stored slip or a record taken up)
    CurrentCustomer current;

    // Run-time values
    tresvane::Mode Mode = tresvane::Mode::None;
    // Which option of files the record screen had selected when it handed a slip over for
    // rescheduling: 0 Service Attentions (a new slip), 1 meetings (a new meeting), -1
    // neither. The Scheduling Screen reads it when it comes up in Mode 10.
    qint16 gRescheduleSearchFor = -1;

    // The number of teams: the upper bound of gAssignTo.
    int TeamCount() const { return int(gAssignTo.size()) - 1; }
};

// Fills TimeLabels with the twelve hour labels. There is no noon slot: "11:00" is
// followed by "01:00".
void BuildTimeLabels(DispatchingVariables& v);
} // namespace tresvane
