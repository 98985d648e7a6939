#include "screens/customers/accountlistmodel.h"

#include "core/customers/accountindex.h"

namespace tresvane
{
AccountListModel::AccountListModel(const AccountIndex& index, QObject* parent)
    : QAbstractListModel(parent), m_index(index)
{
}

int AccountListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_index.size());
}

QVariant AccountListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_index.size()) return {};
    const AccountListEntry& e = m_index.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return e.text;
    case Qt::UserRole:
        return e.record;
    default:
        return {};
    }
}
} // namespace tresvane
