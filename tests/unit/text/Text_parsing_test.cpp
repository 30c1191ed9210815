// Units and quantities from text: the cases of cases/parsing.txt and cases/refused_texts.txt, what the
// library itself prints, and texts that nobody writes by accident.

#include "Case_notation.h"

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_spellings.h"

#include <varnix/value/text.h>

#include <ctime>
#include <fstream>
#include <map>
#include <random>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

static_assert(std::is_nothrow_copy_constructible_v<TextNotValid> && std::is_nothrow_copy_assignable_v<TextNotValid>);
static_assert(std::is_base_of_v<OperationNotValid, TextNotValid> && std::is_convertible_v<TextNotValid*, std::exception*>);

// ---- Cases

// "\x00" in a case is one byte.
std::string Unescaped(std::string const& text) {
    std::string result;
    for (std::size_t k = 0; k < text.size(); ++k) {
        bool const escaped = text.compare(k, 2, "\\x") == 0;
        result += escaped ? static_cast<char>(std::stoi(text.substr(k + 2, 2), nullptr, 16)) : text[k];
        k += escaped ? 3 : 0;
    }
    return result;
}

struct Case {
    std::string place; // file and line
    std::string text;
    std::string expected;
};

std::vector<Case> Cases_in(std::string const& name, std::string const& separator) {
    std::vector<Case> cases;
    std::ifstream file(std::string(VALUE_OBJECT_TEST_CASES) + '/' + name);
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        std::size_t const end = line.rfind(separator);
        if (!line.empty() && line[0] != '#') {
            EXPECT_NE(end, std::string::npos) << name << ':' << number;
            cases.push_back({name + ':' + std::to_string(number), Unescaped(line.substr(0, end)), line.substr(end + separator.size())});
        }
    }
    return cases;
}

template <typename T>
std::string Outcome(Parse_result<T> const& result) {
    return result ? Written(*result) : "refused: " + result.Get_fault().message;
}

bool Is_beyond_core(Units const& unit) {
    return std::any_of(std::begin(unit.tuples), std::end(unit.tuples),
                       [](Unit_tuple const& own) { return own.unit >= Value_detail::Unit_code_limit; });
}

TEST(Parsing, Reads_the_texts_written_down) {
    std::vector<Case> const cases = Cases_in("parsing.txt", " = ");
    EXPECT_GT(cases.size(), 100U);
    for (Case const& row : cases) {
        bool const is_quantity = row.expected.find(' ') != std::string::npos;
        EXPECT_EQ(is_quantity ? Outcome(Try_parse_quantity(row.text)) : Outcome(Try_parse_unit(row.text)), row.expected)
            << row.place << ": " << row.text;
        if (!is_quantity) {
            std::string const quantity = Outcome(Try_parse_quantity("2 " + row.text));
            bool const measured = quantity.find("is a unit that measurements alone have") != std::string::npos;
            auto const unit = Try_parse_unit(row.text);
            EXPECT_EQ(measured, unit && Is_beyond_core(*unit)) << row.place;
            EXPECT_TRUE(measured || quantity == "2 " + row.expected) << row.place << ": " << quantity;
        }
    }
}

template <typename T>
std::string Refusal(Parse_result<T> const& result, bool with_message) {
    if (result) {
        return "read as " + Written(*result);
    }
    Text_fault const& fault = result.Get_fault();
    return std::to_string(fault.position) + (with_message ? ": " + fault.message : "") + (fault.suggestion.empty() ? "" : " -> " + fault.suggestion);
}

TEST(Parsing, Refuses_the_texts_written_down) {
    std::vector<Case> const cases = Cases_in("refused_texts.txt", " ! ");
    EXPECT_GT(cases.size(), 100U);
    for (Case const& row : cases) {
        bool const is_unit = row.text.compare(0, 5, "unit ") == 0;
        bool const with_message = row.expected.find(": ") != std::string::npos;
        std::string const refusal =
            is_unit ? Refusal(Try_parse_unit(row.text.substr(5)), with_message) : Refusal(Try_parse_quantity(row.text), with_message);
        EXPECT_EQ(refusal, row.expected) << row.place << ": " << row.text;
    }
}

// Of quantities "1" is no unit: "5 1" are blanks between digits.
TEST(Parsing, Has_a_unit_of_plain_numbers) {
    for (char const* const text : {"", " \t", "1", " 1 "}) {
        EXPECT_EQ(Outcome(Try_parse_unit(text)), "C_Empty") << text;
        EXPECT_EQ(Outcome(Try_parse_unit(text, Dialect::scpi)), "C_Empty") << text;
    }
    EXPECT_FALSE(Try_parse_quantity("5 1"));
    EXPECT_FALSE(Try_parse_unit("dB(1)"));
}

