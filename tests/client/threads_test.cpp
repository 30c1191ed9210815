// Many threads from before main(), and locales: neither changes an answer.

#include "Answers.h"

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

struct German_numbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Locale, Changes_no_answer) {
    std::string const expected = Answers(20);
    std::locale::global(std::locale(std::locale::classic(), new German_numbers));
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "the build makes this locale, and LOCPATH leads there";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_TRUE(Answers(20) == expected);
    EXPECT_EQ(Units_library::Get_unit_string({SPL_NONE, NO_PREFIX, {{METER, 1234567}}}, STR_SYMBOL), "m^1234567");
}

} // namespace
} // namespace Varnix::Value::Tests
