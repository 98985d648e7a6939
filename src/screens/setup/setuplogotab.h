#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QLabel;
class QPushButton;

namespace tresvane
{
class PrintDialogs;
class UpDown;

// Tab 6 of the setup screen, Logo: the company's picture and its printed size in twips.
class SetupLogoTab : public QWidget
{
    Q_OBJECT
public:
    SetupLogoTab(CoreContext& ctx, PrintDialogs& printDialogs, QWidget* parent = nullptr);

    QLabel* Image2; // "File on Disk"
    QLabel* Image3; // "Adjusted Logo"
    QLabel* lblLogoFile;
    QLabel* lblLogoSize;
    // 0 Find, 1 Store, 2 Clear, 5 Print Sample (3 and 4 are not used).
    std::array<QPushButton*, 6> cmdLogo{};
    UpDown* UpDown2; // the height
    UpDown* UpDown3; // the width

    int logoWidth() const { return m_width; }
    int logoHeight() const { return m_height; }
    QString logoFile() const { return m_file; }

    // The stored logo and its size; a stored path that is gone shows nothing, silently.
    Status LoadLogo();
    Status SaveLogoSettings();
    // Find with a chosen file (the dialog's answer).
    void chooseFile(const QString& path);
    void cmdLogo_Click(int index);
    // Print Sample: "Logo Test" and the logo at the size on the tab, one page.
    void PrintSample();
    void stepWidth(bool up);
    void stepHeight(bool up);

private:
    void showPicture();
    void showSize();
    CoreContext& c;
    PrintDialogs& m_printDialogs;
    QString m_file;
    int m_width;
    int m_height;
};
} // namespace tresvane
