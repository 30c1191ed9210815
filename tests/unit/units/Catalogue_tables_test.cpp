// What cannot be seen from outside: the rows of the private tables. It is linked with the library's
// objects, and its copy of the catalogue is made from the same rows.

#include "conversion/Conversion_rules.h"
#include "units/Unit_tables.h"

#include <gtest/gtest.h>

namespace Varnix::Value {
namespace {

TEST(Tables, Have_every_row_once) {
    EXPECT_EQ(Unit_table.size(), Value_detail::Unit_code_limit - 1u);
    EXPECT_EQ(Si_prefix_table.size(), 22u);
    EXPECT_EQ(Units_spl_names_table.size(), 8u);
    EXPECT_EQ(Units_conv<double>::Unit_conv_vect.size(), 9u);
    EXPECT_EQ(Units_spl_conv<double>::Unit_spl_conv_vect.size(), 8u);
}

TEST(Tables, Rows_describe_their_keys) {
    for (auto const& [unit, row] : Unit_table) {
        EXPECT_EQ(row.unit_id, unit);
        EXPECT_EQ(row.spl_conv_unit, row.dimension == TEMPERATURE);
        EXPECT_EQ(row.dimension, Unit_table.at(row.base_unit).dimension);
    }
}

} // namespace
} // namespace Varnix::Value
