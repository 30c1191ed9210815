// Every pair of the forms that a unit may have, through conversion, converters, order and sums, against a
// model of its own: what each unit measures as plain doubles, and the rules written down a second time.

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Text_formatting.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

// ---- The forms

// clang-format off
char const* const forms[] = {
    // plain numbers and ratios
    "1", "%", "ppm", "ppb", "V*A/W", "%*V*A/W",
    // units alone
    "m", "in", "ft", "yd", "mi", "n.mi", "s", "min", "h", "dy", "wk", "mo", "yr", "rad", "deg", "sym", "g", "V", "A", "W", "ohm", "b", "Nyb", "B",
    // with prefixes
    "km", "mm", "µs", "ks", "mg", "kg", "kV", "mV", "µA", "mA", "mW", "MW", "kohm", "Mohm", "kb", "Kib", "KiB", "MB", "(10^5 m)",
    // products and quotients
    "m/s", "km/h", "kn", "ft/s", "m^2", "cm^2", "ft^2", "1/m", "1/cm", "Hz", "kHz", "1/min", "1/mo", "rad/s", "deg/min", "sym/s", "Mb/s", "B/min",
    "VA", "V*mA", "V^2/ohm", "A^2*ohm", "W*s", "kWh", "V^2", "A^2", "1/V", "1/ohm", "V/m", "A/m", "W/m^2", "W/Hz", "mW/kHz", "V*s", "g*m/s^2",
    // beyond the core: alone, with prefixes, in products
    "N", "kN", "lbf", "Pa", "hPa", "psi", "J", "kJ", "cal", "hp", "C", "F", "µF", "H", "S", "Wb", "T", "nT", "G", "Oe", "cd", "lm", "lx", "mol", "kat",
    "Bq", "mSv", "l", "ml", "gal", "ha", "lb", "t", "au", "rev", "arcmin", "sr", "‰", "Bd", "N*m", "N*m*rad", "N*m*rev/min", "kg*m/s^2", "rpm", "Pa*s",
    "J/kg", "mol/l", "V*s/m^2", "A*s/V", "cd*sr", "N/A",
    // products with ratios
    "%*V", "ppm*V", "ppb*m", "%*W", "%*m/s",
    // temperatures: scales, products that are none, differences
    "K", "mK", "kK", "°C", "°F", "%*K", "ppm*K", "%*°C", "%*°F", "K*V*A/W", "°C*W/(V*A)",
    "ΔK", "ΔmK", "Δ°C", "Δm°C", "Δ°F", "Δk°F",
    // temperatures in other units
    "K/min", "°C/min", "°F/h", "1/K", "1/°C", "1/milli(°F)", "ppm/K", "ppm/°C", "W/K", "W/°C", "mW/°F", "K/W", "V/K", "K^2", "°C^2",
    // levels
    "dBm", "dBW", "dB(µW)", "dB(V*A)", "dB(%*W)", "dBV", "dBmV", "dBµV", "dB(%*V)", "dBA", "dBmA", "dB(µA)", "dB(V^2)", "dB(A^2)", "dB(V/m)", "dB(µV/m)",
    "dB(A/m)", "dB(W/m^2)", "dB(mW/cm^2)", "dB(nT)", "dB(hp)", "dBsm", "dB(ha)", "dB(1/m)", "dB(1/cm)",
    "dB(cm^2)", "dBHz", "dB(kHz)", "dB(1/min)", "dB(s)", "dBm/Hz", "dBW/Hz", "dBm/MHz", "dBW/K/Hz",
    // levels of temperatures
    "dBK", "dB(mK)", "dB(kK)", "dB(%*K)", "dB(%*°C)", "dB/K", "dB(°C/s)", "dB(K/min)", "dB(1/°F)",
    // gains
    "dB", "Np", "mNp",
};
// clang-format on

// ---- The model

constexpr double pi = 3.14159265358979323846;

// What a unit measures: a letter for each V, A, m, K, s, cd (c), mol (n), month (M), bit (b), radian (r),
// symbol (y) or decibel of a gain (d), above and below the line, and how much of that. A kilogram is a
// V A s^3/m^2. A scale counts from -zero.
struct Unit_fact {
    Units_list unit;
    char const* above;
    char const* below;
    double size;
    double zero = 0.0;
};

