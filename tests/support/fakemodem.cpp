#include "fakemodem.h"

#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>
#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace tresvane
{
FakeModem::FakeModem(QObject* parent) : QObject(parent)
{
    char name[256] = {};
    if (::openpty(&m_master, &m_slave, name, nullptr, nullptr) != 0) {
        m_master = m_slave = -1;
        return;
    }
    m_path = QString::fromLocal8Bit(name);
    // Raw on the program's side until it sets its own modes, so that nothing the modem
    // writes is echoed back or held for a line end by the terminal layer. The slave stays
    // open here, so the master never sees a hang-up between two opens by the program.
    termios raw{};
    if (::tcgetattr(m_slave, &raw) == 0) {
        ::cfmakeraw(&raw);
        ::tcsetattr(m_slave, TCSANOW, &raw);
    }
    ::fcntl(m_master, F_SETFL, ::fcntl(m_master, F_GETFL) | O_NONBLOCK);
    m_notifier = new QSocketNotifier(m_master, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &FakeModem::readMaster);
}

FakeModem::~FakeModem()
{
    delete m_notifier;
    if (m_master >= 0) ::close(m_master);
    if (m_slave >= 0) ::close(m_slave);
}

QStringList FakeModem::calls() const
{
    QStringList out;
    for (const QString& c : m_commands)
        if (c.startsWith(u"ATDT") || c == u"ATH") out << c;
    return out;
}

void FakeModem::say(const QByteArray& bytes)
{
    writeMaster(bytes);
}

void FakeModem::readMaster()
{
    char buffer[512];
    for (;;) {
        const ssize_t n = ::read(m_master, buffer, sizeof buffer);
        if (n <= 0) break;
        const QByteArray got(buffer, int(n));
        if (m_mode == Mode::Answering) reply(got); // the modem's echo
        for (char ch : got) {
            if (ch == '\r') {
                handle(m_line);
                m_line.clear();
            } else if (ch != '\n') {
                m_line += ch;
            }
        }
    }
}

void FakeModem::handle(const QByteArray& line)
{
    const QString command = QString::fromLatin1(line).trimmed().toUpper();
    if (command.isEmpty()) return;
    m_commands << command;
    bool known = true;
    if (command == u"AT#CID=1")
        known = m_cid = m_cidSupported;
    else if (command == u"AT#CID=0" || command == u"AT#CID=0;")
        m_cid = false;
    else if (command != u"AT" && command != u"ATH" && !command.startsWith(u"ATDT"))
        known = false;
    emit commandReceived(command);
    if (m_mode == Mode::Answering)
        reply(known ? QByteArrayLiteral("\r\nOK\r\n") : QByteArrayLiteral("\r\nERROR\r\n"));
}

void FakeModem::reply(const QByteArray& bytes)
{
    const int ok = bytes.indexOf("OK");
    if (m_split && ok >= 0) {
        const QByteArray first = bytes.left(ok + 1), second = bytes.mid(ok + 1);
        QTimer::singleShot(m_delay, this, [this, first] { writeMaster(first); });
        QTimer::singleShot(m_delay + m_splitMs, this, [this, second] { writeMaster(second); });
    } else if (m_delay > 0) {
        QTimer::singleShot(m_delay, this, [this, bytes] { writeMaster(bytes); });
    } else {
        writeMaster(bytes);
    }
}

void FakeModem::writeMaster(const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(m_master, bytes.constData() + done, size_t(bytes.size() - done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return;
        done += n;
    }
}
} // namespace tresvane
