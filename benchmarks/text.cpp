// The texts of units. Ours is a string of its own; UDUNITS-2 writes into a buffer of the caller,
// and writes units that are not its own base units as multiples: km/h as 0.2777... m.s-1.

#include "Our_jobs.h"
#include "Registration.h"
#include "Udunits.h"

namespace Benchmarks {

namespace {

auto Udunits_text(char const* text) {
    struct Buffer {
        char characters[128];
    };
    return [unit = Udunits_unit(text)]() mutable {
        Buffer buffer;
        benchmark::DoNotOptimize(unit);
        int length = ut_format(unit, buffer.characters, sizeof buffer.characters, UT_ASCII);
        benchmark::DoNotOptimize(length);
        benchmark::DoNotOptimize(buffer);
    };
}

} // namespace

void Register_text() {
    Visit_texts(Register_ours());
    Register("text_kmh/udunits", Udunits_text("km/h"));
    Register("text_ms2/udunits", Udunits_text("m/s2"));
}

} // namespace Benchmarks
