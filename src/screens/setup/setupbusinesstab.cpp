#include "screens/setup/setupbusinesstab.h"

#include "core/ports/dialogs.h"
#include "core/setup/addressstyle.h"
#include "core/setup/settingsfiles.h"
#include "core/state/dispatchingvariables.h"
#include "screens/shell/keyfilterwiring.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
namespace
{
constexpr int kInternationalStateLength = 55;
// 5385 twips, the width of the two long address lines of the international layout.
constexpr int kWideTwips = 5385;
int twipsToPixels(const QWidget* w, int twips)
{
    return twips * w->logicalDpiX() / 1440;
}
} // namespace

SetupBusinessTab::SetupBusinessTab(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("tabBusiness"));
    static const char* const labels[9] = {"Company Name", "Address 1",    "Address 2",
                                          "City",         "St",           "Postal Code",
                                          "Telephone",    "Aux Field #1", "Aux Field #2"};
    auto* intro = new QLabel(QStringLiteral("Enter your Business Data here, if you own other "
                                            "Tresvaneworks.us programs, it may apper "
                                            "automatically"),
                             this);
    intro->setWordWrap(true);
    auto* grid = new QGridLayout;
    grid->setColumnStretch(2, 1);
    for (int i = 0; i < 9; ++i) {
        auto* label = new QLabel(QString::fromLatin1(labels[i]), this);
        if (i < 6) {
            lblAddress[i] = label;
            label->setObjectName(QStringLiteral("lblAddress_%1").arg(i));
        } else {
            Label4[i - 6] = label;
            label->setObjectName(QStringLiteral("Label4_%1").arg(i));
        }
        txtBusiness[i] = new QLineEdit(this);
        txtBusiness[i]->setObjectName(QStringLiteral("txtBusiness_%1").arg(i));
        grid->addWidget(label, i, 0);
        grid->addWidget(txtBusiness[i], i, 1);
    }
    txtBusiness[4]->setMaxLength(2);
    txtBusiness[5]->setMaxLength(10);
    txtBusiness[6]->setMaxLength(12);
    m_narrowWidth = fontMetrics().horizontalAdvance(QLatin1Char('M')) * 16;
    for (QLineEdit* box : {txtBusiness[3], txtBusiness[4], txtBusiness[5], txtBusiness[6]})
        box->setFixedWidth(m_narrowWidth);
    for (int i : {0, 1, 2, 7, 8})
        txtBusiness[i]->setMinimumWidth(twipsToPixels(this, kWideTwips));
    for (int i = 0; i < 9; ++i)
        WireKeyFilter(txtBusiness[i], KeyFilterKind::Quote, c.dialogs);

    lblPostal = new QLabel(QStringLiteral("Postal Code is Mandatory"), this);
    lblPostal->setObjectName(QStringLiteral("lblPostal"));
    lblPostal->setStyleSheet(QStringLiteral("color: #a02020;"));
    grid->addWidget(lblPostal, 5, 2);

    cmdAddress = new QPushButton(c.v.settings.cmdAddress, this);
    cmdAddress->setObjectName(QStringLiteral("cmdAddress"));
    Image4 = new QToolButton(this);
    Image4->setObjectName(QStringLiteral("Image4"));
    Image4->setText(QStringLiteral("Clear"));
    Image4->setIcon(style()->standardIcon(QStyle::SP_DialogResetButton));
    Image4->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Image4->setToolTip(QStringLiteral("Clear All business Data"));
    Image5 = new QToolButton(this);
    Image5->setObjectName(QStringLiteral("Image5"));
    Image5->setText(QStringLiteral("Reload"));
    Image5->setIcon(style()->standardIcon(QStyle::SP_BrowserReload));
    Image5->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Image5->setToolTip(QStringLiteral("Reload Business Data"));

    lblAuxNote = new QLabel(
        QStringLiteral("Use the AUX Fields to enter additional Information about your Company "
                       "to be Printed on Documents\n EG: Fax - 999-123-5555               VAT - "
                       "1234567890"),
        this);
    lblAuxNote->setObjectName(QStringLiteral("lblAuxNote"));
    lblAuxNote->setWordWrap(true);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdAddress);
    buttons->addStretch(1);
    buttons->addWidget(Image4);
    buttons->addWidget(Image5);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(grid);
    layout->addWidget(lblAuxNote);
    layout->addLayout(buttons);
    layout->addStretch(1);

    connect(cmdAddress, &QPushButton::clicked, this, &SetupBusinessTab::cmdAddress_Click);
    connect(Image4, &QToolButton::clicked, this, &SetupBusinessTab::Image4_Click);
    connect(Image5, &QToolButton::clicked, this, &SetupBusinessTab::Image5_Click);
}

void SetupBusinessTab::BuildBusiness()
{
    // The limits are the style's, chosen below: until then the boxes take the file's
    // texts whole, so an international address is not cut to a state's two letters.
    txtBusiness[4]->setMaxLength(kInternationalStateLength);
    for (int i = 0; i < 9; ++i)
        txtBusiness[i]->setText(c.v.settings.txtBusiness[i]);
    // The style is set to the opposite of the wanted one and turned by the click.
    c.v.settings.cmdAddress = ToggledAddressStyle(
        AddressStyleAtLoad(c.v.settings.txtBusiness[0], c.v.settings.txtBusiness[5]));
    cmdAddress_Click();
}

void SetupBusinessTab::cmdAddress_Click()
{
    SetupSettings& s = c.v.settings;
    if (s.cmdAddress == kUsaStyleAddress) {
        s.cmdAddress = kInternationalStyleAddress;
        lblPostal->setVisible(false);
        lblAddress[3]->setText(QStringLiteral("Address 3"));
        lblAddress[4]->setText(QStringLiteral("Address 4"));
        lblAddress[5]->setVisible(false);
        txtBusiness[5]->clear();
        txtBusiness[5]->setEnabled(false);
        txtBusiness[3]->setFixedWidth(twipsToPixels(this, kWideTwips));
        txtBusiness[4]->setFixedWidth(twipsToPixels(this, kWideTwips));
        txtBusiness[4]->setMaxLength(kInternationalStateLength);
    } else {
        s.cmdAddress = kUsaStyleAddress;
        lblPostal->setVisible(true);
        lblAddress[3]->setText(QStringLiteral("City"));
        lblAddress[4]->setText(QStringLiteral("State"));
        lblAddress[5]->setVisible(true);
        txtBusiness[5]->setText(c.v.gBusiness[5]);
        txtBusiness[5]->setEnabled(true);
        // Two letters for a state; a longer text the box already holds stays as it is
        // rather than being cut without a word.
        txtBusiness[4]->setMaxLength(qMax(2, int(txtBusiness[4]->text().size())));
        txtBusiness[3]->setFixedWidth(m_narrowWidth);
        txtBusiness[4]->setFixedWidth(m_narrowWidth);
    }
    cmdAddress->setText(s.cmdAddress);
}

void SetupBusinessTab::Image4_Click()
{
    if (!c.dialogs.ask(QStringLiteral("Do you want to reset (clear)all Business Data?"),
                       QStringLiteral("Reset Business Data")))
        return;
    for (QLineEdit* box : txtBusiness)
        box->clear();
}

void SetupBusinessTab::Image5_Click()
{
    if (Status s = LoadBusiness(c); !s) {
        c.dialogs.message(s.message());
        return;
    }
    for (int i = 0; i < 9; ++i)
        txtBusiness[i]->setText(c.v.settings.txtBusiness[i]);
}
} // namespace tresvane
