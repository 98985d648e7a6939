#include "scripteddialogs.h"

namespace tresvane
{
ScriptedDialogs& ScriptedDialogs::expect(const QString& text, const QString& title, Answer answer)
{
    m_expected.append({text, title, answer, false});
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expectContaining(const QString& part, Answer answer)
{
    m_expected.append({part, QString(), answer, true});
    return *this;
}

ScriptedDialogs& ScriptedDialogs::expectInput(std::optional<QString> answer)
{
    m_inputs.append(std::move(answer));
    return *this;
}

Dialogs::Answer ScriptedDialogs::message(const QString& text, const QString& title, Buttons, Icon)
{
    shown << text;
    titles << title;
    if (m_expected.isEmpty()) {
        m_errors << QStringLiteral("unexpected message \"%1\" (title \"%2\")").arg(text, title);
        return Answer::Cancel;
    }
    const Expected e = m_expected.takeFirst();
    const bool textOk = e.partial ? text.contains(e.text) : text == e.text;
    const bool titleOk = e.title.isNull() || e.title == title;
    if (!textOk || !titleOk)
        m_errors << QStringLiteral("expected \"%1\" (title \"%2\"), got \"%3\" (title \"%4\")")
                        .arg(e.text, e.title, text, title);
    return e.answer;
}

std::optional<QString> ScriptedDialogs::input(const QString& prompt, const QString&, const QString&)
{
    prompts << prompt;
    if (m_inputs.isEmpty()) {
        m_errors << QStringLiteral("unexpected input box \"%1\"").arg(prompt);
        return std::nullopt;
    }
    return m_inputs.takeFirst();
}

QString ScriptedDialogs::problems() const
{
    QStringList all = m_errors;
    for (const Expected& e : m_expected)
        all << QStringLiteral("expected message never came: \"%1\"").arg(e.text);
    return all.join(u'\n');
}
} // namespace tresvane
