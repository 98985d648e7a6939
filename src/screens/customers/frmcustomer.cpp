#include "screens/customers/frmcustomer.h"

#include "core/customers/customerdelete.h"
#include "core/customers/customerfiles.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/state/dispatchingvariables.h"
#include "screens/customers/accountlistmodel.h"
#include "screens/customers/customerauxpanel.h"
#include "screens/customers/customersearchpanel.h"
#include "screens/customers/storedcallpanel.h"
#include "screens/shell/keyfilterwiring.h"
#include "screens/shell/taborder.h"

#include <QAction>
#include <QComboBox>
#include <QFocusEvent>
#include <QFormLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{

const QString kBusiness = QStringLiteral("Business");
const QString kIndividual = QStringLiteral("Individual");
const QString kViewList = QStringLiteral("View Customer List");

// The label colours of the two account types.
const QString kIndividualStyle = QStringLiteral("background-color: #ffff00;");
const QString kBusinessStyle = QStringLiteral("background-color: #ffc080;");

QComboBox* plainCombo(QWidget* parent, const char* name)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    // These boxes take what is typed as it stands: no completion behind the user's back.
    box->setCompleter(nullptr);
    return box;
}

} // namespace

frmCustomer::frmCustomer(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmCustomer"));
    setWindowTitle(QStringLiteral("Customer Information"));
    buildBoxes();
    buildButtons();
    buildLayout();
    wireBoxes();

    // Once, when the form is made: the titles, the states, the default contract values.
    cboTitle->addItems({QStringLiteral("Mr/Mrs"), QStringLiteral("Mr."), QStringLiteral("Mrs"),
                        QStringLiteral("Ms"), QStringLiteral("Miss")});
    cboTitle->setEditText(QString());
    Result<QStringList> states = ReadStatesList(c.store);
    if (!states)
        report(states.status());
    else
        cboStates->addItems(*states);
    cboStates->setEditText(QString());
    ResetContractDefaults(c);
}

frmCustomer::~frmCustomer() = default;

void frmCustomer::buildBoxes()
{
    const std::array<const char*, 12> tips = {
        "Account No",      "Name",       "Address 1", "Address 2", nullptr, "Postal Code", "Phone",
        "Fax, Email, ETC", "First Name", "MI",        "Last Name", "Cell"};
    for (int i = 0; i < 12; ++i) {
        if (!tips[i]) continue;
        txtCustomer[i] = new QLineEdit(this);
        txtCustomer[i]->setObjectName(QStringLiteral("txtCustomer_%1").arg(i));
        txtCustomer[i]->setPlaceholderText(QString::fromLatin1(tips[i]));
    }
    txtCustomer[CustomerBox::Phone]->setToolTip(QStringLiteral("AAA-EEE-NNNN"));
    txtCustomer[CustomerBox::Cell]->setToolTip(QStringLiteral("AAA-EEE-NNNN"));
    txtCustomer[CustomerBox::MiddleInitial]->setToolTip(QStringLiteral("Middle Initial"));
    txtCustomer[CustomerBox::MiddleInitial]->setMaximumWidth(48);
    cboCity = plainCombo(this, "cboCity");
    cboStates = plainCombo(this, "cboStates");
    cboTitle = plainCombo(this, "cboTitle");
    txtAdd3 = new QLineEdit(this);
    txtAdd3->setObjectName(QStringLiteral("txtAdd3"));
    txtAdd4 = new QLineEdit(this);
    txtAdd4->setObjectName(QStringLiteral("txtAdd4"));
    lbLType = new QLabel(kIndividual, this);
    lbLType->setObjectName(QStringLiteral("lbLType"));
    lbLType->setAlignment(Qt::AlignCenter);
    lbLType->setMinimumWidth(110);

    // The name list: every account, sorted, completing as the user types. A light model
    // over the sorted index keeps 32,767 names quick to fill and to search.
    cboAccounts = new QComboBox(this);
    cboAccounts->setObjectName(QStringLiteral("cboAccounts"));
    cboAccounts->setEditable(true);
    cboAccounts->setInsertPolicy(QComboBox::NoInsert);
    cboAccounts->setCompleter(nullptr);
    cboAccounts->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboAccounts->setMinimumContentsLength(30);
    auto* view = new QListView(cboAccounts);
    view->setUniformItemSizes(true);
    cboAccounts->setView(view);
    m_accountModel = new AccountListModel(m_accounts, this);
    cboAccounts->setModel(m_accountModel);
    cboAccounts->setVisible(false);

    // No box takes more than its field holds, so a save never cuts what was typed.
    const CustomerBoxWidths widths = CustomerBoxLimits();
    for (int i = 0; i < 12; ++i)
        if (txtCustomer[i]) txtCustomer[i]->setMaxLength(widths.txtCustomer[i]);
    cboCity->lineEdit()->setMaxLength(widths.cboCity);
    cboStates->lineEdit()->setMaxLength(widths.cboStates);
    cboTitle->lineEdit()->setMaxLength(widths.cboTitle);
    txtAdd3->setMaxLength(widths.txtAdd3);
    txtAdd4->setMaxLength(widths.txtAdd4);
}

