#include "screens/shell/qtdialogs.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QSpacerItem>

namespace tresvane
{
namespace
{

// The width a dialog needs so the window manager has room for its whole title beside the
// close box: a message box sizes itself by its text alone and would cut a long title.
int titleRoom(const QString& title)
{
    const QFontMetrics metrics(QApplication::font());
    return metrics.horizontalAdvance(title) + 140;
}

// The window the user is working in: the active one, or, while a screen that has just
// come up is not active yet, the one screen on show.
QWidget* workingWindow()
{
    if (QWidget* active = QApplication::activeWindow()) return active;
    QWidget* shown = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (!w->isVisible() || w->windowType() == Qt::Popup || w->windowType() == Qt::ToolTip)
            continue;
        if (shown) return nullptr; // more than one: the desktop's choice stands
        shown = w;
    }
    return shown;
}
} // namespace

Dialogs::Answer QtDialogs::message(const QString& text, const QString& title, Buttons buttons,
                                   Icon icon)
{
    // The message belongs to the window the user is working in, and that window is active
    // again once it is answered: what the user types next goes to the box the caller puts
    // the focus on, not to whichever window the desktop happens to pick.
    const QPointer<QWidget> working = workingWindow();
    QMessageBox box(working ? working.data() : m_parent);
    const QString caption = title.isEmpty() ? ApplicationTitle() : title;
    box.setWindowTitle(caption);
    box.setText(text);
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(
            new QSpacerItem(titleRoom(caption), 0, QSizePolicy::Minimum, QSizePolicy::Expanding),
            grid->rowCount(), 0, 1, grid->columnCount());
    switch (icon) {
    case Icon::None:
        box.setIcon(QMessageBox::NoIcon);
        break;
    case Icon::Information:
        box.setIcon(QMessageBox::Information);
        break;
    case Icon::Question:
        box.setIcon(QMessageBox::Question);
        break;
    case Icon::Exclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case Icon::Critical:
        box.setIcon(QMessageBox::Critical);
        break;
    }
    switch (buttons) {
    case Buttons::Ok:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case Buttons::OkCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case Buttons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case Buttons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    case Buttons::RetryCancel:
        box.setStandardButtons(QMessageBox::Retry | QMessageBox::Cancel);
        break;
    }
    const int answer = box.exec();
    if (working && working->isVisible()) working->activateWindow();
    switch (answer) {
    case QMessageBox::Cancel:
        return Answer::Cancel;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Retry:
        return Answer::Retry;
    default:
        return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
    }
}

std::optional<QString> QtDialogs::input(const QString& prompt, const QString& title,
                                        const QString& defaultText)
{
    QInputDialog dialog(m_parent);
    const QString caption = title.isEmpty() ? ApplicationTitle() : title;
    dialog.setWindowTitle(caption);
    dialog.setLabelText(prompt);
    dialog.setTextValue(defaultText);
    dialog.setMinimumWidth(titleRoom(caption));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue();
}

void QtDialogs::beep()
{
    QApplication::beep();
}
} // namespace tresvane
