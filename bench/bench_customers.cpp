// The customer screen's scans at 32,767 accounts: a search of CustomerData.txt, and the
// name and city lists the screen fills each time it comes up.
#include "benchharness.h"

#include "core/customers/customerfiles.h"
#include "core/customers/customerlist.h"
#include "core/customers/customersearch.h"
#include "core/io/customerrecords.h"
#include "core/io/store.h"
#include "core/telephony/storedcalls.h"

#include <QCoreApplication>
#include <cstdio>

using namespace tresvane;

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QString folder = LimitFolder();
    Store store(folder);
    const qint32 last = *store.RecordCount(CustomerFileName(), kCustomerRecordLength);
    const double floor = FloorMs(folder, {CustomerFileName()});

    // A street search with many hits (two street names in fourteen hold MAIN): each hit
    // builds its grid row.
    qsizetype hits = 0;
    const double search = MedianMs([&] {
        hits = SearchCustomers(store, CustomerSearch::ByAddress1, QStringLiteral("MAIN"), last)
                   ->size();
    });
    Report("customer search", search, floor);

    qsizetype entries = 0;
    const double list = MedianMs([&] { entries = ReadAccountList(store)->accounts.size(); });
    Report("customer list", list, floor);

    // The call monitor reads every customer's telephone and cell once when it comes up,
    // then tells at each call whether the caller is a customer.
    CallerDirectory directory;
    const double load =
        MedianMs([&] { directory.load(store.ReadAll(CustomerFileName()).valueOr({})); });
    Report("caller load", load, floor);
    QStringList numbers;
    for (qint32 i = 1; i <= last; i += last / 100 + 1)
        numbers << CustomerRecord(*store.ReadRecordAt(CustomerFileName(), kCustomerRecordLength, i))
                       .text(CustomerField::Phone);
    numbers << QStringLiteral("999-999-9999"); // no one's
    qsizetype known = 0;
    const double lookups = MedianMs([&] {
        known = 0;
        for (const QString& number : numbers)
            known += directory.isCustomer(number) ? 1 : 0;
    });
    Report("caller lookup", lookups / numbers.size(), floor);

    std::fprintf(stderr, "%lld accounts, %lld search hits, %lld list entries\n",
                 static_cast<long long>(last), static_cast<long long>(hits),
                 static_cast<long long>(entries));
    return hits == 0 || entries != last || known == 0 || directory.customerCount() != last;
}