// ---- What the library prints

std::vector<std::string> Printed(Units const& unit) {
    return {Units_library::Get_unit_string(unit, STR_SYMBOL), Units_library::Get_unit_string(unit, STR_NAME)};
}

TEST(Parsing, Reads_every_named_unit_as_it_is_printed) {
    for (Named_constant const& constant : named_constants) {
        for (std::string const& text : Printed(*constant.unit)) {
            if (text != "T/s") { // a prefix letter before a '/', which is tesla per second
                EXPECT_EQ(Outcome(Try_parse_quantity("-2.5 " + text)), "-2.5 " + Written(*constant.unit)) << constant.name << ": " << text;
            }
        }
    }
}

// ---- The words of the catalogue

struct Word {
    std::string text;
    bool is_symbol;
    Catalogue::Unit_row row;
};

std::vector<Word> Words_of_catalogue() {
    std::vector<Word> words;
    for (std::size_t place = 0; place < Catalogue::Unit_count; ++place) {
        Catalogue::Unit_row const& row = Catalogue::unit_rows[place];
        Catalogue::Unit_spelling const& spelling = Catalogue::unit_spellings[place];
        bool const core = place < Catalogue::Core_unit_count;
        std::vector<std::string> const own = core ? Printed(Unit({{row.unit, 1}})) : std::vector<std::string>{spelling.symbol, spelling.name};
        std::string symbols = own[0];
        symbols.append(" ").append(spelling.characters).append(" ").append(spelling.symbols);
        std::string names = own[1];
        names.append(" ").append(spelling.names);
        for (auto const& [texts, is_symbol] : {std::pair(symbols, true), std::pair(names, false)}) {
            std::istringstream split(texts);
            for (std::string text; split >> text;) {
                words.push_back({text, is_symbol, row});
            }
        }
    }
    return words;
}

TEST(Parsing, Reads_every_word_of_the_catalogue) {
    for (Word const& word : Words_of_catalogue()) {
        std::string const unit = Written(Unit({{word.row.unit, 1}}));
        EXPECT_EQ(Outcome(Try_parse_unit(word.text)), unit) << word.text;
        std::string apart = word.text;
        std::replace(apart.begin(), apart.end(), '_', word.text[0] == '[' ? '_' : ' ');
        EXPECT_EQ(Outcome(Try_parse_unit(apart)), unit) << apart;
        EXPECT_EQ(Outcome(Try_parse_unit("1/" + apart)), Written(Unit({{word.row.unit, -1}}))) << apart;
    }
}

// What is written for a unit beyond the core's is of its kind and size.
struct Size {
    Catalogue::Kind kind;
    double number = 1.0;
};

Size Size_of(Units const& unit) {
    Size size;
    size.number = std::pow(10.0, unit.si_prefix);
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT) {
            Catalogue::Unit_row const& row = Catalogue::Row_of(tuple.unit);
            Catalogue::Multiply(size.kind, Catalogue::As_physics_has_it(Catalogue::Row_of(row.quantity).kind), tuple.exponent);
            size.number *= std::pow(std::strtod(row.size, nullptr), tuple.exponent);
        }
    }
    return size;
}

TEST(Parsing, Says_what_to_write_in_units_of_the_core) {
    std::size_t count = 0;
    for (Word const& word : Words_of_catalogue()) {
        for (char const* const form : {"#", "k#", "h#", "1/#", "V*#^2", "#/s", "m#/ms"}) {
            std::string text = form;
            text.replace(text.find('#'), 1, word.text);
            auto const unit = Try_parse_unit(text);
            if (!unit || !Is_beyond_core(*unit)) {
                continue;
            }
            Text_fault const fault = Try_parse_quantity("5 " + text).Get_fault();
            EXPECT_EQ(fault.position, 2U) << text;
            std::size_t const way = fault.message.find("; here write ");
            if (way != std::string::npos) {
                auto const written = Parse_quantity("5 " + fault.message.substr(way + 13));
                EXPECT_TRUE(Size_of(written.Get_unit()).kind == Size_of(*unit).kind) << text << ": " << fault.message;
                EXPECT_NEAR(Size_of(written.Get_unit()).number / Size_of(*unit).number, 1.0, 1e-14) << text << ": " << fault.message;
                ++count;
            }
        }
    }
    EXPECT_GT(count, 300U);
}

