// What measurements promise, over random bands: no result of numbers within the bounds of the operands lies
// outside the bounds of the result, and the bounds are no more than a place further out than they must be.

#include "Reference_number.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

constexpr int Rounds = 150; // of each operation

std::mt19937_64& Random() {
    static std::mt19937_64 random(7);
    return random;
}

double Uniform(double least, double greatest) {
    return std::uniform_real_distribution<double>(least, greatest)(Random());
}

// ---- Bands

// What the numbers of an operand may be.
struct Domain {
    char const* unit;
    double least;
    double greatest;
};

Measurement Band_in(Domain const& domain) {
    double numbers[] = {Uniform(domain.least, domain.greatest), Uniform(domain.least, domain.greatest), Uniform(domain.least, domain.greatest)};
    if (Random()() % 2 == 0) {
        numbers[1] = numbers[0] + (numbers[1] - numbers[0]) / 1e6;
        numbers[2] = numbers[0] + (numbers[2] - numbers[0]) / 1e6;
    }
    std::sort(std::begin(numbers), std::end(numbers));
    Units const unit = *domain.unit == 0 ? C_Empty : Parse_unit(domain.unit);
    return {numbers[1], unit, numbers[0], numbers[2]};
}

// The ends, the value, and two numbers in between.
std::vector<double> Points_of(Measurement const& x) {
    return {x.Get_lower(), x.Get_upper(), x.Get_value(), Uniform(x.Get_lower(), x.Get_upper()), Uniform(x.Get_lower(), x.Get_upper())};
}

// ---- Operations, and what they stand for

using Operands = std::vector<Measurement>;
using Numbers = std::vector<Real>;

struct Operation {
    char const* name;
    std::vector<Domain> domains;
    std::function<Measurement(Operands const&)> result;
    std::function<Real(Numbers const&)> truth; // in the unit of the result
    bool is_tight = true;                      // whether the extremes are at ends of the operands
};

Measurement To(Measurement const& x, char const* unit) {
    return x.Convert_to(Parse_unit(unit));
}

Real Level(Real const& ratio) {
    return Real(10.0) * Log_ten(ratio);
}

Real Power_of(Real const& level) {
    return Ten_to(level / Real(10.0));
}