// clang-format off
Unit_fact const unit_facts[] = {
    {METER,                 "m",     "",    1.0},
    {INCH,                  "m",     "",    0.0254},
    {FOOT,                  "m",     "",    0.3048},
    {YARD,                  "m",     "",    0.9144},
    {MILE,                  "m",     "",    1609.344},
    {NAUTICAL_MILE,         "m",     "",    1852.0},
    {ASTRONOMICAL_UNIT,     "m",     "",    149597870700.0},
    {HECTARE,               "mm",    "",    1e4},
    {LITER,                 "mmm",   "",    1e-3},
    {GALLON,                "mmm",   "",    231.0 * 0.0254 * 0.0254 * 0.0254},
    {SECOND,                "s",     "",    1.0},
    {MINUTE,                "s",     "",    60.0},
    {HOUR,                  "s",     "",    3600.0},
    {DAY,                   "s",     "",    86400.0},
    {WEEK,                  "s",     "",    604800.0},
    {MONTH,                 "M",     "",    1.0},
    {YEAR,                  "M",     "",    12.0},
    {RADIAN,                "r",     "",    1.0},
    {DEGREE,                "r",     "",    pi / 180.0},
    {REVOLUTION,            "r",     "",    2.0 * pi},
    {ARC_MINUTE,            "r",     "",    pi / 10800.0},
    {STERADIAN,             "rr",    "",    1.0},
    {KELVIN,                "K",     "",    1.0},
    {DEGREE_C,              "K",     "",    1.0, 273.15},
    {DEGREE_F,              "K",     "",    5.0 / 9.0, 459.67},
    {PERCENT,               "",      "",    1e-2},
    {PER_MILLE,             "",      "",    1e-3},
    {PPM,                   "",      "",    1e-6},
    {PPB,                   "",      "",    1e-9},
    {SYMBOL,                "y",     "",    1.0},
    {BAUD,                  "y",     "s",   1.0},
    {GRAM,                  "VAsss", "mm",  1e-3},
    {POUND,                 "VAsss", "mm",  0.45359237},
    {TONNE,                 "VAsss", "mm",  1e3},
    {NEWTON,                "VAs",   "m",   1.0},
    {POUND_FORCE,           "VAs",   "m",   0.45359237 * 9.80665},
    {PASCAL,                "VAs",   "mmm", 1.0},
    {POUND_PER_SQUARE_INCH, "VAs",   "mmm", 0.45359237 * 9.80665 / (0.0254 * 0.0254)},
    {JOULE,                 "VAs",   "",    1.0},
    {CALORIE,               "VAs",   "",    4.184},
    {VOLT,                  "V",     "",    1.0},
    {AMP,                   "A",     "",    1.0},
    {WATT,                  "VA",    "",    1.0},
    {HORSEPOWER,            "VA",    "",    550.0 * 0.3048 * 0.45359237 * 9.80665},
    {OHM,                   "V",     "A",   1.0},
    {SIEMENS,               "A",     "V",   1.0},
    {COULOMB,               "As",    "",    1.0},
    {FARAD,                 "As",    "V",   1.0},
    {HENRY,                 "Vs",    "A",   1.0},
    {WEBER,                 "Vs",    "",    1.0},
    {TESLA,                 "Vs",    "mm",  1.0},
    {GAUSS,                 "Vs",    "mm",  1e-4},
    {OERSTED,               "A",     "m",   250.0 / pi},
    {CANDELA,               "c",     "",    1.0},
    {LUMEN,                 "crr",   "",    1.0},
    {LUX,                   "crr",   "mm",  1.0},
    {MOLE,                  "n",     "",    1.0},
    {KATAL,                 "n",     "s",   1.0},
    {BECQUEREL,             "",      "s",   1.0},
    {SIEVERT,               "mm",    "ss",  1.0},
    {BIT,                   "b",     "",    1.0},
    {NYBBLE,                "b",     "",    4.0},
    {BYTE,                  "b",     "",    8.0},
    {NEPER,                 "d",     "",    8.685889638065037},
};
// clang-format on

