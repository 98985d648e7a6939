// The customer screen's scans at 32,767 accounts: a search of CustomerData.txt, and the
// name and city lists the screen fills each time it comes up.
#include "benchharness.h"

#include "customers/customerfiles.h"
#include "customers/customerlist.h"
#include "customers/customerrecords.h"
#include "customers/customersearch.h"
#include "store/store.h"

#include <QCoreApplication>
#include <cstdio>

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

    std::fprintf(stderr, "%lld accounts, %lld search hits, %lld list entries\n",
                 static_cast<long long>(last), static_cast<long long>(hits),
                 static_cast<long long>(entries));
    return hits == 0 || entries != last;
}
