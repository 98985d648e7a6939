#include "core/documents/addresslines.h"

#include "core/setup/addressstyle.h"
#include "core/state/dispatchingvariables.h"

#include <QStringList>

namespace tresvane
{
namespace
{

// The fields of the business data an address is made of.
enum BusinessField {
    BusinessName = 0,
    BusinessAddress1 = 1,
    BusinessAddress2 = 2,
    BusinessCity = 3,
    BusinessState = 4,
    BusinessPostalCode = 5,
};

QString addressLines(const QString& name, const QString& street, const QString& apartment,
                     const QString& city, const QString& state, const QString& zip, bool usa)
{
    QStringList lines;
    for (const QString& line : {name, street, apartment})
        if (!line.trimmed().isEmpty()) lines << line.trimmed();
    if (usa) {
        QString town = city.trimmed();
        if (!state.trimmed().isEmpty())
            town += (town.isEmpty() ? QString() : QStringLiteral(", ")) + state.trimmed();
        if (!zip.trimmed().isEmpty())
            town += (town.isEmpty() ? QString() : QStringLiteral(" ")) + zip.trimmed();
        if (!town.isEmpty()) lines << town;
    } else {
        for (const QString& line : {city, state, zip})
            if (!line.trimmed().isEmpty()) lines << line.trimmed();
    }
    return lines.join(u'\n');
}

} // namespace

QString CustomerAddressLines(const DispatchingVariables& v)
{
    return addressLines(v.current.name, v.current.address1, v.current.address2, v.current.city,
                        v.current.state, v.current.zip, !v.current.state.trimmed().isEmpty());
}

QString BusinessAddressLines(const DispatchingVariables& v)
{
    const auto& b = v.gBusiness;
    return addressLines(b[BusinessName], b[BusinessAddress1], b[BusinessAddress2], b[BusinessCity],
                        b[BusinessState], b[BusinessPostalCode],
                        v.settings.cmdAddress == kUsaStyleAddress);
}
} // namespace tresvane
