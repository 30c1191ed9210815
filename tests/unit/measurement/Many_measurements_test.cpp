// What goes on from one measurement to the next: sums of powers, and a reader that knows the last unit.

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement_text.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// ---- Sums of powers

Power_accumulator Accumulated(std::vector<std::string> const& levels) {
    Power_accumulator powers;
    for (std::string const& level : levels) {
        powers.Add(Parse_measurement(level));
    }
    return powers;
}

TEST(Power_accumulator, Sums_whatever_the_order_and_the_distance) {
    struct Row {
        std::vector<std::string> levels;
        std::string sum;
    };
    // Beyond 1e5 dB the reference moves; the lesser power only counts by its sign then.
    std::string const twice = "400003.01029995666 dBm [400003.0102999566, 400003.0102999567]";
    std::vector<Row> const rows = {
        {{"400000 dBm", "0 dBm", "400000 dBm"}, twice},
        {{"0 dBm", "400000 dBm", "400000 dBm"}, twice},
        {{"0 dBm", "200000 dBm", "400000 dBm", "400000 dBm"}, twice},
        {{"-400000 dBm", "0 dBm", "0 dBm"}, "3.010299956639812 dBm [3.0102999566398116, 3.0102999566398125]"},
        {{"10 dBm [-inf, 10]", "10 dBm", "10 dBm"}, "14.771212547196624 dBm [13.01029995663981, 14.771212547196626]"},
        {{"10 dBm", "10 dBm [-inf, inf]"}, "13.010299956639813 dBm [10, inf]"},
        {{"10 dBm [-inf, 10]", "10 dBm [-inf, 10]"}, "13.010299956639813 dBm [-inf, 13.010299956639813]"},
    };
    for (Row const& row : rows) {
        Measurement const sum = Accumulated(row.levels).Sum();
        Measurement const expected = Parse_measurement(row.sum);
        EXPECT_NEAR(sum.Get_value(), expected.Get_value(), 1e-9) << row.levels[0] << " ...: " << sum;
        EXPECT_GE(sum.Get_lower(), expected.Get_lower()) << row.levels[0] << " ...: " << sum;
        EXPECT_LE(sum.Get_upper(), expected.Get_upper()) << row.levels[0] << " ...: " << sum;
        EXPECT_LE(sum.Get_lower(), sum.Get_value());
        EXPECT_LE(sum.Get_value(), sum.Get_upper());
    }
}

TEST(Power_accumulator, Keeps_what_is_exact_and_encloses_what_is_not) {
    Power_accumulator powers;
    for (int k = 0; k < 1000; ++k) {
        powers.Add(Measurement(k % 2 == 0 ? 10.0 : 20.0, C_DBmW));
    }
    EXPECT_EQ(powers.Get_count(), 1000U);
    // 500 times 10 mW and 500 times 100 mW: 55 W, and 55 mW in the mean.
    EXPECT_TRUE(Possibly_equal(powers.Sum(), Measurement(55.0, C_Watts).Convert_to(C_DBmW)));
    EXPECT_TRUE(Possibly_equal(powers.Mean(), Measurement(55.0, C_MilliWatts).Convert_to(C_DBmW)));
    EXPECT_LT(powers.Sum().Get_upper() - powers.Sum().Get_lower(), 2e-14);
    Power_accumulator ten;
    for (int k = 0; k < 10; ++k) {
        ten.Add(Measurement(0.0, C_DBmW));
    }
    EXPECT_EQ(Format(ten.Sum()), "10 dBm");
    EXPECT_EQ(Format(ten.Mean()), "0 dBm");
}

TEST(Power_accumulator, Is_as_it_was_after_a_refusal) {
    Power_accumulator powers;
    EXPECT_THROW(powers.Sum(), MeasurementRefused);
    EXPECT_THROW(powers.Mean(), MeasurementRefused);
    EXPECT_THROW(powers.Add(Measurement(3.0, C_Sec)), MeasurementRefused);
    powers.Add(Measurement(10.0, C_DBmW)); // which is the first
    EXPECT_THROW(powers.Add(Parse_measurement("10 dBV")), MeasurementRefused);
    EXPECT_THROW(powers.Add(Measurement(10.0, C_Watts)), MeasurementRefused);
    EXPECT_EQ(powers.Get_count(), 1U);
    EXPECT_EQ(Format(powers.Sum()), "10 dBm");
    Power_accumulator moved = std::move(powers);
    moved.Add(Parse_measurement("-20 dBW"));
    powers = std::move(moved);
    EXPECT_NEAR(powers.Mean().Get_value(), 10.0, 1e-12);
    EXPECT_EQ(powers.Sum().Get_unit(), C_DBmW);
    EXPECT_EQ(Accumulated({"10 dBm [5, inf]"}).Sum().Get_upper(), infinity);
}

// ---- Reading many

TEST(Measurement_reader, Reads_each_text_as_if_it_were_alone) {
    std::vector<std::string> const texts = {
        "5 m",      "5 m",      "5 km",       "5",         "5 pinch", "5 m",     "5 Δ°C",         "5 °C",         "5 Δ°C", "5 K",
        "5 ± 1 °C", "5 m ±",    "5 m [6, 7]", "5 m",       "5 mm",    "5 m",     "5 V [-inf, 6]", "5 °C",         "x",     "5 °C",
        "5.0(1) W", "10 dBohm", "10 dBm",     "5 +1/-2 W", "5W",      " 5  W  ", "5 W/m",         "5 W/m [4, 6]",
    };
    Measurement_reader reader(Dialect::standard, {true, true});
    for (std::string const& text : texts) {
        auto const many = reader.Read(text);
        auto const alone = Try_parse_measurement(text);
        ASSERT_EQ(bool(many), bool(alone)) << text;
        if (many) {
            EXPECT_TRUE(Is_same(*many, *alone)) << text;
            bool const has_bounds =
                text.find_first_of("[(") != std::string::npos || text.find("±") != std::string::npos || text.find("+1") != std::string::npos;
            EXPECT_EQ(reader.Has_bounds(), has_bounds) << text;
        } else {
            EXPECT_EQ(many.Get_fault().message, alone.Get_fault().message);
            EXPECT_EQ(many.Get_fault().position, alone.Get_fault().position);
        }
    }
}

TEST(Measurement_reader, Takes_a_dialect_and_forms) {
    Measurement_reader standard;
    EXPECT_FALSE(standard.Read("0x10 m"));
    EXPECT_FALSE(standard.Read("5 DBM"));
    EXPECT_EQ(Format(*standard.Read("5 V [-inf, 6]")), "5 V [-inf, 6]");
    Measurement_reader scpi(Dialect::scpi);
    EXPECT_EQ(Format(*scpi.Read("-30 DBM")), "-30 dBm");
    EXPECT_EQ(Format(*scpi.Read("5 MW")), "5 mW");
    EXPECT_FALSE(scpi.Read("5 Δ°C"));
    auto const refused = scpi.Read("5 ± 1 KFOO");
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.Get_fault().position, 7U); // in the text, not in the unit
}

} // namespace
} // namespace Varnix::Value::Tests
