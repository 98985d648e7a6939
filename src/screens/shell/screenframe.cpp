#include "screenframe.h"

#include <QCloseEvent>
#include <QSettings>
#include <QWidget>

namespace {
bool g_geometryKept = true;
}

void ScreenFrame::setGeometryKept(bool kept) { g_geometryKept = kept; }
bool ScreenFrame::geometryKept() { return g_geometryKept; }

ScreenFrame* ScreenFrame::attach(QWidget* form, const QString& key,
                                 std::function<void()> onCloseBox)
{
    auto* frame = new ScreenFrame(form, key, std::move(onCloseBox));
    form->installEventFilter(frame);
    return frame;
}

ScreenFrame::ScreenFrame(QWidget* form, QString key, std::function<void()> onCloseBox)
    : QObject(form), m_form(form), m_key(std::move(key)), m_onCloseBox(std::move(onCloseBox))
{
}

bool ScreenFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_form)
        return false;
    switch (event->type()) {
    case QEvent::Show:
        if (!m_restored) {
            m_restored = true;
            restore();
        }
        break;
    case QEvent::Hide:
        save();
        break;
    case QEvent::Close:
        save();
        if (!m_allowClose && m_onCloseBox) {
            event->ignore();
            m_onCloseBox();
            return true;
        }
        break;
    default:
        break;
    }
    return false;
}

void ScreenFrame::restore()
{
    if (!g_geometryKept)
        return;
    QSettings settings(QStringLiteral("TresvaneDispatcher"), m_key);
    const QByteArray geometry = settings.value(m_form->objectName() + "/geometry").toByteArray();
    if (!geometry.isEmpty())
        m_form->restoreGeometry(geometry);
}

void ScreenFrame::save()
{
    if (!g_geometryKept || !m_restored)
        return;
    QSettings settings(QStringLiteral("TresvaneDispatcher"), m_key);
    settings.setValue(m_form->objectName() + "/geometry", m_form->saveGeometry());
}

void ResetScreen(QWidget* form)
{
    const QList<QWidget*> controls = form->findChildren<QWidget*>();
    for (QWidget* w : controls) {
        const QString tag = w->property("Tag").toString();
        if (tag == u"Hide" || tag == u"Instruction")
            w->setVisible(false);
        else if (tag == u"Button")
            w->setEnabled(false);
    }
}
