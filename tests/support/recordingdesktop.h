#pragma once

#include "core/ports/desktop.h"

#include <QStringList>

namespace tresvane
{

// The desktop as a recorder: what would have been opened or copied.
class RecordingDesktop final : public Desktop
{
public:
    bool openUrl(const QString& url) override
    {
        opened << url;
        return browser;
    }
    bool browser = true; // false: the desktop has no browser to open
    void setClipboardText(const QString& text) override { clipboard = text; }
    QStringList opened;
    QString clipboard;
};

} // namespace tresvane
