#include "app/calendarautoexport.h"

#include "core/exports/exportsettings.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/state/dispatchingvariables.h"

#include <QThread>

namespace tresvane
{
CalendarAutoExport::CalendarAutoExport(QString programFolder, const Clock& clock, QObject* parent)
    : QObject(parent), m_folder(std::move(programFolder)), m_clock(clock)
{
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (m_teams) check(m_teams());
    });
}

CalendarAutoExport::~CalendarAutoExport()
{
    waitForDone();
}

void CalendarAutoExport::start(int ms, std::function<QStringList()> teams)
{
    m_teams = std::move(teams);
    m_timer.start(ms);
}

bool CalendarAutoExport::check(const QStringList& teams)
{
    if (m_thread) return false;
    const qint64 calls = Store::fileCalls();
    if (calls == m_seen) return false;
    m_seen = calls;
    const Store store(m_folder);
    Result<CalendarExportSettings> settings = ReadCalendarExportSettings(store);
    if (!settings || !settings->afterEveryChange) return false;

    m_callsAtStart = calls;
    m_thread = QThread::create([this, teams] {
        // A store, a user and shared state of the thread's own: nothing of the screens'.
        Store store(m_folder);
        SilentDialogs dialogs;
        DispatchingVariables v;
        v.gAssignTo = teams;
        CoreContext c{store, m_clock, dialogs, v};
        m_result = ExportCrewCalendars(c, {});
    });
    connect(m_thread, &QThread::finished, this, &CalendarAutoExport::finished);
    m_thread->start(QThread::LowPriority);
    return true;
}

void CalendarAutoExport::finished()
{
    if (!m_thread) return;
    m_thread->wait();
    m_thread->deleteLater();
    m_thread = nullptr;
    // The export's own writes are no change to export again; anything else the program
    // wrote meanwhile is, at the next look.
    if (m_result) m_seen = m_callsAtStart + m_result->written + m_result->removed.size();
    emit exported(m_result.valueOr({}), m_result.message());
}

void CalendarAutoExport::waitForDone()
{
    if (!m_thread) return;
    m_thread->wait();
    finished();
}
} // namespace tresvane
