#pragma once

#include <QGroupBox>
#include <array>

class QCheckBox;
class QRadioButton;

namespace tresvane
{
// The invoice choices of the Scheduling Screen's invoice mode: the style of the day's
// invoices, whether the memo goes on them, and whether the problem reported prints.
class InvoiceTypeFrame : public QGroupBox
{
    Q_OBJECT
public:
    explicit InvoiceTypeFrame(QWidget* parent = nullptr);

    // The style as documents take it: 2 service order, 1 repair (standard field), 0 office.
    qint16 invoiceStyle() const;
    void setInvoiceStyle(qint16 style);
    bool addMemo() const;
    bool printReason() const;
    // The service order is offered only where the stock it prices items from is; hidden,
    // it gives its place to the standard field invoice.
    void setServiceOrderOffered(bool offered);

private:
    // [0] service order, [1] standard field, [2] office, as they stand on the screen.
    std::array<QRadioButton*, 3> optInvoiceType{};
    QCheckBox* ckAddMemo;
    QCheckBox* ckPrintReason;
};
} // namespace tresvane