// A table, a row for each operation.
std::vector<Operation> Operations() { // NOLINT(readability-function-size)
    using O = Operands const&;
    using N = Numbers const&;
    Real const kilo(1000.0);
    // clang-format off
    return {
        {"V + V", {{"V", -9, 9}, {"V", -9, 9}}, [](O o) { return o[0] + o[1]; }, [](N x) { return x[0] + x[1]; }},
        {"V - mV", {{"V", -9, 9}, {"mV", -9, 9}}, [](O o) { return o[0] - o[1]; }, [=](N x) { return x[0] - x[1] / kilo; }},
        {"mi + km", {{"mi", -9, 9}, {"km", -9, 9}}, [](O o) { return o[0] + o[1]; },
         [=](N x) { return x[0] + x[1] * Real(1e6) / Real(1609344.0); }},
        {"V * A", {{"V", -9, 9}, {"A", -9, 9}}, [](O o) { return o[0] * o[1]; }, [](N x) { return x[0] * x[1]; }},
        {"mph * s", {{"mph", -9, 9}, {"s", 0, 9}}, [](O o) { return o[0] * o[1]; }, [](N x) { return x[0] * x[1] / Real(3600.0); }},
        {"V / ohm", {{"V", -9, 9}, {"ohm", 1, 9}}, [](O o) { return o[0] / o[1]; }, [](N x) { return x[0] / x[1]; }},
        {"V / -ohm", {{"V", -9, 9}, {"ohm", -9, -1}}, [](O o) { return o[0] / o[1]; }, [](N x) { return x[0] / x[1]; }},
        {"km / kn", {{"km", 0, 9}, {"kn", 1, 9}}, [](O o) { return o[0] / o[1]; }, [=](N x) { return x[0] * kilo / x[1] / Real(1852.0); }},
        {"V * number", {{"V", -9, 9}}, [](O o) { return o[0] * -0.3; }, [](N x) { return x[0] * Real(-0.3); }},
        {"square", {{"m", -9, 9}}, [](O o) { return Pow(o[0], 2); }, [](N x) { return Raised(x[0], 2); }, false},
        {"cube", {{"m", -9, 9}}, [](O o) { return Pow(o[0], 3); }, [](N x) { return Raised(x[0], 3); }},
        {"reciprocal square", {{"m", 1, 9}}, [](O o) { return Pow(o[0], -2); }, [](N x) { return Raised(x[0], -2); }},
        {"root", {{"m^2", 0, 9}}, [](O o) { return Sqrt(o[0]); }, [](N x) { return Root(x[0]); }},
        {"root of cm^2", {{"cm^2", 0, 9}}, [](O o) { return Sqrt(o[0]); }, [](N x) { return Root(x[0] / Real(10000.0)); }},
        {"ft to m", {{"ft", -9, 9}}, [](O o) { return To(o[0], "m"); }, [](N x) { return x[0] * Real(3048.0) / Real(10000.0); }},
        {"rad to deg", {{"rad", -9, 9}}, [](O o) { return To(o[0], "deg"); }, [](N x) { return x[0] * Real(180.0) / Real::Pi(); }},
        {"KiB to Mb", {{"KiB", -9, 9}}, [](O o) { return To(o[0], "Mb"); }, [](N x) { return x[0] * Real(8192.0) / Real(1e6); }},
        {"Torr to mbar", {{"Torr", -9, 9}}, [](O o) { return To(o[0], "mbar"); }, [=](N x) { return x[0] * Real(101325.0) / Real(76000.0); }},
        {"psi to kPa", {{"psi", -9, 9}}, [](O o) { return To(o[0], "kPa"); },
         [=](N x) { return x[0] * Real(44482216152605.0) / Real(64516.0) / Raised(Real(10.0), 8); }},
        {"pc to ly", {{"pc", -9, 9}}, [](O o) { return To(o[0], "ly"); },
         [](N x) { return x[0] * Real(648000.0) * Real(149597870700.0) / Real::Pi() / Real(9460730472580800.0); }},
        {"Oe to A/m", {{"Oe", -9, 9}}, [](O o) { return To(o[0], "A/m"); }, [](N x) { return x[0] * Real(250.0) / Real::Pi(); }},
        {"A/m to Oe", {{"A/m", -9, 9}}, [](O o) { return To(o[0], "Oe"); }, [](N x) { return x[0] * Real::Pi() / Real(250.0); }},
        {"Np to dB", {{"Np", -9, 9}}, [](O o) { return To(o[0], "dB"); }, [](N x) { return x[0] * Real(20.0) / Real::Ln_ten(); }},
        {"dB + Np", {{"dB", -9, 9}, {"Np", -9, 9}}, [](O o) { return o[0] + o[1]; },
         [](N x) { return x[0] + x[1] * Real(20.0) / Real::Ln_ten(); }},
        {"V * Np", {{"V", -9, 9}, {"Np", -4, 4}}, [](O o) { return o[0] * o[1]; }, [](N x) { return x[0] * Ten_to(x[1] / Real::Ln_ten()); }},
        {"lbf + N", {{"lbf", -9, 9}, {"N", -9, 9}}, [](O o) { return o[0] + o[1]; },
         [](N x) { return x[0] + x[1] * Raised(Real(10.0), 13) / Real(44482216152605.0); }},
        {"N*m * rpm to W", {{"N*m", -9, 9}, {"rpm", -9, 9}}, [](O o) { return To(o[0] * o[1], "W"); },
         [](N x) { return x[0] * x[1] * Real::Pi() / Real(30.0); }, false}, // rounded twice
        {"N / kg to ft/s^2", {{"N", -9, 9}, {"kg", 1, 9}}, [](O o) { return To(o[0] / o[1], "ft/s^2"); },
         [](N x) { return x[0] / x[1] / Real(3048.0) * Real(10000.0); }, false}, // rounded twice
        {"kg/h * min", {{"kg/h", -9, 9}, {"min", 0, 9}}, [](O o) { return o[0] * o[1]; }, [](N x) { return x[0] * x[1] / Real(60.0); }},
        {"root of N/Pa", {{"N/Pa", 0, 9}}, [](O o) { return Sqrt(To(o[0], "in^2")); },
         [](N x) { return Root(x[0]) * Real(10000.0) / Real(254.0); }, false}, // rounded twice
        {"degF to K", {{"degF", -9, 90}}, [](O o) { return To(o[0], "K"); },
         [](N x) { return (x[0] * Real(100.0) + Real(45967.0)) / Real(180.0); }},
        {"degC to degF", {{"degC", -9, 90}}, [](O o) { return To(o[0], "degF"); }, [](N x) { return (x[0] * Real(9.0) + Real(160.0)) / Real(5.0); }},
        {"degC - degF", {{"degC", -9, 90}, {"degF", -9, 90}}, [](O o) { return o[0] - o[1]; },
         [](N x) { return x[0] - (x[1] - Real(32.0)) * Real(5.0) / Real(9.0); }},
        {"dBK to degC", {{"dBK", -9, 30}}, [](O o) { return To(o[0], "degC"); }, [](N x) { return Power_of(x[0]) - Real(27315.0) / Real(100.0); }},
        {"degF to dBK", {{"degF", -9, 90}}, [](O o) { return To(o[0], "dBK"); },
         [](N x) { return Level((x[0] * Real(100.0) + Real(45967.0)) / Real(180.0)); }},
        {"dBm to W", {{"dBm", -90, 90}}, [](O o) { return To(o[0], "W"); }, [=](N x) { return Power_of(x[0]) / kilo; }},
        {"W to dBm", {{"W", 1e-9, 9}}, [](O o) { return To(o[0], "dBm"); }, [=](N x) { return Level(x[0] * kilo); }},
        {"dBV to mV", {{"dBV", -90, 90}}, [](O o) { return To(o[0], "mV"); }, [=](N x) { return Power_of(x[0] / Real(2.0)) * kilo; }},
        {"uV to dBV", {{"uV", 1e-9, 9}}, [](O o) { return To(o[0], "dBV"); }, [](N x) { return Real(2.0) * Level(x[0] / Real(1e6)); }},
        {"V * dB", {{"V", -9, 9}, {"dB", -40, 40}}, [](O o) { return o[0] * o[1]; }, [](N x) { return x[0] * Power_of(x[1] / Real(2.0)); }},
        {"dBm + dB", {{"dBm", -90, 90}, {"dB", -40, 40}}, [](O o) { return o[0] + o[1]; }, [](N x) { return x[0] + x[1]; }},
        {"dBm/Hz * kHz", {{"dBm/Hz", -90, 90}, {"kHz", 1, 9}}, [](O o) { return o[0] * o[1]; }, [=](N x) { return x[0] + Level(x[1] * kilo); }},
        {"power sum", {{"dBm", -9, 9}, {"dBm", -9, 9}, {"dBW", -9, 9}}, [](O o) { return Power_sum(o.data(), o.size()); },
         [=](N x) { return Level(Power_of(x[0]) + Power_of(x[1]) + Power_of(x[2]) * kilo); }},
        {"power mean", {{"dBuV", -9, 9}, {"dBuV", -9, 9}}, [](O o) { return Power_mean(o.data(), o.size()); },
         [](N x) { return Level((Power_of(x[0]) + Power_of(x[1])) / Real(2.0)); }},
        {"power difference", {{"dBm", 1, 9}, {"dBm", -9, 0}}, [](O o) { return Power_difference(o[0], o[1]); },
         [](N x) { return Level(Power_of(x[0]) - Power_of(x[1])); }},
        {"power difference of near levels", {{"dBm", 1 + 2e-12, 1 + 3e-12}, {"dBm", 1, 1 + 1e-12}},
         [](O o) { return Power_difference(o[0], o[1]); }, [](N x) { return Level(Power_of(x[0]) - Power_of(x[1])); }},
        {"V and ohm to W", {{"V", -9, 9}, {"ohm", 1, 9}}, [](O o) { return o[0].Convert_to(C_Watts, o[1]); },
         [](N x) { return Raised(x[0], 2) / x[1]; }, false},
        {"W and ohm to mV", {{"W", 0, 9}, {"ohm", 1, 9}}, [](O o) { return o[0].Convert_to(C_MilliVolts, o[1]); },
         [=](N x) { return Root(x[0] * x[1]) * kilo; }},
        {"dBuV and ohm to dBm", {{"dBuV", -90, 90}, {"ohm", 1, 90}}, [](O o) { return o[0].Convert_to(C_DBmW, o[1]); },
         [](N x) { return x[0] - Real(90.0) - Level(x[1]); }},
        {"V/m and ohm to mW/cm^2", {{"V/m", -9, 9}, {"ohm", 1, 9}}, [](O o) { return o[0].Convert_to(Parse_unit("mW/cm^2"), o[1]); },
         [](N x) { return Raised(x[0], 2) / x[1] / Real(10.0); }, false},
        {"dBuV/m and ohm to dBuA/m", {{"dB(uV/m)", -90, 90}, {"ohm", 1, 900}},
         [](O o) { return o[0].Convert_to(Parse_unit("dB(uA/m)"), o[1]); }, [](N x) { return x[0] - Real(2.0) * Level(x[1]); }},
        {"dBuV + dB(1/ft)", {{"dBuV", -90, 90}, {"dB(1/ft)", -90, 90}}, [](O o) { return To(o[0] + o[1], "dB(uV/m)"); },
         [](N x) { return x[0] + x[1] - Real(2.0) * Level(Real(3048.0) / Real(10000.0)); }, false}, // rounded twice
        {"VSWR", {{"%", 0, 99}}, [](O o) { return Vswr(o[0]); }, [](N x) { return (Real(100.0) + x[0]) / (Real(100.0) - x[0]); }},
        {"reflection", {{"", 1, 9}}, [](O o) { return Reflection_of_vswr(o[0]); },
         [](N x) { return (x[0] - Real(1.0)) / (x[0] + Real(1.0)); }},
        {"mismatch loss", {{"%", 1, 99}}, [](O o) { return Mismatch_loss(o[0]); },
         [](N x) { return Real(-1.0) * Level(Real(1.0) - Raised(x[0] / Real(100.0), 2)); }},
        {"thermal noise", {{"degC", -9, 90}, {"MHz", 0, 9}}, [](O o) { return Thermal_noise(o[0], o[1]); },
         [](N x) {
             return (x[0] * Real(100.0) + Real(27315.0)) * x[1] * Real(1380649.0) / Raised(Real(10.0), 25);
         }},
    };
    // clang-format on
}

