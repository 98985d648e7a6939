#pragma once

#include "shell/desktop.h"

// The browser through QDesktopServices, the clipboard through QClipboard.
class QtDesktop final : public Desktop
{
public:
    bool openUrl(const QString& url) override;
    void setClipboardText(const QString& text) override;
};
