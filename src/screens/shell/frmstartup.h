#pragma once

#include "core/session/menurules.h"
#include "core/state/corecontext.h"

#include <QMainWindow>
#include <array>
#include <functional>

class QAction;
class QLabel;
class QMenu;
class QPushButton;

namespace tresvane
{
// The main menu, "Tresvane Dispatcher Sub Routine Menu": four groups of entries, each
// leading to a working screen, and the menu bar. Each time it comes up it works out from
// the data which entries are open. It is destroyed while a working screen is up and made
// anew on the way back; whether printing has been allowed lives with the App.
class frmStartup : public QMainWindow
{
    Q_OBJECT
public:
    // printEnabled belongs to the run, not to this instance of the menu. screenExists
    // tells whether the target screen of an entry has been built; an entry without one
    // stays closed with a tip.
    frmStartup(CoreContext& ctx, bool& printEnabled, std::function<bool(int)> screenExists,
               QWidget* parent = nullptr);

    std::array<QPushButton*, kMenuEntries> lblSub;
    // The notes shown when printing is left to the sibling program (Label1 12 and 13).
    QLabel* Label1_12;
    QLabel* Label1_13;
    QLabel* lblInstruction;

    QMenu* mnuFiles;
    QAction* mnuCreate;
    QAction* mnuTresvaneworks;
    // Writes every crew's calendar into Exports/Calendars now.
    QAction* mnuExportCalendars;
    QAction* mnuExit;
    QMenu* mnuForms;
    QAction* mnuDeluxeForms;
    QAction* mnuDeluxe;
    QAction* mnuDepositSlips;
    QAction* mnuPPaper;
    QAction* mnuPPPaper;
    QAction* mnuGraytex;
    QAction* mnuAddress;
    QAction* mnuLabels;
    QAction* mnuHelp;

    // The rules of the entries, run each time the menu is shown.
    void Form_Activate();
    void lblSub_Click(int index);

signals:
    void entryChosen(int index);
    void createModify();
    void exportCalendars();
    void exitProgram();
    void openWebPage(const QString& url);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void supplier(QAction* action, const QString& url, const QString& title,
                  const QString& question);

    CoreContext& c;
    bool& PrintEnabled;
    std::function<bool(int)> m_screenExists;
    MenuState m_state;
};
} // namespace tresvane