// Have no convention for decibels, though a watt is made of them.
Units_list const units_made_of_masses[] = {GRAM, POUND, TONNE, NEWTON, POUND_FORCE, PASCAL, POUND_PER_SQUARE_INCH, JOULE, CALORIE};

bool Is_made_of_masses(Units_list unit) {
    return std::find(std::begin(units_made_of_masses), std::end(units_made_of_masses), unit) != std::end(units_made_of_masses);
}

Unit_fact const& Fact_of(Units_list unit) {
    return *std::find_if(std::begin(unit_facts), std::end(unit_facts), [&](Unit_fact const& fact) { return fact.unit == unit; });
}

class Kind_model {
  public:
    Kind_model With(Kind_model const& other, int power) const {
        Kind_model product = *this;
        for (auto const& [letter, exponent] : other.powers) {
            product.Multiply(letter, power * exponent);
        }
        return product;
    }
    void Multiply(char letter, int power) {
        powers[letter] += power;
        if (powers[letter] == 0) {
            powers.erase(letter);
        }
    }
    int Power(char letter) const {
        auto const found = powers.find(letter);
        return found == powers.end() ? 0 : found->second;
    }
    Kind_model Without(std::string const& letters) const {
        Kind_model rest = *this;
        for (char const letter : letters) {
            rest.powers.erase(letter);
        }
        return rest;
    }
    bool Is_plain() const { return powers.empty(); }
    // Torque times angle is work.
    Kind_model Comparable() const { return Power('r') == 1 && Power('V') == 1 && Power('A') == 1 ? Without("r") : *this; }
    // Calendar months taken for time.
    Kind_model By_the_clock() const {
        Kind_model kind = Without("M");
        kind.Multiply('s', Power('M'));
        return kind;
    }
    bool operator==(Kind_model const& other) const { return powers == other.powers; }

  private:
    std::map<char, int> powers;
};

// Whether an impedance leads from the one to the other: V, A, W and ohm, or V/m, A/m, W/m^2 and ohm.
struct Electrical_model {
    int volts;
    int amperes;
    int lengths;
    bool is_one; // of the four

    explicit Electrical_model(Kind_model const& kind) : volts(kind.Power('V')), amperes(kind.Power('A')), lengths(kind.Power('m')) {
        bool const fits = (volts == 1 && amperes >= -1 && amperes <= 1) || (volts == 0 && amperes == 1);
        is_one = fits && (lengths == 0 || (!Is_resistance() && lengths == -volts - amperes)) && kind.Without("VAm").Is_plain();
    }
    bool Is_resistance() const { return amperes == -1; }
    bool Is_related_to(Electrical_model const& other) const {
        bool const of_one_sort = (lengths == 0) == (other.lengths == 0) || Is_resistance() || other.Is_resistance();
        return is_one && other.is_one && of_one_sort;
    }
};

// What the decibels of a unit go by: its kind, and the electrical units that are written in it.
struct Convention_model {
    Kind_model kind;
    int volts = 0;
    int amperes = 0;
    bool has_mass = false;

    Convention_model With(Convention_model const& other, int sign) const {
        return {kind.With(other.kind, sign), volts + sign * other.volts, amperes + sign * other.amperes, has_mass || other.has_mass};
    }
    // 10 for powers, 20 for root-power quantities, 0 for others.
    int Order() const {
        int const order = volts < 0 || amperes < 0 || has_mass ? 0 : volts + amperes;
        return order == 2 ? 10 : order == 1 ? 20 : 0;
    }
    // c of "c log10", 0 where there is none.
    int Factor() const {
        if (volts != 0 || amperes != 0 || has_mass) {
            return Order();
        }
        bool const is_antenna_factor = kind.Power('m') == -1 && kind.Without("m").Is_plain();
        bool const is_factor_of_powers = kind.Without("sKm").Is_plain() && kind.Power('m') % 2 == 0 && !kind.Is_plain();
        return is_antenna_factor ? 20 : is_factor_of_powers ? 10 : 0;
    }
};

