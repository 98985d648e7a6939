#include "foldercheck.h"

#include "bookingcheck.h"

#include "core/customers/auxdata.h"
#include "core/customers/customerfiles.h"
#include "core/housekeeping/datafilecheck.h"
#include "core/io/callrecord.h"
#include "core/io/customerrecords.h"
#include "core/io/historyrecords.h"
#include "core/io/itemrecords.h"
#include "core/io/record.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/numbering.h"
#include "core/setup/printsettings.h"
#include "core/setup/settingsfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"
#include "core/telephony/speednumbers.h"

#include <QDir>
#include <QRegularExpression>
#include <functional>

namespace tresvane
{
namespace
{

// A small streaming JSON writer: the output of a large folder is written in one pass.
class Json
{
public:
    QByteArray out;

    void string(const QString& s)
    {
        out += '"';
        for (QChar ch : s) {
            const char16_t c = ch.unicode();
            switch (c) {
            case u'"':
                out += "\\\"";
                break;
            case u'\\':
                out += "\\\\";
                break;
            case u'\n':
                out += "\\n";
                break;
            case u'\r':
                out += "\\r";
                break;
            case u'\t':
                out += "\\t";
                break;
            default:
                if (c < 0x20)
                    out += QByteArray("\\u") + QByteArray::number(c, 16).rightJustified(4, '0');
                else if (c < 0x80)
                    out += char(c);
                else
                    out += QStringView(&ch, 1).toUtf8();
            }
        }
        out += '"';
    }
    void key(const QString& k)
    {
        comma();
        string(k);
        out += ':';
        m_afterKey = true; // the value follows without a comma
    }
    void value(const QString& s)
    {
        comma();
        string(s);
    }
    void raw(const QByteArray& r)
    {
        comma();
        out += r;
    }
    void open(char c)
    {
        comma();
        out += c;
        m_first = true;
    }
    void close(char c)
    {
        out += c;
        m_first = false;
    }

private:
    void comma()
    {
        if (m_afterKey) {
            m_afterKey = false;
            m_first = false;
            return;
        }
        if (!m_first) out += ',';
        m_first = false;
    }
    bool m_first = true;
    bool m_afterKey = false;
};

struct RecordFile {
    const char* name;
    const RecordLayout& (*layout)();
    int FolderCheck::*count;
};

void recordJson(Json& j, const RecordView& r)
{
    j.open('{');
    const RecordLayout& l = r.layout();
    for (int f = 0; f < l.fields().size(); ++f) {
        j.key(l.field(f).name);
        if (l.field(f).kind == FieldKind::Text)
            j.value(r.display(f));
        else if (l.field(f).kind == FieldKind::Date || l.field(f).kind == FieldKind::Currency)
            j.value(r.display(f));
        else
            j.raw(r.display(f).toUtf8());
    }
    j.close('}');
}

} // namespace

QString FolderCheck::summary() const
{
    return QStringLiteral("customers: %1\nslips: %2\nmeetings: %3\nstored slips: %4\n"
                          "completed slips: %5\ncalls: %6\nteams: %7\nday files: %8\n")
        .arg(customers)
        .arg(slips)
        .arg(meetings)
        .arg(storedSlips)
        .arg(completedSlips)
        .arg(calls)
        .arg(teams)
        .arg(dayFiles);
}

FolderCheck CheckFolder(const QString& folder, QByteArray* json, QDate today)
{
    FolderCheck check;
    Json j;
    j.open('{');
    if (!QFileInfo(folder).isDir()) {
        check.problems << QStringLiteral("%1: there is no such folder").arg(folder);
        return check;
    }
    Store store(folder, Store::Access::ReadOnly);
    SystemClock clock;
    SilentDialogs dialogs;
    DispatchingVariables v;
    CoreContext c{store, clock, dialogs, v};

    const RecordFile recordFiles[] = {
        {"CustomerData.txt", &CustomerLayout, &FolderCheck::customers},
        {"ContractInfo.txt", &ContractLayout, nullptr},
        {"CycleInfo.txt", &CycleLayout, nullptr},
        {"Slips.txt", &SlipLayout, &FolderCheck::slips},
        {"Meetings.txt", &SlipLayout, &FolderCheck::meetings},
        {"UnscheduledSlips.txt", &SlipLayout, &FolderCheck::storedSlips},
        {"CompletedSlips.txt", &SlipLayout, &FolderCheck::completedSlips},
        {"ProjectRecords.txt", &SlipLayout, nullptr},
        {"TelCall.txt", &CallLayout, &FolderCheck::calls},
        {"ServiceHistory.txt", &ServiceHistoryLayout, nullptr},
        {"CAHistory.txt", &LedgerLayout, nullptr},
        {"InvoiceItems.txt", &InvoiceItemLayout, nullptr},
        {"Services.txt", &ServiceLayout, nullptr},
        {"CurrentServices.txt", &ServiceLayout, nullptr},
        {"TVInventoriedItems.txt", &InventoriedItemLayout, nullptr},
        {"CurrentItems.txt", &InventoriedItemLayout, nullptr},
        {"CustomItems.txt", &CustomItemLayout, nullptr},
    };
    for (const RecordFile& rf : recordFiles) {
        const QString name = u'/' + QString::fromLatin1(rf.name);
        const Status checked = CheckDataFile(store, name);
        if (!checked) check.problems << checked.message();
        if (!store.IsFile(name)) continue;
        const RecordLayout& layout = rf.layout();
        Result<QByteArray> bytes = store.ReadAll(name);
        if (!bytes) {
            if (checked) check.problems << bytes.message();
            continue;
        }
        const int records = int(bytes->size() / layout.length());
        if (rf.count) check.*(rf.count) = records;
        if (json) {
            j.key(QString::fromLatin1(rf.name));
            j.open('[');
            ForEachRecord(layout, *bytes,
                          [&](qsizetype, const RecordView& r) { recordJson(j, r); });
            j.close(']');
        }
    }

    // The text files, through the loaders the program starts with.
    PrintColors colors;
    QStringList texts;
    auto strings = [&](const QStringList& list) {
        j.open('[');
        for (const QString& t : list)
            j.value(t);
        j.close(']');
    };
    struct TextFile {
        const char* name;
        std::function<Status()> load;
        std::function<void()> render;
    };
    const TextFile textFiles[] = {
        {"TresvaneDispatcherSettings.txt", [&] { return LoadSettings(c); },
         [&] {
             j.open('{');
             j.key("StartHour");
             j.raw(QByteArray::number(v.gStartHour));
             j.key("WorkDays");
             j.raw(QByteArray::number(v.gWorkDays));
             j.key("Alarms");
             j.raw(v.gAlarms ? "true" : "false");
             j.key("Prompts");
             j.raw(v.gPrompts ? "true" : "false");
             j.key("PrintColor");
             j.raw(QByteArray::number(v.settings.ckColor));
             j.key("OfficeInvoice");
             j.raw(v.settings.optServiceInvoice[0] ? "true" : "false");
             j.key("ServiceOrderInvoice");
             j.raw(v.settings.optServiceInvoice[2] ? "true" : "false");
             j.key("ProgramNumbers");
             j.raw(QByteArray::number(v.settings.ckSlipStyle));
             j.key("LetterSize");
             j.raw(QByteArray::number(v.settings.ckSize));
             j.close('}');
         }},
        {"Assignto.txt", [&] { return LoadAssignments(c); },
         [&] {
             j.open('[');
             for (int i = 1; i < v.gAssignTo.size(); ++i)
                 j.value(v.gAssignTo[i]);
             j.close(']');
         }},
        {"ProblemCode.txt", [&] { return LoadProblems(c); },
         [&] {
             j.open('[');
             for (const QString& p : v.settings.cboProblems)
                 j.value(p);
             j.close(']');
         }},
        {"MyBusinessData.txt", [&] { return LoadBusiness(c); },
         [&] {
             j.open('[');
             for (const QString& b : v.gBusiness)
                 j.value(b);
             j.close(']');
         }},
        {"Phone.txt", [&] { return LoadPhoneSettings(c, 0); },
         [&] {
             j.open('{');
             j.key("PhoneChained");
             j.raw(v.gPhoneChained ? "true" : "false");
             j.key("ModemPort");
             j.raw(QByteArray::number(v.gModemPort));
             j.close('}');
         }},
        {"CallID.txt", [&] { return LoadCallID(c); },
         [&] {
             j.open('{');
             j.key("CallerID");
             j.raw(v.gCallerID ? "true" : "false");
             j.close('}');
         }},
        {"PrintColors.txt",
         [&] {
             Result<PrintColors> r = ReadPrintColors(store);
             if (r) colors = *r;
             return r.status();
         },
         [&] {
             j.open('{');
             j.key("BorderColor");
             j.raw(QByteArray::number(colors.borderColor));
             j.key("TextColor");
             j.raw(QByteArray::number(colors.textColor));
             j.key("FontName");
             j.value(colors.fontName);
             j.key("PrintColor");
             j.raw(colors.printColor ? "true" : "false");
             j.key("Copies");
             j.raw(QByteArray::number(colors.copies));
             j.close('}');
         }},
        {"CompanyLogo.txt",
         [&] {
             Result<QString> r = ReadCompanyLogo(store);
             if (r) texts = QStringList{*r};
             return r.status();
         },
         [&] { strings(texts); }},
        {"LogoSettings.txt",
         [&] {
             Result<LogoSize> r = ReadLogoSize(store);
             if (r) texts = QStringList{QString::number(r->width), QString::number(r->height)};
             return r.status();
         },
         [&] { strings(texts); }},
        {"SpeedNumbers.txt",
         [&] {
             Result<SpeedNumbers> r = ReadSpeedNumbers(store);
             texts.clear();
             if (r)
                 for (int i = 0; i < SpeedNumbers::kCount; ++i)
                     texts << r->names[i] << r->numbers[i];
             return r.status();
         },
         [&] { strings(texts); }},
        {"AuxHeadings.txt",
         [&] {
             Result<std::optional<AuxTexts>> r = ReadAuxHeadings(store);
             texts.clear();
             if (r && r->has_value())
                 for (const QString& t : **r)
                     texts << t;
             return r.status();
         },
         [&] { strings(texts); }},
        {"StatesList.txt",
         [&] {
             Result<QStringList> r = ReadStatesList(store);
             if (r) texts = *r;
             return r.status();
         },
         [&] { strings(texts); }},
        {"SlipNo.txt", [&] { return LoadSlipNo(c); },
         [&] {
             j.open('{');
             j.key("NextSlip");
             j.raw(QByteArray::number(v.gNextSlip));
             j.close('}');
         }},
    };
    for (const TextFile& tf : textFiles) {
        const QString name = u'/' + QString::fromLatin1(tf.name);
        if (Status s = CheckDataFile(store, name); !s) {
            check.problems << s.message();
            continue;
        }
        if (!store.IsFile(name)) continue;
        // The loaders also fill what the JSON shows.
        if (Status s = tf.load(); !s) {
            check.problems << s.message();
            continue;
        }
        if (json) {
            j.key(QString::fromLatin1(tf.name));
            tf.render();
        }
    }
    // Counter.txt is read without LoadCounter, which would write it back.
    for (const char* plain : {"Counter.txt", "PurgedDate.txt"}) {
        const QString name = u'/' + QString::fromLatin1(plain);
        if (Status s = CheckDataFile(store, name); !s) {
            check.problems << s.message();
            continue;
        }
        if (!json || !store.IsFile(name)) continue;
        Result<QByteArray> bytes = store.ReadAll(name);
        if (!bytes) {
            check.problems << bytes.message();
            continue;
        }
        TextReader r(*bytes, QString::fromLatin1(plain));
        QStringList fields;
        if (QByteArray(plain) == "Counter.txt") {
            Result<QString> day = r.readString();
            Result<qint16> seq = day ? r.readInt16() : Result<qint16>(day.status());
            if (day && seq) fields << *day << QString::number(*seq);
        } else if (Result<qint32> d = r.readInt32(); d) {
            fields << QString::number(*d);
        }
        j.key(QString::fromLatin1(plain));
        j.open('[');
        for (const QString& f : fields)
            j.value(f);
        j.close(']');
    }
    check.teams = v.TeamCount();

    // Day files: <year>/Team#<n>/<day>.txt, twelve lines each.
    static const QRegularExpression yearName(QStringLiteral("^\\d{4}$"));
    static const QRegularExpression teamName(QStringLiteral("^team#\\d+$"),
                                             QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression dayName(QStringLiteral("^\\d{1,3}\\.txt$"),
                                            QRegularExpression::CaseInsensitiveOption);
    if (json) {
        j.key("days");
        j.open('{');
    }
    for (const QString& year : store.List("/")) {
        if (!yearName.match(year).hasMatch() || !store.IsFolder(u'/' + year)) continue;
        for (const QString& team : store.List(u'/' + year)) {
            if (!teamName.match(team).hasMatch()) continue;
            for (const QString& day : store.List(u'/' + year + u'/' + team)) {
                if (!dayName.match(day).hasMatch()) continue;
                const QString rel = year + u'/' + team + u'/' + day;
                ++check.dayFiles;
                if (!store.IsFile(u'/' + rel)) {
                    check.problems
                        << rel + QStringLiteral(": a folder stands where the file belongs");
                    continue;
                }
                Result<QByteArray> bytes = store.ReadAll(u'/' + rel);
                if (!bytes) {
                    check.problems << bytes.message();
                    continue;
                }
                const QStringList lines = ReadPlainLines(*bytes);
                QString problem;
                if (lines.size() != 12)
                    problem = QStringLiteral("has %1 lines, not 12").arg(lines.size());
                for (int i = 0; i < lines.size() && problem.isEmpty(); ++i) {
                    const QString t = lines[i].trimmed();
                    if (t.startsWith(u'"') && t.indexOf(u'"', 1) < 0)
                        problem = QStringLiteral("line %1 has no closing quote").arg(i + 1);
                }
                if (!problem.isEmpty()) {
                    check.problems << rel + QStringLiteral(": ") + problem;
                    continue;
                }
                if (json) {
                    // The slots as the booking screen reads them.
                    ClearDaySlots(v);
                    v.DayFilePath = u'/' + rel;
                    if (Result<int> read = ReadDayToGrid(c); !read) {
                        check.problems << read.message();
                        continue;
                    }
                    j.key(rel);
                    j.open('[');
                    for (int i = 1; i <= 12; ++i)
                        j.value(v.DaySlots[i]);
                    j.close(']');
                }
            }
        }
    }
    check.warnings = BookingWarnings(store, today.isValid() ? today : QDate::currentDate());
    // The files read above are as they stood before a change a crash cut short; the next
    // start of the program finishes or drops it.
    if (store.IsFolder(Store::ChangeFolder()))
        check.warnings << QStringLiteral("%1: a change cut short is waiting; the next start of "
                                         "the program finishes or drops it")
                              .arg(Store::ChangeFolder().mid(1));
    if (json) {
        j.close('}');
        j.close('}');
        *json = j.out;
    }
    return check;
}
} // namespace tresvane
