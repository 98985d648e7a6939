#pragma once

#include "core/io/result.h"

#include <QByteArray>
#include <QObject>
#include <QString>

namespace tresvane
{
// The serial line to the office's voice modem. One link is owned by the App and shared by
// everything that speaks to the modem. Nothing here waits: what the modem says is
// announced by bytesArrived(), and whoever waits for a reply pairs that with a timer.
class SerialLink : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~SerialLink() override = default;

    // The device the next open() uses, a path such as /dev/ttyS0. Changing it does not
    // touch a port that is open.
    virtual void setDevice(const QString& device) = 0;
    virtual QString device() const = 0;

    // Opens the device at 9600 baud, 8 data bits. A failure says, in words a user can
    // act on, why the device could not be had.
    [[nodiscard]] virtual Status open() = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;

    // Sends the bytes as they are; AT commands carry their own carriage return.
    virtual void send(const QByteArray& bytes) = 0;
    // Everything received so far, taken out of the receive buffer.
    virtual QByteArray readAll() = 0;
    // The count of received bytes not yet read.
    virtual qint64 bytesWaiting() const = 0;
    // Throws away what has been received and not yet read.
    virtual void clear() = 0;

signals:
    // New bytes are waiting to be read.
    void bytesArrived();
};
} // namespace tresvane
