#include "screens/shell/keyfilterwiring.h"

#include "core/entry/keyfilters.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace tresvane
{
namespace
{

// A one-line box cannot be typed a tab or a line break; pasted text loses them too.
bool isControl(QChar ch)
{
    return ch.unicode() < 32 || ch.unicode() == 127;
}

class KeyFilterObject : public QObject
{
public:
    KeyFilterObject(QLineEdit* box, KeyFilterKind kind, Dialogs& dialogs)
        : QObject(box), m_box(box), m_kind(kind), m_dialogs(dialogs), m_current(box->text())
    {
        // Text that arrives without a key press (pasted, dropped, put back by undo) goes
        // through the same filters once it is in the box, and is taken out again when they
        // refuse it. The box reports the edit before the change, so both texts are kept;
        // the check runs once the box has finished the edit, so the box is never changed
        // under its own feet.
        connect(box, &QLineEdit::textChanged, this, [this](const QString& text) {
            m_before = m_current;
            m_current = text;
        });
        connect(box, &QLineEdit::textEdited, this, [this](const QString& now) {
            const QString old = m_current == now ? m_before : m_current;
            QMetaObject::invokeMethod(
                this,
                [this, old, now] {
                    if (m_box->text() == now) edited(old, now);
                },
                Qt::QueuedConnection);
        });
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != m_box || event->type() != QEvent::KeyPress) return false;
        const QString text = static_cast<QKeyEvent*>(event)->text();
        if (text.size() != 1) return false;
        const int code = text.at(0).unicode();
        if (code == kBackspace || isControl(text.at(0))) return false;
        if (passes(code, m_box->text())) return false;
        refused();
        return true;
    }

private:
    bool passes(int code, const QString& boxText) const
    {
        switch (m_kind) {
        case KeyFilterKind::Name:
            return CheckNameKey(code, boxText, m_dialogs) != 0;
        case KeyFilterKind::Quote:
            return CheckQuoteKey(code, boxText, m_dialogs) != 0;
        case KeyFilterKind::NameAndQuote:
            return CheckNameKey(code, boxText, m_dialogs) != 0 &&
                   CheckQuoteKey(code, boxText, m_dialogs) != 0;
        case KeyFilterKind::Price:
            return CheckPriceKey(code, boxText) != 0;
        }
        return true;
    }

    void refused()
    {
        if (m_kind != KeyFilterKind::Price) m_box->setFocus();
    }

    // The edit as a whole: the characters it put in are checked one by one, each against
    // the text the box would have held had they been typed. One refused character refuses
    // the whole edit, so a paste never arrives half.
    void edited(const QString& old, const QString& now)
    {
        qsizetype prefix = 0;
        while (prefix < old.size() && prefix < now.size() && old[prefix] == now[prefix])
            ++prefix;
        qsizetype suffix = 0;
        while (suffix < old.size() - prefix && suffix < now.size() - prefix &&
               old[old.size() - 1 - suffix] == now[now.size() - 1 - suffix])
            ++suffix;
        const QString inserted = now.mid(prefix, now.size() - prefix - suffix);
        if (inserted.isEmpty()) return;

        QString kept;
        for (QChar ch : inserted)
            if (!isControl(ch)) kept += ch;
        const QString head = now.left(prefix);
        const QString tail = now.right(suffix);
        for (qsizetype i = 0; i < kept.size(); ++i) {
            // The first character meets the box as it stood, selection and all, as a key
            // typed over a selection does.
            const QString before = i == 0 ? old : head + kept.left(i) + tail;
            if (!passes(kept.at(i).unicode(), before)) {
                restore(old, int(prefix));
                refused();
                return;
            }
        }
        if (kept.size() != inserted.size()) restore(head + kept + tail, int(prefix + kept.size()));
    }

    void restore(const QString& text, int cursor)
    {
        m_box->setText(text);
        m_box->setCursorPosition(cursor);
    }

    QLineEdit* m_box;
    KeyFilterKind m_kind;
    Dialogs& m_dialogs;
    QString m_current;
    QString m_before;
};

} // namespace

void WireKeyFilter(QLineEdit* box, KeyFilterKind kind, Dialogs& dialogs)
{
    box->installEventFilter(new KeyFilterObject(box, kind, dialogs));
}

void WireKeyFilter(QComboBox* box, KeyFilterKind kind, Dialogs& dialogs)
{
    if (QLineEdit* edit = box->lineEdit()) WireKeyFilter(edit, kind, dialogs);
}
} // namespace tresvane
