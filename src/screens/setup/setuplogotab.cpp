#include "screens/setup/setuplogotab.h"

#include "core/documents/printframe.h"
#include "core/documents/printlogo.h"
#include "core/io/store.h"
#include "core/ports/dialogs.h"
#include "core/setup/pricelists.h"
#include "core/setup/setupdata.h"
#include "screens/documents/printrun.h"
#include "screens/shell/taborder.h"
#include "screens/shell/updown.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace tresvane
{
SetupLogoTab::SetupLogoTab(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent)
    : QWidget(parent), c(ctx), m_printDialogs(printDialogs), m_width(kDefaultLogoTwips),
      m_height(kDefaultLogoTwips)
{
    setObjectName(QStringLiteral("tabLogo"));
    auto* note = new QLabel(
        QStringLiteral("Copy LOGO to Tresvaneworks Folder Before Saving\n"
                       "Do not select your LOGO from a Network Device or a removable device.   "
                       "An error will occur if the network device or removable device is "
                       "unavailable."),
        this);
    note->setWordWrap(true);
    auto picture = [this](const char* name) {
        auto* l = new QLabel(this);
        l->setObjectName(QString::fromLatin1(name));
        l->setFrameShape(QFrame::Box);
        l->setAlignment(Qt::AlignCenter);
        l->setMinimumSize(160, 160);
        return l;
    };
    Image2 = picture("Image2");
    Image3 = picture("Image3");
    lblLogoFile = new QLabel(this);
    lblLogoFile->setObjectName(QStringLiteral("lblLogoFile"));
    lblLogoSize = new QLabel(this);
    lblLogoSize->setObjectName(QStringLiteral("lblLogoSize"));
    UpDown2 = new UpDown(QStringLiteral("UpDown2"), this);
    UpDown3 = new UpDown(QStringLiteral("UpDown3"), this);
    connect(UpDown3, &UpDown::upClicked, this, [this] { stepWidth(true); });
    connect(UpDown3, &UpDown::downClicked, this, [this] { stepWidth(false); });
    connect(UpDown2, &UpDown::upClicked, this, [this] { stepHeight(true); });
    connect(UpDown2, &UpDown::downClicked, this, [this] { stepHeight(false); });
    // Made after the steps, so the keyboard reaches them in the order they stand.
    const std::pair<int, const char*> buttons[] = {
        {0, "Find"}, {1, "&Store"}, {2, "&Clear"}, {5, "Print Sample"}};
    for (auto [index, caption] : buttons) {
        cmdLogo[index] = new QPushButton(QString::fromLatin1(caption), this);
        cmdLogo[index]->setObjectName(QStringLiteral("cmdLogo_%1").arg(index));
        connect(cmdLogo[index], &QPushButton::clicked, this,
                [this, index = index] { cmdLogo_Click(index); });
    }
    cmdLogo[5]->setToolTip(QStringLiteral("Print \"Logo Test\" and the logo at this size"));

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("File on Disk"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("Adjusted Logo"), this), 0, 1);
    grid->addWidget(Image2, 1, 0);
    grid->addWidget(Image3, 1, 1);
    auto* steps = new QVBoxLayout;
    steps->addWidget(new QLabel(QStringLiteral("Width"), this));
    steps->addWidget(UpDown3);
    steps->addWidget(new QLabel(QStringLiteral("Height"), this));
    steps->addWidget(UpDown2);
    steps->addStretch(1);
    grid->addLayout(steps, 1, 2);
    grid->setColumnStretch(3, 1);
    auto* row = new QHBoxLayout;
    for (int i : {0, 1, 2, 5})
        row->addWidget(cmdLogo[i]);
    row->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(note);
    layout->addLayout(grid);
    layout->addWidget(lblLogoFile);
    layout->addWidget(lblLogoSize);
    layout->addWidget(new QLabel(
        QStringLiteral("Adjustment is limited based upon the space on the form."), this));
    layout->addLayout(row);
    // Width comes before Height on the screen.
    SetTabChain({UpDown3->up, UpDown3->down, UpDown2->up, UpDown2->down});
    layout->addStretch(1);
    showSize();
}

