// Many threads from before main(), and locales: neither changes an answer.

#include "Answers.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <future>
#include <locale>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

std::vector<std::future<std::string>> Start_threads() {
    std::vector<std::future<std::string>> threads(8);
    std::generate(threads.begin(), threads.end(), [] { return std::async(std::launch::async, Answers, 20); });
    return threads;
}

std::vector<std::future<std::string>> threads_before_main = Start_threads();

TEST(Threads, Agree_from_before_main) {
    std::string const expected = Answers(20);
    for (auto& thread : threads_before_main) {
        EXPECT_TRUE(thread.get() == expected);
    }
}

// Measurements read, computed with, refused and printed.
std::string Measured_answers() {
    std::string answers;
    for (int k = 0; k < 200; ++k) {
        Measurement const level = Parse_measurement("-10.5 ± 0.5 dBm") + Measurement(k, C_DB);
        answers += Format(level.Convert_to(C_Volts, Parse_measurement("50.0 ± 2.5 ohm")), Read_text_format("bpk")) + '\n';
        answers += Format(Power_sum({level, level})) + Try_parse_measurement("5,1 V").Get_fault().message + '\n';
        try {
            answers += Format(level + level);
        } catch (MeasurementRefused const& refused) {
            answers += refused.what();
        }
    }
    return answers;
}

TEST(Threads, Agree_on_measurements) {
    std::vector<std::future<std::string>> threads(8);
    std::generate(threads.begin(), threads.end(), [] { return std::async(std::launch::async, Measured_answers); });
    std::string const expected = Measured_answers();
    for (auto& thread : threads) {
        EXPECT_TRUE(thread.get() == expected);
    }
}

struct German_numbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Locale, Changes_no_answer) {
    std::string const expected = Answers(20);
    std::string const measured = Measured_answers();
    std::locale::global(std::locale(std::locale::classic(), new German_numbers));
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the build makes this locale, and LOCPATH leads there";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_TRUE(Answers(20) == expected);
    EXPECT_EQ(Measured_answers(), measured);
    EXPECT_EQ(Units_library::Get_unit_string({SPL_NONE, NO_PREFIX, {{METER, 1234567}}}, STR_SYMBOL), "m^1234567");
}

} // namespace
} // namespace Varnix::Value::Tests
