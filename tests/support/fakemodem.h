#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

class QSocketNotifier;

namespace tresvane
{
// A voice modem on the far end of a pseudo-terminal. The program opens devicePath() like
// any serial device; the modem echoes what it is sent, answers a command it knows with OK
// and any other with ERROR, and keeps a log of the commands.
class FakeModem : public QObject
{
    Q_OBJECT
public:
    enum class Mode {
        Answering, // echo, then OK or ERROR
        Silent,    // reads everything, answers nothing
    };

    explicit FakeModem(QObject* parent = nullptr);
    ~FakeModem() override;

    // False when no pseudo-terminal could be had.
    bool isValid() const { return m_master >= 0; }
    QString devicePath() const { return m_path; }

    void setMode(Mode mode) { m_mode = mode; }
    // Each reply comes this many milliseconds after its command.
    void setReplyDelay(int ms) { m_delay = ms; }
    // Each reply is written in two pieces, split inside "OK", the second after splitMs.
    void setSplitReplies(bool split, int splitMs = 50)
    {
        m_split = split;
        m_splitMs = splitMs;
    }

    // Every command received, without its carriage return, in order.
    QStringList commands() const { return m_commands; }
    // Only the dial and hang-up commands.
    QStringList calls() const;
    bool callerIdOn() const { return m_cid; }
    // A modem without caller ID answers ERROR to "AT#CID=1".
    void setCallerIdSupported(bool supported) { m_cidSupported = supported; }
    // Writes bytes to the program as if the modem had sent them unasked.
    void say(const QByteArray& bytes);

signals:
    void commandReceived(const QString& command);

private:
    void readMaster();
    void handle(const QByteArray& line);
    void reply(const QByteArray& bytes);
    void writeMaster(const QByteArray& bytes);

    int m_master = -1;
    int m_slave = -1;
    QString m_path;
    QSocketNotifier* m_notifier = nullptr;
    QByteArray m_line;
    QStringList m_commands;
    Mode m_mode = Mode::Answering;
    int m_delay = 0;
    bool m_split = false;
    int m_splitMs = 50;
    bool m_cid = false;
    bool m_cidSupported = true;
};
} // namespace tresvane
