#pragma once

#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QFrame;
class QLabel;
class QPushButton;
class QToolButton;

namespace tresvane
{
// The start-up welcome form. Continue goes to the menu when the required files stand and
// shows the welcome panel when they do not; the logo leads to the setup screen.
class frmSplash : public QWidget
{
    Q_OBJECT
public:
    explicit frmSplash(CoreContext& ctx, QWidget* parent = nullptr);

    QLabel* lblProductName;
    QLabel* lblVersion;
    QLabel* lblYear;
    QLabel* lblNotice;
    QPushButton* cmdContinue;
    // The logo: 0 on the form, 1 inside the welcome panel.
    std::array<QToolButton*, 2> Image1;
    QFrame* fraWelcome;
    QLabel* lblWelcome;
    QLabel* lblWelcomeText;

    void cmdContinue_Click();
    void Image1_Click(int index);

    // "Version 0.1.0"
    static QString VersionText();

signals:
    void showMenu();
    void showSetup();

private:
    CoreContext& c;
};
} // namespace tresvane
