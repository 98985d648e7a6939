#include "core/customers/auxdata.h"

#include "core/io/cp1252.h"
#include "core/io/store.h"
#include "core/io/textfile.h"

namespace tresvane
{
namespace
{

const QString kCrLf = QStringLiteral("\r\n");

// The text with every lone LF made CR LF, as the file has always held its line ends.
QString withCrLf(const QString& text)
{
    QString out;
    out.reserve(text.size() + 8);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r')) out += u'\r';
        out += text[i];
    }
    return out;
}

QString oneLine(QString text)
{
    for (QChar& c : text)
        if (c == u'\r' || c == u'\n') c = u' ';
    return text;
}

QString auxFolder(const QString& account)
{
    return QStringLiteral("/AuxFiles/") + AuxAccountFolder(account);
}

} // namespace

QString AuxHeadingsFileName()
{
    return QStringLiteral("/AuxHeadings.txt");
}

QString AuxAccountFolder(const QString& account)
{
    // Each character no folder name may hold becomes %XX of its code, and so does a '%'
    // that would read as such a code: two account numbers never share a folder, while
    // every ordinary account keeps the folder named exactly after it.
    const QString name = account.trimmed();
    QString out;
    out.reserve(name.size());
    auto isHex = [](QChar c) { return QStringView(u"0123456789ABCDEFabcdef").contains(c); };
    for (qsizetype i = 0; i < name.size(); ++i) {
        const QChar c = name[i];
        const bool codeLike =
            c == u'%' && i + 2 < name.size() && isHex(name[i + 1]) && isHex(name[i + 2]);
        if (c.unicode() < 0x20 || QStringView(u"<>:\"|?*/\\").contains(c) || codeLike)
            out += u'%' + QString::number(c.unicode(), 16).toUpper().rightJustified(2, u'0');
        else
            out += c;
    }
    return Store::safeComponent(out);
}

QString AuxDataFileName(const QString& account, int n)
{
    return auxFolder(account) + QStringLiteral("/AuxFile%1/Data.txt").arg(n);
}

Result<std::optional<AuxTexts>> ReadAuxHeadings(Store& store)
{
    const QString name = AuxHeadingsFileName();
    if (!store.FileExists(name)) return std::optional<AuxTexts>();
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    const QStringList lines = ReadPlainLines(*bytes);
    AuxTexts headings;
    if (lines.size() < int(headings.size()))
        return Status::failure(
            QStringLiteral("The file %1 is damaged: it holds %2 headings where 6 belong.")
                .arg(store.describe(name))
                .arg(lines.size()));
    for (size_t i = 0; i < headings.size(); ++i)
        headings[i] = lines[qsizetype(i)];
    return std::optional<AuxTexts>(headings);
}

Status WriteAuxHeadings(Store& store, const AuxTexts& headings)
{
    QStringList lines;
    for (const QString& h : headings)
        lines << oneLine(h);
    return store.RewriteTextFile(AuxHeadingsFileName(), WritePlainLines(lines));
}

Result<AuxTexts> ReadAuxData(Store& store, const QString& account)
{
    AuxTexts texts;
    for (int n = 0; n < int(texts.size()); ++n) {
        const QString name = AuxDataFileName(account, n);
        if (!store.FileExists(name)) continue;
        Result<QByteArray> bytes = store.ReadAll(name);
        if (!bytes) return bytes.status();
        TextReader reader(*bytes, store.describe(name));
        while (!reader.atEnd()) {
            Result<QString> value = reader.readString();
            if (!value) return value.status();
            texts[n] += *value + kCrLf;
        }
    }
    return texts;
}

Status EnsureAuxFolders(Store& store, const QString& account)
{
    const QString folder = auxFolder(account);
    for (const QString& f : {QStringLiteral("/AuxFiles"), folder})
        if (Status s = store.EnsureFolder(f); !s) return s;
    for (int n = 0; n < kAuxFolderCount; ++n)
        if (Status s = store.EnsureFolder(folder + QStringLiteral("/AuxFile%1").arg(n)); !s)
            return s;
    return {};
}

Status WriteAuxData(Store& store, const QString& account, const AuxTexts& texts)
{
    if (Status s = EnsureAuxFolders(store, account); !s) return s;
    for (int n = 0; n < int(texts.size()); ++n) {
        const QByteArray bytes = cp1252::encode(withCrLf(texts[n]) + kCrLf);
        if (Status s = store.WriteFile(AuxDataFileName(account, n), bytes); !s) return s;
    }
    return {};
}
} // namespace tresvane
