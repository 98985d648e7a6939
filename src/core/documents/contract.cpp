#include "core/documents/contract.h"

#include "core/io/store.h"
#include "core/io/usforms.h"

#include <QFile>

namespace tresvane
{
QString ContractsFolder()
{
    return QStringLiteral("/Templates/Contracts");
}

QString GenericContractFileName()
{
    return ContractsFolder() + QStringLiteral("/GenericContract.rtf");
}

QString ContractFileTitle(const QString& account)
{
    // Made safe as one whole name, so an account such as "../x" or "a/b" stays a part of
    // the file's name.
    return Store::safeComponent(QStringLiteral("Contract - ") + account + QStringLiteral(".rtf"))
        .replace(u'*', u'_')
        .replace(u'?', u'_');
}

QString ContractFileName(const QString& account)
{
    return ContractsFolder() + u'/' + ContractFileTitle(account);
}

QStringList ContractDurations()
{
    return {QStringLiteral("1 Month"), QStringLiteral("3 Months"), QStringLiteral("6 Months"),
            QStringLiteral("1 Year")};
}

QStringList BillingFrequencies()
{
    return {QStringLiteral("Monthly"), QStringLiteral("Quarterly"), QStringLiteral("Semi-Annually"),
            QStringLiteral("Annually")};
}

QString TerminationText(int listIndex, const QDate& commencing)
{
    // A month on from the 31st ends on the last day of the shorter month.
    switch (listIndex) {
    case 0:
        return FormatShortDate(commencing.addMonths(1));
    case 1:
        return FormatShortDate(commencing.addMonths(3));
    case 2:
        return FormatShortDate(commencing.addMonths(6));
    case 3:
        return FormatShortDate(commencing.addYears(1));
    default:
        return QStringLiteral("_____________________");
    }
}

QString RenewText(bool renew)
{
    return renew ? QStringLiteral("automatically Renew")
                 : QStringLiteral("not automatically Renew");
}

void FillContract(RtfDocument& body, const ContractTerms& t)
{
    body.replaceFirst(kServicesMarker, t.service + QStringLiteral(" - ") + t.price);
    const std::pair<QString, QString> keywords[] = {
        {QStringLiteral("CONTRACTORNAME"), t.businessName},
        {QStringLiteral("UNDERSIGNEDCUSTOMER"), t.customerName},
        {QStringLiteral("CREATIONDATE"), FormatShortDate(t.created)},
        {QStringLiteral("TERMS"), t.duration},
        {QStringLiteral("COMMENCING"), FormatShortDate(t.commencing)},
        {QStringLiteral("TERMINATIONS"), TerminationText(t.durationIndex, t.commencing)},
        {QStringLiteral("FREQUENCY"), t.frequency},
        {QStringLiteral("COST"), t.price},
        {QStringLiteral("RENEWS"), RenewText(t.renew)},
        {QStringLiteral("CONTRACTORADDRESS"), t.contractorAddress},
        {QStringLiteral("CUSTOMERADDRESS"), t.customerAddress},
    };
    for (const auto& [keyword, value] : keywords)
        body.replaceAll(keyword, value);
}

QByteArray BuiltInGenericContract()
{
    QFile file(QStringLiteral(":/tresvane/templates/GenericContract.rtf"));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll();
}

Status InstallGenericContract(Store& store)
{
    if (store.IsFile(GenericContractFileName())) return {};
    const QByteArray bytes = BuiltInGenericContract();
    if (bytes.isEmpty()) return {};
    return store.WriteFile(GenericContractFileName(), bytes);
}

Result<std::optional<RtfDocument>> LoadGenericContract(Store& store)
{
    if (!store.FileExists(GenericContractFileName())) return std::optional<RtfDocument>();
    Result<QByteArray> bytes = store.ReadAll(GenericContractFileName());
    if (!bytes) return bytes.status();
    return std::optional<RtfDocument>(RtfDocument(std::move(*bytes)));
}

Status SaveContract(Store& store, const QString& account, const RtfDocument& body)
{
    return store.WriteFile(ContractFileName(account), body.source());
}

QString ContractExistsQuestion()
{
    return QStringLiteral("A Contract Exists for this Account\n"
                          "Click Yes to Delete it and create a new Contract");
}

QString ContractExistsTitle()
{
    return QStringLiteral("Replace Existing Contract");
}

QString MissingTemplateMessage()
{
    return QStringLiteral("The Generic Contract File could not be Found\n"
                          "Contact Tresvaneworks for a Replacement");
}

QString ContractCreatedMessage(const QString& account)
{
    return QStringLiteral("The Contract has been Created\n"
                          "You can modify and Print it Using MicroSoft Word or WordPad\n"
                          "It is named %1 and is Located in \n"
                          "Directory {Hard Drive}/Tresvaneworks/Templates/Contracts\n"
                          "Do not create another Contract for this Customer\n"
                          "until you have printed this Contract")
        .arg(ContractFileTitle(account));
}

QString ContractCreatedTitle()
{
    return QStringLiteral("Contract Created");
}
} // namespace tresvane