// The texts of every prefix with the words of all units that take it, and what each means.
std::map<std::string, std::vector<Units>> Prefixed_words() {
    using Catalogue::Prefixes_taken;
    std::map<std::string, std::vector<Units>> meanings;
    for (Catalogue::Prefix_row const& prefix : Catalogue::prefix_rows) {
        for (Word const& word : Words_of_catalogue()) {
            Prefixes_taken const taken = word.row.prefixes;
            bool const any = taken == Prefixes_taken::any || taken == Prefixes_taken::chosen;
            if (word.text[0] != '[' && (any || (prefix.is_of_core && taken != Prefixes_taken::none))) {
                std::string const text = (word.is_symbol ? prefix.symbol : prefix.name) + word.text;
                Units const unit = Unit({{word.row.unit, 1}}, prefix.prefix);
                std::vector<Units>& own = meanings[text];
                if (std::find(own.begin(), own.end(), unit) == own.end()) {
                    own.push_back(unit);
                }
            }
        }
    }
    return meanings;
}

// No prefix with a word means two things, and but for these each is read as what it means.
TEST(Parsing, Reads_every_prefix_on_every_word) {
    std::vector<std::string> others;
    std::size_t count = 0;
    for (auto const& [text, units] : Prefixed_words()) {
        EXPECT_EQ(units.size(), 1U) << text;
        std::string const outcome = Outcome(Try_parse_unit(text));
        if (outcome != Written(units[0])) {
            others.push_back(text + ": " + outcome.substr(0, outcome.find(": ")));
        }
        ++count;
    }
    EXPECT_GT(count, 5000U);
    EXPECT_EQ(others, (std::vector<std::string>{
                          "Gs: refused",   "Min: refused", "PS: metric_horsepower", "ct: carats",  "dB: C_DB",    "dBd: refused", "dBq: refused",
                          "dBy: refused",  "db: refused",  "dbit: refused",         "kt: C_Knots", "mB: refused", "mBy: refused", "mb: refused",
                          "mbit: refused", "min: C_Min",   "nmi: C_Nautical_mile",  "pt: pints",   "pu: refused", "qm: refused"}));
}

// A product of units of the catalogue and its text, "kilo(Pa*l/s^2)".
struct Written_product {
    std::string text;
    Units unit;
};

bool Precedes(Unit_tuple const& left, Unit_tuple const& right) {
    return Catalogue::Dimension_of(left.unit) < Catalogue::Dimension_of(right.unit);
}

Written_product Random_product(std::vector<Word> const& words, std::mt19937& random) {
    std::vector<Unit_tuple> tuples;
    std::string above;
    std::string below;
    for (std::size_t count = 0; count < 1 + random() % Value_detail::Tuple_count; ++count) {
        Word const& word = words[random() % words.size()];
        Unit_tuple const tuple = {word.row.unit, static_cast<int>(random() % 6) - 3};
        bool const same =
            std::any_of(tuples.begin(), tuples.end(), [&](Unit_tuple const& own) { return !Precedes(own, tuple) && !Precedes(tuple, own); });
        if (same || tuple.exponent == 0) {
            continue;
        }
        tuples.push_back(tuple);
        std::string const text = word.text + '^' + std::to_string(std::abs(tuple.exponent));
        tuple.exponent > 0 ? above += (above.empty() ? "" : "*") + text : below += '/' + text;
    }
    Catalogue::Prefix_row const& prefix = Catalogue::prefix_rows[random() % std::size(Catalogue::prefix_rows)];
    std::sort(tuples.begin(), tuples.end(), Precedes);
    Units unit = {SPL_NONE, prefix.prefix, {}};
    std::copy(tuples.begin(), tuples.end(), unit.tuples);
    return {std::string(prefix.name) + '(' + (above.empty() ? "1" : above) + below + ')', unit};
}

TEST(Parsing, Reads_products_of_all_units) {
    std::vector<Word> const words = Words_of_catalogue();
    std::mt19937 random(7);
    for (int k = 0; k < 20000; ++k) {
        auto const [text, unit] = Random_product(words, random);
        if (unit.tuples[0].unit != NO_UNIT) {
            EXPECT_EQ(Outcome(Try_parse_unit(text)), Written(unit)) << text;
        }
    }
}

