#include "keyfilterwiring.h"

#include "shell/keyfilters.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

class KeyFilterObject : public QObject
{
public:
    KeyFilterObject(QLineEdit* box, KeyFilterKind kind, Dialogs& dialogs)
        : QObject(box), m_box(box), m_kind(kind), m_dialogs(dialogs)
    {
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched != m_box || event->type() != QEvent::KeyPress)
            return false;
        const QString text = static_cast<QKeyEvent*>(event)->text();
        if (text.size() != 1)
            return false;
        const int code = text.at(0).unicode();
        if (code == kBackspace || code < 32 || code == 127)
            return false;
        const QString box = m_box->text();
        int passed = code;
        switch (m_kind) {
        case KeyFilterKind::Name:
            passed = CheckNameKey(code, box, m_dialogs);
            break;
        case KeyFilterKind::Quote:
            passed = CheckQuoteKey(code, box, m_dialogs);
            break;
        case KeyFilterKind::NameAndQuote:
            passed = CheckNameKey(code, box, m_dialogs);
            if (passed)
                passed = CheckQuoteKey(code, box, m_dialogs);
            break;
        case KeyFilterKind::Price:
            passed = CheckPriceKey(code, box);
            break;
        }
        if (passed)
            return false;
        if (m_kind != KeyFilterKind::Price)
            m_box->setFocus();
        return true;
    }

private:
    QLineEdit* m_box;
    KeyFilterKind m_kind;
    Dialogs& m_dialogs;
};

} // namespace

void WireKeyFilter(QLineEdit* box, KeyFilterKind kind, Dialogs& dialogs)
{
    box->installEventFilter(new KeyFilterObject(box, kind, dialogs));
}

void WireKeyFilter(QComboBox* box, KeyFilterKind kind, Dialogs& dialogs)
{
    if (QLineEdit* edit = box->lineEdit())
        WireKeyFilter(edit, kind, dialogs);
}
