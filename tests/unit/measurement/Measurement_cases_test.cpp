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
#include <string>
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

} // namespace
} // namespace Varnix::Value::Tests
