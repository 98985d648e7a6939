#include "core/telephony/modemprobe.h"

#include "core/ports/seriallink.h"

#include <QFileInfo>

namespace tresvane
{
QString ModemDeviceForPort(int port, const QString& configuredDevice)
{
    if (port < 1) return {};
    if (!configuredDevice.trimmed().isEmpty()) return configuredDevice.trimmed();
    return QStringLiteral("/dev/ttyS%1").arg(port - 1);
}

QString ModemPortText(qint16 port, bool found)
{
    if (!found) return QStringLiteral("Modem Not Detected Or In Use.");
    return QStringLiteral("Your Modem Comm Port Is %1.").arg(port);
}

QString ComPortCaption(qint16 port)
{
    return QStringLiteral("COM Port # %1").arg(port);
}

bool SwitchCallerIdOn(SerialLink& link)
{
    if (!link.isOpen() && !link.open()) return false;
    link.clear();
    link.send(QByteArrayLiteral("AT#CID=1\r"));
    return true;
}

ModemProbe::ModemProbe(SerialLink& link, DeviceForPort deviceFor, QObject* parent)
    : QObject(parent), m_link(link), m_deviceFor(std::move(deviceFor))
{
    m_answerTimer.setSingleShot(true);
    m_answerTimer.setInterval(kAnswerMs);
    connect(&m_answerTimer, &QTimer::timeout, this, &ModemProbe::noAnswer);
    connect(&m_link, &SerialLink::bytesArrived, this, &ModemProbe::bytesArrived);
}

void ModemProbe::start()
{
    if (m_running) return;
    m_running = true;
    m_port = 0;
    m_tried.clear();
    // The first device is tried on the next turn of the event loop, so that whoever
    // started the search has finished its own work first.
    QTimer::singleShot(0, this, &ModemProbe::tryNext);
}

void ModemProbe::tryNext()
{
    while (++m_port <= kPorts) {
        const QString device = m_deviceFor(m_port);
        // A named device stands for every port number: it is tried once.
        if (device.isEmpty() || m_tried.contains(device) || !QFileInfo::exists(device)) continue;
        m_tried << device;
        m_link.setDevice(device);
        if (!m_link.open()) continue; // missing, forbidden or busy: the search goes on
        m_link.clear();
        m_waiting = true;
        m_link.send(QByteArrayLiteral("AT\r"));
        m_answerTimer.start();
        return;
    }
    finish(0);
}

void ModemProbe::bytesArrived()
{
    if (!m_waiting || m_link.bytesWaiting() < 2) return;
    m_waiting = false;
    m_answerTimer.stop();
    m_link.close();
    finish(qint16(m_port));
}

void ModemProbe::noAnswer()
{
    if (!m_waiting) return;
    m_waiting = false;
    m_link.close();
    tryNext();
}

void ModemProbe::finish(qint16 port)
{
    m_running = false;
    emit finished(port);
}
} // namespace tresvane