void frmCustomer::buildButtons()
{
    auto button = [this](const QString& caption, const QString& name) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        return b;
    };
    cmdAcctType = button(QStringLiteral("Change &Type"), QStringLiteral("cmdAcctType"));
    cmdSame = button(QStringLiteral("Set Acct = Tel"), QStringLiteral("cmdSame"));
    // Room on both sides of the caption, which the style's own margin leaves touching the edge.
    cmdSame->setMinimumWidth(cmdSame->sizeHint().width() + 2 * fontMetrics().averageCharWidth());
    cmdNew = button(QStringLiteral("Add &New"), QStringLiteral("cmdNew"));
    cmdCustomer[0] = button(QStringLiteral("Cancel Add &New"), QStringLiteral("cmdCustomer_0"));
    cmdCustomer[0]->setVisible(false);
    // The row keeps the button's room while it is hidden, so the form does not widen when
    // a new account is begun.
    QSizePolicy keep = cmdCustomer[0]->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    cmdCustomer[0]->setSizePolicy(keep);
    cmdCustomer[1] =
        button(QStringLiteral("S&elect This Customer"), QStringLiteral("cmdCustomer_1"));
    cmdCustomer[1]->setDefault(true);
    cmdExit = button(QStringLiteral("&Menu"), QStringLiteral("cmdExit"));

    const std::array<const char*, 7> navCaptions = {"|<", "<", ">", ">|", "1/4", "3/4", "1/2"};
    const std::array<const char*, 7> navTips = {
        "Selects 1st Customer Record",     "Selects Previous Customer Record",
        "Selects Next Customer Record",    "Selects Last Customer Record",
        "Goes  1/4 into Customer Records", "Goes 3/4 into Customer Record",
        "Goes 1/2 into Customer Records"};
    for (int i = 0; i < 7; ++i) {
        cmdNav[i] = button(QString::fromLatin1(navCaptions[i]), QStringLiteral("cmdNav_%1").arg(i));
        cmdNav[i]->setToolTip(QString::fromLatin1(navTips[i]));
        connect(cmdNav[i], &QPushButton::clicked, this, [this, i] { cmdNav_Click(i); });
    }
    const std::array<const char*, 4> locate = {
        "&Search by Criteria,such as Street Address", "&Find Account in Name List Alphbetically",
        "Select from &Account List", "&Locate Account in Name List "};
    for (int i = 0; i < 4; ++i) {
        Command1[i] = button(QString::fromLatin1(locate[i]), QStringLiteral("Command1_%1").arg(i));
        connect(Command1[i], &QPushButton::clicked, this, [this, i] { Command1_Click(i); });
    }

    imgDialer = button(QStringLiteral("&Dial"), QStringLiteral("imgDialer"));
    connect(imgDialer, &QPushButton::clicked, this, &frmCustomer::imgDialer_Click);
    cmdHistory = button(QStringLiteral("Service &History"), QStringLiteral("cmdHistory"));

    menuBar = new QMenuBar(this);
    menuBar->setObjectName(QStringLiteral("menuBar"));
    auto action = [this](const QString& caption, const QString& name) {
        QAction* a = menuBar->addAction(caption);
        a->setObjectName(name);
        return a;
    };
    mnuAdd = action(QStringLiteral("&Add New Customer"), QStringLiteral("mnuAdd"));
    mnuAux = action(QStringLiteral("Toggle Data Screen"), QStringLiteral("mnuAux"));
    mnuPrint = action(kViewList, QStringLiteral("mnuPrint"));
    mnuDelete = action(QStringLiteral("DELETE This customer"), QStringLiteral("mnuDelete"));

    calls = new StoredCallPanel(
        c, {[this] { return saveUnsavedEdits(); }, [this](const QString& n) { lookUpCaller(n); }},
        this);
    search = new CustomerSearchPanel(c, this);
    aux = new CustomerAuxPanel(
        c, [this] { return txtCustomer[CustomerBox::AccountNo]->text(); }, this);
    aux->setVisible(false);
}

