#include "screens/shell/unsavededits.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace tresvane
{
QStringList CaptureControls(const QWidget* form)
{
    QStringList values;
    const QList<QWidget*> controls = form->findChildren<QWidget*>();
    for (const QWidget* w : controls) {
        // The editor inside a combo box or spin box is taken with its owner.
        if (qobject_cast<const QLineEdit*>(w) &&
            (qobject_cast<const QComboBox*>(w->parentWidget()) ||
             qobject_cast<const QAbstractSpinBox*>(w->parentWidget())))
            continue;
        if (const auto* e = qobject_cast<const QLineEdit*>(w)) {
            values << e->text();
        } else if (const auto* b = qobject_cast<const QComboBox*>(w)) {
            values << b->currentText();
            for (int i = 0; i < b->count(); ++i)
                values << b->itemText(i);
        } else if (const auto* l = qobject_cast<const QListWidget*>(w)) {
            for (int i = 0; i < l->count(); ++i)
                values << l->item(i)->text();
        } else if (const auto* s = qobject_cast<const QAbstractSpinBox*>(w)) {
            values << s->text();
        } else if (const auto* p = qobject_cast<const QPlainTextEdit*>(w)) {
            values << p->toPlainText();
        } else if (const auto* t = qobject_cast<const QTextEdit*>(w)) {
            values << t->toPlainText();
        } else if (const auto* a = qobject_cast<const QAbstractButton*>(w)) {
            if (a->isCheckable()) values << QString::number(int(a->isChecked()));
        } else if (const auto* label = qobject_cast<const QLabel*>(w)) {
            // Labels that show a setting: a chosen font, a file, a size, a colour's name.
            values << label->text() << label->toolTip();
        }
    }
    return values;
}
} // namespace tresvane
