#pragma once

#include <QString>

namespace tresvane
{
// The web addresses the program opens. They are configuration of the build (CMake cache
// variables of the same names), not of the data folder.
namespace WebUrls
{
QString HomePage();
QString Manual();
QString Checks();
QString DepositSlips();
QString PlainPaper();
QString PerforatedPaper();
QString ProposalSets();
QString AddressLabels();
QString ShippingLabels();
} // namespace WebUrls
} // namespace tresvane
