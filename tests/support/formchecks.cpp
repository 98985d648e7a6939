#include "formchecks.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QStyleOptionGroupBox>
#include <QTextDocument>

namespace tresvane
{
namespace
{

QString describe(const QWidget* w)
{
    QString name = w->objectName();
    if (name.isEmpty()) {
        if (auto* label = qobject_cast<const QLabel*>(w))
            name = QStringLiteral("label \"%1\"").arg(label->text());
        else if (auto* button = qobject_cast<const QAbstractButton*>(w))
            name = QStringLiteral("button \"%1\"").arg(button->text());
        else
            name = QString::fromLatin1(w->metaObject()->className());
    }
    return name;
}

// The widget a person sees take the focus: a spin box or combo box rather than the line
// edit inside it.
QWidget* focusOwner(QWidget* w)
{
    for (QWidget* p = w->parentWidget(); p; p = p->parentWidget())
        if (qobject_cast<QAbstractSpinBox*>(p) || qobject_cast<QComboBox*>(p)) w = p;
    return w;
}

bool takesTab(QWidget* w, QWidget* window)
{
    return w != window && (w->focusPolicy() & Qt::TabFocus) && w->isVisibleTo(window) &&
           w->isEnabled() && !w->focusProxy();
}

QRect inWindow(const QWidget* w, const QWidget* window)
{
    return QRect(w->mapTo(window, QPoint(0, 0)), w->size());
}

// Text as drawn: a single & marks the shortcut letter and takes no room.
QString shown(QString text)
{
    text.replace(QLatin1String("&&"), QStringLiteral("\x01"));
    text.remove(u'&');
    text.replace(u'\x01', u'&');
    return text;
}

int widestLine(const QFontMetrics& fm, const QString& text)
{
    int widest = 0;
    for (const QString& line : text.split(u'\n'))
        widest = std::max(widest, fm.horizontalAdvance(line));
    return widest;
}

// Widgets that draw their own small parts: their insides are the toolkit's business.
bool insideCompound(const QWidget* w, const QWidget* window)
{
    for (const QWidget* p = w->parentWidget(); p && p != window; p = p->parentWidget())
        if (qobject_cast<const QCalendarWidget*>(p) || qobject_cast<const QAbstractSpinBox*>(p) ||
            qobject_cast<const QComboBox*>(p))
            return true;
    return false;
}

} // namespace

QList<QWidget*> TabChain(QWidget* window)
{
    QList<QWidget*> chain;
    QWidget* w = window->nextInFocusChain();
    // The focus chain is a ring through every widget of the window.
    for (int guard = 0; w != window && guard < 10000; ++guard, w = w->nextInFocusChain()) {
        if (!takesTab(w, window)) continue;
        QWidget* owner = focusOwner(w);
        if (!chain.contains(owner)) chain << owner;
    }
    return chain;
}

QStringList TabOrderFaults(QWidget* window)
{
    const QList<QWidget*> chain = TabChain(window);
    QStringList faults;
    for (qsizetype i = 0; i < chain.size() && chain.size() > 1; ++i) {
        QWidget* from = chain[i];
        QWidget* to = chain[(i + 1) % chain.size()];
        const QRect a = inWindow(from, window);
        const QRect b = inWindow(to, window);
        const bool sameLine = b.top() < a.bottom() && b.bottom() > a.top();
        bool backward = false;
        if (sameLine)
            backward = b.left() < a.left() && b.right() <= a.left();
        else if (b.bottom() <= a.top() || b.top() < a.top())
            backward = b.left() < a.right(); // up is only right for a column further right
        if (backward) faults << QStringLiteral("%1 -> %2").arg(describe(from), describe(to));
    }
    // The wrap from the last widget to the first is the chain's one step back.
    if (faults.size() == 1) faults.clear();
    return faults;
}

QStringList ClippedTexts(QWidget* window)
{
    QStringList clipped;
    auto check = [&](const QWidget* w, const QString& what, int need, int room) {
        if (need > room)
            clipped << QStringLiteral("%1: \"%2\" needs %3 px, has %4")
                           .arg(describe(w), what)
                           .arg(need)
                           .arg(room);
    };
    for (QWidget* w : window->findChildren<QWidget*>()) {
        if (!w->isVisibleTo(window) || insideCompound(w, window)) continue;
        const QFontMetrics fm = w->fontMetrics();
        if (auto* label = qobject_cast<QLabel*>(w)) {
            if (label->text().isEmpty() || Qt::mightBeRichText(label->text())) continue;
            const QString text = label->buddy() ? shown(label->text()) : label->text();
            const QRect room = label->contentsRect().adjusted(label->margin(), label->margin(),
                                                              -label->margin(), -label->margin());
            if (label->wordWrap()) {
                const int need = label->heightForWidth(label->width());
                if (need > label->height())
                    clipped << QStringLiteral("%1: \"%2\" needs %3 px high, has %4")
                                   .arg(describe(label), text.left(40))
                                   .arg(need)
                                   .arg(label->height());
            } else {
                check(label, text, widestLine(fm, text), room.width());
            }
        } else if (auto* edit = qobject_cast<QLineEdit*>(w)) {
            // An empty box shows its placeholder as the label of what it takes.
            if (!edit->text().isEmpty() || edit->placeholderText().isEmpty()) continue;
            QStyleOptionFrame opt;
            opt.initFrom(edit);
            const QRect room =
                edit->style()->subElementRect(QStyle::SE_LineEditContents, &opt, edit);
            check(edit, edit->placeholderText(), fm.horizontalAdvance(edit->placeholderText()),
                  room.width() - 4);
        } else if (auto* button = qobject_cast<QPushButton*>(w)) {
            if (button->text().isEmpty()) continue;
            QStyleOptionButton opt;
            opt.initFrom(button);
            opt.text = button->text();
            opt.icon = button->icon();
            opt.iconSize = button->iconSize();
            const QRect room =
                button->style()->subElementRect(QStyle::SE_PushButtonContents, &opt, button);
            const int icon = button->icon().isNull() ? 0 : button->iconSize().width() + 4;
            check(button, shown(button->text()), widestLine(fm, shown(button->text())) + icon,
                  room.width());
        } else if (qobject_cast<QCheckBox*>(w) || qobject_cast<QRadioButton*>(w)) {
            auto* button = static_cast<QAbstractButton*>(w);
            if (button->text().isEmpty()) continue;
            QStyleOptionButton opt;
            opt.initFrom(button);
            opt.text = button->text();
            const bool check_ = qobject_cast<QCheckBox*>(w) != nullptr;
            const QRect room = button->style()->subElementRect(
                check_ ? QStyle::SE_CheckBoxContents : QStyle::SE_RadioButtonContents, &opt,
                button);
            check(button, shown(button->text()), widestLine(fm, shown(button->text())),
                  room.width());
        } else if (auto* group = qobject_cast<QGroupBox*>(w)) {
            if (group->title().isEmpty()) continue;
            QStyleOptionGroupBox opt;
            opt.initFrom(group);
            opt.text = group->title();
            opt.subControls = QStyle::SC_GroupBoxLabel;
            opt.textAlignment = group->alignment();
            if (group->isCheckable()) opt.subControls |= QStyle::SC_GroupBoxCheckBox;
            const int need = fm.horizontalAdvance(shown(group->title()));
            // The caption may run the frame's whole width, less its indents.
            check(group, shown(group->title()), need, group->width() - 16);
        } else if (auto* header = qobject_cast<QHeaderView*>(w)) {
            if (header->orientation() != Qt::Horizontal || !header->model()) continue;
            const int margin =
                header->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header);
            for (int s = 0; s < header->count(); ++s) {
                if (header->isSectionHidden(s)) continue;
                const QString text =
                    header->model()->headerData(s, Qt::Horizontal, Qt::DisplayRole).toString();
                if (text.isEmpty()) continue;
                // A heading that starts in view must be readable where it stands; one the
                // grid shows only by scrolling is not judged.
                const int start = header->sectionViewportPosition(s);
                if (start >= header->viewport()->width()) continue;
                const int room =
                    std::min(header->sectionSize(s), header->viewport()->width() - start);
                check(header, text, header->fontMetrics().horizontalAdvance(text) + 2 * margin,
                      room);
            }
        }
    }
    return clipped;
}
} // namespace tresvane