struct Form_model {
    Units unit;
    bool is_difference;
    Kind_model kind;
    double size;
    double zero;
    bool is_decibel;
    bool is_temperature_alone; // of a level, what it is relative to
    Convention_model convention = {};

    bool Is_neper() const { return unit.tuples[0].unit == NEPER && unit.tuples[1].unit == NO_UNIT; }
    bool Is_gain() const { return is_decibel ? unit.tuples[0].unit == NO_UNIT : Is_neper(); }
    bool Is_logarithmic() const { return is_decibel || Is_neper(); }
    bool Is_level() const { return is_decibel && !Is_gain(); }
    bool Is_kelvin() const { return is_temperature_alone && unit.tuples[0].unit == KELVIN; }
    bool Is_scale() const { return is_temperature_alone && !is_decibel && !Is_kelvin(); }
    bool Is_point() const { return Is_scale() && !is_difference; }
};

Form_model Model_of(Units const& unit, bool is_difference) {
    bool const is_binary = unit.si_prefix >= KIBI;
    double const prefix = unit.si_prefix == NO_PREFIX ? 1.0 : std::pow(is_binary ? 2.0 : 10.0, unit.si_prefix);
    Form_model model = {unit, is_difference, {}, prefix, 0.0, unit.spl_conv == SPL_DB, false};
    int count = 0;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        Unit_fact const& fact = Fact_of(tuple.unit);
        Kind_model kind;
        for (char const letter : std::string(fact.above)) {
            kind.Multiply(letter, 1);
        }
        for (char const letter : std::string(fact.below)) {
            kind.Multiply(letter, -1);
        }
        model.kind = model.kind.With(kind, tuple.exponent);
        bool const has_mass = Is_made_of_masses(tuple.unit);
        model.convention.has_mass = model.convention.has_mass || has_mass;
        model.convention.volts += has_mass ? 0 : kind.Power('V') * tuple.exponent;
        model.convention.amperes += has_mass ? 0 : kind.Power('A') * tuple.exponent;
        model.size *= std::pow(fact.size, tuple.exponent);
        model.zero = fact.zero;
        ++count;
    }
    model.convention.kind = model.kind;
    model.is_temperature_alone = count == 1 && unit.tuples[0].exponent == 1 && model.kind.Power('K') == 1;
    return model;
}

struct Numbers {
    double lower;
    double value;
    double upper;
};

// In volts, amperes, kelvins ..., and back.
double Quantity_of(Form_model const& form, double number) {
    return form.Is_level()   ? form.size * std::pow(10.0, number / form.convention.Factor())
           : form.Is_point() ? (number + form.zero) * form.size
                             : number * form.size;
}

double Number_of(Form_model const& form, double quantity) {
    return form.Is_level()   ? form.convention.Factor() * std::log10(quantity / form.size)
           : form.Is_point() ? quantity / form.size - form.zero
                             : quantity / form.size;
}

Refusal Why_kinds_differ(Kind_model const& x, Kind_model const& y) {
    return Electrical_model(x).Is_related_to(Electrical_model(y)) ? Refusal::needs_impedance
           : x.By_the_clock() == y.By_the_clock()                 ? Refusal::no_fixed_length
                                                                  : Refusal::kinds_differ;
}

// Whether the two can be one quantity.
void Check_kinds(Form_model const& x, Form_model const& y) {
    if (x.Is_gain() != y.Is_gain()) {
        bool const are_ratios = (x.kind.Is_plain() || x.Is_gain()) && (y.kind.Is_plain() || y.Is_gain());
        throw are_ratios ? Refusal::gain_is_ambiguous : Refusal::gain_is_no_quantity;
    }
    if (x.Is_gain()) {
        return;
    }
    Kind_model const kind = x.kind.Comparable();
    Kind_model const other = y.kind.Comparable();
    if (!(kind == other)) {
        throw Why_kinds_differ(kind, other);
    }
    if ((x.Is_point() || y.Is_point()) && !(x.is_temperature_alone && y.is_temperature_alone)) {
        throw Refusal::temperature_role;
    }
}

double Converted(Form_model const& from, double number, Form_model const& to) {
    return from.unit == to.unit && from.is_difference == to.is_difference ? number : Number_of(to, Quantity_of(from, number));
}

