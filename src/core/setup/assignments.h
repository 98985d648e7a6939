#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QStringList>

namespace tresvane
{
// The two lists of the setup screen: Assignments (teams; a team's number is its place in
// the list and names its folder <year>/Team#<n>) and Problem Descriptions.

constexpr int kMaxAssignments = 30;

// Makes <gYear>/Team#<n> when it does not exist. The year folder stands by then.
Status MakeFolder(CoreContext& c, int teamNumber);
// After team deletedTeam has left a list that now holds listCount entries: its day files
// and folder go, and the folders of the later teams of the current year move down by
// one, so each team keeps its own schedule. Other years keep their numbers.
Status RenumberTeams(CoreContext& c, int deletedTeam, int listCount);

enum class AssignmentAdd {
    Added,     // appended, written, team folder made
    ListFull,  // 30 entries: refused with a beep, no message
    Duplicate, // an equal entry exists: nothing added, the box is to be cleared
};
// The Add button. An empty text is warned about (when prompts are on) and then still
// goes on, so an empty name can become an entry of its own. On Added the list is the
// one now on disk and in gAssignTo.
Result<AssignmentAdd> AddAssignment(CoreContext& c, QStringList& list, const QString& text);
// Renames the entry at index; the team keeps its number and its folder.
Status ChangeAssignment(CoreContext& c, QStringList& list, int index, const QString& text);
// Removes the entry equal to text and renumbers the later teams. Returns the deleted
// team's number, 0 when no entry matched (nothing changes then).
Result<int> DeleteAssignment(CoreContext& c, QStringList& list, const QString& text);

// The Add button of the problem list: false (nothing added) when the entry exists.
// No limit and no test for an empty text.
Result<bool> AddProblem(CoreContext& c, QStringList& list, const QString& text);
// Removes the entry equal to text, when there is one, and writes the list.
Status DeleteProblem(CoreContext& c, QStringList& list, const QString& text);
} // namespace tresvane
