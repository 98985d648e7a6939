#pragma once

#include "core/io/store.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "scripteddialogs.h"
#include "testclock.h"

#include <QByteArray>
#include <QTemporaryDir>

namespace tresvane
{
// A program folder in a temporary directory, with the seams a core routine needs, and
// helpers to lay files down and read them back byte by byte. The folder stands alone in a
// private temporary folder of its own, so a test may look at what lies beside it ("../x")
// without seeing what other programs leave in the shared temporary folder.
class ProgramFolder
{
public:
    ProgramFolder();

    QString root() const { return m_root; }
    QString abs(const QString& relative) const;

    // Writes bytes exactly as given, making the folders on the way.
    void put(const QString& relative, const QByteArray& bytes) const;
    QByteArray get(const QString& relative) const;
    bool has(const QString& relative) const;
    bool hasFolder(const QString& relative) const;
    // Every file below the folder with its bytes, to prove nothing was written.
    QMap<QString, QByteArray> snapshot() const;

    QTemporaryDir m_parent;
    QString m_root;
    Store store;
    TestClock clock;
    ScriptedDialogs dialogs;
    DispatchingVariables v;
    CoreContext ctx;
};
} // namespace tresvane
