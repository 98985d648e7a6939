#include "screens/shell/weburls.h"

#ifndef DISPATCH_URL_HOME
#define DISPATCH_URL_HOME "https://www.tresvaneworks.us/"
#endif
#ifndef DISPATCH_URL_MANUAL
#define DISPATCH_URL_MANUAL "https://www.tresvaneworks.us/manuals/TresvaneDispatcher.pdf"
#endif
#ifndef DISPATCH_URL_SHOP
#define DISPATCH_URL_SHOP "https://www.tresvaneworks.us/forms/"
#endif

namespace tresvane
{
namespace WebUrls
{
QString HomePage()
{
    return QStringLiteral(DISPATCH_URL_HOME);
}
QString Manual()
{
    return QStringLiteral(DISPATCH_URL_MANUAL);
}
QString Checks()
{
    return QStringLiteral(DISPATCH_URL_SHOP "checks-and-envelopes");
}
QString DepositSlips()
{
    return QStringLiteral(DISPATCH_URL_SHOP "deposit-slips");
}
QString PlainPaper()
{
    return QStringLiteral(DISPATCH_URL_SHOP "plain-paper");
}
QString PerforatedPaper()
{
    return QStringLiteral(DISPATCH_URL_SHOP "perforated-paper");
}
QString ProposalSets()
{
    return QStringLiteral(DISPATCH_URL_SHOP "proposal-sets");
}
QString AddressLabels()
{
    return QStringLiteral(DISPATCH_URL_SHOP "address-labels");
}
QString ShippingLabels()
{
    return QStringLiteral(DISPATCH_URL_SHOP "shipping-labels");
}
} // namespace WebUrls
} // namespace tresvane
