#include "qtdesktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>

void QtDesktop::openUrl(const QString& url) { QDesktopServices::openUrl(QUrl(url)); }

void QtDesktop::setClipboardText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}