void frmCustomer::buildLayout()
{
    auto* type = new QHBoxLayout;
    type->addWidget(new QLabel(QStringLiteral("Account Type"), this));
    type->addWidget(lbLType);
    type->addWidget(cmdAcctType);
    type->addStretch(1);

    auto* account = new QHBoxLayout;
    account->addWidget(txtCustomer[CustomerBox::AccountNo], 1);
    account->addWidget(cmdSame);

    // The business name, the person's name boxes and the name list share one place.
    auto* name = new QHBoxLayout;
    name->addWidget(txtCustomer[CustomerBox::Name], 1);
    name->addWidget(cboTitle);
    name->addWidget(txtCustomer[CustomerBox::FirstName], 1);
    name->addWidget(txtCustomer[CustomerBox::MiddleInitial]);
    name->addWidget(txtCustomer[CustomerBox::LastName], 1);
    name->addWidget(cboAccounts, 1);

    fraUSAddress = new QFrame(this);
    fraUSAddress->setObjectName(QStringLiteral("fraUSAddress"));
    auto* us = new QFormLayout(fraUSAddress);
    us->setContentsMargins(0, 0, 0, 0);
    us->addRow(QStringLiteral("City"), cboCity);
    us->addRow(QStringLiteral("State"), cboStates);
    us->addRow(QStringLiteral("Postal Code"), txtCustomer[CustomerBox::PostalCode]);
    fraIntAddress = new QFrame(this);
    fraIntAddress->setObjectName(QStringLiteral("fraIntAddress"));
    auto* intl = new QFormLayout(fraIntAddress);
    intl->setContentsMargins(0, 0, 0, 0);
    intl->addRow(QStringLiteral("Address 3"), txtAdd3);
    intl->addRow(QStringLiteral("Address 4"), txtAdd4);

    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Account No"), account);
    form->addRow(QStringLiteral("Name"), name);
    form->addRow(QStringLiteral("Address 1"), txtCustomer[CustomerBox::Address1]);
    form->addRow(QStringLiteral("Address 2"), txtCustomer[CustomerBox::Address2]);
    form->addRow(fraUSAddress);
    form->addRow(fraIntAddress);
    form->addRow(QStringLiteral("Phone"), txtCustomer[CustomerBox::Phone]);
    form->addRow(QStringLiteral("Cell"), txtCustomer[CustomerBox::Cell]);
    form->addRow(QStringLiteral("Fax, Email, ETC"), txtCustomer[CustomerBox::Other]);

    // The captions of the address frames line up with those of the form around them, so
    // every box starts at one edge.
    int captionWidth = 0;
    QList<QWidget*> captions;
    for (QFormLayout* f : {form, us, intl})
        for (int row = 0; row < f->rowCount(); ++row)
            if (QLayoutItem* item = f->itemAt(row, QFormLayout::LabelRole))
                if (QWidget* caption = item->widget()) {
                    captions << caption;
                    captionWidth = std::max(captionWidth, caption->sizeHint().width());
                }
    for (QWidget* caption : captions)
        caption->setMinimumWidth(captionWidth);

    auto* nav = new QHBoxLayout;
    for (int i : {0, 1, 4, 6, 5, 2, 3})
        nav->addWidget(cmdNav[i]);
    auto* locate = new QGridLayout;
    for (int i = 0; i < 4; ++i)
        locate->addWidget(Command1[i], i / 2, i % 2);
    auto* actions = new QHBoxLayout;
    for (QPushButton* b : {cmdNew, cmdCustomer[0], imgDialer, cmdHistory})
        actions->addWidget(b);
    actions->addStretch(1);
    actions->addWidget(cmdCustomer[1]);
    actions->addWidget(cmdExit);

    auto* left = new QVBoxLayout;
    left->addLayout(type);
    left->addLayout(form);
    left->addLayout(nav);
    left->addLayout(locate);
    left->addStretch(1);
    left->addLayout(actions);

    auto* body = new QHBoxLayout;
    body->addLayout(left, 3);
    auto* right = new QVBoxLayout;
    right->addWidget(calls);
    right->addWidget(search, 1);
    right->addWidget(aux, 1);
    body->addLayout(right, 4);

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(menuBar);
    layout->addLayout(body);
    resize(1100, 620);

    // Down the form as it reads, then its buttons, then the panels on the right.
    namespace Box = CustomerBox;
    QList<QWidget*> chain{cmdAcctType,
                          txtCustomer[Box::AccountNo],
                          cmdSame,
                          txtCustomer[Box::Name],
                          cboTitle,
                          txtCustomer[Box::FirstName],
                          txtCustomer[Box::MiddleInitial],
                          txtCustomer[Box::LastName],
                          cboAccounts,
                          txtCustomer[Box::Address1],
                          txtCustomer[Box::Address2],
                          cboCity,
                          cboStates,
                          txtCustomer[Box::PostalCode],
                          txtAdd3,
                          txtAdd4,
                          txtCustomer[Box::Phone],
                          txtCustomer[Box::Cell],
                          txtCustomer[Box::Other]};
    for (int i : {0, 1, 4, 6, 5, 2, 3})
        chain << cmdNav[i];
    for (QPushButton* b : Command1)
        chain << b;
    for (QPushButton* b : {cmdNew, cmdCustomer[0], imgDialer, cmdHistory, cmdCustomer[1], cmdExit})
        chain << b;
    // The panels on the right were made after all of these and keep their place behind them.
    SetTabChain(chain);
}

