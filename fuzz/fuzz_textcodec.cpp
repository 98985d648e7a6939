// The comma-and-quote codec, the plain-line files, Windows-1252 and the US forms of dates
// and money: every text a data file holds passes one of these.
#include "fuzzfolder.h"

#include "core/io/cp1252.h"
#include "core/io/textfile.h"
#include "core/io/usforms.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

const QString kFile = QStringLiteral("Fuzz.txt");

// What a list file reads as after the program has saved what it read: a save must not
// lose or change an entry beyond the one substitution the writer makes.
void listSurvivesASave(const QByteArray& bytes)
{
    TextReader first(bytes, kFile);
    Result<QStringList> read = first.readAllStrings();
    requireNamed(read, kFile);
    if (!read) return;
    TextWriter w;
    for (const QString& s : *read)
        w.line(s);
    TextReader second(w.bytes(), kFile);
    Result<QStringList> again = second.readAllStrings();
    require(again.ok(), "a saved list cannot be read back");
    QStringList expected = *read;
    for (QString& s : expected)
        s.replace(u'"', u'\'');
    if (*again != expected)
        fail(QStringLiteral("a list of %1 entries reads back as %2")
                 .arg(read->size())
                 .arg(again->size()));
}

// Reads typed fields in an order the input chooses, as the settings readers do.
void typedFields(const QByteArray& bytes, quint8 order)
{
    TextReader r(bytes, kFile);
    for (int i = 0; i < 64 && !r.atEnd(); ++i) {
        Status s;
        switch ((order + i) % 6) {
        case 0:
            s = r.readString().status();
            break;
        case 1:
            s = r.readInt16().status();
            break;
        case 2:
            s = r.readByte().status();
            break;
        case 3:
            s = r.readInt32().status();
            break;
        case 4:
            s = r.readBool().status();
            break;
        case 5:
            s = r.readAllStrings().status();
            break;
        }
        requireNamed(s, kFile);
        if (!s) return;
    }
}

void plainLines(const QByteArray& bytes)
{
    const QStringList lines = ReadPlainLines(bytes);
    for (const QString& line : lines)
        require(!line.contains(u'\r') && !line.contains(u'\n'), "a plain line holds a line end");
    require(ReadPlainLines(WritePlainLines(lines)) == lines, "plain lines change through a save");
}

void codePage(const QByteArray& bytes)
{
    const QString text = cp1252::decode(bytes);
    require(text.size() == bytes.size(), "one character a byte");
    require(cp1252::encode(text) == bytes, "a byte changes through a read and a write");
}

bool onlyDigitsAndSlashes(const QByteArray& bytes)
{
    for (char ch : bytes)
        if (ch != '/' && (ch < '0' || ch > '9')) return false;
    return true;
}

void dates(const QByteArray& bytes)
{
    const QString text = cp1252::decode(bytes);
    const std::optional<QDate> date = ParseShortDate(text);
    if (date) {
        require(date->isValid(), "a date taken is valid");
        require(ParseShortDate(FormatShortDate(*date)) == date, "a date changes when written");
    }
    const QDate fromBytes = ParseShortDateBytes(bytes, true);
    if (fromBytes.isValid())
        require(ParseShortDateBytes(FormatShortDate(fromBytes).toLatin1()) == fromBytes,
                "a date of a record changes when written");
    // The record scans and the boxes read the same dates alike.
    if (onlyDigitsAndSlashes(bytes))
        require(date.value_or(QDate()) == fromBytes, "the two date readers disagree");
}

void money(const QByteArray& bytes)
{
    const QString text = cp1252::decode(bytes);
    const std::optional<qint64> units = ParseCurrency(text);
    if (IsNumeric(text)) NumericValue(text);
    if (!units) return;
    const QString shown = FormatCurrency(*units);
    FormatDecimalCurrency(*units);
    // Amounts the boxes can hold come back as they are shown.
    constexpr qint64 kLargest = 9'999'999'999'999 * 10'000LL;
    if (*units > -kLargest && *units < kLargest) {
        const std::optional<qint64> again = ParseCurrency(shown);
        require(again.has_value(), "a shown amount cannot be read");
        require(FormatCurrency(*again) == shown, "an amount changes when shown again");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    const QByteArray bytes = in.rest();
    listSurvivesASave(bytes);
    typedFields(bytes, quint8(in.choice(256)));
    plainLines(bytes);
    codePage(bytes);
    dates(bytes.left(64));
    money(bytes.left(64));
    return 0;
}
