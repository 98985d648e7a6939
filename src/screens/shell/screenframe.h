#pragma once

#include <QObject>
#include <QRect>
#include <QString>
#include <functional>

class QWidget;

namespace tresvane
{
// What every screen shares: its size and place kept between runs in QSettings under the
// program's key, and the close box, which ends the program through ExitProgram. A screen
// hidden or destroyed by code does not pass through the close box.
class ScreenFrame : public QObject
{
    Q_OBJECT
public:
    // key is the settings application name: "TresvaneDispatcher" for every screen but the
    // splash, which has its own. onCloseBox runs instead of the close.
    static ScreenFrame* attach(QWidget* form, const QString& key, std::function<void()> onCloseBox);

    // Tests and screenshots switch the keeping of sizes off, so they neither read nor
    // leave anything in the user's settings, and place the screens themselves.
    static void setGeometryKept(bool kept);
    static bool geometryKept();

    // Lets the next close through (the program is ending).
    void allowClose() { m_allowClose = true; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ScreenFrame(QWidget* form, QString key, std::function<void()> onCloseBox);
    void restore();
    void save();

    QWidget* m_form;
    QString m_key;
    std::function<void()> m_onCloseBox;
    bool m_restored = false;
    bool m_allowClose = false;
};

// Where a window of this geometry goes on a screen of this available area: no larger than
// the area and wholly inside it, centred when centre is set (a first showing), else moved
// no further than it must.
QRect PlaceOnScreen(QRect window, const QRect& available, bool centre);

// Resets a screen by the tags of its controls (the dynamic property "Tag"): "Hide" and
// "Instruction" become invisible, "Button" is disabled, untagged controls are left alone.
void ResetScreen(QWidget* form);
} // namespace tresvane