void frmCustomer::wireBoxes()
{
    // The account number names a folder: it and the telephone refuse what a name may not
    // hold; no box takes a double quote, which would end a field in the text files.
    for (int i = 0; i < 12; ++i) {
        if (!txtCustomer[i]) continue;
        const bool folderName = i == CustomerBox::AccountNo || i == CustomerBox::Phone;
        WireKeyFilter(txtCustomer[i],
                      folderName ? KeyFilterKind::NameAndQuote : KeyFilterKind::Quote, c.dialogs);
    }
    WireKeyFilter(txtAdd3, KeyFilterKind::NameAndQuote, c.dialogs);
    WireKeyFilter(txtAdd4, KeyFilterKind::NameAndQuote, c.dialogs);
    txtCustomer[CustomerBox::AccountNo]->installEventFilter(this);
    cboAccounts->lineEdit()->installEventFilter(this);

    connect(cmdAcctType, &QPushButton::clicked, this, &frmCustomer::cmdAcctType_Click);
    connect(cmdSame, &QPushButton::clicked, this, &frmCustomer::cmdSame_Click);
    connect(cmdNew, &QPushButton::clicked, this, &frmCustomer::mnuAdd_Click);
    connect(cmdCustomer[0], &QPushButton::clicked, this, &frmCustomer::cmdCancelNew_Click);
    connect(cmdCustomer[1], &QPushButton::clicked, this, &frmCustomer::cmdSelect_Click);
    connect(cmdExit, &QPushButton::clicked, this, &frmCustomer::cmdExit_Click);
    connect(cmdHistory, &QPushButton::clicked, this,
            [this] { emit showHistory(txtCustomer[CustomerBox::AccountNo]->text()); });
    connect(mnuAdd, &QAction::triggered, this, &frmCustomer::mnuAdd_Click);
    connect(mnuAux, &QAction::triggered, this, &frmCustomer::mnuAux_Click);
    connect(mnuDelete, &QAction::triggered, this, &frmCustomer::mnuDelete_Click);
    connect(mnuPrint, &QAction::triggered, this, &frmCustomer::mnuPrint_Click);
    connect(cboAccounts->lineEdit(), &QLineEdit::textEdited, this,
            &frmCustomer::cboAccounts_Change);
    connect(cboAccounts, &QComboBox::activated, this, &frmCustomer::cboAccounts_Click);
    connect(cboAccounts->lineEdit(), &QLineEdit::returnPressed, this,
            &frmCustomer::cboAccounts_LostFocus);

    connect(search->cmdStartSearch, &QPushButton::clicked, this,
            [this] { search->cmdStartSearch_Click(at.gLastrec); });
    connect(search, &CustomerSearchPanel::accountChosen, this, [this](qint32 record) {
        at.gCurrentRec = record;
        ShowCustomer();
    });
    connect(search, &CustomerSearchPanel::newAccountWanted, this, [this] {
        mnuAdd_Click();
        // A caller with no account: the new one starts with the number that called.
        if (!m_caller.isEmpty() && cmdCustomer[0]->isVisible())
            txtCustomer[CustomerBox::Phone]->setText(m_caller);
    });
    connect(search, &CustomerSearchPanel::listClosed, this,
            [this] { mnuPrint->setText(kViewList); });
    connect(aux, &CustomerAuxPanel::moveAccount, this, &frmCustomer::moveAux);
    connect(calls, &StoredCallPanel::actionChosen, this, &frmCustomer::callBack);
}