// ---- The promise

// A result that needs a logarithm, or cancels, has this room as well.
double Room(double bound) {
    return std::ldexp(std::max(1.0, std::fabs(bound)), -75);
}

void Expect_bound_is_tight(double bound, double truth, double outward) {
    bool const is_tight = std::nextafter(bound, -outward) == truth || bound == truth || std::fabs(bound - truth) <= Room(bound);
    EXPECT_TRUE(is_tight) << std::hexfloat << bound << " for " << truth;
}

void Check(Operation const& operation) {
    Operands operands;
    std::vector<std::vector<double>> points;
    for (Domain const& domain : operation.domains) {
        operands.push_back(Band_in(domain));
        points.push_back(Points_of(operands.back()));
    }
    Measurement const result = operation.result(operands);
    double least = HUGE_VAL;
    double greatest = -HUGE_VAL;
    std::vector<std::size_t> choice(points.size(), 0);
    for (bool more = true; more;) {
        Numbers numbers;
        for (std::size_t k = 0; k < points.size(); ++k) {
            numbers.emplace_back(points[k][choice[k]]);
        }
        Real const truth = operation.truth(numbers);
        least = std::min(least, truth.Down());
        greatest = std::max(greatest, truth.Up());
        more = false;
        for (std::size_t k = 0; k < choice.size() && !more; ++k) {
            choice[k] = (choice[k] + 1) % points[k].size();
            more = choice[k] != 0;
        }
    }
    EXPECT_LE(result.Get_lower(), least);
    EXPECT_GE(result.Get_upper(), greatest);
    if (operation.is_tight) {
        Expect_bound_is_tight(result.Get_lower(), least, -HUGE_VAL);
        Expect_bound_is_tight(result.Get_upper(), greatest, HUGE_VAL);
    }
    Numbers values;
    for (Measurement const& operand : operands) {
        values.emplace_back(operand.Get_value());
    }
    Real const truth = operation.truth(values);
    EXPECT_LE(std::nextafter(result.Get_value(), -HUGE_VAL), truth.Up());
    EXPECT_GE(std::nextafter(result.Get_value(), HUGE_VAL), truth.Down());
}

