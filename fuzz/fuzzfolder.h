#pragma once

#include "core/io/result.h"
#include "core/io/store.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <memory>

// What every harness shares: a program folder of its own in a temporary directory, emptied
// before each input so that no input sees what the one before it left, and the checks a
// reader must pass whatever bytes it is given.
namespace tresvane::fuzz
{

// The bytes libFuzzer hands over, with the first one taken apart as a choice where a
// harness covers several files.
struct Input {
    Input(const uint8_t* data, size_t size);
    // The first byte modulo count (0 for an empty input).
    int choice(int count) const;
    // Everything after the first byte.
    QByteArray rest() const;
    // The whole input.
    QByteArray all() const;

    const uint8_t* data;
    size_t size;
};

// The program folder, its store and a context over both with a clock that stands still.
class Folder
{
public:
    // The one folder of the process, emptied.
    static Folder& fresh();

    Store& store() { return *m_store; }
    CoreContext& context() { return *m_context; }
    DispatchingVariables& v() { return *m_v; }
    const FixedClock& clock() const { return m_clock; }
    QString root() const { return m_root; }

    // Lays the bytes down as a file at a program-relative name, making its folders: the
    // file a reader then finds as a user's disk would hand it over.
    void put(const QString& name, const QByteArray& bytes);
    // Teams in gAssignTo and their folders for the current year.
    void addTeams(int count);

    // Nothing was made, changed or removed beside the program folder.
    void requireNothingOutside() const;

private:
    Folder();
    void reset();

    QString m_parent; // the temporary directory; the program folder is its only entry
    QString m_root;
    FixedClock m_clock;
    SilentDialogs m_dialogs;
    std::unique_ptr<Store> m_store;
    std::unique_ptr<DispatchingVariables> m_v;
    std::unique_ptr<CoreContext> m_context;
};

// Stops the run with the message, as a crash libFuzzer records.
[[noreturn]] void fail(const QString& what);
void require(bool condition, const char* what);
// A failure a reader reports is a message a user can act on: it is not empty and it names
// the file, so the user knows which one to restore.
void requireNamed(const Status& status, const QString& fileName);
template <typename T> void requireNamed(const Result<T>& result, const QString& fileName)
{
    requireNamed(result.status(), fileName);
}

} // namespace tresvane::fuzz
