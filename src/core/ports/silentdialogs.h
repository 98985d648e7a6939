#pragma once

#include "core/ports/dialogs.h"

namespace tresvane
{
// For work with nobody at the screen (the command-line tools): every message is answered
// with its first button, every input box with its default.
class SilentDialogs final : public Dialogs
{
public:
    Answer message(const QString&, const QString&, Buttons buttons, Icon) override
    {
        return buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel ? Answer::Yes
                                                                            : Answer::Ok;
    }
    std::optional<QString> input(const QString&, const QString&, const QString& text) override
    {
        return text;
    }
    void beep() override {}
};
} // namespace tresvane
