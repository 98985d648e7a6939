#pragma once

#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <optional>

namespace tresvane
{
// Dates and money in text fields keep the US forms the files have always held.

// mm/dd/yyyy
QString FormatShortDate(const QDate& date);
// Takes m/d/yyyy with one or two digits for month and day (and a two-digit year as
// 1930-2029); an empty optional for anything else.
std::optional<QDate> ParseShortDate(const QString& text);
// The same without a detour through a string, for scans over record bytes: m/d/yyyy with
// one or two digits for month and day, and with twoDigitYear also m/d/yy (1930-2029). An
// invalid date for anything else.
QDate ParseShortDateBytes(QByteArrayView text, bool twoDigitYear = false);

// $1,234.50, negative ($1,234.50); units are 1/10,000 of a dollar, rounded half away
// from zero to the cent as the old formatting did.
QString FormatCurrency(qint64 units);
// Reads "$1,234.50", "($1,234.50)", "-12.5", "12" into units of 1/10,000.
std::optional<qint64> ParseCurrency(const QString& text);
// The plain decimal form with four places, 12.3400, for listings.
QString FormatDecimalCurrency(qint64 units);
} // namespace tresvane
