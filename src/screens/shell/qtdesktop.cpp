#include "screens/shell/qtdesktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>

namespace tresvane
{
bool QtDesktop::openUrl(const QString& url)
{
    return QDesktopServices::openUrl(QUrl(url));
}

bool QtDesktop::openFile(const QString& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void QtDesktop::setClipboardText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}
} // namespace tresvane
