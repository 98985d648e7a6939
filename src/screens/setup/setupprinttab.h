#pragma once

#include "core/setup/setupdata.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace tresvane
{
// Tab 4 of the setup screen, Printing: the two colours, the font, colour printing and
// the number of copies that every document shares.
class SetupPrintTab : public QWidget
{
    Q_OBJECT
public:
    explicit SetupPrintTab(CoreContext& ctx, QWidget* parent = nullptr);

    QLabel* txtBorders; // "Border / Frame Color", shown as its back colour
    QLabel* txtData;    // "Text Color"
    QLabel* lblFont;
    QCheckBox* ckColor;
    QComboBox* cboCopies;
    // The nudge of everything printed, in hundredths of an inch, for forms that come out
    // of this computer's printer a little off. Kept on this computer, not in the folder.
    QSpinBox* txtOffsetRight;
    QSpinBox* txtOffsetDown;
    // cmdChange(1) border colour, (2) text colour, (3) font; (0) is the Assignments' Change.
    std::array<QPushButton*, 4> cmdChange{};

    // Colours are kept as the old platform's RGB value: red in the low byte.
    static QColor fromRgbValue(qint32 value);
    static qint32 toRgbValue(const QColor& color);

    void showSettings(const PrintColors& s);
    PrintColors settings() const;
    // Reads PrintColors.txt (or its defaults) into the controls and the shared state.
    Status LoadPrintColors();

    void cmdChange_Click(int index);

private:
    void setSwatch(QLabel* box, qint32 value);
    CoreContext& c;
    qint32 m_border = 0;
    qint32 m_text = 0;
};
} // namespace tresvane
