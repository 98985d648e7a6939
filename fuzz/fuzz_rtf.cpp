// The contract template, a rich-text file a user may edit in any word processor: its plain
// view, the searches and replacements that fill it in for a customer, and the values put
// into it.
#include "fuzzfolder.h"

#include "core/documents/contract.h"
#include "core/io/rtfdocument.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

// A value escaped for the source reads back as exactly itself.
void escapes(const QString& value)
{
    for (const int skip : {0, 1, 2}) {
        const RtfDocument doc("{\\rtf1 " + RtfDocument::escape(value, skip) + "}");
        if (doc.text() != value)
            fail(QStringLiteral("an escaped value of %1 characters reads back as %2")
                     .arg(value.size())
                     .arg(doc.text().size()));
    }
}

// A replacement changes the plain view there and nowhere else.
void replaces(const QByteArray& source, quint8 at)
{
    RtfDocument doc(source);
    const QString before = doc.text();
    if (before.isEmpty()) return;
    const qsizetype start = at % before.size();
    const qsizetype length = 1 + qMin<qsizetype>(at % 7, before.size() - start - 1);
    const QString value = QStringLiteral("Ann {O'Hara}\\ \u00e9\u20ac\u4e2d");
    const qsizetype after = doc.replace(start, length, value);
    const QString expected = before.left(start) + value + before.mid(start + length);
    if (doc.text() != expected)
        fail(QStringLiteral("a replacement at %1 of %2 characters changed the text around it")
                 .arg(start)
                 .arg(length));
    require(after == start + value.size(), "a replacement ends somewhere else");
    // What was written reads back the same once saved and opened again.
    require(RtfDocument(doc.source()).text() == expected, "a filled document reads otherwise");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    const QByteArray source = in.rest();
    RtfDocument doc(source);
    doc.find(QStringLiteral("customer"));
    replaces(source, quint8(in.choice(256)));
    // Values as a form holds them: any character but the controls a box cannot hold.
    QString value = QString::fromLatin1(source.left(64));
    value.removeIf([](QChar ch) { return ch.unicode() < 0x20 && ch != u'\n' && ch != u'\t'; });
    escapes(value);

    ContractTerms terms;
    terms.service = QStringLiteral("Heating maintenance");
    terms.price = QStringLiteral("$120.00");
    terms.businessName = QStringLiteral("Tresvane Heating & Air");
    terms.customerName = QStringLiteral("Ann O'Hara");
    terms.created = QDate(2026, 4, 30);
    terms.duration = QStringLiteral("1 Year");
    terms.durationIndex = 0;
    terms.commencing = QDate(2026, 5, 1);
    terms.frequency = QStringLiteral("Monthly");
    terms.contractorAddress = QStringLiteral("100 Commerce Way\nSpringfield, IL 62701");
    terms.customerAddress = QStringLiteral("6692 Church St\nBristol, CT 94204");
    RtfDocument contract(source);
    FillContract(contract, terms);
    require(RtfDocument(contract.source()).text() == contract.text(),
            "a filled contract reads otherwise once saved");
    return 0;
}
