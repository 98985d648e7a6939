#include "core/entry/keyfilters.h"

#include "core/io/textfile.h"
#include "core/ports/dialogs.h"

#include <algorithm>

namespace tresvane
{
namespace
{
int refuse(int keyCode, const QString& boxText, Dialogs& dialogs, const char* refused)
{
    if (keyCode == kBackspace) return keyCode;
    if (IsNumeric(boxText)) return keyCode;
    for (const char* p = refused; *p; ++p) {
        if (keyCode == static_cast<unsigned char>(*p)) {
            dialogs.beep();
            dialogs.message(QStringLiteral("This character, (") + QChar(keyCode) +
                                QStringLiteral(") is invalid for this field"),
                            QStringLiteral("Invalid Key entry"));
            return 0;
        }
    }
    return keyCode;
}
} // namespace

int CheckNameKey(int keyCode, const QString& boxText, Dialogs& dialogs)
{
    return refuse(keyCode, boxText, dialogs, ",&.\\*/?");
}

int CheckQuoteKey(int keyCode, const QString& boxText, Dialogs& dialogs)
{
    return refuse(keyCode, boxText, dialogs, "\"");
}

int CheckPriceKey(int keyCode, const QString& boxText)
{
    if (keyCode == '0' && boxText.isEmpty()) return 0;
    if (keyCode == '.' && boxText.contains(u'.')) return 0;
    if (!QStringLiteral("0123456789.").contains(QChar(keyCode))) return 0;
    return keyCode;
}

void CalendarMessage(Dialogs& dialogs)
{
    dialogs.message(QStringLiteral("Your Calendar Selection is Invalid"));
}

QString JoinName(const QString& title, const QString& first, const QString& middle,
                 const QString& last)
{
    QString name;
    if (!title.trimmed().isEmpty()) name += title.trimmed() + u' ';
    if (!first.trimmed().isEmpty()) name += first.trimmed() + u' ';
    if (!middle.trimmed().isEmpty()) name += middle.trimmed() + QStringLiteral(". ");
    if (!last.trimmed().isEmpty()) name += last.trimmed();
    return name;
}

int WheelTopRow(int currentTop, int rowCount, int visibleRows, int rotation)
{
    const int step = std::max(visibleRows, 10);
    // A grid cannot scroll past the point where its last row is at the bottom, so a grid
    // with fewer rows than a screenful stays at its top.
    const int lastTop = std::max(1, std::min(rowCount - 1, rowCount - visibleRows));
    if (rotation > 0) return std::max(1, currentTop - step);
    if (rotation < 0) return std::max(1, std::min(lastTop, currentTop + step));
    return currentTop;
}
} // namespace tresvane
