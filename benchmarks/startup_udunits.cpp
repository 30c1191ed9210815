// A process that converts once, from load to end: UDUNITS-2, which reads its units from files. The
// end of the process cleans up.

#include <udunits2.h>

int main() {
    ut_set_error_message_handler(ut_ignore);
    ut_system* const system = ut_read_xml(nullptr);
    ut_unit* const feet = ut_parse(system, "ft", UT_UTF8);
    ut_unit* const metres = ut_parse(system, "m", UT_UTF8);
    cv_converter* const converter = ut_get_converter(feet, metres);
    double const lower = cv_convert_double(converter, 119.0);
    double const value = cv_convert_double(converter, 120.0);
    double const upper = cv_convert_double(converter, 121.0);
    return lower < value && value > 36.0 && upper > value ? 0 : 1;
}