Units Random_compound(std::mt19937& random) {
    std::vector<Units> const catalogue = Catalogue_units();
    std::vector<SI_units> prefixes = Prefixes();
    prefixes.resize(prefixes.size() * 2, NO_PREFIX);
    Units unit = {random() % 8 == 0 ? SPL_DB : SPL_NONE, prefixes[random() % prefixes.size()], {}};
    for (std::size_t count = 0; count < 1 + random() % Value_detail::Tuple_count; ++count) {
        Units_list const code = catalogue[random() % catalogue.size()].tuples[0].unit;
        auto const same = [&](Unit_tuple const& own) {
            return own.unit != NO_UNIT && Units_library::Get_dimension(own.unit) == Units_library::Get_dimension(code);
        };
        int const power = static_cast<int>(random() % 7) - 3;
        if (std::none_of(std::begin(unit.tuples), std::end(unit.tuples), same)) {
            *std::find_if(std::begin(unit.tuples), std::end(unit.tuples),
                          [](Unit_tuple const& own) { return own.unit == NO_UNIT; }) = {code, power == 0 ? 1 : power};
        }
    }
    return Units_library::Arrange_tuple(unit);
}

// The core prints a prefix before a power that does not raise it, and a metre before a time, "mh^2" and
// "/ms"; such texts are read by the rule that a power belongs to the prefixed unit, and as per millisecond.
bool Is_read_by_rule(Units unit, Units read) {
    bool const metre = std::any_of(std::begin(unit.tuples), std::end(unit.tuples),
                                   [](Unit_tuple const& own) { return own.unit == METER && std::abs(own.exponent) == 1; });
    bool const prefixed = unit.si_prefix != NO_PREFIX;
    unit.si_prefix = NO_PREFIX;
    read.si_prefix = NO_PREFIX;
    return metre || (prefixed && unit == read);
}

bool Has_other_word(std::string const& text) {
    std::string const linear = text.substr(text.compare(0, 2, "dB") == 0 ? 2 : 0);
    return text.find("ohms") != std::string::npos || text.find("nmi") != std::string::npos || linear.compare(0, 2, "T/") == 0 ||
           linear.compare(0, 2, "G/") == 0;
}

// What the core prints is refused, or read as it was meant, or as another unit that is printed alike,
// or by the rule of powers: nothing else is misread. Only "ohms" is the name of the ohm wherever it
// stands, and never ohms times seconds; "nmi" is the nautical mile, and the prefixes before a '/' are the
// units of that symbol.
TEST(Parsing, Reads_compound_units_as_they_are_printed) {
    std::mt19937 random(5); // the same in every run
    int read_back = 0;
    int otherwise = 0;
    constexpr int count = 20000;
    for (int k = 0; k < count; ++k) {
        Units const unit = Random_compound(random);
        std::string const text = Printed(unit)[random() % 2];
        Parse_result<Units> const result = Try_parse_unit(text);
        if (result && *result == unit) {
            ++read_back;
        } else if (result) {
            std::vector<std::string> const texts = Printed(*result);
            bool const printed_alike = std::count(texts.begin(), texts.end(), text) != 0;
            EXPECT_TRUE(printed_alike || Has_other_word(text) || Is_read_by_rule(unit, *result))
                << text << " is " << Written(unit) << " and not " << Written(*result);
            ++otherwise;
        }
    }
    EXPECT_GT(read_back, count * 2 / 3);
    EXPECT_LT(otherwise, count / 5);
}

TEST(Parsing, Reads_compound_units_as_they_are_written) {
    std::mt19937 random(6);
    for (int k = 0; k < 20000; ++k) {
        Units const unit = Random_compound(random);
        std::string const text = Format_unit(unit, random() % 2 == 0 ? STR_SYMBOL : STR_NAME);
        EXPECT_EQ(Outcome(Try_parse_unit(text)), Written(unit)) << text;
    }
}

// Every power of ten that a descriptor holds is read from its text, before a product and raised.
TEST(Parsing, Holds_every_power_of_ten) {
    for (int scale = -45; scale <= 45; ++scale) {
        std::string const text = "(10^" + std::to_string(scale) + " m^2/s)";
        bool const binary = scale > 0 && scale % 10 == 0;
        bool const held = scale >= -40 && scale <= 40 && scale != 0 && !binary;
        auto const unit = Try_parse_unit(text);
        ASSERT_EQ(static_cast<bool>(unit), held) << text;
        if (held) {
            EXPECT_EQ(Written(*unit), Written(Unit({{METER, 2}, {SECOND, -1}}, static_cast<SI_units>(scale))));
        }
    }
}

