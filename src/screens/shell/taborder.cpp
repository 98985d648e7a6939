#include "screens/shell/taborder.h"

#include <QWidget>

namespace tresvane
{
void SetTabChain(const QList<QWidget*>& widgets)
{
    for (qsizetype i = 1; i < widgets.size(); ++i)
        QWidget::setTabOrder(widgets[i - 1], widgets[i]);
}

void SetTabChain(std::initializer_list<QWidget*> widgets)
{
    SetTabChain(QList<QWidget*>(widgets));
}
} // namespace tresvane
