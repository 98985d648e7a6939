#include "screens/schedule/invoicetypeframe.h"

#include "screens/shell/named.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tresvane
{
InvoiceTypeFrame::InvoiceTypeFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Invoice Style"), parent)
{
    setObjectName(QStringLiteral("fraInvoiceType"));
    static const char* const captions[3] = {"Service Order Invoice   (services and items w/prices)",
                                            "Standard Field Invoice (items w/prices)",
                                            "Office Style Invoice (no items)"};
    auto* layout = new QVBoxLayout(this);
    for (int i = 0; i < 3; ++i) {
        optInvoiceType[i] = named(new QRadioButton(QString::fromLatin1(captions[i]), this),
                                  QStringLiteral("optInvoiceType_%1").arg(i));
        layout->addWidget(optInvoiceType[i]);
    }
    optInvoiceType[1]->setChecked(true);
    ckAddMemo = named(new QCheckBox(QStringLiteral("Add Memo to Current Invoice"), this),
                      QStringLiteral("ckAddMemo"));
    ckPrintReason = named(new QCheckBox(QStringLiteral("Print Problem Reported on Invoice"), this),
                          QStringLiteral("ckPrintReason"));
    layout->addWidget(ckAddMemo);
    layout->addWidget(ckPrintReason);
}

qint16 InvoiceTypeFrame::invoiceStyle() const
{
    if (optInvoiceType[0]->isChecked()) return 2;
    if (optInvoiceType[2]->isChecked()) return 0;
    return 1;
}

void InvoiceTypeFrame::setInvoiceStyle(qint16 style)
{
    optInvoiceType[style == 2 ? 0 : style == 0 ? 2 : 1]->setChecked(true);
}

void InvoiceTypeFrame::setServiceOrderOffered(bool offered)
{
    optInvoiceType[0]->setVisible(offered);
    if (!offered && optInvoiceType[0]->isChecked()) optInvoiceType[1]->setChecked(true);
}

bool InvoiceTypeFrame::addMemo() const
{
    return ckAddMemo->isChecked();
}
bool InvoiceTypeFrame::printReason() const
{
    return ckPrintReason->isChecked();
}
} // namespace tresvane
