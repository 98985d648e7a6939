#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>

namespace tresvane
{
class SerialLink;

// The modem's port number is kept as the old COM number. Port n is the serial device
// /dev/ttyS<n-1>, unless the user has named the modem's device (a USB modem's
// /dev/ttyACM0, a /dev/serial/by-id/ path), which then stands for every port number.
// Port 0 is no device.
QString ModemDeviceForPort(int port, const QString& configuredDevice = {});

// What the dialer shows about the modem after the search.
QString ModemPortText(qint16 port, bool found); // "Your Modem Comm Port Is 3."
QString ComPortCaption(qint16 port);            // "COM Port # 3"

// Opens the link if it is not open, empties what it holds and turns caller ID reporting on.
// The port stays open afterwards for the dialer and the caller ID monitor.
bool SwitchCallerIdOn(SerialLink& link);

// Finds the modem: for ports 1 to 16 in turn, opens the device, sends "AT" and takes the
// first port that answers two bytes or more. Any answer will do; its content is not looked
// at. Only devices that exist are tried, each for at most kAnswerMs, and the wait is the
// link's notification and a timer, so the screens keep working while it runs.
class ModemProbe : public QObject
{
    Q_OBJECT
public:
    using DeviceForPort = std::function<QString(int port)>;
    static constexpr int kPorts = 16;
    static constexpr int kAnswerMs = 300;

    ModemProbe(SerialLink& link, DeviceForPort deviceFor, QObject* parent = nullptr);

    // Starts the search; finished() follows, never from within this call. The link must
    // not be open: an open port belongs to someone and is not probed.
    void start();
    bool running() const { return m_running; }

signals:
    // The port that answered, 0 when none did. The link is left closed.
    void finished(qint16 port);

private:
    void tryNext();
    void bytesArrived();
    void noAnswer();
    void finish(qint16 port);

    SerialLink& m_link;
    DeviceForPort m_deviceFor;
    QTimer m_answerTimer;
    QStringList m_tried;
    int m_port = 0;
    bool m_running = false;
    bool m_waiting = false;
};
} // namespace tresvane
