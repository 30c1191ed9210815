// Reading units and quantities from text. UDUNITS-2 allocates a unit, which is freed; it has no
// quantities with bounds, so that those stand alone.

#include "Registration.h"
#include "Udunits.h"

#include <varnix/value/Text_parsing.h>

#include <string_view>

namespace Benchmarks {

namespace {

auto Our_unit(std::string_view text) {
    return [text]() mutable {
        benchmark::DoNotOptimize(text);
        Varnix::Value::Units unit = Varnix::Value::Parse_unit(text);
        benchmark::DoNotOptimize(unit);
    };
}

auto Our_quantity(std::string_view text) {
    return [text]() mutable {
        benchmark::DoNotOptimize(text);
        Varnix::Value::Value_object<double> quantity = Varnix::Value::Parse_quantity(text);
        benchmark::DoNotOptimize(quantity);
    };
}

auto Udunits_parse(char const* text) {
    (void)Udunits_unit(text); // throws if it does not know the unit
    return [text]() mutable {
        benchmark::DoNotOptimize(text);
        ut_unit* unit = ut_parse(Udunits_system(), text, UT_UTF8);
        benchmark::DoNotOptimize(unit);
        ut_free(unit);
    };
}

void Register_unit(std::string const& job, char const* text) {
    Register(job + "/ours", Our_unit(text));
    Register(job + "/udunits", Udunits_parse(text));
}

} // namespace

void Register_parsing() {
    Register_unit("parse_m", "m");
    Register_unit("parse_kmh", "km/h");
    Register_unit("parse_v2ohm", "V^2/ohm");
    Register_unit("parse_kwh", "kW.h");
    Register("parse_quantity/ours", Our_quantity("12.5 km/h"));
    Register("parse_bounds/ours", Our_quantity("30 dBm [29, 31]"));
}

} // namespace Benchmarks