Numbers Converted(Form_model const& from, Numbers const& x, Form_model const& to) {
    Check_kinds(from, to);
    bool const becomes_level = to.Is_level() && !from.Is_level();
    if (becomes_level && (Quantity_of(from, x.lower) < 0.0 || Quantity_of(from, x.value) <= 0.0)) {
        throw Refusal::no_level_of_zero;
    }
    return {Converted(from, x.lower, to), Converted(from, x.value, to), Converted(from, x.upper, to)};
}

// A target is a unit alone: it is what the mark of the other makes of it.
Form_model Target(Form_model const& from, Form_model const& to) {
    if (to.Is_scale() && to.unit.si_prefix != NO_PREFIX && !from.is_difference) {
        throw Refusal::prefix_on_temperature;
    }
    return Model_of(to.unit, from.is_difference && to.is_temperature_alone && !to.is_decibel);
}

void Check_roles(Form_model const& x, Form_model const& y) {
    bool const both_kelvin = x.Is_kelvin() && y.Is_kelvin();
    if (x.is_temperature_alone && y.is_temperature_alone && !both_kelvin && x.is_difference != y.is_difference) {
        throw Refusal::temperature_role;
    }
}

// ---- Outcomes

struct Outcome {
    std::optional<Refusal> refusal;
    Numbers numbers = {0.0, 0.0, 0.0};
    std::optional<Form_model> form;
};

template <typename Function>
Outcome Outcome_of(Function function) {
    try {
        return function();
    } catch (Refusal reason) {
        return {reason, {}, {}};
    } catch (MeasurementRefused const& refused) {
        return {refused.Get_reason(), {}, {}};
    }
}

Outcome Found(Measurement const& x) {
    return {std::nullopt, {x.Get_lower(), x.Get_value(), x.Get_upper()}, Model_of(x.Get_unit(), x.Is_difference())};
}

// Temperatures cancel, and what is near zero in one scale is not in the other.
bool Is_near(double number, double expected, Form_model const& form) {
    double const of_scale = form.kind.Power('K') == 1 ? 600.0 / form.size : 0.0;
    double const size = std::fabs(expected) + of_scale + (form.is_decibel ? 300.0 : 0.0);
    return number == expected || (std::isnan(number) && std::isnan(expected)) || std::fabs(number - expected) <= 1e-12 * size;
}

std::string Text(Outcome const& outcome) {
    if (outcome.refusal) {
        return Reason_name(*outcome.refusal);
    }
    auto const number = [](double x) { return Format_number(x); };
    return number(outcome.numbers.value) + " [" + number(outcome.numbers.lower) + ", " + number(outcome.numbers.upper) + "] " +
           Format_unit(outcome.form->unit) + (outcome.form->is_difference ? " difference" : "");
}

bool Agrees(Outcome const& found, Outcome const& expected) {
    if (found.refusal || expected.refusal) {
        return found.refusal == expected.refusal;
    }
    Numbers const& is = found.numbers;
    Numbers const& should_be = expected.numbers;
    Form_model const& form = *found.form;
    return form.unit == expected.form->unit && form.is_difference == expected.form->is_difference && is.lower <= is.value && is.value <= is.upper &&
           Is_near(is.lower, should_be.lower, form) && Is_near(is.value, should_be.value, form) && Is_near(is.upper, should_be.upper, form);
}

struct Operand {
    std::string text;
    Measurement measurement;
    Form_model form;
    Numbers numbers;
};

std::vector<Operand> Operands_of(Numbers const& x) {
    std::vector<Operand> operands;
    for (char const* const unit : forms) {
        Measurement const one = Parse_measurement(std::string("1 ") + (std::string(unit) == "1" ? "" : unit));
        Measurement const measured = one.Is_difference() ? Measurement::Difference(x.value, one.Get_unit(), x.lower, x.upper)
                                                         : Measurement(x.value, one.Get_unit(), x.lower, x.upper);
        operands.push_back({Format(measured), measured, Model_of(one.Get_unit(), one.Is_difference()), x});
    }
    return operands;
}

