#include "screens/shell/frmsplash.h"

#include "core/ports/clock.h"
#include "core/ports/dialogs.h"
#include "core/session/startup.h"
#include "screens/shell/logo.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#ifndef DISPATCH_VERSION
#define DISPATCH_VERSION "0.1.0"
#endif

namespace tresvane
{
namespace
{
QToolButton* logoButton(QWidget* parent, int size, const QString& name)
{
    auto* b = new QToolButton(parent);
    b->setObjectName(name);
    b->setIcon(QIcon(ProgramMark(size)));
    b->setIconSize(QSize(size, size));
    b->setAutoRaise(true);
    b->setCursor(Qt::PointingHandCursor);
    b->setToolTip(QStringLiteral("Shows the Setup Screen"));
    return b;
}
} // namespace

QString frmSplash::VersionText()
{
    return QStringLiteral("Version ") + DISPATCH_VERSION;
}

frmSplash::frmSplash(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(ApplicationTitle());

    lblProductName = new QLabel(ApplicationTitle(), this);
    lblProductName->setObjectName(QStringLiteral("lblProductName"));
    QFont big = lblProductName->font();
    big.setPointSizeF(big.pointSizeF() * 2.2);
    big.setBold(true);
    lblProductName->setFont(big);

    lblVersion = new QLabel(VersionText(), this);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));
    lblYear = new QLabel(QString::number(c.clock.today().year()), this);
    lblYear->setObjectName(QStringLiteral("lblYear"));
    lblNotice = new QLabel(QStringLiteral("Tresvaneworks Programs share files.\n"
                                          "Exit all other Tresvaneworks Programs\n"
                                          "before continuing...."),
                           this);
    lblNotice->setObjectName(QStringLiteral("lblNotice"));

    cmdContinue = new QPushButton(QStringLiteral("Continue"), this);
    cmdContinue->setObjectName(QStringLiteral("cmdContinue"));
    cmdContinue->setToolTip(QStringLiteral("Starts the Program"));
    cmdContinue->setDefault(true);
    cmdContinue->setMinimumWidth(140);

    Image1[0] = logoButton(this, 96, QStringLiteral("Image1_0"));

    fraWelcome = new QFrame(this);
    fraWelcome->setObjectName(QStringLiteral("fraWelcome"));
    fraWelcome->setFrameShape(QFrame::StyledPanel);
    lblWelcome = new QLabel(QStringLiteral("Welcome to ") + ApplicationTitle(), fraWelcome);
    lblWelcome->setObjectName(QStringLiteral("lblWelcome"));
    QFont heading = lblWelcome->font();
    heading.setPointSizeF(heading.pointSizeF() * 1.4);
    heading.setBold(true);
    lblWelcome->setFont(heading);
    lblWelcomeText = new QLabel(
        QStringLiteral(
            "It has a series of File Folders where information the program requires is stored.\n"
            "The Setup Screen will be displayed when you click our LOGO.\n"
            "Enter the information for each Folder.\n"
            "When you're completed, click on the Menu Button. That's it!\n"
            "The program will start.(Unless you forgot something)\n\n"
            "If you see this screen after initial Setup, one of your files is missing.\n"
            "An unsuccessful attempt was made to restore it from the Backup Folder. You need "
            "to recreate it.\n\n"
            "You may return to the Setup Screen at any time and make changes by Selecting "
            "Files | Create/Modify from the Main Menu Screen."),
        fraWelcome);
    lblWelcomeText->setObjectName(QStringLiteral("lblWelcomeText"));
    lblWelcomeText->setWordWrap(true);
    Image1[1] = logoButton(fraWelcome, 64, QStringLiteral("Image1_1"));

    auto* welcomeLayout = new QHBoxLayout(fraWelcome);
    auto* welcomeText = new QVBoxLayout;
    welcomeText->addWidget(lblWelcome);
    welcomeText->addWidget(lblWelcomeText);
    welcomeLayout->addWidget(Image1[1], 0, Qt::AlignTop);
    welcomeLayout->addLayout(welcomeText, 1);
    fraWelcome->setVisible(false);

    auto* header = new QHBoxLayout;
    header->addWidget(Image1[0], 0, Qt::AlignTop);
    auto* titles = new QVBoxLayout;
    titles->addWidget(lblProductName);
    titles->addWidget(lblVersion);
    titles->addWidget(lblYear);
    titles->addSpacing(12);
    titles->addWidget(lblNotice);
    header->addLayout(titles, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdContinue);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(16);
    layout->addLayout(header);
    layout->addWidget(fraWelcome);
    layout->addStretch(1);
    layout->addLayout(buttons);
    resize(720, 480);

    connect(cmdContinue, &QPushButton::clicked, this, &frmSplash::cmdContinue_Click);
    for (int i = 0; i < int(Image1.size()); ++i)
        connect(Image1[i], &QToolButton::clicked, this, [this, i] { Image1_Click(i); });
}

void frmSplash::cmdContinue_Click()
{
    if (AllRequiredFilesExist(c)) {
        emit showMenu();
        return;
    }
    fraWelcome->setVisible(true);
}

void frmSplash::Image1_Click(int index)
{
    if (index == 1) fraWelcome->setVisible(false);
    emit showSetup();
}
} // namespace tresvane
