#pragma once

#include <QAbstractListModel>

namespace tresvane
{
class AccountIndex;

// The rows of the name list box over the sorted index, without a copy per row: the text
// for display and edit, the record number as the item data (Qt::UserRole).
class AccountListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    AccountListModel(const AccountIndex& index, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    // The index behind the model is about to change and has changed.
    void beginChange() { beginResetModel(); }
    void endChange() { endResetModel(); }

private:
    const AccountIndex& m_index;
};
} // namespace tresvane
