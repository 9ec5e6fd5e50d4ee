#include "datafile/SampleModel.h"

#include <cmath>
#include <cstdio>
#include <deque>
#include <filesystem>
#include <memory>
#include <random>

#include "datafile/DataFile.h"
#include "datafile/OutputDataFile.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

enum SampleIndex { kWaits, kQueue, kWorkload, kServed, kMeanWait, kFileCount };

struct FileSpec {
    const char* name;
    int kind;
    const char* ident;
    const char* title;
    const char* describe;
};

const FileSpec kSpecs[kFileCount] = {
    {"waits.dat", KIND_TALLY, "WAIT", "Waiting time in queue", "Tally: each customer's wait, at service start"},
    {"queue.dat", KIND_DSTAT, "QUEUE", "Number in queue", "DSTAT: customers waiting, at every change"},
    {"workload.dat", KIND_CSTAT, "WORKLOAD", "Unfinished work at the server",
     "CSTAT: work in the system, falling steadily between arrivals"},
    {"served.dat", KIND_COUNTER, "SERVED", "Customers served", "Counter: customers served so far"},
    {"meanwait.dat", KIND_OUTPUT, "MEANWAIT", "Average wait per replication",
     "Output: one value per replication, its average wait"},
};

// Exponential variates from the raw engine output: std distributions differ
// between library versions, and the samples must not.
class Exponential {
public:
    explicit Exponential(std::uint64_t seed) : m_engine(seed) {}
    double Next(double rate) {
        double u = static_cast<double>(m_engine() >> 11) * 0x1.0p-53;
        return -std::log1p(-u) / rate;
    }

private:
    std::mt19937_64 m_engine;
};

using Output = std::unique_ptr<COutputDataFile>;

void Put(const Output& out, double t, double v) { out->Put(t, v); }

class QueueModel {
public:
    QueueModel(const SampleOptions& o, Output* out) : m_opt(o), m_out(out), m_rng(o.seed) {}

    void RunReplication(int rep) {
        double now = 0.0;
        double nextArrival = m_rng.Next(m_opt.arrivalRate);
        double nextDeparture = INFINITY;
        std::deque<std::pair<double, double>> waiting;  // arrival time, service time
        int served = 0;
        double waitSum = 0.0;
        long waits = 0;
        m_work = 0.0;
        m_workTime = 0.0;
        Put(m_out[kQueue], 0.0, 0.0);
        Put(m_out[kWorkload], 0.0, 0.0);
        Put(m_out[kServed], 0.0, 0.0);
        for (long events = 0;; ++events) {
            if ((events & 0xFFFF) == 0)
                host_Get().Progress("Simulating", (rep - 1) + now / m_opt.horizon, m_opt.reps, ProgressUnit::Steps);
            now = std::min(nextArrival, nextDeparture);
            if (now > m_opt.horizon) break;
            if (nextArrival <= nextDeparture) {
                double service = m_rng.Next(m_opt.serviceRate);
                AddWork(now, service);
                if (nextDeparture == INFINITY) {
                    nextDeparture = now + service;
                    Put(m_out[kWaits], now, 0.0);
                    ++waits;
                } else {
                    waiting.emplace_back(now, service);
                    Put(m_out[kQueue], now, static_cast<double>(waiting.size()));
                }
                nextArrival = now + m_rng.Next(m_opt.arrivalRate);
            } else {
                Put(m_out[kServed], now, ++served);
                if (waiting.empty()) {
                    nextDeparture = INFINITY;
                } else {
                    auto [arrived, service] = waiting.front();
                    waiting.pop_front();
                    Put(m_out[kQueue], now, static_cast<double>(waiting.size()));
                    Put(m_out[kWaits], now, now - arrived);
                    waitSum += now - arrived;
                    ++waits;
                    nextDeparture = now + service;
                }
            }
        }
        AddWork(m_opt.horizon, 0.0);
        Put(m_out[kQueue], m_opt.horizon, static_cast<double>(waiting.size()));
        Put(m_out[kServed], m_opt.horizon, served);
        Put(m_out[kMeanWait], m_opt.horizon, waits ? waitSum / static_cast<double>(waits) : 0.0);
    }

private:
    // The workload falls at rate 1 between arrivals and jumps by each service
    // time; recording its corners makes the trapezoid rule exact.
    void AddWork(double now, double service) {
        double level = m_work - (now - m_workTime);
        if (level < 0.0) {
            if (m_work > 0.0) Put(m_out[kWorkload], m_workTime + m_work, 0.0);
            level = 0.0;
        }
        Put(m_out[kWorkload], now, level);
        if (service > 0.0) Put(m_out[kWorkload], now, level + service);
        m_work = level + service;
        m_workTime = now;
    }

    const SampleOptions& m_opt;
    Output* m_out;
    Exponential m_rng;
    double m_work = 0.0;
    double m_workTime = 0.0;
};

}  // namespace

const std::vector<SampleFile>& sample_Files() {
    static const std::vector<SampleFile> files = [] {
        std::vector<SampleFile> v;
        for (const FileSpec& s : kSpecs) v.push_back({s.name, s.describe});
        return v;
    }();
    return files;
}

int sample_Write(const std::string& folder, const SampleOptions& options) {
    std::error_code ec;
    std::filesystem::create_directories(folder, ec);
    Output out[kFileCount];
    int rc = 0;
    for (int i = 0; i < kFileCount && rc == 0; ++i) {
        const FileSpec& s = kSpecs[i];
        out[i] = std::make_unique<COutputDataFile>((std::filesystem::path(folder) / s.name).string());
        rc = out[i]->Open();
        if (rc == 0) rc = out[i]->WriteHeader(s.kind, 1, s.ident, s.title);
    }
    if (rc == 0) {
        QueueModel model(options, out);
        for (int rep = 1; rep <= options.reps; ++rep) {
            model.RunReplication(rep);
            double mark = rep == options.reps ? MARK_END : MARK_REPEND;
            for (Output& o : out) Put(o, -static_cast<double>(rep), mark);
        }
        host_Get().Progress("Simulating", options.reps, options.reps, ProgressUnit::Steps);
    }
    // Every file is whole before any replaces an earlier one.
    for (Output& o : out)
        if (o && o->Close() != 0 && rc == 0) rc = IDS_WRITE_ERROR;
    for (Output& o : out)
        if (rc == 0 && o->Commit() != 0) rc = IDS_WRITE_ERROR;
    return rc;
}