// Numbers of all signs; of the first nothing is zero, of the second the lower bound, the third is one number.
Numbers const first_numbers[] = {{15.0, 20.0, 30.0}, {0.0, 1.0, 4.0}, {3.0, 3.0, 3.0}, {-7.0, -5.0, 30.0}};
Numbers const second_numbers[] = {{25.0, 40.0, 41.0}, {0.0, 2.0, 3.0}, {-2.0, -2.0, 5.0}};

// The numbers make a difference only within a kind.
template <typename Function>
void For_each_pair(Function check) {
    std::vector<std::vector<Operand>> firsts;
    std::vector<std::vector<Operand>> seconds;
    for (Numbers const& numbers : first_numbers) {
        firsts.push_back(Operands_of(numbers));
    }
    for (Numbers const& numbers : second_numbers) {
        seconds.push_back(Operands_of(numbers));
    }
    for (std::size_t k = 0; k < std::size(forms); ++k) {
        for (std::size_t n = 0; n < std::size(forms); ++n) {
            bool const is_one_kind = firsts[0][k].form.kind.Comparable() == seconds[0][n].form.kind.Comparable();
            std::size_t const count = is_one_kind ? firsts.size() * seconds.size() : 1;
            for (std::size_t round = 0; round < count; ++round) {
                check(firsts[round % firsts.size()][k], seconds[round / firsts.size()][n]);
            }
        }
    }
}

void Expect(Outcome const& found, Outcome const& expected, Operand const& x, char const* operation, Operand const& y) {
    EXPECT_TRUE(Agrees(found, expected)) << x.text << operation << y.text << " is " << Text(found) << " and should be " << Text(expected);
}

// ---- Conversion

TEST(Unit_forms, Convert_as_the_model) {
    For_each_pair([](Operand const& x, Operand const& y) {
        Outcome const expected = Outcome_of([&]() -> Outcome {
            Form_model const target = Target(x.form, y.form);
            return {std::nullopt, Converted(x.form, x.numbers, target), target};
        });
        Expect(Outcome_of([&] { return Found(x.measurement.Convert_to(y.form.unit)); }), expected, x, " to the unit of ", y);
    });
}

// NaN where there is no level, and no refusal.
double Converted_number(Form_model const& from, double number, Form_model const& to) {
    double const quantity = Quantity_of(from, number);
    bool const has_none = to.Is_level() && !from.Is_level() && quantity < 0.0;
    return has_none ? std::numeric_limits<double>::quiet_NaN() : Converted(from, number, to);
}

void Check_converter(Operand const& x, Operand const& y) {
    Form_model const from = Model_of(x.form.unit, false);
    std::optional<Refusal> expected;
    std::optional<Refusal> found;
    try {
        Target(from, from);
        Check_kinds(from, Target(from, y.form));
    } catch (Refusal reason) {
        expected = reason;
    }
    try {
        Measurement_converter const converter(from.unit, y.form.unit);
        for (double const number : {20.0, 1.0, 0.0, -5.0, -500.0}) {
            double const should_be = Converted_number(from, number, Model_of(y.form.unit, false));
            double const is = converter.Convert_number(number);
            EXPECT_TRUE(Is_near(is, should_be, y.form))
                << number << " in the unit of " << x.text << " is " << is << " in that of " << y.text << " and should be " << should_be;
            double column[] = {number, number};
            converter.Convert_numbers(column, column, 2);
            EXPECT_TRUE(column[1] == is || std::isnan(is));
        }
    } catch (MeasurementRefused const& refused) {
        found = refused.Get_reason();
    }
    EXPECT_EQ(found, expected) << "a column of " << x.text << " to the unit of " << y.text;
}

TEST(Unit_forms, Convert_in_columns_as_the_model) {
    std::vector<Operand> const operands = Operands_of(first_numbers[0]);
    for (Operand const& x : operands) {
        for (Operand const& y : operands) {
            Check_converter(x, y);
        }
    }
}

// ---- Order

// Of two quantities, and what may be said where they differ by rounding alone.
struct Order_model {
    Order order;
    bool is_close;
};

