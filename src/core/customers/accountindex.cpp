#include "core/customers/accountindex.h"

#include <algorithm>
#include <numeric>

namespace tresvane
{
AccountIndex::AccountIndex(QList<AccountListEntry> entries)
{
    QList<QString> keys;
    keys.reserve(entries.size());
    for (const AccountListEntry& e : entries)
        keys.append(e.text.toCaseFolded());
    // Sort an order of positions, so each entry and its key move once.
    QList<qsizetype> order(entries.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&keys](qsizetype a, qsizetype b) { return keys[a] < keys[b]; });
    m_entries.reserve(entries.size());
    m_keys.reserve(entries.size());
    for (qsizetype i : order) {
        m_entries.append(std::move(entries[i]));
        m_keys.append(std::move(keys[i]));
    }
}

qsizetype AccountIndex::FirstStartingWith(const QString& typed) const
{
    if (typed.isEmpty()) return -1;
    // In case-folded order the entries that begin with a text stand together, from the
    // first one not below the text itself.
    const QString key = typed.toCaseFolded();
    const auto it = std::lower_bound(m_keys.cbegin(), m_keys.cend(), key);
    if (it == m_keys.cend() || !it->startsWith(key)) return -1;
    return it - m_keys.cbegin();
}

QString AccountIndex::Completion(const QString& typed) const
{
    const qsizetype i = FirstStartingWith(typed);
    if (i < 0 || m_entries[i].text.size() <= typed.size()) return {};
    return m_entries[i].text.mid(typed.size());
}

qsizetype AccountIndex::FindEqual(const QString& text) const
{
    const QStringView wanted = QStringView(text).trimmed();
    for (qsizetype i = 0; i < m_entries.size(); ++i)
        if (QStringView(m_entries[i].text).trimmed().compare(wanted, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}
} // namespace tresvane
