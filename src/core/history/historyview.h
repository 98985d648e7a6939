#pragma once

#include "core/io/result.h"

#include <QByteArrayView>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace tresvane
{
class Store;

// What the history screen shows of ServiceHistory.txt and CAHistory.txt: the records of one
// account (or of all) whose date lies between two dates, both ends included, with the
// running total of the ledger amounts.

struct HistoryFilter {
    bool byAccount = false; // the tick "this account only"
    QString account;        // compared without its padding blanks, as written (case counts)
    QDate from;
    QDate to;
};

struct HistoryRow {
    // Account, name, date, work (or ledger text), note (or amount): trimmed, as stored.
    QStringList cells;
    // Lines of the tallest cell: a work or ledger text holding CR LF needs a taller row.
    int lines = 1;
};

// Records that were left out because their date (or, in the ledger, their amount) could
// not be read: how many, and the number of the first, for one message naming the file.
struct HistoryDamage {
    QString file;
    int records = 0;
    qint32 firstRecord = 0;
};

struct HistoryView {
    QList<HistoryRow> service; // fgSHistory
    QList<HistoryRow> ledger;  // fgHistory
    qint64 total = 0;          // the ledger amounts shown, in units of 1/10,000
    // Every account named in either file, trimmed, sorted, once each: the account list.
    QStringList accounts;
    QList<HistoryDamage> damage;
};

// Reads both files in one pass each. A missing file shows nothing. More than 32,767
// records in a file is reported, as the record count cannot hold them.
Result<HistoryView> LoadHistory(Store& store, const HistoryFilter& filter);

// The date of a history record: m/d/yyyy, or m/d/yy as 1930 to 2029; invalid otherwise.
QDate ParseHistoryDate(QByteArrayView text);

// The message for records that could not be read, or empty when there were none.
QString DescribeDamage(const QList<HistoryDamage>& damage);

// Deletes both history files and their copies in Backup, as one change.
Status PurgeAllHistory(Store& store);
// Drops every record of the account (the stored account equal to the text, padding blanks
// aside, as the account list shows it) from both files, as one change: the records of
// other accounts go to AccountsTemp.txt, numbered from 1, and that file replaces the
// history file, whose copy in Backup goes first. A missing history file comes out as an
// empty one, as it always has.
Status PurgeAccountHistory(Store& store, const QString& account);
} // namespace tresvane
