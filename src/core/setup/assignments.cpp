#include "core/setup/assignments.h"

#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"

#include <QDir>
#include <QFileInfo>

namespace tresvane
{
namespace
{
QString teamFolder(const DispatchingVariables& v, int team)
{
    return u'/' + v.gYear + QStringLiteral("/Team#") + QString::number(team);
}
} // namespace

Status MakeFolder(CoreContext& c, int teamNumber)
{
    return c.store.EnsureFolder(teamFolder(c.v, teamNumber));
}

Status RenumberTeams(CoreContext& c, int deletedTeam, int listCount)
{
    Store& store = c.store;
    const QString deleted = teamFolder(c.v, deletedTeam);
    if (Status s = store.KillIfPresent(deleted + QStringLiteral("/*.*")); !s) return s;
    if (Status s = store.RemoveFolder(deleted); !s) return s;
    if (listCount == 0) return {};
    for (int n = deletedTeam + 1; n <= listCount + 1; ++n) {
        const QString from = teamFolder(c.v, n);
        if (!store.IsFolder(from)) continue;
        const QString to = store.path(teamFolder(c.v, n - 1));
        if (QFileInfo::exists(to) || !QDir().rename(store.path(from), to))
            return Status::failure(
                QStringLiteral("Could not rename the folder %1 to Team#%2 in %3")
                    .arg(store.describe(from), QString::number(n - 1), store.root()));
    }
    return {};
}

Result<AssignmentAdd> AddAssignment(CoreContext& c, QStringList& list, const QString& text)
{
    if (text.isEmpty()) {
        if (c.v.gAlarms) c.dialogs.beep();
        if (c.v.gPrompts) c.dialogs.message(QStringLiteral("Enter an Assignment Name"));
        // No stop here: the empty name goes on like any other.
    }
    if (list.size() >= kMaxAssignments) {
        if (c.v.gAlarms) c.dialogs.beep();
        return AssignmentAdd::ListFull;
    }
    if (list.contains(text, Qt::CaseSensitive)) return AssignmentAdd::Duplicate;
    QStringList next = list;
    next << text;
    if (Status s = SaveAssignments(c, next); !s) return s;
    list = next;
    if (Status s = MakeFolder(c, int(list.size())); !s) return s;
    return AssignmentAdd::Added;
}

Status ChangeAssignment(CoreContext& c, QStringList& list, int index, const QString& text)
{
    if (index < 0 || index >= list.size()) return {};
    QStringList next = list;
    next[index] = text;
    if (Status s = SaveAssignments(c, next); !s) return s;
    list = next;
    return {};
}

Result<int> DeleteAssignment(CoreContext& c, QStringList& list, const QString& text)
{
    const qsizetype index = list.indexOf(text);
    if (index < 0) return 0;
    QStringList next = list;
    next.removeAt(index);
    const int deletedTeam = int(index) + 1;
    if (Status s = SaveAssignments(c, next); !s) return s;
    list = next;
    if (Status s = RenumberTeams(c, deletedTeam, int(list.size())); !s) return s;
    return deletedTeam;
}

Result<bool> AddProblem(CoreContext& c, QStringList& list, const QString& text)
{
    if (list.contains(text, Qt::CaseSensitive)) return false;
    QStringList next = list;
    next << text;
    if (Status s = SaveProblems(c, next); !s) return s;
    list = next;
    return true;
}

Status DeleteProblem(CoreContext& c, QStringList& list, const QString& text)
{
    QStringList next = list;
    next.removeOne(text);
    if (Status s = SaveProblems(c, next); !s) return s;
    list = next;
    return {};
}
} // namespace tresvane