TEST(Measurements, Enclose_and_are_tight) {
    for (Operation const& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        for (int round = 0; round < Rounds && !::testing::Test::HasFailure(); ++round) {
            Check(operation);
        }
    }
}

// ---- Bounds that are open

Measurement Up_to(Measurement const& x, double upper) {
    return {x.Get_value(), x.Get_unit(), x.Get_lower(), upper};
}

// Whether a bound goes on and on with one of the operand that does.
bool Diverges(double bound_of_far, double bound_of_farther) {
    return std::fabs(bound_of_farther) > 10.0 && std::fabs(bound_of_farther) > 1.5 * std::fabs(bound_of_far);
}

// An operand without upper bound encloses what it does with any, and has no bound where there is none.
template <typename Function>
void Check_open(Measurement const& x, Function function) {
    Measurement const open = function(Up_to(x, HUGE_VAL));
    Measurement const far = function(Up_to(x, 1e120));
    Measurement const farther = function(Up_to(x, 1e240));
    SCOPED_TRACE(Format(open) + " but up to 1e240 " + Format(farther));
    EXPECT_LE(open.Get_lower(), farther.Get_lower());
    EXPECT_GE(open.Get_upper(), farther.Get_upper());
    EXPECT_TRUE(std::isinf(open.Get_lower()) || !Diverges(far.Get_lower(), farther.Get_lower()));
    EXPECT_TRUE(std::isinf(open.Get_upper()) || !Diverges(far.Get_upper(), farther.Get_upper()));
}

