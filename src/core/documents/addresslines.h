#pragma once

#include <QString>

namespace tresvane
{
struct DispatchingVariables;

// Addresses as the documents write them, one line each: the name, the street, the
// apartment line when there is one, then the town: "City, ST 12345" in the USA style, its
// parts each on a line in the international style. Empty parts leave no empty line.

// The customer in hand. The international style keeps no state, so a customer without
// one has the town's lines as they were entered.
QString CustomerAddressLines(const DispatchingVariables& v);
// The business, in the address style the setup names.
QString BusinessAddressLines(const DispatchingVariables& v);
} // namespace tresvane
