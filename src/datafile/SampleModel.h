// A small discrete-event simulation that writes sample data files: a single
// server queue (exponential arrivals and service) at high utilisation that
// starts empty in every replication, so its output has a warm-up trend and
// strong autocorrelation, the situations the analyses exist for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct SampleOptions {
    std::uint64_t seed = 12345;
    int reps = 5;
    double horizon = 2000.0;     // simulated time per replication
    double arrivalRate = 0.9;    // customers per time unit
    double serviceRate = 1.0;    // utilisation = arrivalRate / serviceRate
};

struct SampleFile {
    std::string name;      // file name inside the folder
    std::string describe;  // what it holds, for listings
};

// The files that sample_Write makes, in the order it makes them.
const std::vector<SampleFile>& sample_Files();

// Writes the sample files into folder (created if missing). Each file is
// complete or absent. Returns 0 or a message id.
int sample_Write(const std::string& folder, const SampleOptions& options);
