#include "core/history/historyview.h"

#include "core/history/textpool.h"
#include "core/io/cp1252.h"
#include "core/io/historyrecords.h"
#include "core/io/record.h"
#include "core/io/store.h"
#include "core/io/usforms.h"

#include <QSet>
#include <algorithm>

namespace tresvane
{
namespace
{

// An account as the records are compared: the blanks that pad it do not count, and every
// other character does, a tab or a line end too, so the account the list shows is the
// one a filter or a purge finds.
QByteArray accountKey(const QString& account)
{
    const QByteArray bytes = cp1252::encode(account);
    qsizetype begin = 0, end = bytes.size();
    while (begin < end && bytes[begin] == ' ')
        ++begin;
    while (end > begin && bytes[end - 1] == ' ')
        --end;
    return bytes.mid(begin, end - begin);
}
struct FileColumns {
    int account, name, date, text, last; // grid columns 0 to 4 in order
};

// The file's bytes for its rounded record count: a partial last record that the count
// takes is filled with zero bytes, as reading it always gave.
Result<QByteArray> countedBytes(Store& store, const QString& name, int length)
{
    Result<qint16> count = store.RecordCount(name, length);
    if (!count) return count.status();
    if (*count == 0) return QByteArray();
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes;
    bytes->resize(qsizetype(*count) * length, '\0');
    return bytes;
}

int lineCount(QByteArrayView text)
{
    int lines = 1;
    for (qsizetype i = 0; i + 1 < text.size(); ++i)
        if (text[i] == '\r' && text[i + 1] == '\n') ++lines;
    return lines;
}

// The common amount forms read straight from the bytes: an optional "(" ... ")" or "-",
// "$", digits with thousands commas, and up to four decimals. Anything else goes the long
// way through the general reader, so both give the same value.
std::optional<qint64> parseAmount(QByteArrayView text)
{
    if (text.isEmpty()) return 0;
    QByteArrayView t = text;
    bool negative = false;
    if (t.size() >= 2 && t.front() == '(' && t.back() == ')') {
        negative = true;
        t = t.sliced(1, t.size() - 2);
    }
    if (!t.isEmpty() && t.front() == '-') {
        negative = !negative;
        t = t.sliced(1);
    }
    if (!t.isEmpty() && t.front() == '$') t = t.sliced(1);
    qint64 whole = 0;
    int digits = 0, decimals = 0;
    qint64 fraction = 0;
    bool point = false;
    for (char ch : t) {
        if (ch >= '0' && ch <= '9') {
            if (point) {
                if (++decimals > 4) return ParseCurrency(cp1252::decode(text));
                fraction = fraction * 10 + (ch - '0');
            } else {
                if (++digits > 14) return ParseCurrency(cp1252::decode(text));
                whole = whole * 10 + (ch - '0');
            }
        } else if (ch == '.' && !point) {
            point = true;
        } else if (ch == ',' && !point) {
        } else {
            return ParseCurrency(cp1252::decode(text));
        }
    }
    if (digits == 0 && decimals == 0) return ParseCurrency(cp1252::decode(text));
    for (int i = decimals; i < 4; ++i)
        fraction *= 10;
    const qint64 units = whole * 10000 + fraction;
    return negative ? -units : units;
}

// One file into its rows. `ledger`: the last column is an amount that adds to the total.
Status loadFile(Store& store, const QString& name, const RecordLayout& layout,
                const FileColumns& col, const HistoryFilter& filter, QList<HistoryRow>& rows,
                QSet<QString>& accounts, HistoryView& view, bool ledger)
{
    Result<QByteArray> bytes = countedBytes(store, name, layout.length());
    if (!bytes) return bytes.status();
    const QByteArray wanted = accountKey(filter.account);
    HistoryDamage damage{name.mid(1), 0, 0};
    TextPool accountPool, namePool, datePool, lastPool;
    ForEachRecord(layout, *bytes, [&](qsizetype recordNo, const RecordView& r) {
        const QByteArrayView account = r.trimmedBytes(col.account);
        const QString accountText = accountPool.get(account);
        if (filter.byAccount && account != wanted) return;
        const QByteArrayView dateText = r.trimmedBytes(col.date);
        const QDate date = ParseHistoryDate(dateText);
        const QByteArrayView last = r.trimmedBytes(col.last);
        const std::optional<qint64> amount = ledger ? parseAmount(last) : 0;
        if (!date.isValid() || !amount) {
            if (damage.records++ == 0) damage.firstRecord = qint32(recordNo);
            return;
        }
        if (date < filter.from || date > filter.to) return;
        const QByteArrayView text = r.trimmedBytes(col.text);
        rows.append({{accountText, namePool.get(r.trimmedBytes(col.name)), datePool.get(dateText),
                      cp1252::decode(text), lastPool.get(last)},
                     lineCount(text)});
        view.total += *amount;
    });
    if (damage.records > 0) view.damage.append(damage);
    for (const QString& a : accountPool.texts())
        accounts.insert(a);
    return {};
}
} // namespace

QDate ParseHistoryDate(QByteArrayView text)
{
    return ParseShortDateBytes(text, true);
}

Result<HistoryView> LoadHistory(Store& store, const HistoryFilter& filter)
{
    HistoryView view;
    QSet<QString> accounts;
    // Service: account 1, name 0, date 2, work 3, note 4 (field numbers).
    if (Status s = loadFile(store, ServiceHistoryFileName(), ServiceHistoryLayout(),
                            {ServiceHistoryField::ServiceAccount, ServiceHistoryField::ServiceName,
                             ServiceHistoryField::ServiceDate, ServiceHistoryField::ServiceWork,
                             ServiceHistoryField::ServiceNote},
                            filter, view.service, accounts, view, false);
        !s)
        return s;
    if (Status s =
            loadFile(store, LedgerFileName(), LedgerLayout(),
                     {LedgerField::LedgerAccount, LedgerField::LedgerName, LedgerField::LedgerDate,
                      LedgerField::LedgerText, LedgerField::LedgerAmount},
                     filter, view.ledger, accounts, view, true);
        !s)
        return s;
    view.accounts = QStringList(accounts.cbegin(), accounts.cend());
    std::sort(view.accounts.begin(), view.accounts.end(), [](const QString& a, const QString& b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    return view;
}

QString DescribeDamage(const QList<HistoryDamage>& damage)
{
    QStringList lines;
    for (const HistoryDamage& d : damage)
        lines << QStringLiteral("%1: %2 record(s) with a date or amount that cannot be read "
                                "are not shown (the first is record %3).")
                     .arg(d.file)
                     .arg(d.records)
                     .arg(d.firstRecord);
    return lines.join(u'\n');
}

Status PurgeAllHistory(Store& store)
{
    // Both files go together, so a crash cannot leave one account's ledger without its
    // service history.
    return store.inGroup([&store]() -> Status {
        if (Status s = store.KillWithBackup(ServiceHistoryFileName()); !s) return s;
        return store.KillWithBackup(LedgerFileName());
    });
}

namespace
{
Status purgeAccount(Store& store, const QString& name, const RecordLayout& layout, int accountField,
                    const QByteArray& account)
{
    const QString temporary = QStringLiteral("/AccountsTemp.txt");
    if (Status s = store.KillIfPresent(temporary); !s) return s;
    Result<QByteArray> bytes = countedBytes(store, name, layout.length());
    if (!bytes) return bytes.status();
    QByteArray kept;
    kept.reserve(bytes->size());
    ForEachRecord(layout, *bytes, [&](qsizetype, const RecordView& r) {
        if (r.trimmedBytes(accountField) != account) kept += r.bytes();
    });
    if (Status s = store.WriteFile(temporary, kept); !s) return s;
    // The copy in Backup goes first so that it cannot come back; the kept records then
    // replace the live file in one rename, so a crash leaves the old file or the new one.
    if (Status s = store.KillIfPresent(QStringLiteral("/Backup") + name); !s) return s;
    return store.ReplaceFile(temporary, name);
}
} // namespace

Status PurgeAccountHistory(Store& store, const QString& account)
{
    const QByteArray wanted = accountKey(account);
    return store.inGroup([&]() -> Status {
        if (Status s = purgeAccount(store, ServiceHistoryFileName(), ServiceHistoryLayout(),
                                    ServiceHistoryField::ServiceAccount, wanted);
            !s)
            return s;
        return purgeAccount(store, LedgerFileName(), LedgerLayout(), LedgerField::LedgerAccount,
                            wanted);
    });
}
} // namespace tresvane
