#pragma once

#include <QString>

namespace tresvane
{
// The desktop around the program: the system's browser, the programs that open documents,
// and the clipboard.
class Desktop
{
public:
    virtual ~Desktop() = default;
    // Shows a web address in the system's browser, without waiting for it. False when no
    // browser could be started.
    virtual bool openUrl(const QString& url) = 0;
    virtual void setClipboardText(const QString& text) = 0;
    // Opens a file in the program the desktop keeps for its type (a contract's .rtf in the
    // word processor), without waiting for it. False when nothing could be started; a
    // desktop that offers no such programs says so.
    virtual bool openFile(const QString& path)
    {
        (void)path;
        return false;
    }
};
} // namespace tresvane
