// The small text files that configure an installation and the counters: every reader, and
// for those the setup screen saves, a save of what was read that a second save leaves as
// it is.
#include "fuzzfolder.h"

#include "core/customers/auxdata.h"
#include "core/customers/customerfiles.h"
#include "core/documents/invoicememo.h"
#include "core/documents/workorder.h"
#include "core/housekeeping/purge.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/freenumber.h"
#include "core/schedule/numbering.h"
#include "core/setup/printsettings.h"
#include "core/setup/settingsfiles.h"
#include "core/telephony/speednumbers.h"

#include <functional>

using namespace tresvane;
using namespace tresvane::fuzz;

namespace
{

struct TextFile {
    QString name;
    std::function<Status(CoreContext&)> load;
    // Saves what load left in memory; none for the files the program only reads.
    std::function<Status(CoreContext&)> save;
    // A second save writes what the first did. Not so for the aux texts, which are written
    // as they stand and read back value by value, as they always were: a comma comes back
    // as a line break, a text that opens with a quote ends at its closing quote.
    bool stable = true;
};

AuxTexts s_texts;
PrintColors s_colors;
QString s_logo;
LogoSize s_size;
SpeedNumbers s_speed;
QString s_memo;
const QString kAccount = QStringLiteral("1001");

const QList<TextFile>& files()
{
    static const QList<TextFile> list = {
        {QStringLiteral("/TresvaneDispatcherSettings.txt"), LoadSettings, SaveSettings},
        {QStringLiteral("/Assignto.txt"), LoadAssignments,
         [](CoreContext& c) {
             // The teams' folders of the year, as the start makes them after reading.
             if (Status s = PrepareYearFolders(c, c.v.gYear); !s) return s;
             return SaveAssignments(c, c.v.gAssignTo.mid(1));
         }},
        {QStringLiteral("/ProblemCode.txt"), LoadProblems,
         [](CoreContext& c) { return SaveProblems(c, c.v.settings.cboProblems); }},
        {QStringLiteral("/MyBusinessData.txt"), LoadBusiness, SaveBusiness},
        {QStringLiteral("/Phone.txt"), [](CoreContext& c) { return LoadPhoneSettings(c, 0); },
         SavePhoneSettings},
        {QStringLiteral("/CallID.txt"), LoadCallID, SaveCallID},
        {PrintColorsFileName(),
         [](CoreContext& c) {
             Result<PrintColors> r = ReadPrintColors(c.store);
             if (r) s_colors = *r;
             return r.status();
         },
         [](CoreContext& c) { return WritePrintColors(c.store, s_colors); }},
        {CompanyLogoFileName(),
         [](CoreContext& c) {
             Result<QString> r = ReadCompanyLogo(c.store);
             if (r) {
                 s_logo = *r;
                 ResolveLogoPath(c.store, s_logo);
             }
             return r.status();
         },
         [](CoreContext& c) { return WriteCompanyLogo(c.store, s_logo); }},
        {LogoSettingsFileName(),
         [](CoreContext& c) {
             Result<LogoSize> r = ReadLogoSize(c.store);
             if (r) s_size = *r;
             return r.status();
         },
         [](CoreContext& c) { return WriteLogoSize(c.store, s_size); }},
        {SpeedNumbersFileName(),
         [](CoreContext& c) {
             Result<SpeedNumbers> r = ReadSpeedNumbers(c.store);
             if (r) s_speed = *r;
             return r.status();
         },
         [](CoreContext& c) { return WriteSpeedNumbers(c.store, s_speed); }},
        {AuxHeadingsFileName(),
         [](CoreContext& c) {
             Result<std::optional<AuxTexts>> r = ReadAuxHeadings(c.store);
             if (r) s_texts = r->value_or(AuxTexts{});
             return r.status();
         },
         [](CoreContext& c) { return WriteAuxHeadings(c.store, s_texts); }},
        {AuxDataFileName(kAccount, 3),
         [](CoreContext& c) {
             Result<AuxTexts> r = ReadAuxData(c.store, kAccount);
             if (r) s_texts = *r;
             return r.status();
         },
         [](CoreContext& c) { return WriteAuxData(c.store, kAccount, s_texts); }, false},
        {StatesFileName(), [](CoreContext& c) { return ReadStatesList(c.store).status(); }, {}},
        {QStringLiteral("/SlipNo.txt"), LoadSlipNo, {}},
        {QStringLiteral("/Counter.txt"),
         [](CoreContext& c) {
             if (Status s = LoadCounter(c); !s) return s;
             // The next booking's number, stepped past the numbers on file.
             return TakeFreeConfirmation(c);
         },
         {}},
        {PurgedDateFileName(), PurgeDayFiles, {}},
        {InvoiceMemoFileName(),
         [](CoreContext& c) {
             Result<InvoiceMemo> r = ReadInvoiceMemo(c.store);
             if (r) s_memo = r->lines.join(u'\n');
             return r.status();
         },
         [](CoreContext& c) { return WriteInvoiceMemo(c.store, s_memo); }},
        {NarrativeTemplateFileName(),
         [](CoreContext& c) {
             Result<std::optional<QString>> r = LoadNarrativeTemplate(c.store);
             if (r) s_memo = r->value_or(QString());
             return r.status();
         },
         [](CoreContext& c) { return SaveNarrativeTemplate(c.store, s_memo); }},
        {PrintNarrativeFileName(),
         [](CoreContext& c) { return ReadPrintNarrative(c.store).status(); },
         {}},
    };
    return list;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const Input in(data, size);
    Folder& f = Folder::fresh();
    f.addTeams(2);
    CoreContext& c = f.context();
    const TextFile& file = files()[in.choice(files().size())];
    f.put(file.name, in.rest());

    const Status loaded = file.load(c);
    requireNamed(loaded, file.name);
    require(c.v.TeamCount() <= kTeamLimit, "more teams than the program keeps");
    if (loaded && file.save) require(file.save(c).ok(), "what was read cannot be saved");
    if (loaded && file.save && file.stable) {
        const QByteArray first = f.store().ReadAll(file.name).valueOr({});
        require(file.load(c).ok(), "a saved file cannot be read back");
        require(file.save(c).ok(), "what was read back cannot be saved");
        if (f.store().ReadAll(file.name).valueOr({}) != first)
            fail(QStringLiteral("%1 changes when saved again without an edit").arg(file.name));
    }
    f.requireNothingOutside();
    return 0;
}
