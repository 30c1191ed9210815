// How jobs become benchmarks.
//
// A job is a function object that does the work once. It hands its inputs and its result to
// benchmark::DoNotOptimize, so that the compiler knows nothing of the one and cannot drop the
// other. A benchmark's name is JOB/WHO: jobs of one name do the same work, and WHO is `ours` or the
// peer.

#ifndef VALUE_OBJECT_BENCHMARKS_REGISTRATION_H
#define VALUE_OBJECT_BENCHMARKS_REGISTRATION_H

#include <benchmark/benchmark.h>

#include <string>

namespace Benchmarks {

/// Registers `job` as the benchmark `name`. Each run works on a copy of the job.
template <typename Job>
void Register(std::string const& name, Job const& job) {
    benchmark::RegisterBenchmark(name.c_str(), [job](benchmark::State& state) {
        Job own_job = job;
        for (auto _ : state) {
            own_job();
        }
    });
}

/// For the Visit functions of Our_jobs.h.
struct Register_ours {
    template <typename Job>
    void operator()(char const* name, Job const& job) const {
        Register(std::string(name) + "/ours", job);
    }
};

// One function per source of benchmarks.
void Register_conversion();
void Register_arithmetic();
void Register_measurements();
void Register_text();
void Register_parsing();
void Register_prepared();
void Register_arrays();
void Register_c_interface();
void Register_growth();
void Register_compile_time();

} // namespace Benchmarks

#endif