bool frmCustomer::report(const Status& s)
{
    if (s) return false;
    c.dialogs.message(s.message());
    return true;
}

CustomerBoxes frmCustomer::boxes() const
{
    CustomerBoxes b;
    for (int i = 0; i < 12; ++i)
        if (txtCustomer[i]) b.txtCustomer[i] = txtCustomer[i]->text();
    b.cboCity = cboCity->currentText();
    b.cboStates = cboStates->currentText();
    b.txtAdd3 = txtAdd3->text();
    b.txtAdd4 = txtAdd4->text();
    b.cboTitle = cboTitle->currentText();
    b.lbLType = lbLType->text();
    return b;
}

// The boxes from texts; the type label is SetAccountType's.
void frmCustomer::setBoxes(const CustomerBoxes& b)
{
    // A record read past the end of the file (the only account deleted) is all zero
    // bytes: the boxes show it blank rather than as invisible characters.
    auto shown = [](QString text) { return text.remove(QChar(0)); };
    for (int i = 0; i < 12; ++i)
        if (txtCustomer[i]) txtCustomer[i]->setText(shown(b.txtCustomer[i]));
    cboCity->setEditText(shown(b.cboCity));
    cboStates->setEditText(shown(b.cboStates));
    txtAdd3->setText(shown(b.txtAdd3));
    txtAdd4->setText(shown(b.txtAdd4));
    cboTitle->setEditText(shown(b.cboTitle));
}

void frmCustomer::clearBoxes()
{
    setBoxes(CustomerBoxes());
}

void frmCustomer::leaveToMenu()
{
    hide();
    emit showMenu();
}

void frmCustomer::Form_Activate()
{
    ResetContractDefaults(c);
    aux->LoadAuxHeadings();
    clearBoxes();
    // A screen always starts as an Individual: the label is set to the other type and
    // the type button turns it.
    lbLType->setText(kBusiness);
    cmdAcctType_Click();
    USAStyle = c.v.settings.cmdAddress == QStringLiteral("USA Style Address");
    fraUSAddress->setVisible(USAStyle);
    fraIntAddress->setVisible(!USAStyle);

    if (c.store.FileExists(CustomerFileName())) {
        EnableNavigation(true);
        EnableLocate(true);
        Result<qint16> count = c.store.RecordCount(CustomerFileName(), kCustomerRecordLength);
        if (!report(count.status())) at.gLastrec = *count;
        FillAccountList();
        ShowCustomer();
    } else {
        EnableNavigation(false);
        EnableLocate(false);
        CustomerBoxes b = boxes();
        txtCustomer[CustomerBox::AccountNo]->setFocus();
        PresetEmptyCustomerFile(c.v, b, c.dialogs);
        setBoxes(b);
        mnuDelete->setEnabled(false);
    }
    report(CheckParallelFiles(c, at.gLastrec));
    calls->Form_Activate();
    txtCustomer[CustomerBox::AccountNo]->setFocus();
    markUnchanged();
}

void frmCustomer::ShowCustomer()
{
    if (at.gCurrentRec < 1) return;
    if (report(ReadCustomer(c, at.gCurrentRec))) return;
    setBoxes(BoxesFromCustomer(c.v.gCustomer));
    SetAccountType(c.v.gCustomer.text(CustomerField::AccountType));
    if (!txtCustomer[CustomerBox::Name]->text().isEmpty())
        txtCustomer[CustomerBox::AccountNo]->setFocus();
    aux->LoadAuxData();
    if (!report(ReadContract(c, at.gCurrentRec))) report(ReadCycle(c, at.gCurrentRec));
    markUnchanged();
}

