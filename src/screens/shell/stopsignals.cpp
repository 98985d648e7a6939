#include "screens/shell/stopsignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace tresvane
{
namespace
{

int g_pipe[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    // Nothing else is safe in a signal handler; a full pipe already holds a request.
    [[maybe_unused]] const ssize_t n = ::write(g_pipe[1], &byte, 1);
}

} // namespace

StopSignals::StopSignals(QObject* parent) : QObject(parent)
{
    if (::pipe2(g_pipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    m_notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char buffer[16];
        while (::read(g_pipe[0], buffer, sizeof buffer) > 0) {
        }
        emit stopRequested();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (int sig : {SIGTERM, SIGHUP, SIGINT})
        ::sigaction(sig, &action, nullptr);
}

StopSignals::~StopSignals()
{
    for (int sig : {SIGTERM, SIGHUP, SIGINT})
        ::signal(sig, SIG_DFL);
    delete m_notifier;
    for (int& fd : g_pipe) {
        if (fd >= 0) ::close(fd);
        fd = -1;
    }
}
} // namespace tresvane
