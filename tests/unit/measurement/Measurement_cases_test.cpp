// Runs the cases of cases/measurements.txt: each line is an operation on measurements as text, and its result
// as text, or the reason why it is refused.

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

using Operands = std::vector<Measurement>;

std::string Text(Order order) {
    return std::vector<std::string>{"less", "equal", "greater", "undecided"}[static_cast<std::size_t>(order)];
}

std::string Text(Verdict verdict) {
    return std::vector<std::string>{"pass", "fail", "undecided"}[static_cast<std::size_t>(verdict)];
}

std::string Text(bool answer) {
    return answer ? "true" : "false";
}

std::string Text(Measurement const& x) {
    return Format(x);
}

std::vector<std::string> Split(std::string const& text, std::string const& separator) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + separator.size()) {
        end = text.find(separator, start);
        parts.push_back(text.substr(start, end - start));
    }
    return parts;
}

// A function of the library by its name, for operands in their order.
std::string Called(std::string const& name, Operands const& x) {
    static std::map<std::string, std::string (*)(Operands const&)> const functions = {
        {"Abs", [](Operands const& o) { return Text(Abs(o[0])); }},
        {"Amplify", [](Operands const& o) { return Text(Amplify(o[0], o[1])); }},
        {"Cascade_noise",
         [](Operands const& o) {
             std::vector<Noise_stage> stages;
             for (std::size_t k = 0; k + 1 < o.size(); k += 2) {
                 stages.push_back({o[k], o[k + 1]});
             }
             return Text(Cascade_noise(stages.data(), stages.size()));
         }},
        {"Certainly_equal", [](Operands const& o) { return Text(Certainly_equal(o[0], o[1])); }},
        {"Certainly_less", [](Operands const& o) { return Text(Certainly_less(o[0], o[1])); }},
        {"Check_limits", [](Operands const& o) { return Text(Check_limits(o[0], o[1], o[2])); }},
        {"Compare", [](Operands const& o) { return Text(Compare(o[0], o[1])); }},
        {"Density", [](Operands const& o) { return Text(Density(o[0], o[1])); }},
        {"Field_ratio", [](Operands const& o) { return Text(Field_ratio(o[0])); }},
        {"Displayed", [](Operands const& o) { return Text(Measurement::From(o[0].To_value_object(Levels::as_displayed), Levels::as_displayed)); }},
        {"From", [](Operands const& o) { return Text(Measurement::From(o[0].To_value_object())); }},
        {"Gain_of_fields", [](Operands const& o) { return Text(Gain_of_fields(o[0])); }},
        {"Gain_of_powers", [](Operands const& o) { return Text(Gain_of_powers(o[0])); }},
        {"Hull", [](Operands const& o) { return Text(Hull(o[0], o[1])); }},
        {"Intersection", [](Operands const& o) { return Text(Intersection(o[0], o[1])); }},
        {"Mismatch_gain", [](Operands const& o) { return Text(Mismatch_gain(o[0], o[1])); }},
        {"Mismatch_loss", [](Operands const& o) { return Text(Mismatch_loss(o[0])); }},
        {"Negative", [](Operands const& o) { return Text(-o[0]); }},
        {"Point", [](Operands const& o) { return Text(o[0].As_point()); }},
        {"Possibly_equal", [](Operands const& o) { return Text(Possibly_equal(o[0], o[1])); }},
        {"Possibly_less", [](Operands const& o) { return Text(Possibly_less(o[0], o[1])); }},
        {"Pow", [](Operands const& o) { return Text(Pow(o[0], static_cast<int>(o[1].Get_value()))); }},
        {"Power_difference", [](Operands const& o) { return Text(Power_difference(o[0], o[1])); }},
        {"Power_mean", [](Operands const& o) { return Text(Power_mean(o.data(), o.size())); }},
        {"Power_ratio", [](Operands const& o) { return Text(Power_ratio(o[0])); }},
        {"Power_sum", [](Operands const& o) { return Text(Power_sum(o.data(), o.size())); }},
        {"Read", [](Operands const& o) { return Text(o[0]); }},
        {"Reflection_of_return_loss", [](Operands const& o) { return Text(Reflection_of_return_loss(o[0])); }},
        {"Reflection_of_vswr", [](Operands const& o) { return Text(Reflection_of_vswr(o[0])); }},
        {"Return_loss", [](Operands const& o) { return Text(Return_loss(o[0])); }},
        {"Simplified", [](Operands const& o) { return Text(Simplified(o[0])); }},
        {"Sqrt", [](Operands const& o) { return Text(Sqrt(o[0])); }},
        {"Thermal_noise", [](Operands const& o) { return Text(Thermal_noise(o[0], o[1])); }},
        {"Total_power", [](Operands const& o) { return Text(Total_power(o[0], o[1])); }},
        {"Vswr", [](Operands const& o) { return Text(Vswr(o[0])); }},
    };
    return functions.at(name)(x);
}

