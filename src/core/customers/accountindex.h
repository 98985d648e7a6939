#pragma once

#include "core/customers/customerlist.h"

#include <QList>
#include <QString>

namespace tresvane
{
// The name list of the customer screen in the order its list box keeps: alphabetical
// without regard to case, entries of equal text in record order. The box is filled with
// every account of the file, so the look-ups a typed key runs are binary searches.
class AccountIndex
{
public:
    AccountIndex() = default;
    explicit AccountIndex(QList<AccountListEntry> entries);

    qsizetype size() const { return m_entries.size(); }
    bool isEmpty() const { return m_entries.isEmpty(); }
    const AccountListEntry& at(qsizetype i) const { return m_entries[i]; }

    // The first entry that begins with `typed`, without regard to case; -1 when none or
    // when nothing was typed.
    qsizetype FirstStartingWith(const QString& typed) const;
    // What the list adds to typed text: the rest of the first entry beginning with it, or
    // an empty text when no entry is longer.
    QString Completion(const QString& typed) const;
    // The first entry equal to `text` when both are trimmed and compared without regard to
    // case; -1 when none.
    qsizetype FindEqual(const QString& text) const;

private:
    QList<AccountListEntry> m_entries;
    QList<QString> m_keys; // the case-folded texts, the sort keys
};
} // namespace tresvane
