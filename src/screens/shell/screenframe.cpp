#include "screens/shell/screenframe.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace tresvane
{
namespace
{
bool g_geometryKept = true;
}

void ScreenFrame::setGeometryKept(bool kept)
{
    g_geometryKept = kept;
}
bool ScreenFrame::geometryKept()
{
    return g_geometryKept;
}

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
    if (watched != m_form) return false;
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

QRect PlaceOnScreen(QRect window, const QRect& available, bool centre)
{
    // The window manager's frame is not known before the first show: leave room for a
    // title bar and thin borders, so the frame itself lands on the screen too.
    constexpr int kTitle = 32;
    constexpr int kBorder = 4;
    const QRect room = available.adjusted(kBorder, kTitle, -kBorder, -kBorder);
    if (room.isEmpty()) return window;
    window.setWidth(qMin(window.width(), room.width()));
    window.setHeight(qMin(window.height(), room.height()));
    if (centre) {
        window.moveCenter(room.center());
        return window;
    }
    window.moveLeft(qBound(room.left(), window.left(), room.right() - window.width() + 1));
    window.moveTop(qBound(room.top(), window.top(), room.bottom() - window.height() + 1));
    return window;
}

void ScreenFrame::restore()
{
    // Tests and screenshots lay screens out at sizes of their own choosing.
    if (!g_geometryKept) return;
    bool restored = false;
    {
        QSettings settings(QStringLiteral("TresvaneDispatcher"), m_key);
        const QByteArray geometry =
            settings.value(m_form->objectName() + "/geometry").toByteArray();
        restored = !geometry.isEmpty() && m_form->restoreGeometry(geometry);
    }
    // A place kept from a larger screen, or another screen since unplugged, is brought
    // back onto the screen the window now lands on; a first showing is centred.
    QScreen* screen = QGuiApplication::screenAt(m_form->geometry().center());
    if (!screen) screen = m_form->screen() ? m_form->screen() : QGuiApplication::primaryScreen();
    if (!screen) return;
    const QRect placed = PlaceOnScreen(m_form->geometry(), screen->availableGeometry(), !restored);
    if (placed != m_form->geometry()) m_form->setGeometry(placed);
}

void ScreenFrame::save()
{
    if (!g_geometryKept || !m_restored) return;
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
} // namespace tresvane
