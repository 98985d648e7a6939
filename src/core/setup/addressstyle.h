#pragma once

#include <QString>

namespace tresvane
{
// The address style of the business data: the USA layout (city, two-letter state, postal
// code) or the international one (four free address lines). No file stores it; it is
// worked out from the data at each load, and the caption of the style button names the
// layout on screen. Documents ask for it by comparing with kUsaStyleAddress.

inline const QString kUsaStyleAddress = QStringLiteral("USA Style Address");
inline const QString kInternationalStyleAddress = QStringLiteral("International Style Address");

// The caption after one click on the style button.
QString ToggledAddressStyle(const QString& caption);
// The layout chosen at load from the company name and the postal code: USA when a postal
// code exists or nothing has been entered, international when a name stands alone.
QString AddressStyleAtLoad(const QString& companyName, const QString& postalCode);

// The telephone box passes when its last four characters are a number; an empty box fails.
bool TelephoneValid(const QString& telephone);
} // namespace tresvane
