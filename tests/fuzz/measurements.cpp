// Fuzzes measurements: any texts, and sequences of any operations on what they read as. Every result keeps what
// is promised of all: its value lies within its bounds, and its text reads as something that encloses it.

#include "Fuzz_input.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>

#include <string>
#include <string_view>

namespace Varnix::Value::Tests {
namespace {

void Check_result(Measurement const& x) {
    CHECK(std::isfinite(x.Get_value()));
    CHECK(x.Get_lower() <= x.Get_value() && x.Get_value() <= x.Get_upper());
    CHECK(!std::signbit(x.Get_value()) || x.Get_value() < 0.0);
}

// What is printed by default is read, and encloses; some composed units have no text, or one of another kind.
void Check_text(Measurement const& x) {
    auto const read = Try_parse_measurement(Format(x));
    if (read && read->Get_unit() == x.Get_unit()) {
        CHECK(read->Get_lower() <= x.Get_lower() && read->Get_upper() >= x.Get_upper());
        CHECK(read->Is_difference() == x.Is_difference());
    }
}

bool Is_near(double bound, double nearest, double size) {
    return bound == nearest || std::fabs(bound - nearest) <= 1e-15 * size + 1e-320;
}

// The bounds are those that are written, but for the last digits.
void Check_bounds_read(Measurement const& x, std::string_view text) {
    Quantity_parts const parts = *Try_split_quantity(text, {true, true});
    double const value = parts.value.nearest;
    double const below = parts.lower.nearest;
    double const above = parts.upper.nearest;
    if (parts.form == Quantity_form::value_alone) {
        CHECK(Is_near(x.Get_lower(), value, std::fabs(value)) && Is_near(x.Get_upper(), value, std::fabs(value)));
    } else if (parts.form == Quantity_form::bounds) {
        CHECK(Is_near(x.Get_lower(), below, std::fabs(below)) && Is_near(x.Get_upper(), above, std::fabs(above)));
    } else {
        CHECK(Is_near(x.Get_lower(), value - below, std::fabs(value) + below));
        CHECK(Is_near(x.Get_upper(), value + above, std::fabs(value) + above));
    }
}

Measurement Taken(Input& input) {
    double const first = input.Take_number();
    double const second = input.Take_number();
    Units const unit = input.Take_unit();
    Measurement const taken = Measurement::Between(std::min(first, second), std::max(first, second), unit);
    return input.Take<std::uint8_t>() % 8 == 0 ? taken.As_difference() : taken;
}

Measurement Result_of(std::uint8_t operation, Measurement const& x, Measurement const& y, Units const& unit) {
    switch (operation % 22) {
    case 0:
        return x + y;
    case 1:
        return x - y;
    case 2:
        return x * y;
    case 3:
        return x / y;
    case 4:
        return Pow(x, operation / 22 - 5);
    case 5:
        return Sqrt(x);
    case 6:
        return Abs(x);
    case 7:
        return -x;
    case 8:
        return Hull(x, y);
    case 9:
        return Intersection(x, y);
    case 10:
        return x.Convert_to(unit);
    case 11:
        return x.Convert_to(unit, y);
    case 12:
        return Amplify(x, y);
    case 13:
        return Power_sum({x, y});
    case 14:
        return Power_difference(x, y);
    case 15:
        return Total_power(x, y);
    case 16:
        return Density(x, y);
    case 17:
        return Vswr(x);
    case 18:
        return Return_loss(x);
    case 19:
        return Cascade_noise({{x, y}, {y, x}});
    case 20:
        return Thermal_noise(x, y);
    default:
        return Power_ratio(x);
    }
}

void Check_order(Measurement const& x, Measurement const& y) {
    Order const order = Compare(x, y);
    CHECK((order == Order::less) == (Compare(y, x) == Order::greater));
    CHECK(order != Order::less || (Possibly_less(x, y) && !Possibly_less(y, x)));
    CHECK(order != Order::equal || !Possibly_less(x, y));
}

void Check_conversion(Measurement const& x, Units const& unit) {
    Measurement const there = x.Convert_to(unit);
    Check_result(there);
    Measurement const back = there.Convert_to(x.Get_unit());
    CHECK(back.Get_lower() <= x.Get_lower() && back.Get_upper() >= x.Get_upper());
    if (x.Is_difference()) {
        return;
    }
    double const number = Measurement_converter(x.Get_unit(), unit).Convert_number(x.Get_value());
    double const distance = std::fabs(number - there.Get_value());
    CHECK(distance <= 1e-12 * std::fabs(there.Get_value()) + 1e-12 || !std::isfinite(number));
}

template <typename Check>
void Unless_refused(Check const& check) {
    try {
        check();
    } catch (Value_exception const&) { // a unit that is none, or a refusal
    }
}

void Run(Input& input) {
    Unless_refused([&] {
        Measurement x = Taken(input);
        while (!input.Is_used_up()) {
            Unless_refused([&] {
                std::uint8_t const operation = input.Take<std::uint8_t>();
                Units const unit = input.Take_unit();
                Measurement const y = Taken(input);
                Unless_refused([&] { Check_order(x, y); });
                Unless_refused([&] { Check_conversion(x, unit); });
                x = Result_of(operation, x, y, unit);
                Check_result(x);
                Check_text(x);
            });
        }
    });
}

} // namespace
} // namespace Varnix::Value::Tests

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace Varnix::Value::Tests;
    using namespace Varnix::Value;
    std::string_view const text(reinterpret_cast<char const*>(data), size);
    if (auto const read = Try_parse_measurement(text)) {
        Check_result(*read);
        Check_text(*read);
        Check_bounds_read(*read, text);
    }
    Input input(data, size);
    Run(input);
    return 0;
}