TEST(Parsing, Keeps_every_bit_of_numbers_and_bounds) {
    std::mt19937_64 random(5);
    for (int k = 0; k < 20000; ++k) {
        double numbers[3];
        for (double& number : numbers) {
            do {
                std::uint64_t const bits = random();
                std::memcpy(&number, &bits, sizeof number);
            } while (!std::isfinite(number));
        }
        auto const [lower, upper] = std::minmax(numbers[1], numbers[2]);
        std::string const text = Written(numbers[0]) + " V [" + Written(lower) + ", " + Written(upper) + ']';
        EXPECT_TRUE(Is(Parse_quantity(text), numbers[0], lower, upper, C_Volts)) << text;
        EXPECT_TRUE(Same_bits(Parse_number(Written(numbers[0])), numbers[0]));
    }
}

// ---- Forms of numbers, and failures

TEST(Parsing, Reads_other_numbers_on_request) {
    Number_forms const all = {true, true};
    EXPECT_EQ(Parse_number(" 0x1.8p3 ", all), 12.0);
    EXPECT_EQ(Parse_number("-0Xff", all), -255.0);
    EXPECT_EQ(Parse_number("+Infinity", all), HUGE_VAL);
    EXPECT_TRUE(std::isnan(Parse_number("nan", all)));
    EXPECT_TRUE(Is(Parse_quantity("1 [-inf, inf] V", all), 1.0, -HUGE_VAL, HUGE_VAL, C_Volts));
    EXPECT_TRUE(Is(Parse_quantity("1 ± inf V", all), 1.0, -HUGE_VAL, HUGE_VAL, C_Volts));
    for (char const* const text : {"0x", "0x-1", "0xnan", "0xinf", "--1", "+-1", "-", ".", "e5", "", " ", "0x1.8p3p", "in"}) {
        EXPECT_FALSE(Try_parse_number(text, all)) << text;
    }
    for (char const* const text : {"0x1", "inf", "nan", "-Inf", "1e309", "1e-400", "1 V", "1.5.2", "1e5e5"}) {
        EXPECT_FALSE(Try_parse_number(text)) << text;
    }
}

std::string Parts_of(Decimal_text const& number) {
    std::string const scale = number.power_of_ten == 0 ? "" : "*10^" + std::to_string(number.power_of_ten);
    return (number.negative ? "-" : "") + std::string(number.digits) + scale + "=" + Written(number.nearest);
}

TEST(Parsing, Splits_quantities) {
    struct Row {
        char const* text;
        Quantity_form form;
        char const* numbers;
        char const* unit;
        std::size_t bounds_position;
        std::size_t unit_position;
    };
    Row const rows[] = {
        {" −5.0 pinch ", Quantity_form::value_alone, "-5.0=-5", "pinch", 0, 8}, // no unit is read
        {"5.0 ± 0.10 V", Quantity_form::deviation, "5.0=5 0.10=0.1 0.10=0.1", "V", 4, 12},
        {"(+5 +- 1e-1)", Quantity_form::deviation, "5=5 1e-1=0.1 1e-1=0.1", "", 4, 0},
        {"5 +0.2/-0.1 Δ°C", Quantity_form::deviations, "5=5 0.1=0.1 0.2=0.2", "Δ°C", 2, 12},
        {"5 V\u202F[-4.90, 5]", Quantity_form::bounds, "5=5 -4.90=-4.9 5=5", "V", 6, 2},
        {"-5.00(30)E+2V", Quantity_form::last_digits, "-5.00*10^2=-500 30=30 30=30", "V", 5, 12},
        {"5.(3)", Quantity_form::last_digits, "5.=5 3=3 3=3", "", 2, 0},
        {"0.50(3)", Quantity_form::last_digits, "0.50=0.5 3*10^-2=0.03 3*10^-2=0.03", "", 4, 0},
    };
    for (Row const& row : rows) {
        auto const parts = Try_split_quantity(row.text);
        ASSERT_TRUE(parts) << row.text;
        EXPECT_EQ(parts->form, row.form) << row.text;
        bool const alone = row.form == Quantity_form::value_alone;
        EXPECT_EQ(Parts_of(parts->value) + (alone ? "" : ' ' + Parts_of(parts->lower) + ' ' + Parts_of(parts->upper)), row.numbers);
        EXPECT_EQ(parts->unit, row.unit) << row.text;
        EXPECT_EQ(parts->bounds_position, row.bounds_position) << row.text;
        EXPECT_EQ(parts->unit_position, row.unit_position) << row.text;
    }
    EXPECT_EQ(Try_split_quantity("5 ± inf V", {false, true})->upper.digits, "inf");
    EXPECT_EQ(Try_split_quantity("5 ± 2 percent V").Get_fault().position, 7U);
    EXPECT_FALSE(Try_split_quantity(std::string(Longest_text + 1, '5')));
}

