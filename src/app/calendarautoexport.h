#pragma once

#include "core/exports/crewcalendars.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

class QThread;

namespace tresvane
{
class Clock;

// Keeps the crews' calendars current when the setup asks for it ("Export the crews'
// calendars after every change"): a short while after the program has changed anything in
// its folder, every team's calendar is made again on a thread of its own, and only the
// files whose events changed are written. The dispatcher never waits for it. The first look
// after the start exports too, so the calendars begin at the new today.
class CalendarAutoExport : public QObject
{
    Q_OBJECT
public:
    CalendarAutoExport(QString programFolder, const Clock& clock, QObject* parent = nullptr);
    ~CalendarAutoExport() override;

    // Looks every `ms` milliseconds, with the teams as they stand at each look.
    void start(int ms, std::function<QStringList()> teams);
    // One look now: when the folder changed since the last one and the option is on, an
    // export starts unless one is running. True when one started.
    bool check(const QStringList& teams);
    bool running() const { return m_thread != nullptr; }
    // Waits for a running export to end (the program's exit, tests).
    void waitForDone();

signals:
    // An export ended: its report, or the message of what stopped it.
    void exported(const tresvane::CalendarExportReport& report, const QString& problem);

private:
    void finished();

    QString m_folder;
    const Clock& m_clock;
    QTimer m_timer;
    std::function<QStringList()> m_teams;
    qint64 m_seen = -1; // the folder's change count at the last look; -1 before the first
    qint64 m_callsAtStart = 0;
    QThread* m_thread = nullptr;
    Result<CalendarExportReport> m_result = CalendarExportReport{};
};
} // namespace tresvane
