#pragma once

#include <QString>
#include <optional>

namespace tresvane
{
// Everything the user is told or asked goes through here, with the exact texts and
// titles. A message without a title carries the program's name as its caption.
class Dialogs
{
public:
    enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
    enum class Icon { None, Information, Question, Exclamation, Critical };
    enum class Answer { Ok, Cancel, Yes, No, Retry };

    virtual ~Dialogs() = default;

    virtual Answer message(const QString& text, const QString& title = {},
                           Buttons buttons = Buttons::Ok, Icon icon = Icon::None) = 0;
    // An input box; no value when the user cancels.
    virtual std::optional<QString> input(const QString& prompt, const QString& title = {},
                                         const QString& defaultText = {}) = 0;
    virtual void beep() = 0;

    // Yes/No question; true for Yes.
    bool ask(const QString& text, const QString& title = {}, Icon icon = Icon::Question)
    {
        return message(text, title, Buttons::YesNo, icon) == Answer::Yes;
    }
};

// The program's name, the caption of every message without a title of its own.
inline QString ApplicationTitle()
{
    return QStringLiteral("Tresvane Dispatcher");
}
} // namespace tresvane
