// Many threads from before main(), and locales: neither changes an answer.

#include "Answers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <future>
#include <locale>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

std::vector<std::future<std::uint64_t>> Start_threads() {
    std::vector<std::future<std::uint64_t>> threads(8);
    std::generate(threads.begin(), threads.end(), [] { return std::async(std::launch::async, Answers, 93); });
    return threads;
}

std::vector<std::future<std::uint64_t>> threads_before_main = Start_threads();

TEST(Threads, Agree_from_before_main) {
    std::uint64_t const expected = Answers(93);
    for (auto& thread : threads_before_main) {
        EXPECT_EQ(thread.get(), expected);
    }
}

struct German_numbers : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Locale, Changes_no_answer) {
    std::uint64_t const expected = Answers(93);
    Units const big_power = {SPL_NONE, NO_PREFIX, {{METER, 1234567}}};
    std::locale const before = std::locale::global(std::locale(std::locale::classic(), new German_numbers));
    char const* const name = std::setlocale(LC_ALL, "de_DE.UTF-8");
    std::string const decimal_point = std::localeconv()->decimal_point;
    EXPECT_EQ(Answers(93), expected);
    EXPECT_EQ(Units_library::Get_unit_string(big_power, STR_SYMBOL), "m^1234567");
    std::setlocale(LC_ALL, "C");
    std::locale::global(before);
    ASSERT_NE(name, nullptr) << "the build makes this locale, and LOCPATH leads there";
    EXPECT_EQ(decimal_point, ",");
}

} // namespace
} // namespace Varnix::Value::Tests