Order_model Order_of(Operand const& x, Operand const& y) {
    Check_roles(x.form, y.form);
    Check_kinds(x.form, y.form);
    double const x_lower = Quantity_of(x.form, x.numbers.lower);
    double const x_upper = Quantity_of(x.form, x.numbers.upper);
    double const y_lower = Quantity_of(y.form, y.numbers.lower);
    double const y_upper = Quantity_of(y.form, y.numbers.upper);
    auto const are_close = [](double a, double b) { return std::fabs(a - b) <= 1e-12 * (std::fabs(a) + std::fabs(b)); };
    Order const order = x_upper < y_lower ? Order::less : x_lower > y_upper ? Order::greater : Order::undecided;
    return {order, are_close(x_upper, y_lower) || are_close(x_lower, y_upper)};
}

TEST(Unit_forms, Compare_as_the_model) {
    For_each_pair([](Operand const& x, Operand const& y) {
        std::string expected;
        std::string found;
        bool is_close = false;
        char const* const names[] = {"less", "equal", "greater", "undecided"};
        try {
            Order_model const order = Order_of(x, y);
            is_close = order.is_close;
            expected = names[static_cast<int>(order.order)];
        } catch (Refusal reason) {
            expected = Reason_name(reason);
        }
        try {
            found = names[static_cast<int>(Compare(x.measurement, y.measurement))];
        } catch (MeasurementRefused const& refused) {
            found = Reason_name(refused.Get_reason());
        }
        EXPECT_TRUE(found == expected || is_close) << x.text << " compared with " << y.text << " is " << found << " and should be " << expected;
    });
}

// The bounds of the second in the unit of the first; what is not above zero has no level.
Numbers Bounds_in(Form_model const& form, Operand const& y) {
    Numbers const bounds = {y.numbers.lower, y.numbers.upper, y.numbers.upper};
    return Converted(y.form, bounds, form);
}

TEST(Unit_forms, Are_joined_and_intersected_as_the_model) {
    For_each_pair([](Operand const& x, Operand const& y) {
        Numbers const& own = x.numbers;
        Outcome const joined = Outcome_of([&]() -> Outcome {
            Check_roles(x.form, y.form);
            Numbers const other = Bounds_in(x.form, y);
            return {std::nullopt, {std::min(own.lower, other.lower), own.value, std::max(own.upper, other.upper)}, x.form};
        });
        Expect(Outcome_of([&] { return Found(Hull(x.measurement, y.measurement)); }), joined, x, " joined with ", y);
        bool is_close = false;
        Outcome const common = Outcome_of([&]() -> Outcome {
            Order_model const order = Order_of(x, y);
            is_close = order.is_close;
            if (order.order != Order::undecided) {
                throw Refusal::contradiction;
            }
            Numbers const other = Bounds_in(x.form, y);
            double const lower = std::max(own.lower, other.lower);
            double const upper = std::min(own.upper, other.upper);
            return {std::nullopt, {lower, std::min(std::max(own.value, lower), upper), upper}, x.form};
        });
        if (!is_close) {
            Expect(Outcome_of([&] { return Found(Intersection(x.measurement, y.measurement)); }), common, x, " intersected with ", y);
        }
    });
}

// ---- Sums

Numbers Added(Numbers const& x, int sign, Numbers const& y) {
    return sign > 0 ? Numbers{x.lower + y.lower, x.value + y.value, x.upper + y.upper}
                    : Numbers{x.lower - y.upper, x.value - y.value, x.upper - y.lower};
}

Outcome Temperatures_added(Operand const& x, int sign, Operand const& y) {
    bool const both_kelvin = x.form.Is_kelvin() && y.form.Is_kelvin();
    bool const x_marked = x.form.is_difference;
    bool const y_marked = y.form.is_difference;
    bool const point_beside_kelvin =
        !x_marked && !y_marked && ((x.form.Is_point() && y.form.Is_kelvin()) || (sign > 0 && x.form.Is_kelvin() && y.form.Is_point()));
    if (point_beside_kelvin || (sign < 0 && x_marked && !y_marked && !both_kelvin)) {
        throw Refusal::temperature_role;
    }
    if (sign > 0 && !x_marked && !y_marked && !both_kelvin) {
        throw Refusal::temperature_points_add;
    }
    // A point less a point is a difference; with a point it is a point otherwise.
    bool const is_difference = sign > 0 ? x_marked && y_marked : x_marked || !y_marked;
    if (x_marked && !is_difference && x.form.Is_scale() && x.form.unit.si_prefix != NO_PREFIX) {
        throw Refusal::prefix_on_temperature;
    }
    Form_model const result = Model_of(x.form.unit, is_difference);
    Numbers const second = Converted(y.form, y.numbers, Model_of(x.form.unit, y_marked));
    return {std::nullopt, Added(x.numbers, sign, second), result};
}

