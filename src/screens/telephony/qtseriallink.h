#pragma once

#include "core/ports/seriallink.h"

class QSerialPort;

namespace tresvane
{
// The modem's serial line through QSerialPort.
class QtSerialLink final : public SerialLink
{
    Q_OBJECT
public:
    explicit QtSerialLink(QObject* parent = nullptr);
    ~QtSerialLink() override;
    // How long closing may wait for bytes still to be written.
    static constexpr int kCloseFlushMs = 200;

    void setDevice(const QString& device) override;
    QString device() const override;
    [[nodiscard]] Status open() override;
    void close() override;
    bool isOpen() const override;
    void send(const QByteArray& bytes) override;
    QByteArray readAll() override;
    qint64 bytesWaiting() const override;
    void clear() override;

private:
    QSerialPort* m_port;
    QString m_device;
};
} // namespace tresvane
