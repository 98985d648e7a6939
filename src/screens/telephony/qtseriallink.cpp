#include "screens/telephony/qtseriallink.h"

#include <QFileInfo>
#include <QSerialPort>

#include <unistd.h>

namespace tresvane
{
QtSerialLink::QtSerialLink(QObject* parent) : SerialLink(parent), m_port(new QSerialPort(this))
{
    connect(m_port, &QSerialPort::readyRead, this, &SerialLink::bytesArrived);
}

QtSerialLink::~QtSerialLink() = default;

void QtSerialLink::setDevice(const QString& device)
{
    m_device = device;
}

QString QtSerialLink::device() const
{
    return m_device;
}

Status QtSerialLink::open()
{
    if (m_port->isOpen()) return {};
    if (m_device.isEmpty())
        return Status::failure(QStringLiteral("No serial device is set for the modem."));
    m_port->setPortName(m_device);
    if (m_port->open(QIODevice::ReadWrite)) {
        m_port->setBaudRate(QSerialPort::Baud9600);
        m_port->setDataBits(QSerialPort::Data8);
        m_port->setParity(QSerialPort::NoParity);
        m_port->setStopBits(QSerialPort::OneStop);
        m_port->setFlowControl(QSerialPort::NoFlowControl);
        return {};
    }
    const QSerialPort::SerialPortError error = m_port->error();
    const QString detail = m_port->errorString();
    m_port->clearError();
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return Status::failure(QStringLiteral("There is no serial device %1.").arg(m_device));
    case QSerialPort::PermissionError: {
        // QSerialPort says "permission" both for a device this user may not use and for
        // one that another program holds; the file's own rights tell the two apart.
        const QByteArray path = QFile::encodeName(QFileInfo(m_device).absoluteFilePath());
        if (::access(path.constData(), R_OK | W_OK) != 0)
            return Status::failure(
                QStringLiteral("You may not use the serial device %1: add yourself to the "
                               "dialout group (sudo adduser $USER dialout), then log in again.")
                    .arg(m_device));
        return Status::failure(
            QStringLiteral("The serial device %1 is busy: another program is using it.")
                .arg(m_device));
    }
    default:
        return Status::failure(
            QStringLiteral("The serial device %1 could not be opened: %2.").arg(m_device, detail));
    }
}

void QtSerialLink::close()
{
    if (!m_port->isOpen()) return;
    // A command sent just before closing (caller ID off, hang up) still reaches the modem:
    // closing would throw away what is waiting to be written.
    if (m_port->bytesToWrite() > 0) m_port->waitForBytesWritten(kCloseFlushMs);
    m_port->close();
}

bool QtSerialLink::isOpen() const
{
    return m_port->isOpen();
}

void QtSerialLink::send(const QByteArray& bytes)
{
    if (m_port->isOpen()) m_port->write(bytes);
}

QByteArray QtSerialLink::readAll()
{
    return m_port->isOpen() ? m_port->readAll() : QByteArray();
}

qint64 QtSerialLink::bytesWaiting() const
{
    return m_port->isOpen() ? m_port->bytesAvailable() : 0;
}

void QtSerialLink::clear()
{
    if (m_port->isOpen()) {
        m_port->readAll();
        m_port->clear(QSerialPort::Input);
    }
}
} // namespace tresvane
