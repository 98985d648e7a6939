#include "screens/telephony/modemsettings.h"

#include <QSerialPortInfo>
#include <QSettings>

namespace tresvane
{
namespace
{
const QString kDeviceKey = QStringLiteral("Modem/device");
}

QString ConfiguredModemDevice(const QString& programName)
{
    QSettings settings(QStringLiteral("TresvaneDispatcher"), programName);
    return settings.value(kDeviceKey).toString().trimmed();
}

void SetConfiguredModemDevice(const QString& programName, const QString& device)
{
    QSettings settings(QStringLiteral("TresvaneDispatcher"), programName);
    if (device.trimmed().isEmpty())
        settings.remove(kDeviceKey);
    else
        settings.setValue(kDeviceKey, device.trimmed());
}

QStringList SerialDevicesOnSystem()
{
    QStringList devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        devices << info.systemLocation();
    devices.sort();
    return devices;
}
} // namespace tresvane