void frmCustomer::setNameBoxesVisible(bool business)
{
    txtCustomer[CustomerBox::Name]->setVisible(business);
    for (int i : {CustomerBox::FirstName, CustomerBox::MiddleInitial, CustomerBox::LastName})
        txtCustomer[i]->setVisible(!business);
    cboTitle->setVisible(!business);
}

void frmCustomer::SetAccountType(const QString& type)
{
    txtCustomer[CustomerBox::AccountNo]->setFocus();
    if (type != kBusiness) {
        CurrentCustomer = CurrentCustomerName(c.v.gCustomer, kIndividual);
        setNameBoxesVisible(false);
        lbLType->setText(kIndividual);
        lbLType->setStyleSheet(kIndividualStyle);
        aux->lblAccount->setText(QStringLiteral("Data for %1 %2 %3")
                                     .arg(txtCustomer[CustomerBox::FirstName]->text(),
                                          txtCustomer[CustomerBox::MiddleInitial]->text(),
                                          txtCustomer[CustomerBox::LastName]->text()));
    } else {
        CurrentCustomer = CurrentCustomerName(c.v.gCustomer, kBusiness);
        setNameBoxesVisible(true);
        lbLType->setText(kBusiness);
        lbLType->setStyleSheet(kBusinessStyle);
        aux->lblAccount->setText(QStringLiteral("Data for ") + CurrentCustomer);
    }
}

void frmCustomer::cmdAcctType_Click()
{
    SetAccountType(lbLType->text() == kIndividual ? kBusiness : kIndividual);
}

bool frmCustomer::UpdateCustomerRecord()
{
    CustomerBoxes b = boxes();
    Result<CustomerCheck> check = tresvane::UpdateCustomerRecord(c, b, USAStyle, at.gCurrentRec);
    if (!check) {
        report(check.status());
        AcctOK = false;
        return false;
    }
    // The one box a test changes: the telephone taken as the account number.
    txtCustomer[CustomerBox::AccountNo]->setText(b.txtCustomer[CustomerBox::AccountNo]);
    AcctOK = check->AcctOK;
    if (check->focus >= 0 && txtCustomer[check->focus]) txtCustomer[check->focus]->setFocus();
    if (check->leaveToMenu) {
        // The user left without an account: whatever asked for the save goes no further.
        AcctOK = false;
        m_leftForMenu = true;
        leaveToMenu();
        return false;
    }
    if (check->save) {
        at = PositionAfterSave(at);
        AddCity(c.v.gCustomer.text(CustomerField::Address3));
        EnableNavigation(true);
        EnableLocate(true);
        for (QAction* a : {mnuAux, mnuDelete, mnuAdd})
            a->setEnabled(true);
        // The new account is in the file now: there is nothing left to cancel.
        cmdCustomer[0]->hide();
        markUnchanged();
    }
    return AcctOK;
}

bool frmCustomer::hasUnsavedEdits() const
{
    return isVisible() && boxes() != m_unchanged;
}

bool frmCustomer::saveUnsavedEdits()
{
    m_leftForMenu = false;
    return UpdateCustomerRecord() && !m_leftForMenu;
}

void frmCustomer::SaveCustomer()
{
    tresvane::SaveCustomer(boxes(), USAStyle, c.v);
}

void frmCustomer::BeginNewCustomer()
{
    if (!UpdateCustomerRecord()) return;
    cmdCustomer[0]->show();
    CustomerBoxes b;
    at = tresvane::BeginNewCustomer(c.v, b, at);
    clearBoxes();
    SetAccountType(kIndividual);
    FillAccountList();
    cboCity->setEditText(b.cboCity);
    txtCustomer[CustomerBox::PostalCode]->setText(b.txtCustomer[CustomerBox::PostalCode]);
    cboStates->setEditText(b.cboStates);
    txtCustomer[CustomerBox::Phone]->clear();
    txtCustomer[CustomerBox::AccountNo]->setFocus();
    markUnchanged();
}