std::string Converted(std::string const& operation) {
    std::vector<std::string> const parts = Split(operation, " to ");
    std::vector<std::string> const operands = Split(parts[0], " with ");
    Units const target = Parse_unit(parts[1]);
    Measurement const x = Parse_measurement(operands[0]);
    return Text(operands.size() > 1 ? x.Convert_to(target, Parse_measurement(operands[1])) : x.Convert_to(target));
}

std::string Calculated(std::string const& operation, std::size_t place) {
    Measurement const x = Parse_measurement(operation.substr(0, place));
    Measurement const y = Parse_measurement(operation.substr(place + 3));
    switch (operation[place + 1]) {
    case '+':
        return Text(x + y);
    case '-':
        return Text(x - y);
    case '*':
        return Text(x * y);
    default:
        return Text(x / y);
    }
}

std::string Result_of(std::string const& operation) {
    if (operation.find(" to ") != std::string::npos) {
        return Converted(operation);
    }
    for (char const* const sign : {" + ", " - ", " * ", " / "}) {
        std::size_t const place = operation.find(sign);
        if (place != std::string::npos) {
            return Calculated(operation, place);
        }
    }
    std::size_t const blank = operation.find(' ');
    Operands operands;
    for (std::string const& operand : Split(operation.substr(blank + 1), " | ")) {
        operands.push_back(Parse_measurement(operand));
    }
    return Called(operation.substr(0, blank), operands);
}

TEST(Measurements, Have_the_results_written_down) {
    std::ifstream file(VALUE_OBJECT_TEST_CASES "/measurements.txt");
    int rows = 0;
    for (std::string row; std::getline(file, row);) {
        if (row.empty() || row[0] == '#') {
            continue;
        }
        ++rows;
        std::size_t const equals = row.rfind(" = ");
        std::size_t const mark = row.rfind(" ! ");
        bool const refused = equals == std::string::npos;
        std::string const operation = row.substr(0, refused ? mark : equals);
        std::string result;
        try {
            result = " = " + Result_of(operation);
        } catch (MeasurementRefused const& refusal) {
            result = std::string(" ! ") + Reason_name(refusal.Get_reason());
        } catch (std::exception const& failure) {
            result = std::string(" threw ") + failure.what();
        }
        EXPECT_EQ(operation + result, row);
    }
    EXPECT_GT(rows, 200);
}

// ---- The ways out of refusals

using Named_way_out = std::pair<std::string, Way_out>; // and for which reason

// The reason and the way out of what is refused.
template <typename Operation>
Named_way_out Refused(Operation const& operation) {
    try {
        (void)operation();
    } catch (MeasurementRefused const& refusal) {
        std::string const message = refusal.what();
        std::string const worded = refusal.Worded(Way_out_words(refusal.Get_way_out()));
        EXPECT_EQ(message.substr(message.find("cannot")), worded);
        EXPECT_EQ(worded.find(refusal.Get_operation() + ": " + Reason_words(refusal.Get_reason())), 0U);
        return {Reason_name(refusal.Get_reason()), refusal.Get_way_out()};
    }
    return {"", Way_out::none};
}