TEST(Measurements, May_be_open_to_infinity) {
    for (Operation const& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        for (std::size_t k = 0; k < operation.domains.size(); ++k) {
            bool const may_be_large = operation.domains[k].greatest > 0 && std::string(operation.domains[k].unit) != "%";
            bool const is_taken_away = std::string(operation.name).find("power difference") == 0 && k == 1;
            Operands operands;
            for (Domain const& domain : operation.domains) {
                operands.push_back(Band_in(domain));
            }
            if (may_be_large && !is_taken_away) {
                Check_open(operands[k], [&](Measurement const& open) {
                    operands[k] = open;
                    return operation.result(operands);
                });
            }
        }
    }
}

TEST(Measurements, May_be_open_to_infinity_in_electrical_relations) {
    char const* const units[] = {"V", "mA", "W", "kohm", "dBV", "dBmA", "dBm"};
    int relations = 0;
    for (char const* const from : units) {
        for (char const* const with : units) {
            for (char const* const to : units) {
                Measurement const x(2.0, Parse_unit(from), 1.0, 3.0);
                Measurement const y(2.0, Parse_unit(with), 1.0, 3.0);
                try {
                    x.Convert_to(Parse_unit(to), y);
                } catch (MeasurementRefused const&) {
                    continue; // no relation
                }
                ++relations;
                SCOPED_TRACE(std::string(from) + " with " + with + " to " + to);
                Check_open(x, [&](Measurement const& open) { return open.Convert_to(Parse_unit(to), y); });
                Check_open(y, [&](Measurement const& open) { return x.Convert_to(Parse_unit(to), open); });
            }
        }
    }
    EXPECT_EQ(relations, 120);
}

// ---- Texts

bool Encloses(Measurement const& outer, Measurement const& inner) {
    return outer.Get_lower() <= inner.Get_lower() && outer.Get_upper() >= inner.Get_upper();
}

TEST(Measurements, Are_never_written_narrower) {
    char const* const formats[] = {"", "p", "b", "bp", "bk", ".3", ".1f", ".6p", ".12", "k"};
    for (int round = 0; round < 3000; ++round) {
        double const scale = std::pow(10.0, Uniform(-20.0, 20.0));
        Measurement const x = Band_in({round % 2 == 0 ? "V" : "dBm", -scale, scale});
        char const* const format = formats[Random()() % std::size(formats)];
        std::string const text = Format(x, Read_text_format(format));
        Measurement const read = Parse_measurement(text).Convert_to(x.Get_unit());
        EXPECT_TRUE(Encloses(read, x)) << text << " of " << Format(x) << " by '" << format << '\'';
        if (std::string(format).empty()) {
            EXPECT_GE(read.Get_lower(), std::nextafter(x.Get_lower(), -HUGE_VAL)) << text;
            EXPECT_LE(read.Get_upper(), std::nextafter(x.Get_upper(), HUGE_VAL)) << text;
            EXPECT_EQ(read.Get_value(), x.Get_value()) << text;
        }
    }
}

} // namespace
} // namespace Varnix::Value::Tests
