#include "screens/setup/setupprinttab.h"

#include "core/io/store.h"
#include "core/state/dispatchingvariables.h"
#include "screens/documents/printrun.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace tresvane
{
SetupPrintTab::SetupPrintTab(CoreContext& ctx, QWidget* parent) : QWidget(parent), c(ctx)
{
    setObjectName(QStringLiteral("tabPrinting"));
    auto* intro =
        new QLabel(QStringLiteral("Print settings apply to all types of documents"), this);
    auto swatch = [this](const char* name) {
        auto* l = new QLabel(this);
        l->setObjectName(QString::fromLatin1(name));
        l->setFixedSize(96, 28);
        l->setFrameShape(QFrame::Box);
        l->setAutoFillBackground(true);
        return l;
    };
    txtBorders = swatch("txtBorders");
    txtData = swatch("txtData");
    lblFont = new QLabel(this);
    lblFont->setObjectName(QStringLiteral("lblFont"));
    lblFont->setMinimumWidth(200);
    static const char* const captions[4] = {nullptr, "Change Color", "Change Color", "Change Font"};
    for (int i = 1; i < 4; ++i) {
        cmdChange[i] = new QPushButton(QString::fromLatin1(captions[i]), this);
        cmdChange[i]->setObjectName(QStringLiteral("cmdChange_%1").arg(i));
        connect(cmdChange[i], &QPushButton::clicked, this, [this, i] { cmdChange_Click(i); });
    }
    ckColor = new QCheckBox(QStringLiteral("Print Headings and Totals in Color"), this);
    ckColor->setObjectName(QStringLiteral("ckColor"));
    cboCopies = new QComboBox(this);
    cboCopies->setObjectName(QStringLiteral("cboCopies"));
    for (int n = 1; n <= 9; ++n)
        cboCopies->addItem(QString::number(n));

    auto offsetBox = [this](const char* name) {
        auto* box = new QSpinBox(this);
        box->setObjectName(QString::fromLatin1(name));
        box->setRange(-100, 100);
        box->setSuffix(QStringLiteral(" /100 in"));
        return box;
    };
    txtOffsetRight = offsetBox("txtOffsetRight");
    txtOffsetDown = offsetBox("txtOffsetDown");
    const PrintOffset offset = ReadPrintOffset(c.store.baseName());
    txtOffsetRight->setValue(offset.right);
    txtOffsetDown->setValue(offset.down);
    for (QSpinBox* box : {txtOffsetRight, txtOffsetDown})
        connect(box, &QSpinBox::valueChanged, this, [this] {
            WritePrintOffset(c.store.baseName(), {txtOffsetRight->value(), txtOffsetDown->value()});
        });

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(QStringLiteral("Border / Frame Color"), this), 0, 0);
    grid->addWidget(txtBorders, 0, 1);
    grid->addWidget(cmdChange[1], 0, 2);
    grid->addWidget(new QLabel(QStringLiteral("Text Color"), this), 1, 0);
    grid->addWidget(txtData, 1, 1);
    grid->addWidget(cmdChange[2], 1, 2);
    grid->addWidget(new QLabel(QStringLiteral("Print Font"), this), 2, 0);
    grid->addWidget(lblFont, 2, 1);
    grid->addWidget(cmdChange[3], 2, 2);
    grid->addWidget(new QLabel(QStringLiteral("Copies"), this), 3, 0);
    grid->addWidget(cboCopies, 3, 1);
    grid->addWidget(new QLabel(QStringLiteral("Move Print Right"), this), 4, 0);
    grid->addWidget(txtOffsetRight, 4, 1);
    grid->addWidget(new QLabel(QStringLiteral("Move Print Down"), this), 5, 0);
    grid->addWidget(txtOffsetDown, 5, 1);
    grid->setColumnStretch(3, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(grid);
    layout->addWidget(ckColor);
    layout->addStretch(1);
    QWidget::setTabOrder(cboCopies, txtOffsetRight);
    QWidget::setTabOrder(txtOffsetRight, txtOffsetDown);
    QWidget::setTabOrder(txtOffsetDown, ckColor);
    showSettings({});
}

QColor SetupPrintTab::fromRgbValue(qint32 value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

qint32 SetupPrintTab::toRgbValue(const QColor& color)
{
    return qint32(color.red() | (color.green() << 8) | (color.blue() << 16));
}

void SetupPrintTab::setSwatch(QLabel* box, qint32 value)
{
    QPalette p = box->palette();
    p.setColor(QPalette::Window, fromRgbValue(value));
    box->setPalette(p);
    box->setToolTip(fromRgbValue(value).name());
}

void SetupPrintTab::showSettings(const PrintColors& s)
{
    m_border = s.borderColor;
    m_text = s.textColor;
    setSwatch(txtBorders, s.borderColor);
    setSwatch(txtData, s.textColor);
    lblFont->setText(s.fontName);
    ckColor->setChecked(s.printColor);
    cboCopies->setCurrentText(QString::number(s.copies));
}

PrintColors SetupPrintTab::settings() const
{
    PrintColors s;
    s.borderColor = m_border;
    s.textColor = m_text;
    s.fontName = lblFont->text();
    s.printColor = ckColor->isChecked();
    s.copies = quint8(cboCopies->currentText().toInt());
    return s;
}

Status SetupPrintTab::LoadPrintColors()
{
    PrintColors s;
    Status st = SetupData::LoadPrintColors(c, s);
    showSettings(s);
    c.v.settings.ckColor = s.printColor ? 1 : 0;
    c.v.settings.txtBorders = QString::number(s.borderColor);
    c.v.settings.txtData = QString::number(s.textColor);
    c.v.settings.lblFont = s.fontName;
    return st;
}

void SetupPrintTab::cmdChange_Click(int index)
{
    if (index == 1 || index == 2) {
        qint32& value = index == 1 ? m_border : m_text;
        const QColor chosen = QColorDialog::getColor(fromRgbValue(value), this);
        if (!chosen.isValid()) return;
        value = toRgbValue(chosen);
        setSwatch(index == 1 ? txtBorders : txtData, value);
    } else if (index == 3) {
        bool ok = false;
        const QFont font = QFontDialog::getFont(&ok, QFont(lblFont->text()), this);
        if (ok) lblFont->setText(font.family());
    }
}
} // namespace tresvane