TEST(Parsing, Throws_what_it_would_return) {
    try {
        (void)Parse_unit("m/pinch");
        FAIL() << "nothing was thrown";
    } catch (OperationNotValid const& failure) {
        EXPECT_STREQ(failure.what(), "Value exception: Operation is not valid: Text is not valid: at position 2: the prefix 'p' goes with symbols, "
                                     "and 'inch' is a name; did you mean 'picoinch'?");
    }
    TextNotValid first(Try_parse_unit("m*/").Get_fault());
    first = TextNotValid(Try_parse_unit("m/").Get_fault());
    EXPECT_EQ(first.Get_fault().position, 2U);
    TextNotValid const copy(first);
    EXPECT_EQ(copy.Get_fault().position, 2U);
    EXPECT_EQ(Try_parse_unit(std::string(Longest_text + 1, 'm')).Get_fault().position, Longest_text);
    EXPECT_FALSE(Try_parse_unit(std::string(Longest_text + 1, 'M'), Dialect::scpi));
    EXPECT_THROW((void)*Try_parse_number("x"), TextNotValid);
    EXPECT_THROW((void)Try_parse_number("1").Get_fault(), std::bad_variant_access);
}

// ---- The dialect of instruments

TEST(Scpi, Reads_suffixes_in_any_case) {
    struct Row {
        char const* text;
        char const* unit;
    };
    Row const rows[] = {
        {"DBM", "C_DBmW"},
        {"dbm", "C_DBmW"},
        {"DB", "C_DB"},
        {"DBW", "C_DBW"},
        {"DBUV", "micro:dB:volts"},
        {"DBMV", "milli:dB:volts"},
        {"DBM/HZ", "milli:dB:watts,seconds"},
        {"DBUV/M", "micro:dB:volts,meters^-1"},
        {"MV", "C_MilliVolts"},
        {"MAV", "mega:volts"},
        {"MW", "C_MilliWatts"}, // as the library prints milliwatts
        {"MA", "C_MilliAmps"},
        {"MAA", "mega:amps"},
        {"MOHM", "C_MegaOhms"}, // M is mega before these two
        {"MAOHM", "C_MegaOhms"},
        {"KOHM", "C_KiloOhms"},
        {"MHZ", "C_MHz"},
        {"MAHZ", "C_MHz"},
        {"KHZ", "C_KHz"},
        {"Ghz", "C_GHz"},
        {"EXHZ", "exa:seconds^-1"},
        {"FS", "10^-15:seconds"},
        {"AS", "10^-18:seconds"},
        {"NS", "C_NanoSecond"},
        {"MS", "C_MilliSecond"},
        {"MIN", "C_Min"},
        {"HR", "C_Hrs"},
        {"MM", "C_MilliMeter"},
        {"M", "C_Meter"},
        {"KM", "C_KMeter"},
        {"CEL", "C_DgreeC"},
        {"FAR", "C_DgreeF"},
        {"K", "C_Kelvin"},
        {"PCT", "C_Percent"},
        {"PPM", "C_PPM"},
        {"DEG", "C_Degree"},
        {"KG", "kilo:grams"},
        {"M/S2", "C_MeterPerSecondSquared"},
        {"M.S-2", "C_MeterPerSecondSquared"},
        {"M/S/S", "C_MeterPerSecondSquared"},
        {"V^2/OHM", "C_Volt2PerOhms"},
        {"CM2", "10^-4:meters^2"}, // a power belongs to the multiplied suffix
        {" 1/S ", "C_Hz"},
        {"KMPH", "C_Kmph"},
        {"NAMI", "C_Nautical_mile"},
        {"TNE", "mega:grams"},
        {"KM/HR", "C_Kmph"},
        {"MABIT/S", "mega:bits,seconds^-1"},
        {"KBYTE", "C_KiloBytes"},
        {"", "C_Empty"},
        // Beyond the core.
        {"KN", "kilo:newtons"},
        {"UH", "micro:henries"},
        {"MT", "milli:teslas"},
        {"MBAR", "milli:bars"},
        {"MAPAL", "mega:pascals"},
        {"MSIE", "milli:siemens"},
        {"V/M.T", "volts,meters^-1,teslas"},
        {"CD", "candelas"},
        {"MNT", "arcminutes"},
        {"SEC", "arcseconds"},
        {"ML/MIN", "milli:minutes^-1,liters"},
        {"KEV", "kilo:electronvolts"},
    };
    for (Row const& row : rows) {
        auto const unit = Try_parse_unit(row.text, Dialect::scpi);
        EXPECT_EQ(Outcome(unit), row.unit) << row.text;
        auto const quantity = Try_parse_quantity("+1.50E+00" + std::string(row.text), {}, Dialect::scpi);
        EXPECT_TRUE(quantity ? Is(*quantity, 1.5, 1.5, 1.5, *unit) : Is_beyond_core(*unit)) << row.text;
    }
    for (char const* const text :
         {"Q", "DBC", "DBM/S", "KKTS", "KMMPH", "Ω", "M/", "M..S", "M^", "M-", "M0", "M2147483649", "V 5", "B", "(M)", "DB M"}) {
        EXPECT_FALSE(Try_parse_unit(text, Dialect::scpi)) << text;
    }
    EXPECT_EQ(Parse_unit("km", Dialect::standard), Parse_unit("KM", Dialect::scpi));
    EXPECT_THROW((void)Parse_quantity("5 KHX", {}, Dialect::scpi), TextNotValid);
}

