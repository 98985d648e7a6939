#include "qtdesktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>

bool QtDesktop::openUrl(const QString& url)
{
    return QDesktopServices::openUrl(QUrl(url));
}

void QtDesktop::setClipboardText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}
