#include "screens/customers/customerauxpanel.h"

#include "core/ports/dialogs.h"
#include "screens/shell/taborder.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{

QString named(const char* name, int i)
{
    return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(i);
}

} // namespace

CustomerAuxPanel::CustomerAuxPanel(CoreContext& ctx, std::function<QString()> accountNo,
                                   QWidget* parent)
    : QFrame(parent), c(ctx), m_accountNo(std::move(accountNo))
{
    setObjectName(QStringLiteral("fraAux"));
    setFrameShape(QFrame::StyledPanel);

    lblAccount = new QLabel(this);
    lblAccount->setObjectName(QStringLiteral("lblAccount"));
    QFont bold = lblAccount->font();
    bold.setBold(true);
    lblAccount->setFont(bold);

    auto* boxes = new QGridLayout;
    for (int n = 0; n < 6; ++n) {
        txtHeading[n] = new QLineEdit(this);
        txtHeading[n]->setObjectName(named("txtHeading", n));
        txtAux[n] = new QPlainTextEdit(this);
        txtAux[n]->setObjectName(named("txtAux", n));
        txtAux[n]->setToolTip(QStringLiteral("Double click for a larger editor"));
        txtAux[n]->viewport()->installEventFilter(this);
        lblClear[n] = new QPushButton(QStringLiteral("Clear"), this);
        lblClear[n]->setObjectName(named("lblClear", n));
        lblClear[n]->setFlat(true);
        const int row = (n / 2) * 2, col = (n % 2) * 2;
        boxes->addWidget(txtHeading[n], row, col);
        boxes->addWidget(lblClear[n], row, col + 1);
        boxes->addWidget(txtAux[n], row + 1, col, 1, 2);
        connect(lblClear[n], &QPushButton::clicked, this, [this, n] {
            txtAux[n]->clear();
            txtAux[n]->setFocus();
        });
    }

    ckSaveAux = new QCheckBox(QStringLiteral("RETAIN Aux Data between Accounts"), this);
    ckSaveAux->setObjectName(QStringLiteral("ckSaveAux"));

    const std::array<const char*, 9> captions = {
        "Save &Headings", nullptr,        "&Close Window",      "&Reload This Acct",     "Hi&de",
        "Clear",          "Oops, Reload", "&Show Next Account", "Show &Previous Account"};
    for (int i = 0; i < 9; ++i) {
        if (!captions[i]) continue;
        cmdSaveAux[i] = new QPushButton(QString::fromLatin1(captions[i]), this);
        cmdSaveAux[i]->setObjectName(named("cmdSaveAux", i));
        connect(cmdSaveAux[i], &QPushButton::clicked, this, [this, i] { cmdSaveAux_Click(i); });
    }

    fraBig = new QFrame(this);
    fraBig->setObjectName(QStringLiteral("fraBig"));
    fraBig->setFrameShape(QFrame::StyledPanel);
    lblEditing = new QLabel(fraBig);
    lblEditing->setObjectName(QStringLiteral("lblEditing"));
    txtBig = new QPlainTextEdit(fraBig);
    txtBig->setObjectName(QStringLiteral("txtBig"));
    auto* bigButtons = new QHBoxLayout;
    bigButtons->addStretch(1);
    for (int i : {5, 6, 4}) {
        cmdSaveAux[i]->setParent(fraBig);
        bigButtons->addWidget(cmdSaveAux[i]);
    }
    auto* big = new QVBoxLayout(fraBig);
    big->addWidget(lblEditing);
    big->addWidget(txtBig, 1);
    big->addLayout(bigButtons);
    fraBig->setVisible(false);

    // Two short rows rather than one long one, so the panel fits beside the form on a
    // laptop's screen.
    auto* buttons = new QGridLayout;
    buttons->addWidget(ckSaveAux, 0, 0, 1, 3);
    buttons->addWidget(cmdSaveAux[8], 1, 0);
    buttons->addWidget(cmdSaveAux[7], 1, 1);
    buttons->addWidget(cmdSaveAux[3], 1, 2);
    buttons->addWidget(cmdSaveAux[0], 2, 0);
    buttons->addWidget(cmdSaveAux[2], 2, 2);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblAccount);
    layout->addLayout(boxes, 1);
    layout->addWidget(fraBig, 1);
    layout->addLayout(buttons);

    // Row by row: the two headings with their Clear, then the two notes below them.
    QList<QWidget*> chain;
    for (int n = 0; n < 6; n += 2)
        chain << txtHeading[n] << lblClear[n] << txtHeading[n + 1] << lblClear[n + 1] << txtAux[n]
              << txtAux[n + 1];
    chain << txtBig;
    for (int i : {5, 6, 4})
        chain << cmdSaveAux[i];
    chain << ckSaveAux;
    for (int i : {8, 7, 3, 0, 2})
        chain << cmdSaveAux[i];
    SetTabChain(chain);
}

