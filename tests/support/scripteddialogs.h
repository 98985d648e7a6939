#pragma once

#include "core/ports/dialogs.h"

#include <QList>
#include <QStringList>

namespace tresvane
{
// The user, as a script: each expected message with its answer, in order. A message that
// was not expected fails the test (it is recorded and reported by verifyDone()).
class ScriptedDialogs final : public Dialogs
{
public:
    struct Expected {
        QString text;  // the exact text, or a part of it when partial
        QString title; // the exact title; a null string accepts any
        Answer answer = Answer::Ok;
        bool partial = false;
    };

    // Queue a message the code must show next.
    ScriptedDialogs& expect(const QString& text, const QString& title = QString(),
                            Answer answer = Answer::Ok);
    ScriptedDialogs& expectContaining(const QString& part, Answer answer = Answer::Ok);
    // Queue the answer to the next input box (nullopt: cancelled).
    ScriptedDialogs& expectInput(std::optional<QString> answer);

    Answer message(const QString& text, const QString& title, Buttons buttons, Icon icon) override;
    std::optional<QString> input(const QString& prompt, const QString& title,
                                 const QString& defaultText) override;
    void beep() override { ++beeps; }

    // Empty when every expected message came and nothing else did; else what went wrong.
    QString problems() const;
    bool done() const { return problems().isEmpty(); }

    QStringList shown;  // every text shown, in order
    QStringList titles; // and their titles
    QStringList prompts;
    int beeps = 0;

private:
    QList<Expected> m_expected;
    QList<std::optional<QString>> m_inputs;
    QStringList m_errors;
};

// Fails the current test with what the script saw when it was not met.
#define VERIFY_DIALOGS(d) QVERIFY2((d).done(), qPrintable((d).problems()))
} // namespace tresvane
