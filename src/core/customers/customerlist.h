#pragma once

#include "core/io/result.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace tresvane
{
class Store;

// The name list and the city list of the customer screen, and the duplicate account
// test: scans of CustomerData.txt in one read.

struct AccountListEntry {
    QString text;      // Business: the name; otherwise "Last, First" and " I" when an initial
    qint32 record = 0; // the item data: the record number
    bool operator==(const AccountListEntry&) const = default;
};

struct AccountListData {
    QList<AccountListEntry> accounts; // in record order; the list box sorts them itself
    QStringList cities;               // trimmed Address3, in order of first appearance
};

// What FillAccountList puts in cboAccounts and cboCity: one entry per whole record of the
// file. More records than the screen's 16-bit lists can hold is reported.
Result<AccountListData> ReadAccountList(Store& store);
AccountListData AccountListFromBytes(const QByteArray& bytes);

// The text of one record's entry in the name list.
QString AccountListText(const class RecordView& record);

// True when a record from 1 to gLastrec other than gCurrentRec holds exactly this account
// number (trimmed as stored, compared with `account` as the box holds it). No scan, and
// false, when gCurrentRec is 0 or the text is empty. Records past the end hold no number.
Result<bool> AccountNoExists(Store& store, const QString& account, qint32 gCurrentRec,
                             qint32 gLastrec);
} // namespace tresvane