// Follows each line of the file: what is refused, why, the way out in words, and the steps that it leads to.
std::set<Named_way_out> Followed_ways_out() {
    std::ifstream file(VALUE_OBJECT_TEST_CASES "/ways_out.txt");
    std::set<Named_way_out> followed;
    for (std::string row; std::getline(file, row);) {
        if (row.empty() || row[0] == '#') {
            continue;
        }
        std::vector<std::string> const parts = Split(row, " ! ");
        Named_way_out const refused = Refused([&] { return Result_of(parts.at(0)); });
        EXPECT_EQ(refused.first + " ! " + Way_out_words(refused.second), parts.at(1) + " ! " + parts.at(2)) << row;
        for (std::string const& step : Split(parts.at(3), " then ")) {
            std::size_t const equals = step.rfind(" = ");
            EXPECT_EQ(Refused([&] { EXPECT_EQ(Result_of(step.substr(0, equals)), step.substr(equals + 3)) << row; }).first, "") << row;
        }
        followed.insert(refused);
    }
    return followed;
}

// What is refused of quantities of every form, two at a time, in whichever operation.
std::set<Named_way_out> Refused_ways_out() {
    Operands operands;
    for (char const* const text : {"5 V",  "5 A",      "5 W",         "5 ohm",  "5 V^2", "5 m",   "5 rad",   "5 sym", "5 month", "5 s",    "5",
                                   "3 %",  "20 °C",    "68 °F",       "300 K",  "5 ΔK",  "5 Δ°C", "5 Δm°C",  "5 mK",  "10 dBm",  "10 dBV", "20 dBK",
                                   "3 dB", "90 dB-Hz", "-174 dBm/Hz", "5 dB/K", "5 Hz",  "-5 W",  "2 rad/s", "5 W/K", "3 dBsm"}) {
        operands.push_back(Parse_measurement(text));
    }
    std::set<Named_way_out> seen;
    for (Measurement const& x : operands) {
        for (char const* const function :
             {"Abs", "Field_ratio", "From", "Gain_of_powers", "Negative", "Point", "Reflection_of_return_loss", "Sqrt", "Vswr"}) {
            seen.insert(Refused([&] { return Called(function, {x}); }));
        }
        for (Measurement const& y : operands) {
            seen.insert(Refused([&] { return x + y; }));
            seen.insert(Refused([&] { return x - y; }));
            seen.insert(Refused([&] { return x * y; }));
            seen.insert(Refused([&] { return x / y; }));
            seen.insert(Refused([&] { return x.Convert_to(y.Get_unit()); }));
            seen.insert(Refused([&] { return Measurement_converter(x.Get_unit(), y.Get_unit()); }));
            for (char const* const function : {"Amplify", "Cascade_noise", "Compare", "Density", "Hull", "Intersection", "Mismatch_gain",
                                               "Power_difference", "Power_sum", "Thermal_noise", "Total_power"}) {
                seen.insert(Refused([&] { return Called(function, {x, y}); }));
            }
        }
    }
    return seen;
}

TEST(Refusals, Name_ways_out_that_lead_there) {
    std::set<Named_way_out> const followed = Followed_ways_out();
    std::set<Way_out> ways_out;
    for (Named_way_out const& way_out : followed) {
        ways_out.insert(way_out.second);
    }
    for (int k = 1; Way_out_words(static_cast<Way_out>(k))[0] != '\0'; ++k) {
        EXPECT_EQ(ways_out.count(static_cast<Way_out>(k)), 1U) << Way_out_words(static_cast<Way_out>(k));
    }
    std::set<Named_way_out> const refused = Refused_ways_out();
    EXPECT_GT(refused.size(), 25U);
    for (Named_way_out const& way_out : refused) {
        EXPECT_TRUE(way_out.second == Way_out::none || followed.count(way_out) == 1) << way_out.first << ": " << Way_out_words(way_out.second);
    }
}

} // namespace
} // namespace Varnix::Value::Tests
