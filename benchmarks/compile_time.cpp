// One number from feet to metres where both units are known to the compiler: the lower bound for
// anything that learns its units at run time.

#include "Our_jobs.h"
#include "Registration.h"
#include "Udunits.h"

#include <boost/units/base_units/us/foot.hpp>
#include <boost/units/quantity.hpp>
#include <boost/units/systems/si/length.hpp>
#include <units.h>

namespace Benchmarks {

namespace {

double Convert_with_boost(double number) {
    using Feet = boost::units::quantity<boost::units::us::foot_base_unit::unit_type, double>;
    using Metres = boost::units::quantity<boost::units::si::length, double>;
    return Metres(Feet::from_value(number)).value();
}

double Convert_with_units(double number) {
    units::length::meter_t const metres = units::length::foot_t(number);
    return metres.to<double>();
}

template <typename Convert>
auto Number_job(Convert convert) {
    return [number = 120.0, convert]() mutable {
        benchmark::DoNotOptimize(number);
        double result = convert(number);
        benchmark::DoNotOptimize(result);
    };
}

} // namespace

void Register_compile_time() {
    Converter const ours(Varnix::Value::C_Ft, Varnix::Value::C_Meter);
    cv_converter const* const udunits = Udunits_converter("ft", "m");
    Register("number_ft_to_m/ours", Number_job([ours](double number) mutable {
                 benchmark::DoNotOptimize(ours);
                 return ours.Convert(number);
             }));
    Register("number_ft_to_m/udunits",
             Number_job([udunits](double number) { return cv_convert_double(udunits, number); }));
    Register("number_ft_to_m/boost", Number_job(Convert_with_boost));
    Register("number_ft_to_m/units", Number_job(Convert_with_units));
}

} // namespace Benchmarks
