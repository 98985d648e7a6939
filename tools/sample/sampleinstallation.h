#pragma once

#include "core/io/result.h"

#include <QDate>
#include <QString>

namespace tresvane
{
// A realistic data folder of a chosen size, the same for the same seed: teams, customers
// with names and addresses, contracts, slips and meetings with the day files that hold
// them, and a few stored slips. Used to show a new user a working schedule, and by the
// benchmarks to stand at the formats' limits.
struct SampleOptions {
    int teams = 5;       // 1 to 30
    int customers = 200; // up to 32,767
    int slips = 300;     // booked Service Attentions
    int meetings = 30;
    int storedSlips = 5; // in UnscheduledSlips.txt
    int contracts = 20;  // customers with a live contract event
    QDate start;         // first booked day; today when not set
    int days = 0;        // days to spread bookings over; 0: as many as they need
    quint32 seed = 1;
};

struct SampleSummary {
    int dayFiles = 0;
    QDate first, last;
};

// Writes the installation into folder (made when missing). Existing data files there are
// replaced; the caller picks an empty folder.
Result<SampleSummary> WriteSampleInstallation(const QString& folder, const SampleOptions& options);
} // namespace tresvane
