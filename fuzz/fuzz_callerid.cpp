// What the modem sends while caller ID is on, as the call monitor reads it: its answer to
// the switch, then the report lines, arriving in pieces of any size with quiet seconds
// between them. Every report kept is stored as a call.
#include "fuzzfolder.h"

#include "core/telephony/calleridparser.h"
#include "core/telephony/storedcalls.h"

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

// Pieces of the stream whose sizes the stream's own bytes choose, from one byte up.
QList<QByteArray> pieces(const QByteArray& stream, quint8 seed)
{
    QList<QByteArray> out;
    qsizetype at = 0;
    quint32 state = seed;
    while (at < stream.size()) {
        state = state * 1103515245u + 12345u;
        const qsizetype length = 1 + (state >> 16) % 9;
        out << stream.mid(at, length);
        at += length;
    }
    return out;
}

void requireStorable(const QList<CallerIdReport>& reports)
{
    for (const CallerIdReport& r : reports) {
        require(r.name.size() <= 15, "a caller's name wider than its field");
        require(!r.name.contains(u"RING"), "a ring taken for a caller");
        for (QChar ch : r.number)
            require(ch.isDigit() || ch == u'-', "a number holds more than digits");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    const QByteArray stream = in.rest();

    CallerIdParser whole;
    QList<CallerIdReport> atOnce = whole.feed(stream);
    atOnce += whole.endOfInput();
    requireStorable(atOnce);

    // However the bytes are split, the same reports come out.
    CallerIdParser split;
    QList<CallerIdReport> inPieces;
    for (const QByteArray& piece : pieces(stream, quint8(in.choice(256))))
        inPieces += split.feed(piece);
    inPieces += split.endOfInput();
    if (inPieces != atOnce)
        fail(QStringLiteral("%1 reports at once, %2 in pieces")
                 .arg(atOnce.size())
                 .arg(inPieces.size()));

    // The monitor: a piece a second, an empty second ending a waiting report, each report
    // stored in TelCall.txt as it comes.
    Folder& f = Folder::fresh();
    CallerIdParser monitor;
    int stored = 0;
    for (const QByteArray& piece : pieces(stream, quint8(in.choice(256) ^ 0x5a))) {
        const bool quiet = piece.size() == 1 && (quint8(piece[0]) & 0x80);
        const QList<CallerIdReport> calls = quiet ? monitor.endOfInput() : monitor.feed(piece);
        requireStorable(calls);
        for (const CallerIdReport& call : calls) {
            Result<qint32> count =
                StoredCalls::Append(f.store(), call, StoredCalls::TimeText(QTime(9, 5)));
            require(count.ok() && *count == ++stored, "a call not stored after the others");
        }
    }
    const QList<CallRecord> calls = StoredCalls::ReadAll(f.store());
    require(calls.size() == stored, "stored calls lost");
    return 0;
}
