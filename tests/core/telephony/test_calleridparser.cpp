#include "core/telephony/calleridparser.h"

#include <QTest>

using namespace tresvane;

// Reports are given as lines joined by " / " and framed here with CR LF, as a modem does.
static QByteArray framed(const char* lines)
{
    QByteArray out = "\r\n";
    for (const QByteArray& line : QByteArray(lines).split('/'))
        out += line.trimmed() + "\r\n";
    return out;
}

class TestCallerIdParser : public QObject
{
    Q_OBJECT
private slots:
    void reports_data()
    {
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QStringList>("numbers");

        QTest::newRow("rings around a nine-digit number")
            << framed("RING / DATE = 0321 / TIME = 1405 / NMBR = 504551234 / NAME = A N OTHER "
                      "/ RING / RING")
            << QStringList{"A N OTHER"} << QStringList{"504551234"};
        QTest::newRow("ten digits")
            << framed("DATE = 1015 / TIME = 2038 / NMBR = 8475550001 / NAME = U.S.ROBOTICS")
            << QStringList{"U.S.ROBOTICS"} << QStringList{"847-555-0001"};
        QTest::newRow("no name, ended by a ring")
            << framed("DATE = 1015 / TIME = 2038 / NMBR = 8475550001 / RING") << QStringList{""}
            << QStringList{"847-555-0001"};
        QTest::newRow("no name, ended by silence")
            << framed("DATE = 1015 / TIME = 2038 / NMBR = 8475550001") << QStringList{""}
            << QStringList{"847-555-0001"};
        QTest::newRow("no blanks, withheld number dropped")
            << framed("DATE=1203 / TIME=1452 / NMBR=0755555555") << QStringList{} << QStringList{};
        QTest::newRow("name first, out of area, DDN_NMBR")
            << framed("NAME = O / DDN_NMBR= 9196278340") << QStringList{"Out of Area"}
            << QStringList{"919-627-8340"};
        QTest::newRow("private") << framed("NMBR = P / NAME = P") << QStringList{"Private"}
                                 << QStringList{""};
        QTest::newRow("raw hex line ignored")
            << framed("80200108303332313134303502073530343535313233340708412N204F54484552")
            << QStringList{} << QStringList{};
        QTest::newRow("too few digits")
            << framed("NMBR = 555123 / NAME = SHORT") << QStringList{} << QStringList{};
        QTest::newRow("ring in the name dropped")
            << framed("NMBR = 8475550001 / NAME = RING") << QStringList{} << QStringList{};
        QTest::newRow("long name cut to the record's width")
            << framed("NMBR = 18475550001 / NAME = A VERY LONG CALLER NAME")
            << QStringList{"A VERY LONG CAL"} << QStringList{"847-555-0001"};
        QTest::newRow("two reports back to back")
            << framed("NMBR = 8475550001 / NAME = FIRST / NMBR = 9196278340 / NAME = SECOND")
            << QStringList{"FIRST", "SECOND"} << QStringList{"847-555-0001", "919-627-8340"};
        QTest::newRow("a tag again starts the next report")
            << framed("NMBR = 8475550001 / DATE = 0101 / NMBR = 9196278340 / NAME = SECOND")
            << QStringList{"", "SECOND"} << QStringList{"847-555-0001", "919-627-8340"};
    }

    // Every report, cut at every byte into two reads, gives the same calls, and no field
    // ever carries a line end.
    void reports()
    {
        QFETCH(QByteArray, input);
        QFETCH(QStringList, names);
        QFETCH(QStringList, numbers);
        for (qsizetype cut = 0; cut <= input.size(); ++cut) {
            CallerIdParser parser;
            QList<CallerIdReport> got = parser.feed(input.left(cut));
            got += parser.feed(input.mid(cut));
            got += parser.endOfInput();
            QStringList gotNames, gotNumbers;
            for (const CallerIdReport& r : got) {
                gotNames << r.name;
                gotNumbers << r.number;
                QVERIFY(!r.name.contains(QLatin1Char('\r')) && !r.name.contains(QLatin1Char('\n')));
                QVERIFY(!r.number.contains(QLatin1Char('\r')));
            }
            QVERIFY2(gotNames == names && gotNumbers == numbers,
                     qPrintable(QStringLiteral("cut at %1: %2 / %3")
                                    .arg(cut)
                                    .arg(gotNames.join(QLatin1Char('|')),
                                         gotNumbers.join(QLatin1Char('|')))));
        }
    }

    // A line longer than any tag line closes the report before it, is no name or number
    // itself, and is not kept however long it runs: a report after it reads as ever,
    // however the bytes are split.
    void overlongLines_data()
    {
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QStringList>("names");
        const QByteArray report = "NMBR = 8475550001\r\nNAME = AFTER\r\n";
        QTest::newRow("noise without a line end, then a report")
            << QByteArray(100000, 'x') + "\r\n" + report << QStringList{"AFTER"};
        QTest::newRow("noise closes the report before it")
            << "NMBR = 9196278340\r\n" + QByteArray(500, '~') + "\n" + report
            << QStringList{"", "AFTER"};
        QTest::newRow("a name line past any modem's")
            << "NMBR = 9196278340\r\nNAME = " + QByteArray(200, 'A') + "\r\n" + report
            << QStringList{"", "AFTER"};
        // The noise's lone CR is the last byte of a piece: the report right after it is
        // still read.
        QTest::newRow("noise ended by a lone CR")
            << QByteArray(133, '\xff') + "\r" + report << QStringList{"AFTER"};
        // A number line of exactly the longest length, its CR the last byte of a piece, is
        // still a number line.
        QTest::newRow("a number line of the longest length")
            << QByteArray("NMBR = 8475550002").leftJustified(128, ' ') + "\rNAME = EDGE\r\n"
            << QStringList{"EDGE"};
    }

    void overlongLines()
    {
        QFETCH(QByteArray, input);
        QFETCH(QStringList, names);
        for (const qsizetype piece :
             {qsizetype(1), qsizetype(7), qsizetype(129), qsizetype(134), input.size()}) {
            CallerIdParser parser;
            QStringList got;
            for (qsizetype at = 0; at < input.size(); at += piece)
                for (const CallerIdReport& r : parser.feed(input.mid(at, piece)))
                    got << r.name;
            for (const CallerIdReport& r : parser.endOfInput())
                got << r.name;
            QVERIFY2(got == names,
                     qPrintable(QStringLiteral("pieces of %1: %2").arg(piece).arg(got.join(u'|'))));
        }
    }

    // A report is handed out only once it is whole: half a NAME line is not yet a name.
    void waitsForTheWholeReport()
    {
        CallerIdParser parser;
        QVERIFY(parser.feed("NMBR = 8475550001\r\nNAME = U.S.ROB").isEmpty());
        const QList<CallerIdReport> got = parser.feed("OTICS\r\n");
        QCOMPARE(got.size(), 1);
        QCOMPARE(got[0].name, QStringLiteral("U.S.ROBOTICS"));
    }
};

QTEST_APPLESS_MAIN(TestCallerIdParser)
#include "test_calleridparser.moc"
