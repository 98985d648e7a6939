#pragma once

#include "core/io/result.h"
#include "core/state/corecontext.h"

#include <QWidget>
#include <array>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace tresvane
{
// Tab 0 of the setup screen, Business Info: the company's name and address that head
// every document, and the switch between the USA and the international address layout.
class SetupBusinessTab : public QWidget
{
    Q_OBJECT
public:
    explicit SetupBusinessTab(CoreContext& ctx, QWidget* parent = nullptr);

    std::array<QLineEdit*, 9> txtBusiness;
    std::array<QLabel*, 6> lblAddress; // labels of boxes 0 to 5
    std::array<QLabel*, 3> Label4;     // labels of boxes 6 to 8 (Label4(6) to Label4(8))
    QLabel* lblPostal;
    QLabel* lblAuxNote;
    QPushButton* cmdAddress;
    QToolButton* Image4; // "Clear All business Data"
    QToolButton* Image5; // "Reload Business Data"

    // Boxes from the business data, then the address style worked out from them.
    void BuildBusiness();
    void cmdAddress_Click();
    void Image4_Click();
    void Image5_Click();

private:
    CoreContext& c;
    int m_narrowWidth = 0;
};
} // namespace tresvane