// Levels of other kinds, which make that of the product or quotient. The unit is the library's choice.
Outcome Levels_multiplied(Operand const& x, int sign, Operand const& y, Outcome const& found) {
    int const factor = x.form.convention.Factor();
    bool const fit = factor == y.form.convention.Factor();
    bool const are_two_quantities = x.form.convention.Order() != 0 && y.form.convention.Order() != 0;
    if (!fit || (sign > 0 && are_two_quantities)) {
        throw sign > 0 ? Refusal::levels_do_not_add : Why_kinds_differ(x.form.kind, y.form.kind);
    }
    Convention_model const product = x.form.convention.With(y.form.convention, sign);
    Kind_model const& kind = product.kind;
    Form_model const& form = found.refusal ? x.form : *found.form;
    // That of °C or °F alone has none, which the library's unit shows.
    bool const is_temperature = kind.Power('K') == 1 && kind.Without("K").Is_plain();
    bool const has_no_unit = found.refusal == Refusal::no_level_convention && is_temperature;
    if ((!kind.Is_plain() && product.Factor() != factor) || has_no_unit) {
        throw Refusal::no_level_convention;
    }
    EXPECT_TRUE(found.refusal || form.kind == kind);
    double const shift = factor * std::log10(x.form.size * std::pow(y.form.size, sign) / form.size);
    Numbers sum = Added(x.numbers, sign, y.numbers);
    return {std::nullopt, {sum.lower + shift, sum.value + shift, sum.upper + shift}, form};
}

Outcome Decibels_added(Operand const& x, int sign, Operand const& y, Outcome const& found) {
    Form_model const decibels = Model_of(C_DB, false);
    if (y.form.Is_gain()) {
        return {std::nullopt, Added(x.numbers, sign, Converted(y.form, y.numbers, x.form.Is_gain() ? x.form : decibels)), x.form};
    }
    if (x.form.Is_gain()) {
        if (sign < 0) {
            throw Refusal::gain_minus_level;
        }
        return {std::nullopt, Added(Converted(x.form, x.numbers, decibels), sign, y.numbers), y.form};
    }
    if (!(x.form.kind == y.form.kind)) {
        return Levels_multiplied(x, sign, y, found);
    }
    if (sign > 0) {
        throw Refusal::levels_do_not_add;
    }
    return {std::nullopt, Added(x.numbers, sign, Converted(y.form, y.numbers, x.form)), decibels};
}

Outcome Sum(Operand const& x, int sign, Operand const& y, Outcome const& found) {
    if (x.form.Is_logarithmic() != y.form.Is_logarithmic()) {
        throw Refusal::level_and_linear;
    }
    if (x.form.Is_logarithmic()) {
        return Decibels_added(x, sign, y, found);
    }
    if (x.form.is_temperature_alone && y.form.is_temperature_alone) {
        return Temperatures_added(x, sign, y);
    }
    return {std::nullopt, Added(x.numbers, sign, Converted(y.form, y.numbers, x.form)), x.form};
}

TEST(Unit_forms, Add_and_subtract_as_the_model) {
    For_each_pair([](Operand const& x, Operand const& y) {
        Outcome const sum = Outcome_of([&] { return Found(x.measurement + y.measurement); });
        Expect(sum, Outcome_of([&] { return Sum(x, 1, y, sum); }), x, " + ", y);
        Outcome const difference = Outcome_of([&] { return Found(x.measurement - y.measurement); });
        Expect(difference, Outcome_of([&] { return Sum(x, -1, y, difference); }), x, " - ", y);
    });
}

} // namespace
} // namespace Varnix::Value::Tests