void frmCustomer::mnuAdd_Click()
{
    BeginNewCustomer();
    if (!AcctOK) return;
    ResetContractDefaults(c);
    for (QAction* a : {mnuAdd, mnuAux, mnuDelete})
        a->setEnabled(false);
}

void frmCustomer::cmdCancelNew_Click()
{
    at = CancelNewCustomer(at);
    cmdCustomer[0]->hide();
    ShowCustomer();
    for (QAction* a : {mnuAux, mnuDelete, mnuAdd})
        a->setEnabled(true);
}

void frmCustomer::cmdSame_Click()
{
    CustomerBoxes b = boxes();
    SetAccountFromTelephone(b, c.dialogs);
    txtCustomer[CustomerBox::AccountNo]->setText(b.txtCustomer[CustomerBox::AccountNo]);
}

void frmCustomer::txtAccount_LostFocus()
{
    CustomerBoxes b = boxes();
    Result<bool> duplicate = CheckDuplicateAccount(c, b, at);
    if (report(duplicate.status()) || !*duplicate) return;
    txtCustomer[CustomerBox::AccountNo]->clear();
    txtCustomer[CustomerBox::AccountNo]->setFocus();
}

void frmCustomer::cmdNav_Click(int index)
{
    if (!UpdateCustomerRecord()) return;
    const std::optional<qint32> to = NavigateTo(index, at);
    if (!to) return;
    at.gCurrentRec = *to;
    ShowCustomer();
}

void frmCustomer::EnableNavigation(bool enabled)
{
    for (QPushButton* b : cmdNav)
        b->setEnabled(enabled);
}

void frmCustomer::EnableLocate(bool enabled)
{
    for (int i = 0; i <= 2; ++i)
        Command1[i]->setEnabled(enabled);
}

void frmCustomer::FillAccountList()
{
    Result<AccountListData> data = ReadAccountList(c.store);
    if (report(data.status())) return;
    m_accountModel->beginChange();
    m_accounts = AccountIndex(std::move(data->accounts));
    m_accountModel->endChange();
    cboCity->clear();
    m_cities = QSet<QString>(data->cities.cbegin(), data->cities.cend());
    cboCity->addItems(data->cities);
    cboCity->setEditText(QString());
}

void frmCustomer::AddCity(const QString& city)
{
    if (m_cities.contains(city)) return;
    m_cities.insert(city);
    const QString typed = cboCity->currentText();
    cboCity->addItem(city);
    cboCity->setEditText(typed);
}

void frmCustomer::cboAccounts_Change(const QString& typed)
{
    // An erasing key leaves the text as the user made it.
    if (m_noComplete) {
        m_noComplete = false;
        return;
    }
    const QString rest = m_accounts.Completion(typed);
    if (rest.isEmpty()) return;
    QLineEdit* edit = cboAccounts->lineEdit();
    edit->setText(typed + rest);
    edit->setSelection(int(typed.size()), int(rest.size()));
}

void frmCustomer::cboAccounts_Click(int index)
{
    if (index < 0 || index >= m_accounts.size()) return;
    cboAccounts->hide();
    at.gCurrentRec = m_accounts.at(index).record;
    ShowCustomer();
}

void frmCustomer::cboAccounts_LostFocus()
{
    if (!cboAccounts->isVisible() || cboAccounts->currentText().trimmed().isEmpty()) return;
    const qsizetype i = m_accounts.FindEqual(cboAccounts->currentText());
    if (i < 0) return;
    cboAccounts->hide();
    at.gCurrentRec = m_accounts.at(i).record;
    ShowCustomer();
}

void frmCustomer::Command1_Click(int index)
{
    switch (index) {
    case 0:
        if (!UpdateCustomerRecord()) return;
        cboAccounts->hide();
        search->OpenSearch();
        break;
    case 1:
        if (m_accounts.isEmpty()) return;
        search->fraSearch->hide();
        search->fraCustomersFound->hide();
        // The name list takes the place of every name box.
        setNameBoxesVisible(true);
        txtCustomer[CustomerBox::Name]->hide();
        cboAccounts->show();
        cboAccounts->setEditText(QString());
        cboAccounts->setFocus();
        break;
    case 2:
        cboAccounts->hide();
        search->fraSearch->hide();
        search->fraCustomersFound->hide();
        SetAccountType(lbLType->text());
        break;
    case 3:
        cboAccounts->hide();
        search->fraSearch->hide();
        mnuPrint_Click();
        break;
    default:
        break;
    }
}