// What most people write for other units than IEEE 488.2 is refused, whatever else the letters could be.
TEST(Scpi, Refuses_what_other_letters_would_make_of_it) {
    struct Row {
        char const* text;
        char const* message;
    };
    Row const rows[] = {
        {"C", "'C' is not read here: coulomb (degrees Celsius are CEL); write A.S"},
        {"F", "'F' is not read here: farad (degrees Fahrenheit are FAR); write S/OHM"},
        {"NF", "'NF' is not read here: farad (degrees Fahrenheit are FAR); write NS/OHM"},
        {"AH", "'AH' is not read here: attohenry (ampere hours are A.HR); write A.HR"},
        {"mah", "'mah' is not read here: attohenry (ampere hours are A.HR); write mA.HR"},
        {"MBIT/S", "'MBIT' would be a fraction of a bit; write MABIT for mega"},
        {"MBYTE", "'MBYTE' would be a fraction of a bit; write MABYTE for mega"},
        {"DBS", "levels have no plural; write DB"},
        {"DBMS", "levels have no plural; write DBM"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Outcome(Try_parse_unit(row.text, Dialect::scpi)), "refused: " + std::string(row.message));
    }
}

// Not so: those of data, which share their letters with others; hours and degrees, whose H, C and F are
// henry, coulomb and farad; a prefix alone before a '/'; units run together; and "MOHM", which is a
// megaohm to instruments.
TEST(Scpi, Reads_upper_case_texts_back) {
    std::string others;
    for (Named_unit const& named : Named_units()) {
        std::string const text = Units_library::Get_unit_string(named.unit, STR_UPPER_CASE);
        auto const unit = Try_parse_unit(text, Dialect::scpi);
        bool const data = Units_library::Get_dimension(named.unit.tuples[0].unit) == DATA_SIZE;
        if (!data && (!unit || !(*unit == named.unit))) {
            others += std::string(others.empty() ? "" : " ") + named.constant;
        }
    }
    EXPECT_EQ(others, "C_Hrs C_THz C_DgreeC C_DgreeF C_MilliOhms C_VoltAmps C_Amps2Ohms");
}

TEST(Scpi, Tells_numbers_that_are_none) {
    EXPECT_EQ(Scpi_meaning(Parse_number("+9.91E37")), Scpi_number::not_a_number);
    EXPECT_EQ(Scpi_meaning(Parse_number("9.90000E+37")), Scpi_number::infinity);
    EXPECT_EQ(Scpi_meaning(Parse_number("-9.9E37")), Scpi_number::negative_infinity);
    for (double const number : {0.0, -9.91e37, 9.92e37, 1e300, HUGE_VAL}) {
        EXPECT_EQ(Scpi_meaning(number), Scpi_number::ordinary) << number;
    }
}

// ---- Hostile texts

std::string Repeated(std::string const& part, std::size_t count) {
    std::string text;
    for (std::size_t k = 0; k < count; ++k) {
        text += part;
    }
    return text;
}

