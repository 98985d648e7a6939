#include "screens/shell/flexgrid.h"

#include "core/entry/keyfilters.h"
#include "core/io/textfile.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <numeric>

namespace tresvane
{
int FlexGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int FlexGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_cols;
}

QVariant FlexGridModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size()) return {};
    const Row& row = m_rows[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return index.column() < row.cells.size() ? row.cells[index.column()] : QString();
    case Qt::BackgroundRole: {
        const auto it = row.styles.constFind(index.column());
        if (it != row.styles.constEnd() && it->back.isValid()) return it->back;
        return {};
    }
    case Qt::ForegroundRole: {
        const auto it = row.styles.constFind(index.column());
        if (it != row.styles.constEnd() && it->fore.isValid()) return it->fore;
        return {};
    }
    case Qt::TextAlignmentRole: {
        const auto it = row.styles.constFind(index.column());
        if (it != row.styles.constEnd() && it->hasAlignment) return int(it->alignment);
        const auto col = m_columnAlignment.constFind(index.column());
        if (col != m_columnAlignment.constEnd()) return int(*col);
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    }
    default:
        return {};
    }
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return section < m_headings.size() ? m_headings[section] : QString();
    if (orientation == Qt::Vertical && role == Qt::DisplayRole) return section + 1;
    return {};
}

void FlexGridModel::setHeadings(const QStringList& headings)
{
    if (headings.size() > m_cols) setColumnCount(int(headings.size()));
    m_headings = headings;
    emit headerDataChanged(Qt::Horizontal, 0, std::max(0, m_cols - 1));
}

void FlexGridModel::setRows(QList<QStringList> rows)
{
    beginResetModel();
    m_rows.clear();
    m_rows.reserve(rows.size());
    int cols = m_cols;
    for (QStringList& r : rows) {
        cols = std::max(cols, int(r.size()));
        m_rows.append(Row{std::move(r), {}});
    }
    m_cols = cols;
    endResetModel();
}

void FlexGridModel::setRowCount(int rows)
{
    rows = std::max(0, rows);
    if (rows > m_rows.size()) {
        beginInsertRows({}, int(m_rows.size()), rows - 1);
        m_rows.resize(rows);
        endInsertRows();
    } else if (rows < m_rows.size()) {
        beginRemoveRows({}, rows, int(m_rows.size()) - 1);
        m_rows.resize(rows);
        endRemoveRows();
    }
}

void FlexGridModel::setColumnCount(int cols)
{
    cols = std::max(0, cols);
    if (cols == m_cols) return;
    beginResetModel();
    m_cols = cols;
    endResetModel();
}

void FlexGridModel::appendRow(const QStringList& cells)
{
    if (cells.size() > m_cols) setColumnCount(int(cells.size()));
    beginInsertRows({}, int(m_rows.size()), int(m_rows.size()));
    m_rows.append(Row{cells, {}});
    endInsertRows();
}

