#pragma once

#include <QString>
#include <QStringList>

namespace tresvane
{
// The serial device the user has named for the modem, kept with this computer's settings
// of the program (never in the program folder: another computer of the office has its
// own devices). Empty: the port numbers stand for /dev/ttyS0 onwards.
QString ConfiguredModemDevice(const QString& programName);
void SetConfiguredModemDevice(const QString& programName, const QString& device);

// The serial devices this computer has, as paths, for the user to choose from.
QStringList SerialDevicesOnSystem();
} // namespace tresvane
