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
    bool openFile(const QString& path) override
    {
        openedFiles << path;
        return fileOpener;
    }
    bool fileOpener = true; // false: no program is there for the file's type
    QStringList opened;
    QStringList openedFiles;
    QString clipboard;
};
} // namespace tresvane
