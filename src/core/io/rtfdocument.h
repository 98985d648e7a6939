#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tresvane
{
// A rich-text (RTF) document kept as its source bytes, with the plain text a reader of it
// sees. Text is found in the plain view and changed in the source, so everything the
// document says about fonts, colours, paragraphs and pages stays as its author made it.
//
// The plain view leaves out what a reader never shows: the font, colour and style tables,
// the document's information, pictures and every "{\*...}" destination. "\'hh" is read as
// Windows-1252, "\uN" as the character N with the fallback that "\ucN" says follows it
// skipped, and "\par" and "\line" end a line ('\n').
class RtfDocument
{
public:
    RtfDocument() = default;
    explicit RtfDocument(QByteArray source);

    const QByteArray& source() const { return m_source; }
    // The plain view, one QChar for each character a reader shows.
    const QString& text() const { return m_text; }

    // Where needle stands in text() at or after from, ignoring case; -1 when it does not.
    qsizetype find(const QString& needle, qsizetype from = 0) const;

    // Replaces length characters of the plain view from start by value. The value takes
    // the formatting of the first character it replaces, even when the characters replaced
    // lie in several runs or groups; the formatting commands between them stay. Returns
    // the position in the new plain view just after the inserted value.
    qsizetype replace(qsizetype start, qsizetype length, const QString& value);

    // Replaces the first occurrence of needle (ignoring case); false when there is none.
    bool replaceFirst(const QString& needle, const QString& value);
    // Replaces each occurrence of keyword (ignoring case) once, going on after the text put
    // in, so a value that holds its own keyword is not replaced again. Returns the count.
    int replaceAll(const QString& keyword, const QString& value);

    // A plain value as RTF source that reads back as exactly that text: '\', '{' and '}'
    // escaped, Windows-1252 characters as "\'hh", others as "\uN" followed by unicodeSkip
    // '?' for readers without Unicode, line breaks as "\par", tabs as "\tab".
    static QByteArray escape(const QString& value, int unicodeSkip = 1);

private:
    void parse();

    // The source bytes that make one character of the plain view.
    struct Span {
        qsizetype begin = 0;
        qsizetype end = 0;
        // The character follows a control word with no delimiter ("\b\'e9"): whatever takes
        // its place must not run on into that word.
        bool glued = false;
        // The "\uc" count in force, for values put in at this place.
        int unicodeSkip = 1;
    };

    QByteArray m_source;
    QString m_text;
    QList<Span> m_spans;
};
} // namespace tresvane
