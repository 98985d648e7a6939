#include "core/schedule/slipmessage.h"

#include "core/io/sliprecord.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
QString SlipTextMessage(const SlipRecord& slip, const DispatchingVariables& v)
{
    const int start = slip.text(SlipField::StartSlot).toInt();
    const QString hour = start >= 1 && start <= 12 ? v.TimeLabels[start] : QString();
    const QStringList lines = {
        QStringLiteral("Service Attention - ") + slip.text(SlipField::ConfirmationNo),
        slip.text(SlipField::Name),
        slip.text(SlipField::Street),
        slip.text(SlipField::City) + QStringLiteral(", ") + slip.text(SlipField::St) + u' ' +
            slip.text(SlipField::Zip),
        slip.text(SlipField::Tel),
        QStringLiteral("Scheduled for ") + slip.text(SlipField::EventDate),
        QStringLiteral("at ") + hour,
        slip.text(SlipField::Reference),
    };
    QString text;
    for (const QString& line : lines)
        text += line + QStringLiteral("\r\n");
    return text;
}

QString SlipOnClipboardMessage()
{
    return QStringLiteral("The Service Attention Data is now on the System Clipboard\n"
                          "Paste it into the Message Area of your Text Messaging Screen");
}
} // namespace tresvane