void frmCustomer::mnuPrint_Click()
{
    if (search->fraCustomersFound->isVisible()) {
        mnuPrint->setText(kViewList);
        search->cmdRetry_Click();
    } else if (c.store.FileExists(CustomerFileName())) {
        mnuPrint->setText(QStringLiteral("Close Customer List"));
        search->ShowCompleteList(at.gLastrec);
    } else {
        c.dialogs.beep();
    }
}

void frmCustomer::mnuAux_Click()
{
    aux->setVisible(!aux->isVisible());
}

void frmCustomer::moveAux(int step)
{
    if (step > 0 && at.gCurrentRec == at.gLastrec) return;
    if (step < 0 && at.gCurrentRec < 2) return;
    at.gCurrentRec += step;
    ShowCustomer();
}

void frmCustomer::mnuDelete_Click()
{
    if (!ConfirmDeleteCustomer(c.dialogs)) {
        txtCustomer[CustomerBox::AccountNo]->setFocus();
        return;
    }
    Result<CustomerPosition> after = DeleteCustomer(c.store, at);
    if (report(after.status())) return;
    at = *after;
    FillAccountList();
    txtCustomer[CustomerBox::AccountNo]->setFocus();
    ShowCustomer();
}

void frmCustomer::cmdSelect_Click()
{
    m_leftForMenu = false;
    UpdateCustomerRecord();
    if (m_leftForMenu) return;
    SaveCustomer();
    if (!AcctOK) return;
    // A stored call in hand goes on to the action chosen for it.
    if (calls->fraCallBack->isVisible()) {
        calls->ContinueCallback();
        return;
    }
    emit customerSelected();
    // The routines that go on to a screen of their own hide this one as they bring theirs
    // up; the others only hide it.
    if (AfterCustomerSelect(c.v.Mode) == AfterCustomer::Nowhere) hide();
}

void frmCustomer::lookUpCaller(const QString& number)
{
    // A call that came without a number (private, out of area) is no account's; searched
    // for, the empty text would list every account.
    m_caller = number.trimmed();
    search->SearchCustomers(CustomerSearch::ByTelephone, m_caller,
                            m_caller.isEmpty() ? 0 : at.gLastrec);
    m_caller.clear();
}

void frmCustomer::callBack(bool meeting)
{
    SaveCustomer();
    c.v.Mode = meeting ? Mode::Meeting : Mode::ServiceSlip;
    emit customerSelected();
}

bool frmCustomer::CheckTelephoneAndSave()
{
    const TelephoneCheck phone = CheckTelephone(boxes(), c.dialogs);
    if (!phone.passed) {
        if (phone.leaveToMenu)
            leaveToMenu();
        else
            txtCustomer[CustomerBox::Phone]->setFocus();
        return false;
    }
    return UpdateCustomerRecord();
}

void frmCustomer::cmdExit_Click()
{
    if (!CheckTelephoneAndSave()) return;
    leaveToMenu();
}

void frmCustomer::imgDialer_Click()
{
    if (!CheckTelephoneAndSave()) return;
    const QString telephone = txtCustomer[CustomerBox::Phone]->text().trimmed();
    const QString cell = txtCustomer[CustomerBox::Cell]->text().trimmed();
    QString number = telephone.isEmpty() ? cell : telephone;
    if (!telephone.isEmpty() && !cell.isEmpty() &&
        !c.dialogs.ask(QStringLiteral("Click YES to dial Phone,\nClick NO to dial Cell"),
                       QStringLiteral("Select Phone or Cell")))
        number = cell;
    emit dialRequested(CurrentCustomer, number);
}

bool frmCustomer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtCustomer[CustomerBox::AccountNo] && event->type() == QEvent::FocusOut) {
        txtAccount_LostFocus();
    } else if (watched == cboAccounts->lineEdit()) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Delete || key == Qt::Key_Backspace) m_noComplete = true;
        } else if (event->type() == QEvent::FocusOut &&
                   static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
            cboAccounts_LostFocus();
        }
    }
    return QWidget::eventFilter(watched, event);
}
} // namespace tresvane
