#include "qtdialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>

namespace
{
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
    box.setWindowTitle(title.isEmpty() ? ApplicationTitle() : title);
    box.setText(text);
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
    bool ok = false;
    const QString text =
        QInputDialog::getText(m_parent, title.isEmpty() ? ApplicationTitle() : title, prompt,
                              QLineEdit::Normal, defaultText, &ok);
    if (!ok)
        return std::nullopt;
    return text;
}

void QtDialogs::beep() { QApplication::beep(); }
