#include "screens/shell/enterkey.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

namespace tresvane
{
void EnterClicks(QLineEdit* box, QAbstractButton* button)
{
    auto pending = std::make_shared<bool>(false);
    QObject::connect(box, &QLineEdit::returnPressed, button, [button, pending] {
        if (*pending) return;
        *pending = true;
        QTimer::singleShot(0, button, [button, pending] {
            *pending = false;
            if (button->isVisible() && button->isEnabled()) button->click();
        });
    });
}
} // namespace tresvane