Status SetupLogoTab::LoadLogo()
{
    QString path;
    if (Status s = SetupData::LoadCompanyLogo(c, path); !s) return s;
    m_file = LocateLogoFile(c.store, path);
    showPicture();
    if (Status s = SetupData::LoadLogoSettings(c, m_width, m_height); !s) return s;
    showSize();
    return {};
}

Status SetupLogoTab::SaveLogoSettings()
{
    return SetupData::SaveLogoSettings(c, m_width, m_height);
}

void SetupLogoTab::showPicture()
{
    const QPixmap pixmap(m_file);
    lblLogoFile->setText(m_file);
    if (pixmap.isNull()) {
        Image2->clear();
        Image3->clear();
        return;
    }
    Image2->setPixmap(pixmap.scaled(Image2->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    showSize();
}

void SetupLogoTab::showSize()
{
    lblLogoSize->setText(QStringLiteral("%1 x %2 twips (%3 x %4 inches)")
                             .arg(m_width)
                             .arg(m_height)
                             .arg(m_width / 1440.0, 0, 'f', 2)
                             .arg(m_height / 1440.0, 0, 'f', 2));
    const QPixmap pixmap(m_file);
    if (pixmap.isNull()) return;
    const int w = m_width * logicalDpiX() / 1440 / 2;
    const int h = m_height * logicalDpiY() / 1440 / 2;
    Image3->setPixmap(pixmap.scaled(w, h, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void SetupLogoTab::chooseFile(const QString& path)
{
    if (path.isEmpty()) return;
    m_file = path;
    showPicture();
}

void SetupLogoTab::cmdLogo_Click(int index)
{
    switch (index) {
    case 0:
        chooseFile(QFileDialog::getOpenFileName(
            this, QStringLiteral("Find"), QString(),
            QStringLiteral("Pictures (*.bmp *.BMP *.ico *.ICO *.cur *.CUR *.jpg *.JPG *.png "
                           "*.PNG *.emf *.EMF);;All (*)")));
        break;
    case 1:
        if (m_file.isEmpty()) return;
        if (Status s = SetupData::SaveCompanyLogo(c, m_file); !s) {
            c.dialogs.message(s.message());
            return;
        }
        if (Status s = SaveLogoSettings(); !s) {
            c.dialogs.message(s.message());
            return;
        }
        c.dialogs.message(QStringLiteral("Your Logo has been Stored"));
        if (Status s = LoadLogo(); !s) c.dialogs.message(s.message());
        break;
    case 2:
        if (!c.dialogs.ask(QStringLiteral("This will Delete your Company Logo"),
                           QStringLiteral("Delete Logo")))
            return;
        m_file.clear();
        Image2->clear();
        Image3->clear();
        lblLogoFile->clear();
        if (Status s = SetupData::ClearCompanyLogo(c); !s) c.dialogs.message(s.message());
        m_width = kDefaultLogoTwips;
        m_height = kDefaultLogoTwips;
        showSize();
        break;
    case 5:
        PrintSample();
        break;
    default:
        break;
    }
}

void SetupLogoTab::PrintSample()
{
    // The logo as it stands on the tab, so that a size can be judged before it is stored.
    PrintLogo logo;
    logo.file = m_file;
    logo.width = m_width;
    logo.height = m_height;
    PrintDocuments(m_printDialogs, c.dialogs, window(), 1, ReadPrintOffset(c.store.baseName()),
                   [this, logo](PrintSurface& surface) {
                       PrintJob job{surface, DocumentSettingsOf(c.v)};
                       PrintLogoSample(job, logo);
                       return Status();
                   });
}

void SetupLogoTab::stepWidth(bool up)
{
    m_width = LogoSizeStep(m_width, up);
    showSize();
}

void SetupLogoTab::stepHeight(bool up)
{
    m_height = LogoSizeStep(m_height, up);
    showSize();
}
} // namespace tresvane
