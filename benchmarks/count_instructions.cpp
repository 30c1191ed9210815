// count_instructions JOB N: runs one of the library's jobs N times and prints nothing.
// count_instructions: prints the names of the jobs.
//
// instructions.sh runs it under callgrind.

#include "Our_jobs.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace {

template <typename Visit>
void Visit_all(Visit const& visit) {
    Benchmarks::Visit_conversions(visit);
    Benchmarks::Visit_arithmetic(visit);
    Benchmarks::Visit_texts(visit);
    Benchmarks::Visit_prepared(visit);
}

// Returns whether there is such a job.
bool Run(std::string const& wanted, long count) {
    bool found = false;
    Visit_all([&](char const* name, auto job) {
        if (wanted == name) {
            found = true;
            for (long i = 0; i < count; ++i) {
                job();
            }
        }
    });
    return found;
}

} // namespace

int main(int argc, char** argv) try {
    if (argc == 1) {
        Visit_all([](char const* name, auto const&) { std::cout << name << '\n'; });
        return 0;
    }
    if (argc != 3 || !Run(argv[1], std::strtol(argv[2], nullptr, 10))) {
        std::cerr << "usage: count_instructions [JOB N]\n";
        return 2;
    }
} catch (std::exception const& failure) {
    std::cerr << "count_instructions: " << failure.what() << '\n';
    return 1;
}