void CustomerAuxPanel::report(const Status& s)
{
    if (!s) c.dialogs.message(s.message());
}

void CustomerAuxPanel::LoadAuxHeadings()
{
    Result<std::optional<AuxTexts>> headings = ReadAuxHeadings(c.store);
    if (!headings) {
        report(headings.status());
        return;
    }
    if (!*headings) return;
    for (int n = 0; n < 6; ++n)
        txtHeading[n]->setText((**headings)[n]);
}

void CustomerAuxPanel::LoadAuxData()
{
    // Retained texts travel to the next account and are stored under it at its next save.
    if (ckSaveAux->isChecked()) return;
    for (QPlainTextEdit* box : txtAux)
        box->clear();
    // The account's folders are made good when its notes are first looked at, should the
    // repair behind the forms not have reached it yet.
    if (!account().trimmed().isEmpty()) report(EnsureAuxFolders(c.store, account()));
    Result<AuxTexts> texts = ReadAuxData(c.store, account());
    if (!texts) {
        report(texts.status());
        return;
    }
    // The files hold CR LF; the editor keeps plain line feeds, which the write turns back.
    for (int n = 0; n < 6; ++n)
        txtAux[n]->setPlainText(
            QString((*texts)[n]).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

void CustomerAuxPanel::SaveAuxData()
{
    AuxTexts texts;
    for (int n = 0; n < 6; ++n)
        texts[n] = txtAux[n]->toPlainText();
    report(WriteAuxData(c.store, account(), texts));
}

void CustomerAuxPanel::cmdSaveAux_Click(int index)
{
    switch (index) {
    case 0: {
        AuxTexts headings;
        for (int n = 0; n < 6; ++n)
            headings[n] = txtHeading[n]->text();
        report(WriteAuxHeadings(c.store, headings));
        break;
    }
    case 2:
        SaveAuxData();
        hide();
        break;
    case 3:
        LoadAuxData();
        break;
    case 4:
        txtAux[AuxBox]->setPlainText(txtBig->toPlainText());
        fraBig->hide();
        break;
    case 5:
        txtBig->clear();
        break;
    case 6:
        txtBig->setPlainText(txtAux[AuxBox]->toPlainText());
        break;
    case 7:
        SaveAuxData();
        emit moveAccount(1);
        break;
    case 8:
        SaveAuxData();
        emit moveAccount(-1);
        break;
    default:
        break;
    }
}

void CustomerAuxPanel::txtAux_DblClick(int n)
{
    AuxBox = qint16(n);
    txtBig->setPlainText(txtAux[n]->toPlainText());
    fraBig->show();
    lblEditing->setText(QStringLiteral("Editing Data Box # %1 - %2 - for %3")
                            .arg(n + 1)
                            .arg(txtHeading[n]->text(), account()));
}

bool CustomerAuxPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick)
        for (int n = 0; n < 6; ++n)
            if (watched == txtAux[n]->viewport()) {
                txtAux_DblClick(n);
                return true;
            }
    return QFrame::eventFilter(watched, event);
}
} // namespace tresvane