void FlexGridModel::removeRowAt(int row)
{
    if (row < 0 || row >= m_rows.size()) return;
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

QString FlexGridModel::text(int row, int col) const
{
    if (row < 0 || row >= m_rows.size() || col < 0 || col >= m_rows[row].cells.size()) return {};
    return m_rows[row].cells[col];
}

void FlexGridModel::setText(int row, int col, const QString& text)
{
    if (row < 0 || row >= m_rows.size() || col < 0) return;
    if (col >= m_cols) setColumnCount(col + 1);
    QStringList& cells = m_rows[row].cells;
    if (col >= cells.size()) cells.resize(col + 1);
    cells[col] = text;
    const QModelIndex i = index(row, col);
    emit dataChanged(i, i, {Qt::DisplayRole});
}

QStringList FlexGridModel::rowTexts(int row) const
{
    if (row < 0 || row >= m_rows.size()) return {};
    QStringList cells = m_rows[row].cells;
    cells.resize(m_cols);
    return cells;
}

FlexGridModel::CellStyle FlexGridModel::style(int row, int col) const
{
    if (row < 0 || row >= m_rows.size()) return {};
    return m_rows[row].styles.value(col);
}

void FlexGridModel::setBackColor(int row, int col, const QColor& color)
{
    if (row < 0 || row >= m_rows.size()) return;
    m_rows[row].styles[col].back = color;
    emit dataChanged(index(row, col), index(row, col), {Qt::BackgroundRole});
}

void FlexGridModel::setForeColor(int row, int col, const QColor& color)
{
    if (row < 0 || row >= m_rows.size()) return;
    m_rows[row].styles[col].fore = color;
    emit dataChanged(index(row, col), index(row, col), {Qt::ForegroundRole});
}

void FlexGridModel::setAlignment(int row, int col, Qt::Alignment alignment)
{
    if (row < 0 || row >= m_rows.size()) return;
    CellStyle& s = m_rows[row].styles[col];
    s.alignment = alignment;
    s.hasAlignment = true;
    emit dataChanged(index(row, col), index(row, col), {Qt::TextAlignmentRole});
}

void FlexGridModel::setColumnAlignment(int col, Qt::Alignment alignment)
{
    m_columnAlignment.insert(col, alignment);
    if (!m_rows.isEmpty())
        emit dataChanged(index(0, col), index(int(m_rows.size()) - 1, col),
                         {Qt::TextAlignmentRole});
}

void FlexGridModel::sortRows(int col, SortKind kind, Qt::SortOrder order)
{
    const qsizetype n = m_rows.size();
    // The keys are worked out once, not at every comparison.
    QList<double> numbers;
    QStringList texts;
    if (kind == SortKind::Number) {
        numbers.resize(n);
        for (qsizetype i = 0; i < n; ++i)
            numbers[i] = NumericValue(text(int(i), col));
    } else {
        texts.resize(n);
        for (qsizetype i = 0; i < n; ++i)
            texts[i] = text(int(i), col);
    }
    QList<int> orderOf(n);
    std::iota(orderOf.begin(), orderOf.end(), 0);
    const bool ascending = order == Qt::AscendingOrder;
    std::stable_sort(orderOf.begin(), orderOf.end(), [&](int a, int b) {
        if (kind == SortKind::Number)
            return ascending ? numbers[a] < numbers[b] : numbers[b] < numbers[a];
        const int c = texts[a].compare(texts[b], Qt::CaseInsensitive);
        return ascending ? c < 0 : c > 0;
    });
    emit layoutAboutToBeChanged();
    QList<Row> sorted;
    sorted.reserve(n);
    for (int i : orderOf)
        sorted.append(std::move(m_rows[i]));
    m_rows = std::move(sorted);
    emit layoutChanged();
}

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent), m_model(new FlexGridModel(this))
{
    setModel(m_model);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(false);
    setWordWrap(false);
    verticalHeader()->setVisible(false);
    // Uniform rows: the view never measures 50,000 rows one by one.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
}

void FlexGrid::sortByText(int col, Qt::SortOrder order)
{
    m_model->sortRows(col, FlexGridModel::SortKind::Text, order);
}

void FlexGrid::sortByNumber(int col, Qt::SortOrder order)
{
    m_model->sortRows(col, FlexGridModel::SortKind::Number, order);
}

int FlexGrid::topRow() const
{
    return std::max(0, rowAt(0));
}

void FlexGrid::setTopRow(int row)
{
    verticalScrollBar()->setValue(row);
}

int FlexGrid::visibleRows() const
{
    const int height = verticalHeader()->defaultSectionSize();
    return height > 0 ? viewport()->height() / height : 0;
}

int FlexGrid::currentRow() const
{
    const QModelIndex i = currentIndex();
    return i.isValid() ? i.row() : -1;
}

void FlexGrid::wheelEvent(QWheelEvent* event)
{
    // One notch (120) moves a screenful, at least 10 rows. The old rule counts rows
    // from 1 below the fixed heading row.
    m_wheelRemainder += event->angleDelta().y();
    const int notches = m_wheelRemainder / 120;
    if (notches == 0) {
        event->accept();
        return;
    }
    m_wheelRemainder -= notches * 120;
    int top = topRow() + 1;
    for (int i = 0; i < std::abs(notches); ++i)
        top = WheelTopRow(top, rows() + 1, visibleRows(), notches);
    const int wanted = top - 1;
    if (wanted != topRow()) setTopRow(wanted);
    event->accept();
}
} // namespace tresvane