// Every text is refused, in a time that grows with its length and not with its square, which would be
// seconds.
TEST(Parsing, Refuses_hostile_texts_in_linear_time) {
    for (std::string const part :
         {"(",    "m(",    "1/(", "k(", "m*", "m/", "mKs", "kV^2A", "gm", "m /", "[",      "m^9", "^",      "²",  "dB",      "\xC2",   "\xFF",
          "n.mi", "milli", "9",   "-",  "/ ", "+",  "5 ",  "e",     "[",  "[a",  "[ft_i]", "dB[", "meter_", "k/", "square ", "m per ", "squared "}) {
        std::clock_t const start = std::clock();
        for (std::size_t const size : {std::size_t{1000}, Longest_text - 6, std::size_t{1000000}}) {
            std::string const text = Repeated(part, size / part.size());
            EXPECT_FALSE(Try_parse_unit(text)) << part;
            EXPECT_FALSE(Try_parse_unit("m/" + text)) << part;
            EXPECT_FALSE(Try_parse_quantity("5 (" + text)) << part;
            EXPECT_FALSE(Try_parse_quantity("5 [1," + text)) << part;
        }
        EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC) << part;
    }
}

TEST(Parsing, Survives_any_bytes) {
    std::mt19937 random(5);
    static constexpr char characters[] = "mkdBVAs/*.^()[],+-0123 \xC2\xB1\xB5\0n\xE2\x81\xBB";
    std::string const alphabet(characters, sizeof characters - 1);
    for (int k = 0; k < 200000; ++k) {
        std::string text(random() % 16, ' ');
        std::generate(text.begin(), text.end(), [&] { return alphabet[random() % alphabet.size()]; });
        auto const result = Try_parse_quantity(text);
        EXPECT_TRUE(result || (result.Get_fault().position <= text.size() && !result.Get_fault().message.empty())) << text;
    }
}

// ---- Kinds

TEST(Kinds, Tell_quantities_apart) {
    struct Row {
        Units first;
        Units second;
        bool same;
        char const* names; // of the first and of the second
    };
    Row const rows[] = {
        {C_Watts, C_VoltAmps, true, "power power"},
        {C_Volt2PerOhms, C_DBmW, true, "power power"},
        {C_Amps2Ohms, C_MegaWatts, true, "power power"},
        {C_Ohms, Unit({{VOLT, 1}, {AMP, -1}}), true, "resistance resistance"},
        {C_DgreeC, C_DgreeF, true, "temperature temperature"},
        {C_Empty, C_DB, true, "plain number plain ratio"},
        {C_Radian, C_Degree, true, "angle angle"},
        {C_Percent, C_PPM, true, "ratio ratio"},
        {C_Percent, C_Degree, true, "ratio angle"},
        {C_Meter, Unit({{METER, 1}, {SECOND, 0}}), true, "length length"},
        {C_Meter, C_MeterPerSecond, false, "length length/time"},
        {C_Volts, C_Watts, false, "voltage power"},
        {C_Hz, C_Sec, false, "1/time time"},
        {C_RadianPerSec, C_Hz, false, "angle/time 1/time"},
        {C_Percent, C_Empty, false, "ratio plain number"},
        {C_Bytes, C_Grams, false, "data size mass"},
        {Unit({{WATT, 1}, {METER, -2}, {KELVIN, -1}}), Unit({{AMP, 2}, {SECOND, 1}}), false, "power/(length^2*temperature) current^2*time"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Same_kind(row.first, row.second), row.same) << row.names;
        EXPECT_EQ(Same_kind(row.second, row.first), row.same) << row.names;
        EXPECT_EQ(Kind_name(row.first) + ' ' + Kind_name(row.second), row.names);
    }
    EXPECT_THROW((void)Same_kind(C_Meter, Unit({{unknown_unit, 1}})), UnitNotDefined);
}

TEST(Kinds, Know_every_unit) {
    EXPECT_EQ(Named_units().size(), std::size(named_constants));
    for (std::size_t k = 0; k < std::size(named_constants); ++k) {
        EXPECT_EQ(Named_units()[k].unit, *named_constants[k].unit);
        EXPECT_STREQ(Named_units()[k].constant, named_constants[k].name);
    }
    EXPECT_EQ(Catalogue_units().size(), static_cast<std::size_t>(Value_detail::Unit_code_limit - 1));
    EXPECT_EQ(Prefixes().size(), 22U);
}

} // namespace
} // namespace Varnix::Value::Tests
