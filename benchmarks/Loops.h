// The conversions as a programmer would write them who knows both units: plain loops.

#ifndef VALUE_OBJECT_BENCHMARKS_LOOPS_H
#define VALUE_OBJECT_BENCHMARKS_LOOPS_H

#include <cstddef>

namespace Benchmarks {

void Loop_ft_to_m(double const* in, double* out, std::size_t count);
void Loop_c_to_f(double const* in, double* out, std::size_t count);
void Loop_dbm_to_w(double const* in, double* out, std::size_t count);

} // namespace Benchmarks

#endif
