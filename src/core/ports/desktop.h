#pragma once

#include <QString>

namespace tresvane
{

// The desktop around the program: the system's browser and the clipboard.
class Desktop
{
public:
    virtual ~Desktop() = default;
    // Shows a web address in the system's browser, without waiting for it. False when no
    // browser could be started.
    virtual bool openUrl(const QString& url) = 0;
    virtual void setClipboardText(const QString& text) = 0;
};

} // namespace tresvane
