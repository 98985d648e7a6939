#pragma once

#include "core/ports/dialogs.h"

class QWidget;

namespace tresvane
{
// Messages and input boxes as Qt's message box and input dialog.
class QtDialogs final : public Dialogs
{
public:
    explicit QtDialogs(QWidget* parent = nullptr) : m_parent(parent) {}
    void setParent(QWidget* parent) { m_parent = parent; }

    Answer message(const QString& text, const QString& title, Buttons buttons, Icon icon) override;
    std::optional<QString> input(const QString& prompt, const QString& title,
                                 const QString& defaultText) override;
    void beep() override;

private:
    QWidget* m_parent;
};
} // namespace tresvane
