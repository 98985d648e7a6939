#include "core/io/rtfdocument.h"

#include "core/io/cp1252.h"

#include <QByteArrayView>
#include <array>
#include <string_view>

namespace tresvane
{
namespace
{

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Bytes that would run on into a control word standing just before them.
bool continuesWord(char c)
{
    return isLetter(c) || isDigit(c) || c == '-' || c == ' ';
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The bytes end in a hex escape cut short ("\'" or "\'4"), as a damaged file may hold:
// hex digits written next would complete it into a character.
bool endsInOpenEscape(const QByteArray& bytes)
{
    qsizetype quote = bytes.size() - 1;
    if (quote >= 1 && hexValue(bytes[quote]) >= 0) --quote;
    if (quote < 1 || bytes[quote] != '\'') return false;
    qsizetype backslashes = 0;
    while (quote - 1 - backslashes >= 0 && bytes[quote - 1 - backslashes] == '\\')
        ++backslashes;
    return backslashes % 2 == 1; // an even run is escaped backslashes and a quote
}

// Destinations whose content is data about the document, not its text.
bool isHiddenDestination(std::string_view word)
{
    static constexpr std::array<std::string_view, 18> kHidden = {
        "fonttbl",   "colortbl",           "stylesheet",   "info",      "pict",      "object",
        "listtable", "listoverridetable",  "revtbl",       "rsidtbl",   "generator", "xmlnstbl",
        "themedata", "colorschememapping", "latentstyles", "datastore", "filetbl",   "fldinst"};
    for (std::string_view hidden : kHidden)
        if (word == hidden) return true;
    return false;
}

// The character a control word stands for, or 0 for a word that only formats.
char16_t wordCharacter(std::string_view word)
{
    struct Entry {
        std::string_view word;
        char16_t character;
    };
    static constexpr std::array<Entry, 16> kCharacters = {{
        {"par", u'\n'},
        {"line", u'\n'},
        {"sect", u'\n'},
        {"page", u'\n'},
        {"row", u'\n'},
        {"tab", u'\t'},
        {"cell", u'\t'},
        {"emdash", 0x2014},
        {"endash", 0x2013},
        {"emspace", 0x2003},
        {"enspace", 0x2002},
        {"bullet", 0x2022},
        {"lquote", 0x2018},
        {"rquote", 0x2019},
        {"ldblquote", 0x201C},
        {"rdblquote", 0x201D},
    }};
    for (const Entry& e : kCharacters)
        if (word == e.word) return e.character;
    return 0;
}

// A control word at s[i] (the backslash), read to its end.
struct ControlWord {
    std::string_view word;
    bool hasParameter = false;
    int parameter = 0;
    bool delimited = false; // ended by a blank, which belongs to the word
    qsizetype end = 0;
};

ControlWord readControlWord(const char* s, qsizetype n, qsizetype i)
{
    ControlWord w;
    qsizetype j = i + 1;
    // The format allows 32 letters; a longer run is still taken as one word.
    while (j < n && isLetter(s[j]))
        ++j;
    w.word = std::string_view(s + i + 1, std::size_t(j - i - 1));
    bool negative = false;
    if (j + 1 < n && s[j] == '-' && isDigit(s[j + 1])) {
        negative = true;
        ++j;
    }
    qint64 value = 0;
    const qsizetype digits = j;
    while (j < n && isDigit(s[j])) {
        // Parameters are 16-bit in the format; the guard only keeps a damaged file from
        // overflowing the sum.
        if (value < 10'000'000) value = value * 10 + (s[j] - '0');
        ++j;
    }
    if (j > digits) {
        w.hasParameter = true;
        w.parameter = int(negative ? -value : value);
    }
    if (j < n && s[j] == ' ') {
        w.delimited = true;
        ++j;
    }
    w.end = j;
    return w;
}

// Skips the fallback that follows "\uN": count characters, where a control word or
// symbol counts as one and a group's brace ends the fallback early. Returns the new
// position; ended tells whether it stopped just after a control word with no delimiter.
qsizetype skipFallback(const char* s, qsizetype n, qsizetype i, int count, bool* undelimited)
{
    *undelimited = false;
    while (count > 0 && i < n) {
        const char c = s[i];
        if (c == '{' || c == '}') break;
        if (c == '\r' || c == '\n') {
            ++i;
            continue;
        }
        *undelimited = false;
        if (c != '\\') {
            ++i;
        } else if (i + 1 < n && s[i + 1] == '\'') {
            i = std::min(n, i + 4);
        } else if (i + 1 < n && isLetter(s[i + 1])) {
            const ControlWord w = readControlWord(s, n, i);
            *undelimited = !w.delimited;
            i = w.end;
        } else {
            i = std::min(n, i + 2);
        }
        --count;
    }
    return i;
}

} // namespace

RtfDocument::RtfDocument(QByteArray source) : m_source(std::move(source))
{
    parse();
}

void RtfDocument::parse()
{
    m_text.clear();
    m_spans.clear();

    struct GroupState {
        bool hidden = false;
        int unicodeSkip = 1;
    };
    QList<GroupState> outer;
    GroupState group;

    const char* s = m_source.constData();
    const qsizetype n = m_source.size();
    // The token before the present one was a control word without a delimiter.
    bool glued = false;
    auto put = [&](QChar c, qsizetype begin, qsizetype end, bool gluedBefore) {
        if (group.hidden) return;
        m_text.append(c);
        m_spans.append(Span{begin, end, gluedBefore, group.unicodeSkip});
    };

    qsizetype i = 0;
    while (i < n) {
        const char c = s[i];
        const qsizetype begin = i;
        const bool gluedBefore = glued;
        glued = false;
        if (c == '{') {
            outer.append(group);
            ++i;
        } else if (c == '}') {
            // A stray closing brace of a damaged file is passed over.
            if (!outer.isEmpty()) group = outer.takeLast();
            ++i;
        } else if (c == '\r' || c == '\n') {
            ++i; // line ends of the source are not text
        } else if (c != '\\' && group.hidden) {
            // The body of a hidden destination, a picture's hex above all, is passed over
            // in one run: a template with a large logo is read again after each value.
            while (i < n && s[i] != '\\' && s[i] != '{' && s[i] != '}')
                ++i;
        } else if (c != '\\') {
            put(cp1252::decode(QByteArrayView(s + i, 1)).at(0), begin, i + 1, gluedBefore);
            ++i;
        } else if (i + 1 >= n) {
            ++i;
        } else if (isLetter(s[i + 1])) {
            const ControlWord w = readControlWord(s, n, i);
            i = w.end;
            glued = !w.delimited;
            if (w.word == "bin") {
                // Binary data of the given length follows, whatever its bytes; it stands
                // between the word and what comes next. Without a length nothing does.
                if (w.hasParameter && w.parameter > 0) {
                    i = std::min(n, i + w.parameter);
                    glued = false;
                }
            } else if (group.hidden) {
                // nothing in a hidden destination is text
            } else if (w.word == "uc") {
                group.unicodeSkip = std::max(0, w.parameter);
            } else if (w.word == "u") {
                const auto unit = char16_t(w.parameter < 0 ? w.parameter + 65536 : w.parameter);
                bool undelimited = false;
                const qsizetype after = skipFallback(s, n, i, group.unicodeSkip, &undelimited);
                if (after != i) glued = undelimited;
                i = after;
                put(QChar(unit), begin, i, gluedBefore);
            } else if (isHiddenDestination(w.word)) {
                group.hidden = true;
            } else if (const char16_t ch = wordCharacter(w.word)) {
                put(QChar(ch), begin, i, gluedBefore);
            }
        } else {
            const char d = s[i + 1];
            i += 2;
            if (d == '\'') {
                const int high = i < n ? hexValue(s[i]) : -1;
                const int low = i + 1 < n ? hexValue(s[i + 1]) : -1;
                if (high >= 0 && low >= 0) {
                    i += 2;
                    const char byte = char(high * 16 + low);
                    put(cp1252::decode(QByteArrayView(&byte, 1)).at(0), begin, i, gluedBefore);
                }
            } else if (d == '\\' || d == '{' || d == '}') {
                put(QChar(d), begin, i, gluedBefore);
            } else if (d == '~') {
                put(QChar(0x00A0), begin, i, gluedBefore);
            } else if (d == '_') {
                put(QChar(0x2011), begin, i, gluedBefore);
            } else if (d == '\r' || d == '\n') {
                put(QChar(u'\n'), begin, i, gluedBefore);
            } else if (d == '*') {
                group.hidden = true;
            }
            // Other symbols ("\-" an optional hyphen, "\:" an index entry) show nothing.
        }
    }
}

qsizetype RtfDocument::find(const QString& needle, qsizetype from) const
{
    if (needle.isEmpty()) return -1;
    return m_text.indexOf(needle, from, Qt::CaseInsensitive);
}

qsizetype RtfDocument::replace(qsizetype start, qsizetype length, const QString& value)
{
    if (start < 0 || length <= 0 || start + length > m_text.size()) return start;
    const qsizetype tail = m_text.size() - (start + length);
    const QByteArrayView source(m_source);

    QByteArray out;
    out.reserve(m_source.size() + value.size() * 2);
    // What was written last is a control word without a delimiter: a piece that begins
    // with a letter, digit, '-' or blank needs a blank in between. After a broken hex
    // escape an empty group keeps a piece's hex digits from completing it.
    bool pendingGlue = false;
    auto append = [&](QByteArrayView piece) {
        if (piece.isEmpty()) return;
        if (pendingGlue && continuesWord(piece.front()))
            out += ' ';
        else if (hexValue(piece.front()) >= 0 && endsInOpenEscape(out))
            out += "{}";
        out += piece;
        pendingGlue = false;
    };

    // The value goes where the first character was, inside its group and formatting.
    const Span& first = m_spans[start];
    out += source.first(first.begin);
    pendingGlue = first.glued;
    append(escape(value, first.unicodeSkip));
    // The other characters go; the formatting between them stays for what follows.
    qsizetype at = first.end;
    for (qsizetype k = start + 1; k < start + length; ++k) {
        const Span& span = m_spans[k];
        append(source.sliced(at, span.begin - at));
        // The word the span was glued to stands in what was kept just now; when nothing
        // stands between, the word was a character that goes too, and nothing is glued.
        if (span.glued && span.begin > at) pendingGlue = true;
        at = span.end;
    }
    append(source.sliced(at));

    m_source = std::move(out);
    parse();
    return m_text.size() - tail;
}

bool RtfDocument::replaceFirst(const QString& needle, const QString& value)
{
    const qsizetype at = find(needle);
    if (at < 0) return false;
    replace(at, needle.size(), value);
    return true;
}

int RtfDocument::replaceAll(const QString& keyword, const QString& value)
{
    int count = 0;
    qsizetype from = 0;
    for (qsizetype at = find(keyword, from); at >= 0; at = find(keyword, from)) {
        from = replace(at, keyword.size(), value);
        ++count;
    }
    return count;
}

QByteArray RtfDocument::escape(const QString& value, int unicodeSkip)
{
    static constexpr char kHex[] = "0123456789abcdef";
    QByteArray out;
    out.reserve(value.size() + 8);
    for (qsizetype i = 0; i < value.size(); ++i) {
        const char16_t u = value[i].unicode();
        if (u == u'\r' || u == u'\n' || u == 0x2028 || u == 0x2029) {
            if (u == u'\r' && i + 1 < value.size() && value[i + 1] == u'\n') ++i;
            out += "\\par ";
        } else if (u == u'\t') {
            out += "\\tab ";
        } else if (u == u'\\' || u == u'{' || u == u'}') {
            out += '\\';
            out += char(u);
        } else if (u < 0x20 || u == 0x7F) {
            // Other control characters have no place in a document's text.
        } else if (u < 0x80) {
            out += char(u);
        } else if (const char byte = cp1252::encodeChar(QChar(u)); byte != '?') {
            const auto b = static_cast<unsigned char>(byte);
            out += "\\'";
            out += kHex[b >> 4];
            out += kHex[b & 15];
        } else {
            // The format's number is a signed 16-bit value.
            out += "\\u";
            out += QByteArray::number(qint16(u));
            if (unicodeSkip > 0)
                out += QByteArray(unicodeSkip, '?');
            else
                out += ' ';
        }
    }
    return out;
}
} // namespace tresvane
