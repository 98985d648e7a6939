#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QHash>
#include <QList>
#include <QStringList>
#include <QTableView>

namespace tresvane
{
// The one grid of the program: a table of strings with a colour and an alignment per cell,
// sorting by text or by number, and a mouse wheel that moves a screenful (at least 10
// rows) per notch. Rows are counted from 0 below the heading row. The model keeps one
// string list per row and styles only where they were set, so 50,000 rows fill at once.

class FlexGridModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    struct CellStyle {
        QColor back;
        QColor fore;
        Qt::Alignment alignment;
        bool hasAlignment = false;
    };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void setHeadings(const QStringList& headings);
    QStringList headings() const { return m_headings; }
    // Replaces every row in one step.
    void setRows(QList<QStringList> rows);
    void setRowCount(int rows);
    void setColumnCount(int cols);
    void appendRow(const QStringList& cells);
    void removeRowAt(int row);

    QString text(int row, int col) const;
    void setText(int row, int col, const QString& text);
    QStringList rowTexts(int row) const;
    CellStyle style(int row, int col) const;
    void setBackColor(int row, int col, const QColor& color);
    void setForeColor(int row, int col, const QColor& color);
    void setAlignment(int row, int col, Qt::Alignment alignment);
    void setColumnAlignment(int col, Qt::Alignment alignment);

    enum class SortKind { Text, Number };
    // Stable: rows that compare equal keep their order.
    void sortRows(int col, SortKind kind, Qt::SortOrder order);

private:
    struct Row {
        QStringList cells;
        QHash<int, CellStyle> styles;
    };
    QList<Row> m_rows;
    QStringList m_headings;
    QHash<int, Qt::Alignment> m_columnAlignment;
    int m_cols = 0;
};

class FlexGrid : public QTableView
{
    Q_OBJECT
public:
    explicit FlexGrid(QWidget* parent = nullptr);

    FlexGridModel* grid() const { return m_model; }

    int rows() const { return m_model->rowCount(); }
    int cols() const { return m_model->columnCount(); }
    void setHeadings(const QStringList& headings) { m_model->setHeadings(headings); }
    void setRows(QList<QStringList> rows) { m_model->setRows(std::move(rows)); }
    QString textMatrix(int row, int col) const { return m_model->text(row, col); }
    void setTextMatrix(int row, int col, const QString& t) { m_model->setText(row, col, t); }
    void sortByText(int col, Qt::SortOrder order = Qt::AscendingOrder);
    void sortByNumber(int col, Qt::SortOrder order = Qt::AscendingOrder);

    // The first row shown, from 0.
    int topRow() const;
    void setTopRow(int row);
    // Rows that fit in the view at once.
    int visibleRows() const;
    // The row under the current cell, -1 when none.
    int currentRow() const;

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    FlexGridModel* m_model;
    int m_wheelRemainder = 0;
};
} // namespace tresvane
