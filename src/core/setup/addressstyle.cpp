#include "core/setup/addressstyle.h"

#include "core/io/textfile.h"

namespace tresvane
{
QString ToggledAddressStyle(const QString& caption)
{
    return caption == kUsaStyleAddress ? kInternationalStyleAddress : kUsaStyleAddress;
}

QString AddressStyleAtLoad(const QString& companyName, const QString& postalCode)
{
    // The caption is set to the opposite of the wanted layout, and the one click that
    // follows at every load turns it round.
    QString caption;
    if (postalCode.isEmpty() && companyName.isEmpty()) caption = kInternationalStyleAddress;
    if (IsNumeric(postalCode)) caption = kInternationalStyleAddress;
    if (!companyName.isEmpty())
        caption = postalCode.isEmpty() ? kUsaStyleAddress : kInternationalStyleAddress;
    if (caption.isEmpty()) caption = kInternationalStyleAddress;
    return ToggledAddressStyle(caption);
}

bool TelephoneValid(const QString& telephone)
{
    return IsNumeric(telephone.right(4));
}
} // namespace tresvane
