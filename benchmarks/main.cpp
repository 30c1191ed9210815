// The benchmarks of all topics in one program, so that they can be run interleaved.

#include "Registration.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) try {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    Benchmarks::Register_conversion();
    Benchmarks::Register_arithmetic();
    Benchmarks::Register_measurements();
    Benchmarks::Register_text();
    Benchmarks::Register_parsing();
    Benchmarks::Register_prepared();
    Benchmarks::Register_arrays();
    Benchmarks::Register_c_interface();
    Benchmarks::Register_compile_time();
    Benchmarks::Register_growth();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
} catch (std::exception const& failure) {
    std::cerr << "value_object_benchmarks: " << failure.what() << '\n';
    return 1;
}
