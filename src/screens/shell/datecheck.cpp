#include "screens/shell/datecheck.h"

#include "core/entry/keyfilters.h"

#include <QDateEdit>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QSignalBlocker>

namespace tresvane
{
namespace
{

class DateCheck : public QObject
{
public:
    DateCheck(QDateEdit* box, Dialogs& dialogs) : QObject(box), m_box(box), m_dialogs(dialogs) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != m_box) return false;
        switch (event->type()) {
        case QEvent::FocusIn:
            m_typed.clear();
            break;
        case QEvent::FocusOut:
            check();
            break;
        case QEvent::KeyPress: {
            auto* key = static_cast<QKeyEvent*>(event);
            switch (key->key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Tab:
            case Qt::Key_Backtab:
                check();
                break;
            case Qt::Key_Backspace:
                m_typed.chop(1);
                break;
            default: {
                const QString text = key->text();
                if (text.size() == 1 &&
                    (text[0].isDigit() || text == u"/" || text == u"-" || text == u".")) {
                    if (m_typed.isEmpty()) m_before = m_box->date();
                    m_typed += text;
                } else if (!text.isEmpty() || key->key() == Qt::Key_Up ||
                           key->key() == Qt::Key_Down) {
                    // Stepping with the arrows or typing anything else is not a date typed
                    // whole.
                    m_typed.clear();
                }
                break;
            }
            }
            break;
        }
        default:
            break;
        }
        return false;
    }

private:
    void check()
    {
        const QString typed = m_typed;
        m_typed.clear();
        static const QRegularExpression whole(
            QStringLiteral("^(\\d{1,2})[/.-](\\d{1,2})[/.-](\\d{4})$"));
        const QRegularExpressionMatch m = whole.match(typed);
        if (!m.hasMatch()) return;
        const QDate date(m.captured(3).toInt(), m.captured(1).toInt(), m.captured(2).toInt());
        if (date.isValid()) {
            show(date);
            return;
        }
        show(m_before);
        CalendarMessage(m_dialogs);
    }

    // The box's sections may hold other digits than its date after typing over them: the
    // date is set afresh so that what the box shows, and reads back on Enter, is this one.
    void show(const QDate& date)
    {
        {
            const QSignalBlocker quiet(m_box);
            m_box->setDate(date.addDays(date.day() == 1 ? 1 : -1));
        }
        m_box->setDate(date);
    }

    QDateEdit* m_box;
    Dialogs& m_dialogs;
    QString m_typed;
    QDate m_before;
};

} // namespace

void WireDateCheck(QDateEdit* box, Dialogs& dialogs)
{
    // The date counts once the typing is done, not at every key on the way.
    box->setKeyboardTracking(false);
    box->installEventFilter(new DateCheck(box, dialogs));
}
} // namespace tresvane
