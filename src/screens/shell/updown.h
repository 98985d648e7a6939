#pragma once

#include <QWidget>

class QToolButton;

namespace tresvane
{
// A pair of arrow buttons, the spin button that moves an entry or steps a value.
class UpDown : public QWidget
{
    Q_OBJECT
public:
    explicit UpDown(const QString& name, QWidget* parent = nullptr);
    QToolButton* up;
    QToolButton* down;

signals:
    void upClicked();
    void downClicked();
};
} // namespace tresvane
