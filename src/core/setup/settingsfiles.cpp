#include "core/setup/settingsfiles.h"

#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/schedule/numbering.h"
#include "core/state/dispatchingvariables.h"

namespace tresvane
{
namespace
{

const QString kAssignto = QStringLiteral("/Assignto.txt");
const QString kProblemCode = QStringLiteral("/ProblemCode.txt");
const QString kBusiness = QStringLiteral("/MyBusinessData.txt");
const QString kPhone = QStringLiteral("/Phone.txt");
const QString kCallID = QStringLiteral("/CallID.txt");

// Opens a text file for reading with the name a user would recognise in a message. A file
// far larger than any installation writes is refused before it is read.
Result<TextReader> openText(Store& store, const QString& name)
{
    if (const qint64 size = store.FileSize(name); size > kTextFileLimit)
        return Status::failure(QStringLiteral("%1 is damaged: it is %L2 bytes long, far more than "
                                              "the program ever writes (at most %L3).")
                                   .arg(store.describe(name))
                                   .arg(size)
                                   .arg(kTextFileLimit));
    Result<QByteArray> bytes = store.ReadAll(name);
    if (!bytes) return bytes.status();
    return TextReader(*bytes, store.describe(name));
}

// The entries of a list a user typed in one by one: each a line of text of a sensible
// length without control characters, and no more of them than the program can use.
Status checkEntries(const QStringList& entries, const QString& file, qsizetype limit)
{
    if (entries.size() > limit)
        return Status::failure(QStringLiteral("%1 is damaged: it holds %L2 entries, and the "
                                              "program keeps at most %3.")
                                   .arg(file)
                                   .arg(entries.size())
                                   .arg(limit));
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const QString& e = entries[i];
        if (e.size() > kListEntryLimit)
            return Status::failure(QStringLiteral("%1 is damaged: entry %2 is %L3 characters "
                                                  "long, more than %4.")
                                       .arg(file)
                                       .arg(i + 1)
                                       .arg(e.size())
                                       .arg(kListEntryLimit));
        for (QChar ch : e)
            if (ch.unicode() < 0x20 && ch != u'\t')
                return Status::failure(
                    QStringLiteral("%1 is damaged: entry %2 holds a control character.")
                        .arg(file)
                        .arg(i + 1));
    }
    return {};
}

bool isWorkWeekCode(int code)
{
    return code == 5 || code == 61 || code == 62 || code == 7;
}

} // namespace

QString SettingsFileName(const Store& store)
{
    return u'/' + store.baseName() + QStringLiteral("Settings.txt");
}

