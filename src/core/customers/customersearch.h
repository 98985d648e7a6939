#pragma once

#include "core/io/customerrecords.h"
#include "core/io/result.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tresvane
{
class Dialogs;
class Store;

// The customer search: a plain scan of CustomerData.txt in record order, with no index
// and no sort. The same scan gives the complete customer list.

// The search kinds, the indexes of the search panel's options.
namespace CustomerSearch
{
enum Kind : int {
    ByBusinessName = 0,  // Name
    ByAddress1 = 1,      // Address1
    ByAddress2 = 2,      // Address2
    ByCity = 3,          // Address3: the city, or the free line 3
    ByState = 4,         // State
    ByZip = 5,           // Address4: the postal code, or the free line 4
    ByTelephone = 6,     // Phone by containment; Cell by equality, which ends the scan
    ByLastName = 7,      // LastName
    ByAccountNumber = 8, // offered on the panel, but no field belongs to it: refused
    CompleteList = 10,   // every record; any kind from 10 up lists every record
};
}

// One row of the results grid; the fifth column is the record number as text.
struct CustomerHit {
    qint32 record = 0;
    QString customer; // Business: the name; otherwise title, first and last name, blank-joined
    QString phone;
    QString street; // Address1
    QString city;   // Address3
    bool operator==(const CustomerHit&) const = default;
};

// The hits of a search in record order. The hits share the bytes of the file as read,
// and a cell's text is made only when asked for, so that a search over the whole file
// costs no allocation per hit and a grid makes the texts of the rows it shows only.
class CustomerHits
{
public:
    // The columns of the results grid: "Customer", "Phone", "Street", "City", "Rec".
    enum Column : int { Customer, Phone, Street, City, Rec };

    CustomerHits() = default;
    // Hits over the bytes of CustomerData.txt (shared, not copied).
    explicit CustomerHits(const QByteArray& file) : m_file(file) {}

    qsizetype size() const { return m_numbers.size(); }
    bool isEmpty() const { return m_numbers.isEmpty(); }
    qint32 record(qsizetype row) const { return m_numbers[row]; }
    // A cell: column Customer is, for a Business, the trimmed Name, otherwise the trimmed
    // title, first name and last name joined by blanks (an empty title leaves the leading
    // blank); Phone, Street and City are the trimmed Phone, Address1 and Address3; Rec is
    // the record number. Empty outside the table.
    QString text(qsizetype row, int column) const;
    CustomerHit at(qsizetype row) const;
    const QList<qint32>& records() const { return m_numbers; }

    // Adds a record of the file as a hit. Records must come in record order; a record
    // past the whole records of the file is given as its bytes, which are kept.
    void append(qint32 record);
    void appendPastTheEnd(qint32 record, QByteArrayView bytes);

private:
    const char* data(qsizetype row) const;

    QByteArray m_file;
    QByteArray m_tail; // the hits past the file's whole records, one after another
    qsizetype m_inFile = 0;
    QList<qint32> m_numbers;
};

// The search box's text as the panel passes it: trimmed and in upper case, upper case as
// Windows-1252 has it (letters with accents included, no letter turned into two).
QString NormalizeSearchText(const QString& text);

// Scans records 1 to gLastrec. Records past the end of the file read as zero bytes, as
// they always have. `text` is compared as given (the panel passes NormalizeSearchText)
// against the field of the kind trimmed and upper-cased: a plain substring test, so an
// empty text finds every record. For ByTelephone a record whose trimmed Cell equals
// `text` exactly is the last hit: the scan stops there.
// ByAccountNumber, and a kind that is neither a field nor a list, is refused with a
// message the screen shows; a file that cannot be read is reported naming it.
Result<CustomerHits> SearchCustomers(Store& store, int kind, const QString& text, qint32 gLastrec);
// The same over the bytes of CustomerData.txt already read.
Result<CustomerHits> SearchCustomerBytes(const QByteArray& bytes, int kind, const QString& text,
                                         qint32 gLastrec);

// The message for a search by account number, which the system has never had.
QString NoAccountNumberSearchMessage();

// "Customer not Found": asks whether to create a new account; true for Yes.
bool AskCreateAccountWhenNotFound(Dialogs& dialogs);
} // namespace tresvane
