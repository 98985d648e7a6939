#pragma once

#include "core/io/result.h"
#include "core/io/rtfdocument.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>

namespace tresvane
{
class Store;

// A service contract is a document, not a record: the generic template is filled in for
// one customer and saved beside it as "Contract - <account>.rtf", for the user to finish
// and print in a word processor. Nothing else in the program reads it back.

QString ContractsFolder();         // "/Templates/Contracts"
QString GenericContractFileName(); // "/Templates/Contracts/GenericContract.rtf"
// The name of the account's contract, inside ContractsFolder() whatever the account holds:
// a separator, "." or ".." cannot make it a path step.
QString ContractFileName(const QString& account);
// What the user is told the file is called: "Contract - <account>.rtf" as it stands on disk.
QString ContractFileTitle(const QString& account);

// Where the service line goes in the template.
inline const QString kServicesMarker = QStringLiteral("(Insert Services and Prices Here)");

// The durations and the billing frequencies offered; a typed duration stands as it is.
QStringList ContractDurations();
QStringList BillingFrequencies();

// The end of the contract for the duration at listIndex of ContractDurations(), from the
// commencement date; a typed duration (any other index) leaves a rule to write on.
QString TerminationText(int listIndex, const QDate& commencing);
QString RenewText(bool renew);

// What the form holds when the contract is made.
struct ContractTerms {
    QString service;
    QString price; // as the contract shows it: DocumentPrice()
    QString businessName;
    QString customerName;
    QDate created;
    QString duration; // the text of the duration box, listed or typed
    int durationIndex = -1;
    QDate commencing;
    QString frequency;
    bool renew = false;
    QString contractorAddress;
    QString customerAddress;
};

// Fills the template: the service line at the marker (left out when the template has no
// marker), then every keyword in turn. Matching ignores case, so a plain word of the
// running text that spells a keyword is filled too, and the keywords go in a fixed order:
// a value put in by one is searched by the ones after it.
void FillContract(RtfDocument& body, const ContractTerms& terms);

// The template as the program brings it, for a folder that has none.
QByteArray BuiltInGenericContract();
// Lays the built-in template into ContractsFolder() when no template is there; one that
// is there, the user's own or an older one, is never replaced.
Status InstallGenericContract(Store& store);

// The template; no value (and no message) when the file is not there.
Result<std::optional<RtfDocument>> LoadGenericContract(Store& store);
// Writes the filled document as the account's contract, replacing an older one.
Status SaveContract(Store& store, const QString& account, const RtfDocument& body);

// The messages of the contract screen.
QString ContractExistsQuestion();
QString ContractExistsTitle(); // "Replace Existing Contract"
QString MissingTemplateMessage();
QString ContractCreatedMessage(const QString& account);
QString ContractCreatedTitle(); // "Contract Created"
} // namespace tresvane