Status LoadSettings(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    SetupSettings& s = v.settings;
    const QString name = SettingsFileName(c.store);
    if (c.store.FileExists(name)) {
        Result<TextReader> reader = openText(c.store, name);
        if (!reader) return reader.status();
        TextReader& r = reader.value();
        // All nine are read before anything changes, so a damaged file changes nothing.
        Result<quint8> startHour = r.readByte();
        if (!startHour) return startHour.status();
        Result<quint8> workDays = r.readByte();
        if (!workDays) return workDays.status();
        Result<bool> alarms = r.readBool();
        if (!alarms) return alarms.status();
        Result<bool> prompts = r.readBool();
        if (!prompts) return prompts.status();
        Result<qint16> color = r.readInt16();
        if (!color) return color.status();
        Result<bool> office = r.readBool();
        if (!office) return office.status();
        Result<bool> serviceOrder = r.readBool();
        if (!serviceOrder) return serviceOrder.status();
        Result<qint16> slipStyle = r.readInt16();
        if (!slipStyle) return slipStyle.status();
        Result<qint16> size = r.readInt16();
        if (!size) return size.status();

        v.gStartHour = *startHour;
        v.gWorkDays = *workDays;
        v.gAlarms = *alarms;
        v.gPrompts = *prompts;
        // The controls in the order the form always set them: the office option, then
        // its negation to the repair option, then the service order option, which thus
        // wins when both booleans are true.
        s.ckColor = *color;
        s.ckSlipStyle = *slipStyle;
        s.setInvoiceOption(0, *office);
        s.setInvoiceOption(1, !*office);
        s.setInvoiceOption(2, *serviceOrder);
        s.ckSize = *size;
        s.ckPrompts = v.gPrompts ? 1 : 0;
        s.ckAlarms = v.gAlarms ? 1 : 0;
        s.ck7 = v.gStartHour == 7;
        s.ck8 = !s.ck7;
        // An unknown work week (an old 6, say) is taken as Monday thru Friday.
        if (!isWorkWeekCode(v.gWorkDays)) v.gWorkDays = 5;
        s.workWeekOption = v.gWorkDays;
    } else {
        v.gStartHour = 8;
        v.gWorkDays = 5;
        v.gAlarms = true;
        v.gPrompts = true;
        s.ckColor = 1;
        s.ckSlipStyle = 1;
        s.setInvoiceOption(1, true);
        s.ck7 = false;
        s.ck8 = true;
        s.ckAlarms = 1;
        s.ckPrompts = 1;
        s.ckSize = 1;
    }
    if (s.ckSlipStyle != 1) {
        s.fraSlipNoVisible = true;
        return LoadSlipNo(c);
    }
    s.fraSlipNoVisible = false;
    return {};
}

Status SaveSettings(CoreContext& c)
{
    DispatchingVariables& v = c.v;
    const SetupSettings& s = v.settings;
    TextWriter w;
    w.line(v.gStartHour)
        .line(v.gWorkDays)
        .line(v.gAlarms)
        .line(v.gPrompts)
        .line(s.ckColor)
        .line(s.optServiceInvoice[0])
        .line(s.optServiceInvoice[2])
        .line(s.ckSlipStyle)
        .line(s.ckSize);
    if (Status st = c.store.RewriteTextFile(SettingsFileName(c.store), w.bytes()); !st) return st;
    if (s.ckSlipStyle != 1) return SaveSlipNo(c);
    return LoadCounter(c);
}

Status LoadAssignments(CoreContext& c)
{
    QStringList& teams = c.v.gAssignTo;
    if (!c.store.FileExists(kAssignto)) {
        teams = {QStringLiteral("empty")};
        return {};
    }
    Result<TextReader> reader = openText(c.store, kAssignto);
    if (!reader) return reader.status();
    Result<QStringList> names = reader->readAllStrings();
    if (!names) return names.status();
    // Every team gets folders of its own: a list past the limit is refused before any
    // of them is made.
    if (Status s = checkEntries(*names, c.store.describe(kAssignto), kTeamLimit); !s) return s;
    teams = QStringList{QStringLiteral("populated")} + *names;
    return {};
}

Status SaveAssignments(CoreContext& c, const QStringList& assignments)
{
    TextWriter w;
    for (const QString& a : assignments)
        w.line(a);
    if (Status s = c.store.RewriteTextFile(kAssignto, w.bytes()); !s) return s;
    return LoadAssignments(c);
}

Status LoadProblems(CoreContext& c)
{
    if (!c.store.FileExists(kProblemCode)) return {};
    Result<TextReader> reader = openText(c.store, kProblemCode);
    if (!reader) return reader.status();
    Result<QStringList> problems = reader->readAllStrings();
    if (!problems) return problems.status();
    if (Status s = checkEntries(*problems, c.store.describe(kProblemCode), kTextFileLimit); !s)
        return s;
    c.v.settings.cboProblems = *problems;
    return {};
}

Status SaveProblems(CoreContext& c, const QStringList& problems)
{
    TextWriter w;
    for (const QString& p : problems)
        w.line(p);
    if (Status s = c.store.RewriteTextFile(kProblemCode, w.bytes()); !s) return s;
    c.v.settings.cboProblems = problems;
    return {};
}

