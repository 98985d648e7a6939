#pragma once

#include "core/ports/desktop.h"

namespace tresvane
{
// The browser and the programs for documents through QDesktopServices, the clipboard
// through QClipboard.
class QtDesktop final : public Desktop
{
public:
    bool openUrl(const QString& url) override;
    void setClipboardText(const QString& text) override;
    bool openFile(const QString& path) override;
};
} // namespace tresvane
