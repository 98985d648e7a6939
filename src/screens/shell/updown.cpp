#include "screens/shell/updown.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
UpDown::UpDown(const QString& name, QWidget* parent) : QWidget(parent)
{
    setObjectName(name);
    up = new QToolButton(this);
    up->setObjectName(name + QStringLiteral("_up"));
    up->setArrowType(Qt::UpArrow);
    down = new QToolButton(this);
    down->setObjectName(name + QStringLiteral("_down"));
    down->setArrowType(Qt::DownArrow);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(up);
    layout->addWidget(down);
    connect(up, &QToolButton::clicked, this, &UpDown::upClicked);
    connect(down, &QToolButton::clicked, this, &UpDown::downClicked);
}
} // namespace tresvane