Status LoadBusiness(CoreContext& c)
{
    if (!c.store.FileExists(kBusiness)) return {};
    Result<TextReader> reader = openText(c.store, kBusiness);
    if (!reader) return reader.status();
    std::array<QString, 9> fields;
    for (QString& f : fields) {
        Result<QString> s = reader->readString();
        if (!s) return s.status();
        f = *s;
    }
    c.v.gBusiness = fields;
    BuildBusiness(c.v);
    return {};
}

void BuildBusiness(DispatchingVariables& v)
{
    v.settings.txtBusiness = v.gBusiness;
}

Status SaveBusiness(CoreContext& c)
{
    c.v.gBusiness = c.v.settings.txtBusiness;
    TextWriter w;
    for (const QString& f : c.v.gBusiness)
        w.field(f);
    w.endLine();
    // Sibling programs share this file; its backup copy is left as it was.
    return c.store.WriteFile(kBusiness, w.bytes());
}

Status LoadPhoneSettings(CoreContext& c, qint16 detectedPort)
{
    DispatchingVariables& v = c.v;
    v.gModemPort = detectedPort;
    if (!c.store.FileExists(kPhone)) {
        v.settings.ckPhone = 0;
        v.gPhoneChained = false;
    } else {
        Result<TextReader> reader = openText(c.store, kPhone);
        if (!reader) return reader.status();
        Result<bool> chained = reader->readBool();
        if (!chained) return chained.status();
        Result<qint16> port = reader->readInt16();
        if (!port) return port.status();
        v.gPhoneChained = *chained;
        // The stored port wins over the one just detected.
        v.gModemPort = *port;
        if (v.gPhoneChained) v.settings.ckPhone = 1;
    }
    return LoadCallID(c);
}

Status LoadCallID(CoreContext& c)
{
    if (c.store.FileExists(kCallID)) {
        Result<TextReader> reader = openText(c.store, kCallID);
        if (!reader) return reader.status();
        Result<bool> callerId = reader->readBool();
        if (!callerId) return callerId.status();
        c.v.gCallerID = *callerId;
    }
    // The box is ticked after every load, whatever was stored: leaving setup untouched
    // turns caller ID on.
    c.v.settings.lblCallIDVisible = true;
    c.v.settings.ckCallerID = 1;
    return {};
}

Status SavePhoneSettings(CoreContext& c)
{
    c.v.gPhoneChained = c.v.settings.ckPhone == 1;
    TextWriter w;
    w.line(c.v.gPhoneChained).line(c.v.gModemPort);
    if (Status s = c.store.RewriteTextFile(kPhone, w.bytes()); !s) return s;
    return SaveCallID(c);
}

Status SaveCallID(CoreContext& c)
{
    TextWriter w;
    w.line(c.v.gCallerID);
    return c.store.RewriteTextFile(kCallID, w.bytes());
}

QDate AdjustWorkDay(const QDate& date, int workWeekCode)
{
    // Qt numbers Monday 1 to Sunday 7.
    const int day = date.dayOfWeek();
    const bool saturday = day == 6;
    const bool sunday = day == 7;
    switch (workWeekCode) {
    case 5:
        return saturday ? date.addDays(2) : sunday ? date.addDays(1) : date;
    case 61:
        return sunday ? date.addDays(1) : date;
    case 62:
        return saturday ? date.addDays(1) : date;
    default:
        return date;
    }
}

QString WorkWeekCaption(int workWeekCode)
{
    switch (workWeekCode) {
    case 5:
        return QStringLiteral("Monday thru Friday");
    case 61:
        return QStringLiteral("Monday thru Saturday");
    case 62:
        return QStringLiteral("Sunday thru Friday");
    case 7:
        return QStringLiteral("Sunday thru Saturday");
    default:
        return {};
    }
}
} // namespace tresvane
