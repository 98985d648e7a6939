#include "screens/schedule/storedslipsframe.h"

#include "core/schedule/slipfiles.h"
#include "screens/shell/flexgrid.h"
#include "screens/shell/taborder.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

namespace tresvane
{
StoredSlipsFrame::StoredSlipsFrame(QWidget* parent) : QGroupBox(parent)
{
    setObjectName(QStringLiteral("fraUnscheduled"));
    setTitle(QStringLiteral("Unscheduled Service Attentions"));
    setAutoFillBackground(true);

    fgUnscheduled = new FlexGrid(this);
    fgUnscheduled->setObjectName(QStringLiteral("fgUnscheduled"));
    fgUnscheduled->setHeadings({QStringLiteral("Name"), QStringLiteral("Street"),
                                QStringLiteral("City"), QStringLiteral("St"), QStringLiteral("Zip"),
                                QStringLiteral("Tel")});
    QHeaderView* header = fgUnscheduled->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->resizeSection(0, 200);
    header->resizeSection(1, 220);
    header->resizeSection(2, 140);
    header->resizeSection(3, 40);
    header->resizeSection(4, 80);

    const QStringList captions = {
        QStringLiteral("Cancel/Exit"), QStringLiteral("Load Slip and Schedule"),
        QStringLiteral("Delete Selected Slip"), QStringLiteral("Delete All Slips")};
    auto* buttons = new QHBoxLayout;
    for (int i = 0; i < 4; ++i) {
        auto* b = new QPushButton(captions[i], this);
        b->setObjectName(QStringLiteral("cmdUnscheduled_%1").arg(i));
        cmdUnscheduled[i] = b;
        connect(b, &QPushButton::clicked, this, [this, i] { emit buttonClicked(i); });
    }
    buttons->addWidget(cmdUnscheduled[LoadSlip]);
    buttons->addWidget(cmdUnscheduled[DeleteSelected]);
    buttons->addWidget(cmdUnscheduled[DeleteAll]);
    buttons->addStretch(1);
    buttons->addWidget(cmdUnscheduled[CancelExit]);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fgUnscheduled, 1);
    layout->addLayout(buttons);
    SetTabChain({fgUnscheduled, cmdUnscheduled[LoadSlip], cmdUnscheduled[DeleteSelected],
                 cmdUnscheduled[DeleteAll], cmdUnscheduled[CancelExit]});
    connect(fgUnscheduled, &QAbstractItemView::doubleClicked, this,
            [this] { emit buttonClicked(LoadSlip); });
}

QString StoredSlipsFrame::fill(Store& store)
{
    QList<QStringList> rows;
    Result<QList<SlipRecord>> records = ReadSlipRecords(store, UnscheduledSlipsFileName());
    if (records)
        for (const SlipRecord& r : *records)
            rows.append({r.text(SlipField::Name), r.text(SlipField::Street),
                         r.text(SlipField::City), r.text(SlipField::St), r.text(SlipField::Zip),
                         r.text(SlipField::Tel)});
    fgUnscheduled->setRows(rows);
    if (!rows.isEmpty()) fgUnscheduled->selectRow(0);
    return records ? QString() : records.message();
}

int StoredSlipsFrame::selectedRecord() const
{
    return fgUnscheduled->currentRow() + 1;
}
} // namespace tresvane
