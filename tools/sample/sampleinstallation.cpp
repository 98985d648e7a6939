#include "sampleinstallation.h"

#include "core/io/customerrecords.h"
#include "core/io/sliprecord.h"
#include "core/io/store.h"
#include "core/io/textfile.h"
#include "core/io/usforms.h"
#include "core/ports/clock.h"
#include "core/ports/silentdialogs.h"
#include "core/schedule/dayfiles.h"
#include "core/schedule/numbering.h"
#include "core/setup/settingsfiles.h"
#include "core/state/corecontext.h"
#include "core/state/dispatchingvariables.h"

#include <QDir>
#include <QHash>
#include <QSet>
#include <random>

namespace tresvane
{
namespace
{

const char* const kFirst[] = {"James",   "Mary",  "Robert", "Patricia",  "John",    "Jennifer",
                              "Michael", "Linda", "David",  "Elizabeth", "William", "Barbara",
                              "Richard", "Susan", "Joseph", "Jessica",   "Thomas",  "Sarah",
                              "Charles", "Karen", "Daniel", "Nancy",     "Matthew", "Lisa"};
const char* const kLast[] = {
    "Smith",     "Johnson",  "Williams",  "Brown",   "Jones",    "Garcia",  "Miller",   "Davis",
    "Rodriguez", "Martinez", "Hernandez", "Lopez",   "Gonzalez", "Wilson",  "Anderson", "Thomas",
    "Taylor",    "Moore",    "Jackson",   "Martin",  "Lee",      "Perez",   "Thompson", "White",
    "Harris",    "Sanchez",  "Clark",     "Ramirez", "Lewis",    "Robinson"};
const char* const kStreets[] = {
    "Main St", "Oak Ave", "Maple Dr", "Cedar Ln",    "Pine St",   "Elm St",   "Washington Blvd",
    "Lake Rd", "Hill St", "Park Ave", "Romaine Ave", "Sunset Dr", "River Rd", "Church St"};
const char* const kCities[][2] = {{"Springfield", "IL"}, {"Madison", "WI"}, {"Dayton", "OH"},
                                  {"Fairview", "TN"},    {"Salem", "OR"},   {"Franklin", "MA"},
                                  {"Greenville", "SC"},  {"Bristol", "CT"}};
const char* const kBusinesses[] = {"Bakery",   "Dental Office", "Auto Repair", "Pharmacy",
                                   "Hardware", "Diner",         "Print Shop",  "Florist"};
const char* const kTitles[] = {"Mr.", "Mrs", "Ms", "Miss", "Mr/Mrs"};
const char* const kProblems[] = {
    "No Heat",    "No Cooling",    "Water Leak", "Annual Service", "Noisy Unit",
    "Thermostat", "Filter Change", "Estimate",   "Duct Cleaning",  "Electrical Check"};
const char* const kTeams[] = {"Truck", "Crew", "Van", "Team"};

template <typename T, std::size_t N> const T& pick(std::mt19937& rng, const T (&list)[N])
{
    return list[rng() % N];
}

struct Customer {
    QString account, name, street, apt, city, state, zip, phone;
};

QString phoneFor(int i)
{
    return QStringLiteral("%1-%2-%3")
        .arg(200 + i % 800)
        .arg(100 + (i / 800) % 900)
        .arg((i * 7919) % 10000, 4, 10, QLatin1Char('0'));
}

// A slip as booking makes it: the customer's copy of name and address, status and amount.
SlipRecord newSlip(const Customer& cu, int hours)
{
    SlipRecord r;
    r.setText(SlipField::TimeUnit, QStringLiteral("Hours"));
    r.setText(SlipField::Hours, QString::number(hours));
    r.setText(SlipField::Status, QStringLiteral("Scheduled"));
    r.setText(SlipField::Amount, FormatCurrency(0));
    r.setText(SlipField::AcctNo, cu.account);
    r.setText(SlipField::Name, cu.name);
    r.setText(SlipField::Street, cu.street);
    r.setText(SlipField::Apt, cu.apt);
    r.setText(SlipField::City, cu.city);
    r.setText(SlipField::St, cu.state);
    r.setText(SlipField::Zip, cu.zip);
    r.setText(SlipField::Tel, cu.phone);
    return r;
}

QDate nextWorkDay(QDate d)
{
    while (d.dayOfWeek() > 5)
        d = d.addDays(1);
    return d;
}

} // namespace

Result<SampleSummary> WriteSampleInstallation(const QString& folder, const SampleOptions& o)
{
    if (o.teams < 1 || o.teams > 30)
        return Status::failure(QStringLiteral("A sample has 1 to 30 teams."));
    if (o.customers < 1 || o.customers > 32767)
        return Status::failure(QStringLiteral("A sample has 1 to 32,767 customers."));
    if (!QDir().mkpath(folder))
        return Status::failure(QStringLiteral("Could not make the folder %1").arg(folder));

    std::mt19937 rng(o.seed);
    const QDate start = o.start.isValid() ? o.start : QDate::currentDate();
    FixedClock clock(QDateTime(start, QTime(9, 0)));
    SilentDialogs dialogs;
    Store store(folder);
    DispatchingVariables v;
    BuildTimeLabels(v);
    CoreContext c{store, clock, dialogs, v};

    // Reference files, written by the program's own writers.
    QStringList teams;
    for (int t = 1; t <= o.teams; ++t)
        teams << QStringLiteral("%1 %2").arg(QString::fromLatin1(kTeams[(t - 1) % 4])).arg(t);
    if (Status s = SaveAssignments(c, teams); !s) return s;
    QStringList problems;
    for (const char* p : kProblems)
        problems << QString::fromLatin1(p);
    if (Status s = SaveProblems(c, problems); !s) return s;
    v.settings.txtBusiness = {QStringLiteral("Tresvane Sample Heating & Air"),
                              QStringLiteral("100 Commerce Way"),
                              QString(),
                              QStringLiteral("Springfield"),
                              QStringLiteral("IL"),
                              QStringLiteral("62701"),
                              QStringLiteral("217-555-0100"),
                              QString(),
                              QString()};
    if (Status s = SaveBusiness(c); !s) return s;
    if (Status s = SaveSettings(c); !s) // program numbers: also writes Counter.txt
        return s;

    // Customers and their parallel records.
    QList<Customer> customers;
    customers.reserve(o.customers);
    // The hours contract events show on, which the bookings below leave free: a booked
    // hour under a contract event makes the grid warn of a conflict on every showing.
    QSet<QString> contractHours;
    auto contractHour = [](const QDate& date, int team, int slot) {
        return QStringLiteral("%1|%2|%3").arg(date.toJulianDay()).arg(team).arg(slot);
    };
    QByteArray customerBytes, contractBytes, cycleBytes;
    customerBytes.reserve(qsizetype(o.customers) * kCustomerRecordLength);
    contractBytes.reserve(qsizetype(o.customers) * kContractRecordLength);
    cycleBytes.reserve(qsizetype(o.customers) * kCycleRecordLength);
    const double now = ToOleDate(clock.now());
    for (int i = 0; i < o.customers; ++i) {
        Customer cu;
        const auto& city = kCities[rng() % std::size(kCities)];
        cu.phone = phoneFor(i);
        cu.account = cu.phone;
        cu.street = QStringLiteral("%1 %2")
                        .arg(100 + rng() % 9900)
                        .arg(QString::fromLatin1(pick(rng, kStreets)));
        cu.apt = rng() % 5 == 0 ? QStringLiteral("Apt %1").arg(1 + rng() % 40) : QString();
        cu.city = QString::fromLatin1(city[0]);
        cu.state = QString::fromLatin1(city[1]);
        cu.zip = QStringLiteral("%1").arg(10000 + rng() % 89999);
        CustomerRecord r;
        const bool business = rng() % 5 == 0;
        const QString first = QString::fromLatin1(pick(rng, kFirst));
        const QString last = QString::fromLatin1(pick(rng, kLast));
        if (business) {
            cu.name = last + u' ' + QString::fromLatin1(pick(rng, kBusinesses));
            r.setText(CustomerField::AccountType, QStringLiteral("Business"));
        } else {
            const QString title = QString::fromLatin1(pick(rng, kTitles));
            cu.name = title + u' ' + first + u' ' + last;
            r.setText(CustomerField::Title, title);
            r.setText(CustomerField::FirstName, first);
            r.setText(CustomerField::LastName, last);
            r.setText(CustomerField::AccountType, QStringLiteral("Individual"));
        }
        r.setText(CustomerField::AccountNo, cu.account);
        r.setText(CustomerField::Name, cu.name);
        r.setText(CustomerField::Address1, cu.street);
        r.setText(CustomerField::Address2, cu.apt);
        r.setText(CustomerField::Address3, cu.city);
        r.setText(CustomerField::CityShort, cu.city);
        r.setText(CustomerField::State, cu.state);
        r.setText(CustomerField::Zip, cu.zip);
        r.setText(CustomerField::Address4, cu.zip);
        r.setText(CustomerField::Phone, cu.phone);
        r.setInt16(CustomerField::RecordMark, 1);
        customerBytes += r.bytes();

        ContractRecord k;
        k.setText(ContractField::ContractService, QStringLiteral("None Selected"));
        k.setText(ContractField::ContractPlan, QStringLiteral("None"));
        k.setText(ContractField::ContractWeekday, QLocale::c().dayName(start.dayOfWeek()));
        k.setText(ContractField::ContractTeam, QStringLiteral("None Selected"));
        k.setReal(ContractField::ContractNextDate, now);
        k.setReal(ContractField::ContractLastDate, now);
        k.setInt16(ContractField::ContractFlag, -1);
        k.setText(ContractField::ContractTime, QStringLiteral("None"));
        if (i < o.contracts) {
            QDate when = nextWorkDay(start.addDays(1 + rng() % 60));
            int team = 1 + int(rng() % teams.size());
            int slot = 3 + int(rng() % 4);
            // One contract event an hour: a second would raise a conflict on the grid.
            while (contractHours.contains(contractHour(when, team, slot))) {
                when = nextWorkDay(when.addDays(1));
                team = 1 + int(rng() % teams.size());
            }
            contractHours.insert(contractHour(when, team, slot));
            k.setText(ContractField::ContractService, QString::fromLatin1(pick(rng, kProblems)));
            k.setText(ContractField::ContractPlan, QStringLiteral("Quarterly"));
            k.setCurrency(ContractField::ContractPrice, qint64(8900 + rng() % 20000) * 100);
            k.setText(ContractField::ContractTeam, teams[team - 1]);
            k.setReal(ContractField::ContractNextDate, ToOleDate(when));
            k.setText(ContractField::ContractTime, v.TimeLabels[slot]);
            k.setText(ContractField::ContractCustomer, cu.name);
        }
        contractBytes += k.bytes();

        CycleRecord y;
        y.setText(CycleField::CycleService, QStringLiteral("None Selected"));
        y.setInt16(CycleField::CycleFlag, -1);
        cycleBytes += y.bytes();
        customers << cu;
    }
    if (Status s = store.WriteFile("/CustomerData.txt", customerBytes); !s) return s;
    if (Status s = store.WriteFile("/ContractInfo.txt", contractBytes); !s) return s;
    if (Status s = store.WriteFile("/CycleInfo.txt", cycleBytes); !s) return s;

    // Bookings: two to five a team-day, day after working day, until all are placed.
    const int events = o.slips + o.meetings;
    const int maxDays = o.days > 0 ? o.days : 5000;
    struct BookedDay {
        QDate date;
        int team;
        std::array<QString, 13> daySlots;
    };
    QList<BookedDay> days;
    QHash<int, int> sequenceByDay;
    QByteArray slipBytes, meetingBytes;
    slipBytes.reserve(qsizetype(o.slips) * kSlipRecordLength);
    SampleSummary summary;
    summary.first = nextWorkDay(start);
    int placedSlips = 0, placedMeetings = 0;
    QDate day = summary.first;
    for (int w = 0; w < maxDays && placedSlips + placedMeetings < events; ++w) {
        if (w > 0) day = nextWorkDay(day.addDays(1));
        for (int t = 1; t <= o.teams && placedSlips + placedMeetings < events; ++t) {
            std::array<QString, 13> daySlots;
            for (QString& s : daySlots)
                s = QStringLiteral("No Event Scheduled");
            int slot = 1 + rng() % 3;
            const int perDay = 2 + rng() % 4;
            bool any = false;
            for (int e = 0; e < perDay && placedSlips + placedMeetings < events; ++e) {
                const int hours = 1 + rng() % 3;
                auto hitsContract = [&] {
                    for (int h = 0; h < hours; ++h)
                        if (contractHours.contains(contractHour(day, t, slot + h))) return true;
                    return false;
                };
                while (slot + hours - 1 <= 12 && hitsContract())
                    ++slot;
                if (slot + hours - 1 > 12) break;
                const Customer& cu = customers[rng() % customers.size()];
                const bool meeting = placedMeetings < o.meetings &&
                                     (placedSlips >= o.slips ||
                                      rng() % std::max(1, events / std::max(1, o.meetings)) == 0);
                SlipRecord r = newSlip(cu, hours);
                r.setText(SlipField::TeamNo, QString::number(t));
                r.setText(SlipField::EventDate, FormatShortDate(day));
                r.setText(SlipField::StartSlot, QString::number(slot));
                QString label;
                if (meeting) {
                    label = QStringLiteral("Mtg - ") + v.TimeLabels[slot] + QStringLiteral(" - ") +
                            cu.name;
                    r.setText(SlipField::RecType, QStringLiteral("Meeting"));
                    r.setText(SlipField::Reference, label);
                    meetingBytes += r.bytes();
                    ++placedMeetings;
                } else {
                    // Booked one to fourteen days ahead, numbered by the day it was made,
                    // and never made later than the sample's today (the counter then
                    // stands past every number the sample uses): later bookings were
                    // made over the last two weeks.
                    QDate made = day.addDays(-qint64(1 + rng() % 14));
                    if (made > start) made = start.addDays(-qint64(rng() % 14));
                    const int seq = ++sequenceByDay[made.dayOfYear()];
                    const QString number =
                        ProgramConfirmation(QString::number(made.dayOfYear()), qint16(seq));
                    label = number + u' ' + cu.name;
                    r.setText(SlipField::RecType, QStringLiteral("Service"));
                    r.setText(SlipField::ConfirmationNo, number);
                    r.setText(SlipField::Reference, QString::fromLatin1(pick(rng, kProblems)));
                    slipBytes += r.bytes();
                    ++placedSlips;
                }
                for (int h = 0; h < hours; ++h)
                    daySlots[slot + h] = label;
                slot += hours + rng() % 2;
                any = true;
            }
            if (any) {
                days.append({day, t, daySlots});
                summary.last = day;
            }
        }
    }
    // The day files, through the booking screen's own writer.
    for (const BookedDay& d : days) {
        v.DaySlots = d.daySlots;
        if (Status s = WriteDayFile(c, d.date, QString::number(d.team)); !s) return s;
    }
    summary.dayFiles = int(days.size());
    // The next numbers of both schemes stand past every number the slips carry.
    v.gJulianDay = QString::number(start.dayOfYear());
    v.gSequence = qint16(sequenceByDay.value(start.dayOfYear()) + 1);
    if (Status s = SaveCounter(c); !s) return s;
    v.settings.txtNextSlip = QStringLiteral("1000");
    if (Status s = SaveSlipNo(c); !s) return s;
    if (Status s = store.WriteFile("/Slips.txt", slipBytes); !s) return s;
    if (!meetingBytes.isEmpty())
        if (Status s = store.WriteFile("/Meetings.txt", meetingBytes); !s) return s;

    // Slips stored without a time, for the stored-slip panel.
    QByteArray storedBytes;
    for (int i = 0; i < o.storedSlips; ++i) {
        const Customer& cu = customers[rng() % customers.size()];
        SlipRecord r = newSlip(cu, 1 + int(rng() % 2));
        r.setText(SlipField::RecType, QStringLiteral("Service"));
        r.setText(SlipField::Reference, QString::fromLatin1(pick(rng, kProblems)));
        storedBytes += r.bytes();
    }
    if (!storedBytes.isEmpty())
        if (Status s = store.WriteFile("/UnscheduledSlips.txt", storedBytes); !s) return s;
    return summary;
}
} // namespace tresvane
