/*
 * The library for C as a program in C sees it: results, failures, whatever a struct may hold, texts
 * that do not fit, and memory. c_test prints what is wrong, and ends with 1 if anything is.
 */

#include <value_object.h>

#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int failures = 0;

#define CHECK(condition) ((condition) ? (void)0 : (void)(++failures, printf("line %d: %s\n", __LINE__, #condition)))

/* ---- Every allocation is counted, and can be made to fail; not beside a sanitizer, which has its own. */

static long allocations = 0;
static int memory_is_full = 0;

#ifdef COUNT_ALLOCATIONS
extern void* __libc_malloc(size_t size);

void* malloc(size_t size) {
    ++allocations;
    return memory_is_full ? NULL : __libc_malloc(size);
}
#endif

/* ---- Helpers */

static vo_unit Unit(char const* text) {
    vo_unit unit = {0, 0, {{0, 0}}};
    vo_fault fault;
    if (vo_unit_parse(text, &unit, &fault) != VO_OK) {
        printf("the unit %s: %s\n", text, fault.message);
        ++failures;
    }
    return unit;
}

static vo_measurement Read(char const* text) {
    vo_measurement read;
    vo_fault fault;
    memset(&read, 0, sizeof read);
    if (vo_measurement_parse(text, &read, &fault) != VO_OK) {
        printf("%s: %s\n", text, fault.message);
        ++failures;
    }
    return read;
}

static void Expect(char const* expected, char const* found) {
    if (strcmp(expected, found) != 0) {
        printf("expected: %s\n   found: %s\n", expected, found);
        ++failures;
    }
}

/* That a value is so near to a quantity as text that three digits say it. */
static void Expect_number(char const* expected, vo_measurement const* found) {
    vo_measurement const wanted = Read(expected);
    if (fabs(found->value - wanted.value) > 0.004 * fabs(wanted.value) || memcmp(&found->unit, &wanted.unit, sizeof wanted.unit) != 0) {
        char text[80];
        vo_measurement_format(found, "", text, sizeof text, NULL, NULL);
        Expect(expected, text);
    }
}

/* ---- Answers */

/* Operations on measurements and quantities: `second` is a unit for those of one operand; 's' is a simplified product. */
typedef struct operation {
    char const* first;
    char operator;
    char const* second;
    char const* by_measurements;
    char const* by_quantities;
} operation;

static operation const operations[] = {
    {"30 dBm [29, 31]", '>', "W", "1.00 W [0.79, 1.26]", "1.00 W [0.79, 1.26]"},
    {"-40 degC", '>', "K", "233.15 K", "233.14999999999998 K"},
    {"10 V [9.9, 10.1]", '*', "2 A [1.9, 2.1]", "20.0 W [18.8, 21.3]", "20.0 VA [18.8, 21.2]"},
    {"10 V [9.9, 10.1]", '-', "4 V [3.9, 4.1]", "6.00 V [5.80, 6.20]", "6 V"},
    {"10 dBm", '+', "10 dBm", "VO_REFUSED levels_do_not_add", "13.010299956639813 dBm"},
    {"60 ft/s", '*', "2 s", "120 ft", "120 ft"},
    {"60 mph", '*', "60 min", "60 mi", "777600000 mi"},
    {"6 m", '/', "0 s [-1, 1]", "VO_REFUSED division_by_zero", "VO_OUT_OF_RANGE "},
    {"5 m", '>', "s", "VO_REFUSED kinds_differ", "VO_UNIT_DIMENSION_NOT_SAME "},
    {"12 V [11, 13]", '/', "6 ohm [5, 7]", "2.00 A [1.57, 2.61]", "2.00 V/ohm [1.86, 2.20]"},
    {"7 dBm [6, 8]", 'a', "3 dB", "10.0 dBm [9.0, 11.0]", NULL},
    {"7 dBm [6, 8]", 'p', "7 dBm [6, 8]", "10.0 dBm [9.0, 11.1]", NULL},
    {"1013.25 hPa", '>', "inHg", "29.9212555797484754 inHg", "VO_TEXT_NOT_VALID "},
    {"30 psi [29, 31]", '>', "bar", "2.068 bar [1.999, 2.138]", "VO_TEXT_NOT_VALID "},
    {"2500 kg/h", '*', "3.5 h", "8750 kg", "8750000 g"},
    {"70 kg [69, 71]", 's', "9.81 m/s^2", "686.7 N [676.8, 696.6]", NULL},
    {"60 km", 's', "1 h^-1", "60 km/h", NULL},
    {"1 N", '+', "1 kg*m/s^2", "2 N", "VO_TEXT_NOT_VALID "},
    {"1 N", '>', "Pa", "VO_REFUSED kinds_differ", "VO_TEXT_NOT_VALID "},
    {"1 dBPa", '>', "Pa", "VO_REFUSED no_level_convention", "VO_TEXT_NOT_VALID "},
};

static void Describe(vo_status status, vo_fault const* fault, char* text, size_t size) {
    snprintf(text, size, "%s %s", vo_status_name((int)status), fault->reason);
}

/* Converts by an electrical relation: `with` is "50 ohm to W". */
static vo_status Convert_with(vo_measurement* x, char const* with, vo_fault* fault) {
    char text[40] = "";
    vo_measurement other;
    vo_unit target;
    char const* const to = strstr(with, " to ");
    memcpy(text, with, (size_t)(to - with));
    vo_status status = vo_measurement_parse(text, &other, fault);
    status = status == VO_OK ? vo_unit_parse(to + 4, &target, fault) : status;
    return status == VO_OK ? vo_measurement_convert_with(x, &target, &other, x, fault) : status;
}

static vo_status Measure(operation const* row, vo_measurement* x, vo_fault* fault) {
    vo_measurement y;
    vo_unit target;
    vo_status status = vo_measurement_parse(row->first, x, fault);
    if (status == VO_OK && row->operator== '>') {
        status = vo_unit_parse(row->second, &target, fault);
        return status == VO_OK ? vo_measurement_convert(x, &target, x, fault) : status;
    }
    if (status == VO_OK && row->operator== 'w') {
        return Convert_with(x, row->second, fault);
    }
    status = status == VO_OK ? vo_measurement_parse(row->second, &y, fault) : status;
    if (status != VO_OK) {
        return status;
    }
    switch (row->operator) {
    case '+':
        return vo_measurement_add(x, &y, x, fault);
    case '-':
        return vo_measurement_subtract(x, &y, x, fault);
    case '*':
        return vo_measurement_multiply(x, &y, x, fault);
    case 's':
        status = vo_measurement_multiply(x, &y, x, fault);
        return status == VO_OK ? vo_measurement_simplify(x, x, fault) : status;
    case '/':
        return vo_measurement_divide(x, &y, x, fault);
    case 'a':
        return vo_measurement_amplify(x, &y, x, fault);
    default:
        return vo_measurement_power_sum(x, &y, x, fault);
    }
}

static vo_status Compute(operation const* row, vo_quantity* x, vo_fault* fault) {
    vo_quantity y;
    vo_unit target;
    vo_status status = vo_quantity_parse(row->first, x, fault);
    if (status == VO_OK && row->operator== '>') {
        status = vo_unit_parse(row->second, &target, fault);
        return status == VO_OK ? vo_quantity_convert(x, &target, x, fault) : status;
    }
    status = status == VO_OK ? vo_quantity_parse(row->second, &y, fault) : status;
    if (status != VO_OK) {
        return status;
    }
    switch (row->operator) {
    case '+':
        return vo_quantity_add(x, &y, x, fault);
    case '-':
        return vo_quantity_subtract(x, &y, x, fault);
    case '*':
        return vo_quantity_multiply(x, &y, x, fault);
    default:
        return vo_quantity_divide(x, &y, x, fault);
    }
}

static void Check_answers(void) {
    for (size_t k = 0; k < sizeof operations / sizeof *operations; ++k) {
        operation const* const row = &operations[k];
        vo_measurement x;
        vo_quantity q;
        vo_fault fault;
        char text[200];
        vo_status status;
        memset(&fault, 0, sizeof fault);
        if (row->by_measurements != NULL) {
            status = Measure(row, &x, &fault);
            if (status == VO_OK) {
                status = vo_measurement_format(&x, "b", text, sizeof text, NULL, &fault);
            }
            if (status != VO_OK) {
                Describe(status, &fault, text, sizeof text);
            }
            Expect(row->by_measurements, text);
        }
        if (row->by_quantities != NULL) {
            memset(&fault, 0, sizeof fault);
            status = Compute(row, &q, &fault);
            if (status == VO_OK) {
                status = vo_quantity_format(&q, "b", text, sizeof text, NULL, &fault);
            }
            if (status != VO_OK) {
                Describe(status, &fault, text, sizeof text);
            }
            Expect(row->by_quantities, text);
        }
    }
}

static void Check_other_answers(void) {
    vo_measurement level = Read("70 dBuV [69, 71]");
    vo_measurement const load = Read("50 ± 2.5 ohm");
    vo_measurement const low = Read("-40 dBm");
    vo_measurement const high = Read("-30 dBm");
    vo_measurement const within = Read("-37 dBm");
    vo_measurement difference;
    vo_unit const target = Unit("dBm");
    vo_quantity first;
    vo_quantity second;
    vo_quantity power;
    vo_unit const watt = Unit("W");
    vo_unit product;
    vo_order order;
    vo_verdict verdict;
    char text[100];
    int same = -1;

    CHECK(vo_measurement_convert_with(&level, &target, &load, &level, NULL) == VO_OK);
    CHECK(vo_measurement_format(&level, ".4f", text, sizeof text, NULL, NULL) == VO_OK);
    Expect("-36.9897 dBm [-38.2016, -35.7669]", text);
    CHECK(vo_measurement_check_limits(&level, &low, &high, &verdict, NULL) == VO_OK && verdict == VO_PASS);
    CHECK(vo_measurement_check_limits(&low, &level, &high, &verdict, NULL) == VO_OK && verdict == VO_FAIL);
    CHECK(vo_measurement_check_limits(&level, &high, &low, &verdict, NULL) == VO_REFUSED);
    CHECK(vo_measurement_check_limits(&level, &within, &high, &verdict, NULL) == VO_OK && verdict == VO_VERDICT_UNDECIDED);
    CHECK(vo_measurement_compare(&low, &high, &order, NULL) == VO_OK && order == VO_LESS);
    CHECK(vo_measurement_compare(&high, &low, &order, NULL) == VO_OK && order == VO_GREATER);
    CHECK(vo_measurement_compare(&high, &high, &order, NULL) == VO_OK && order == VO_EQUAL);
    CHECK(vo_measurement_compare(&level, &level, &order, NULL) == VO_OK && order == VO_UNDECIDED);

    /* Differences of temperatures survive their struct, with the prefixes and signs of their own. */
    difference = Read("-500 delta_degC");
    CHECK(difference.difference == 1);
    CHECK(vo_measurement_format(&difference, "", text, sizeof text, NULL, NULL) == VO_OK);
    Expect("-500 Δ°C", text);
    difference = Read("5 ΔmK");
    CHECK(vo_measurement_add(&difference, &difference, &difference, NULL) == VO_OK);
    CHECK(vo_measurement_format(&difference, "", text, sizeof text, NULL, NULL) == VO_OK);
    Expect("10 ΔmK", text);

    difference = Read("5 Δm°F");
    CHECK(vo_measurement_add(&difference, &difference, &difference, NULL) == VO_OK);
    CHECK(vo_measurement_format(&difference, "", text, sizeof text, NULL, NULL) == VO_OK);
    Expect("10 Δm°F", text);
    difference = Read("100 ΔK");
    product = Unit("dBK");
    CHECK(vo_measurement_convert(&difference, &product, &difference, NULL) == VO_OK && difference.difference == 0);

    CHECK(vo_quantity_parse("10 V [9, 11]", &first, NULL) == VO_OK);
    CHECK(vo_quantity_parse("5 ohm", &second, NULL) == VO_OK);
    CHECK(vo_quantity_convert_with(&first, &watt, &second, &power, NULL) == VO_OK);
    CHECK(power.value == 20.0 && power.upper == 24.2);
    CHECK(vo_quantity_compare(&power, &power, &order, NULL) == VO_OK && order == VO_EQUAL);
    CHECK(vo_quantity_parse("5 km", &first, NULL) == VO_OK && vo_quantity_parse("6 m", &second, NULL) == VO_OK);
    CHECK(vo_quantity_compare(&first, &second, &order, NULL) == VO_OK && order == VO_GREATER);
    CHECK(vo_quantity_compare(&second, &first, &order, NULL) == VO_OK && order == VO_LESS);
    power.value = (double)NAN;
    CHECK(vo_quantity_compare(&power, &power, &order, NULL) == VO_OK && order == VO_UNDECIDED);

    CHECK(vo_unit_multiply(&watt, &watt, &product, NULL) == VO_OK);
    CHECK(vo_unit_divide(&product, &watt, &product, NULL) == VO_OK && memcmp(&product, &watt, sizeof watt) == 0);
    product = Unit("km");
    CHECK(vo_unit_multiply(&product, &product, &product, NULL) == VO_OK);
    CHECK(vo_unit_format(&product, text, sizeof text, NULL, NULL) == VO_OK);
    Expect("m^2", text);
    product = Unit("dB");
    CHECK(vo_unit_multiply(&watt, &product, &product, NULL) == VO_OPERATION_NOT_VALID);
    product = watt;
    product.prefix = INT32_MIN; /* what no text is read as is written all the same, and refused */
    product.factors[0].exponent = -1;
    CHECK(vo_unit_format(&product, text, sizeof text, NULL, NULL) == VO_OK && vo_unit_parse(text, &product, NULL) == VO_TEXT_NOT_VALID);
    CHECK(vo_unit_same_kind(&watt, &target, &same, NULL) == VO_OK && same == 1);
    CHECK(vo_unit_kind(&watt, text, sizeof text, NULL, NULL) == VO_OK);
    Expect("power", text);
    CHECK(vo_unit_parse_scpi("MAHZ", &product, NULL) == VO_OK);
    CHECK(vo_unit_format(&product, text, sizeof text, NULL, NULL) == VO_OK);
    Expect("MHz", text);
    CHECK(vo_version() == VALUE_OBJECT_VERSION_NUMBER);
}

/* ---- Units beyond the core's, which are for measurements */

typedef struct engineering_unit {
    char const* text;
    char const* kind;
    char const* like; /* a unit of the same kind */
    char const* unlike;
    char const* times_metre;
    char const* per_second;
} engineering_unit;

static engineering_unit const engineering_units[] = {
    {"hPa", "pressure", "inHg", "N", "Pa*m", "Pa/s"},           {"N", "force", "kg*m/s^2", "Pa", "N*m", "N/s"},
    {"N*m", "force*length", "J", "N", "N*m^2", "N*m/s"},        {"lb/gal", "mass/volume", "kg/l", "kg/l^2", "lb*m/gal", "lb/(gal*s)"},
    {"mrad/s", "angle/time", "rpm", "Hz", "radm/s", "rad/s^2"}, {"dBm", "power", "hp", "kWh", NULL, NULL},
};

static void Expect_unit(char const* expected, vo_unit const* unit) {
    char text[100];
    CHECK(vo_unit_format(unit, text, sizeof text, NULL, NULL) == VO_OK);
    Expect(expected, text);
}

static void Check_engineering_units(void) {
    vo_unit const metre = Unit("m");
    vo_unit const second = Unit("s");
    vo_unit twice = {0, 0, {{1005, 1}, {1006, 1}}}; /* pascal and bar */
    vo_unit const unknown = {0, 0, {{1005, 1}, {1999, 1}}};
    vo_unit hectopascal = Unit("hPa");
    vo_unit const inch_of_mercury = Unit("inHg");
    vo_quantity q;
    vo_converter* converter = NULL;
    double numbers[2] = {1013.25, 0.0};
    char text[100];
    int same;
    for (size_t k = 0; k < sizeof engineering_units / sizeof *engineering_units; ++k) {
        engineering_unit const* const row = &engineering_units[k];
        vo_unit const unit = Unit(row->text);
        vo_unit const like = Unit(row->like);
        vo_unit const unlike = Unit(row->unlike);
        vo_unit result;
        Expect_unit(row->text, &unit);
        CHECK(vo_unit_kind(&unit, text, sizeof text, NULL, NULL) == VO_OK);
        Expect(row->kind, text);
        CHECK(vo_unit_same_kind(&unit, &like, &same, NULL) == VO_OK && same == 1);
        CHECK(vo_unit_same_kind(&unlike, &unit, &same, NULL) == VO_OK && same == 0);
        if (row->times_metre != NULL) {
            CHECK(vo_unit_multiply(&unit, &metre, &result, NULL) == VO_OK);
            Expect_unit(row->times_metre, &result);
            CHECK(vo_unit_divide(&unit, &second, &result, NULL) == VO_OK);
            Expect_unit(row->per_second, &result);
        }
    }
    CHECK(vo_unit_format(&twice, text, sizeof text, NULL, NULL) == VO_UNIT_DIMENSION_NOT_PROPER);
    CHECK(vo_unit_kind(&unknown, text, sizeof text, NULL, NULL) == VO_UNIT_NOT_DEFINED);
    CHECK(vo_unit_multiply(&unknown, &metre, &twice, NULL) == VO_UNIT_NOT_DEFINED);
    hectopascal.prefix = INT32_MIN; /* is written, and not read */
    CHECK(vo_unit_format(&hectopascal, text, sizeof text, NULL, NULL) == VO_OK && vo_unit_parse(text, &twice, NULL) == VO_TEXT_NOT_VALID);

    hectopascal = Unit("hPa");
    CHECK(vo_quantity_make(1.0, 1.0, 1.0, &hectopascal, &q, NULL) == VO_UNIT_NOT_DEFINED);
    CHECK(vo_converter_create(&hectopascal, &inch_of_mercury, VO_QUANTITIES, &converter, NULL) == VO_UNIT_NOT_DEFINED && converter == NULL);
    CHECK(vo_converter_create(&hectopascal, &inch_of_mercury, VO_MEASUREMENTS, &converter, NULL) == VO_OK);
    CHECK(vo_converter_apply(converter, numbers, numbers, 2, NULL) == VO_OK && fabs(numbers[0] - 29.921255579748476) < 1e-14 && numbers[1] == 0.0);
    vo_converter_destroy(converter);
}

/* ---- Converters */

static void Check_converters(void) {
    vo_unit const celsius = Unit("degC");
    vo_unit const kelvin = Unit("K");
    vo_unit const second = Unit("s");
    double numbers[3] = {-40.0, 0.0, 37.0};
    vo_converter* converter = NULL;
    vo_converter* none = NULL;
    vo_fault fault;

    CHECK(vo_converter_create(&celsius, &kelvin, VO_MEASUREMENTS, &converter, NULL) == VO_OK);
    CHECK(vo_converter_apply(converter, numbers, numbers, 3, NULL) == VO_OK);
    CHECK(numbers[0] == 233.15 && numbers[1] == 273.15 && numbers[2] == 310.15);
    CHECK(vo_converter_apply(converter, NULL, NULL, 0, NULL) == VO_OK);
    CHECK(vo_converter_apply(converter, NULL, numbers, 1, NULL) == VO_INVALID_ARGUMENT);
    vo_converter_destroy(converter);
    CHECK(vo_converter_create(&kelvin, &celsius, VO_QUANTITIES, &converter, NULL) == VO_OK);
    CHECK(vo_converter_apply(converter, numbers, numbers, 3, NULL) == VO_OK && numbers[1] == 0.0);
    vo_converter_destroy(converter);
    vo_converter_destroy(NULL);
    CHECK(vo_converter_create(&celsius, &second, VO_MEASUREMENTS, &none, &fault) == VO_REFUSED && none == NULL);
    CHECK(vo_converter_create(&celsius, &second, VO_QUANTITIES, &none, &fault) == VO_UNIT_DIMENSION_NOT_SAME);
    CHECK(vo_converter_create(&celsius, &kelvin, 2, &none, &fault) == VO_INVALID_ARGUMENT && none == NULL);
}

/* ---- Failures */

typedef struct refusal {
    char const* text;
    vo_status status;
    unsigned position;
    char const* suggestion;
    char const* reason;
} refusal;

static refusal const refusals[] = {
    {"5 metr", VO_TEXT_NOT_VALID, 2, "meter", ""},
    {"5 µ", VO_TEXT_NOT_VALID, 4, "", ""},
    {"", VO_TEXT_NOT_VALID, 0, "", ""},
    {"5 m [6, 7]", VO_REFUSED, 0, "", "value_outside_bounds"},
    {"5 dBohm", VO_REFUSED, 0, "", "no_level_convention"},
    {"1e999 m", VO_TEXT_NOT_VALID, 0, "", ""},
};

static void Check_failures(void) {
    static char long_text[100000];
    vo_fault fault;
    vo_measurement const before = Read("5 V");
    vo_measurement after = before;
    for (size_t k = 0; k < sizeof refusals / sizeof *refusals; ++k) {
        vo_status const status = vo_measurement_parse(refusals[k].text, &after, &fault);
        if (status != refusals[k].status || fault.position != refusals[k].position) {
            printf("%s: %s at %u\n", refusals[k].text, vo_status_name((int)status), fault.position);
            ++failures;
        }
        Expect(refusals[k].suggestion, fault.suggestion);
        Expect(refusals[k].reason, fault.reason);
        CHECK(fault.status == (int32_t)status && fault.message[0] != '\0' && strchr(fault.message, '\n') == NULL);
        CHECK(vo_measurement_parse(refusals[k].text, &after, NULL) == status);
        CHECK(memcmp(&before, &after, sizeof after) == 0);
    }
    /* A text that quotes what is longer than the room for it is cut between two characters. */
    for (size_t k = 0; k + 2 < sizeof long_text; k += 2) {
        long_text[k] = '\xc3';
        long_text[k + 1] = '\xa9';
    }
    for (size_t skip = 0; skip < 2; ++skip) {
        long_text[0] = 'x';
        CHECK(vo_unit_parse(long_text + (skip == 0 ? 0 : 2), &after.unit, &fault) == VO_TEXT_NOT_VALID);
        CHECK(strlen(fault.message) < sizeof fault.message);
    }
}

/* ---- The ways out of refusals */

/* What is refused, how its message ends, and what it says to do instead, with the result. */
typedef struct followed_refusal {
    operation refused;
    char const* way_out;
    operation followed[2];
} followed_refusal;

static followed_refusal const followed_refusals[] = {
    {{"5 V", '>', "W", "needs_impedance", NULL},
     "convert with a resistance (vo_measurement_convert_with)",
     {{"5 V", 'w', "5 ohm to W", "5 W", NULL}}},
    {{"5 ohm", '>', "V", "needs_impedance", NULL},
     "convert with a current (vo_measurement_convert_with)",
     {{"5 ohm", 'w', "2 A to V", "10 V", NULL}}},
    {{"5 ohm", '>', "A", "needs_impedance", NULL},
     "convert with a voltage (vo_measurement_convert_with)",
     {{"5 ohm", 'w', "10 V to A", "2 A", NULL}}},
    {{"20 degC", '+', "5 degC", "temperature_points_add", NULL},
     "mark the one that is a difference (its field difference, or 5 ΔK)",
     {{"20 degC", '+', "5 ΔK", "25 °C", NULL}}},
    {{"10 dBm", '+', "10 dBm", "levels_do_not_add", NULL}, "vo_measurement_power_sum adds the powers", {{"10 dBm", 'p', "10 dBm", "13.0 dBm", NULL}}},
    {{"10 dBm", '+', "1 mW", "level_and_linear", NULL},
     "convert the level to a linear unit",
     {{"10 dBm", '>', "mW", "10 mW", NULL}, {"10 mW", '+', "1 mW", "11 mW", NULL}}},
    {{"1 W", '+', "3 dB", "level_and_linear", NULL},
     "convert to a level, with its reference (dBm, dBV)",
     {{"1 W", '>', "dBm", "30 dBm", NULL}, {"30 dBm", '+', "3 dB", "33 dBm", NULL}}},
    {{"10 dBm", '*', "2", "level_as_factor", NULL},
     "convert to the linear unit, or add a gain in dB",
     {{"10 dBm", '>', "mW", "10 mW", NULL}, {"10 dBm", '+', "3 dB", "13 dBm", NULL}}},
    {{"3 dB", '-', "10 dBm", "gain_minus_level", NULL}, "take the gain from the level", {{"10 dBm", '-', "3 dB", "7 dBm", NULL}}},
    {{"20 dB", '>', "W", "gain_is_no_quantity", NULL}, "vo_measurement_amplify applies it to one", {{"1 W", 'a', "20 dB", "100 W", NULL}}},
    {{"20 dB", '>', "%", "gain_is_ambiguous", NULL},
     "apply it to 1 V or to 1 W (vo_measurement_amplify)",
     {{"1 V", 'a', "20 dB", "10 V", NULL}, {"1 W", 'a', "20 dB", "100 W", NULL}}},
    {{"10 %", '>', "dB", "gain_is_ambiguous", NULL},
     "convert so many V to dBV or W to dBW, and subtract 0 dBV or 0 dBW",
     {{"10 V", '>', "dBV", "20 dBV", NULL}, {"20 dBV", '-', "0 dBV", "20 dB", NULL}}},
    {{"1 month", '>', "s", "no_fixed_length", NULL}, "write days, as in 30 days", {{"30 days", '>', "s", "2592000 s", NULL}}},
    {{"20 degC", '*', "2", "temperature_point_as_factor", NULL}, "convert to K", {{"293 K", '*', "2", "586 K", NULL}}},
};

static void Check_ways_out(void) {
    for (size_t k = 0; k < sizeof followed_refusals / sizeof *followed_refusals; ++k) {
        followed_refusal const* const row = &followed_refusals[k];
        vo_measurement x;
        vo_fault fault;
        CHECK(Measure(&row->refused, &x, &fault) == VO_REFUSED);
        Expect(row->refused.by_measurements, fault.reason);
        CHECK(strncmp(fault.message, "cannot ", 7) == 0);
        Expect(row->way_out, strstr(fault.message, "; ") == NULL ? fault.message : strstr(fault.message, "; ") + 2);
        for (size_t step = 0; step < 2 && row->followed[step].first != NULL; ++step) {
            CHECK(Measure(&row->followed[step], &x, &fault) == VO_OK);
            Expect_number(row->followed[step].by_measurements, &x);
        }
    }
    vo_measurement warmer = Read("20 degC");
    vo_measurement difference = Read("5 K");
    difference.difference = 1;
    CHECK(vo_measurement_add(&warmer, &difference, &warmer, NULL) == VO_OK && warmer.value == 25.0);
}

/* ---- Statuses */

typedef struct named_status {
    vo_status status;
    char const* name;
} named_status;

#define NAMED(status)                                                                                                                                \
    { status, #status }
static named_status const named_statuses[] = {
    NAMED(VO_OK),
    NAMED(VO_INVALID_ARGUMENT),
    NAMED(VO_BUFFER_TOO_SMALL),
    NAMED(VO_NO_MEMORY),
    NAMED(VO_INTERNAL_ERROR),
    NAMED(VO_TEXT_NOT_VALID),
    NAMED(VO_REFUSED),
    NAMED(VO_OUT_OF_RANGE),
    NAMED(VO_OPERATION_NOT_VALID),
    NAMED(VO_NO_RULE_TO_CONVERT),
    NAMED(VO_UNIT_DIMENSION_NOT_SAME),
    NAMED(VO_MISSING_UNIT),
    NAMED(VO_OPERATION_UNDEFINED),
    NAMED(VO_UNIT_DIMENSION_NOT_PROPER),
    NAMED(VO_UNIT_EXPONENT_NOT_VALID),
    NAMED(VO_UNIT_NOT_DEFINED),
    NAMED(VO_TOO_MANY_UNITS),
};

/* Units that no text makes, and what every function says to them. */
typedef struct malformed_unit {
    vo_unit unit;
    vo_status status;
} malformed_unit;

static malformed_unit const malformed_units[] = {
    {{2, 0, {{1, 1}}}, VO_INVALID_ARGUMENT}, /* neither in decibels nor not */
    {{-1, 0, {{1, 1}}}, VO_INVALID_ARGUMENT},
    {{0, 0, {{1, 1}, {3, 1}}}, VO_UNIT_DIMENSION_NOT_PROPER}, /* metre and foot */
    {{0, 0, {{0, 0}, {1, 1}}}, VO_OPERATION_NOT_VALID},       /* nothing, then a metre */
    {{0, 0, {{77, 1}}}, VO_UNIT_NOT_DEFINED},
    {{0, 0, {{1, 1}, {1000, 1}}}, VO_UNIT_NOT_DEFINED},
};

static void Check_statuses(void) {
    vo_unit const watt = Unit("W");
    vo_quantity first;
    vo_quantity second;
    vo_measurement x;
    vo_fault fault;
    char text[100];
    for (size_t k = 0; k < sizeof named_statuses / sizeof *named_statuses; ++k) {
        CHECK((size_t)named_statuses[k].status == k); /* as programs were compiled with */
        Expect(named_statuses[k].name, vo_status_name((int)k));
    }
    Expect("unknown status", vo_status_name(-1));
    Expect("unknown status", vo_status_name(17));

    for (size_t k = 0; k < sizeof malformed_units / sizeof *malformed_units; ++k) {
        malformed_unit const* const row = &malformed_units[k];
        CHECK(vo_quantity_make(1.0, 1.0, 1.0, &row->unit, &first, &fault) == row->status);
        CHECK(vo_measurement_make(1.0, 1.0, 1.0, &row->unit, &x, &fault) == row->status);
        CHECK(vo_unit_format(&row->unit, text, sizeof text, NULL, &fault) == row->status);
        CHECK(fault.status == (int32_t)row->status && fault.reason[0] == '\0' && fault.position == 0);
    }
    x = Read("1 W");
    x.difference = 1; /* of temperatures alone */
    CHECK(vo_measurement_add(&x, &x, &x, &fault) == VO_REFUSED);
    x = Read("1 K");
    x.difference = 2;
    CHECK(vo_measurement_add(&x, &x, &x, &fault) == VO_INVALID_ARGUMENT);

    CHECK(vo_quantity_parse("5 m", &first, NULL) == VO_OK && vo_quantity_parse("5 s", &second, NULL) == VO_OK);
    CHECK(vo_quantity_convert_with(&first, &watt, &second, &first, &fault) == VO_NO_RULE_TO_CONVERT);
    CHECK(vo_quantity_parse("1 V*A*ohm*g*m", &first, NULL) == VO_OK);
    CHECK(vo_quantity_multiply(&first, &second, &first, &fault) == VO_TOO_MANY_UNITS);
}

/* Every argument that is NULL, one after the other. */
static void Check_null_arguments(void) {
    vo_unit unit = Unit("V");
    vo_quantity q = {1.0, 1.0, 1.0, unit};
    vo_measurement x = Read("1 V");
    vo_fault fault;
    vo_order order;
    vo_verdict verdict;
    char text[100];
    int same;
#define REFUSES(call) CHECK((call) == VO_INVALID_ARGUMENT && fault.message[0] != '\0')
    REFUSES(vo_unit_parse(NULL, &unit, &fault));
    REFUSES(vo_unit_parse("V", NULL, &fault));
    REFUSES(vo_unit_parse_scpi("V", NULL, &fault));
    REFUSES(vo_unit_format(NULL, text, sizeof text, NULL, &fault));
    REFUSES(vo_unit_format(&unit, NULL, 5, NULL, &fault));
    REFUSES(vo_unit_kind(&unit, NULL, 5, NULL, &fault));
    REFUSES(vo_unit_same_kind(&unit, NULL, &same, &fault));
    REFUSES(vo_unit_same_kind(&unit, &unit, NULL, &fault));
    REFUSES(vo_unit_multiply(NULL, &unit, &unit, &fault));
    REFUSES(vo_unit_divide(&unit, &unit, NULL, &fault));
    REFUSES(vo_quantity_make(1.0, 1.0, 1.0, NULL, &q, &fault));
    REFUSES(vo_quantity_parse(NULL, &q, &fault));
    REFUSES(vo_quantity_format(&q, NULL, text, sizeof text, NULL, &fault));
    REFUSES(vo_quantity_format(&q, "bb", text, sizeof text, NULL, &fault));
    REFUSES(vo_quantity_convert(NULL, &unit, &q, &fault));
    REFUSES(vo_quantity_convert_with(&q, &unit, NULL, &q, &fault));
    REFUSES(vo_quantity_add(&q, NULL, &q, &fault));
    REFUSES(vo_quantity_subtract(NULL, &q, &q, &fault));
    REFUSES(vo_quantity_multiply(&q, &q, NULL, &fault));
    REFUSES(vo_quantity_divide(NULL, NULL, NULL, &fault));
    REFUSES(vo_quantity_compare(&q, &q, NULL, &fault));
    REFUSES(vo_measurement_make(1.0, 1.0, 1.0, &unit, NULL, &fault));
    REFUSES(vo_measurement_parse("1 V", NULL, &fault));
    REFUSES(vo_measurement_format(&x, NULL, text, sizeof text, NULL, &fault));
    REFUSES(vo_measurement_convert(&x, NULL, &x, &fault));
    REFUSES(vo_measurement_convert_with(&x, &unit, NULL, &x, &fault));
    REFUSES(vo_measurement_simplify(NULL, &x, &fault));
    REFUSES(vo_measurement_simplify(&x, NULL, &fault));
    REFUSES(vo_measurement_add(&x, NULL, &x, &fault));
    REFUSES(vo_measurement_subtract(NULL, &x, &x, &fault));
    REFUSES(vo_measurement_multiply(&x, &x, NULL, &fault));
    REFUSES(vo_measurement_divide(&x, NULL, &x, &fault));
    REFUSES(vo_measurement_amplify(&x, NULL, &x, &fault));
    REFUSES(vo_measurement_power_sum(NULL, &x, &x, &fault));
    REFUSES(vo_measurement_compare(&x, &x, NULL, &fault));
    REFUSES(vo_measurement_compare(NULL, &x, &order, &fault));
    REFUSES(vo_measurement_check_limits(&x, &x, &x, NULL, &fault));
    REFUSES(vo_measurement_check_limits(&x, NULL, &x, &verdict, &fault));
    REFUSES(vo_converter_create(&unit, &unit, VO_QUANTITIES, NULL, &fault));
    REFUSES(vo_converter_apply(NULL, &x.value, &x.value, 1, &fault));
    CHECK(vo_unit_parse(NULL, NULL, NULL) == VO_INVALID_ARGUMENT);
}

/* ---- Whatever a struct may hold */

/* Small numbers more often than large ones: units, prefixes and powers that exist, and their neighbours. */
static uint32_t state = 1;

static int32_t Random_code(void) {
    state = state * 1664525U + 1013904223U;
    switch (state >> 30) {
    case 0:
        return 0;
    case 1:
        return (int32_t)(state >> 8) % 5 - 2;
    case 2:
        return (int32_t)(state >> 8) % 40 - 2 + (int32_t)(state >> 20) % 2 * 1000;
    default:
        return (int32_t)(state * 2654435761U);
    }
}

static double Random_number(void) {
    static double const numbers[] = {0.0, -0.0, 1.0, -1.0, 1e308, -1e308, 5e-324, 1e-310, 273.15, 3.0};
    int32_t const code = Random_code() & 15;
    return code < 10 ? numbers[code] : code == 10 ? (double)NAN : code == 11 ? (double)INFINITY : Random_code() * 0.1;
}

/* Every other one is a unit that people use. */
static void Fill(vo_unit* unit) {
    static char const* const used[] = {"W", "dBm", "V", "dBuV", "ohm", "A", "K", "degC", "km/h", "m", "Hz", "dB", "hPa", "N", "kg*m/s^2", "lb/gal"};
    if (Random_code() % 2 == 0) {
        *unit = Unit(used[(state >> 8) % 16]);
        return;
    }
    unit->decibels = Random_code() % 3;
    unit->prefix = Random_code() % 8 == 0 ? INT32_MIN : Random_code();
    for (int k = 0; k < 5; ++k) {
        unit->factors[k].unit = k < 2 ? Random_code() : 0;
        unit->factors[k].exponent = k >= 2 ? 0 : Random_code() % 8 == 0 ? INT32_MIN : Random_code();
    }
}

/* A result is either there, and can be used, or untouched. */
static int Is_sound(vo_status status, vo_measurement const* result, vo_measurement const* before) {
    vo_measurement again;
    return status == VO_OK ? result->lower <= result->value && result->value <= result->upper &&
                                 vo_measurement_make(result->value, result->lower, result->upper, &result->unit, &again, NULL) == VO_OK
                           : status <= VO_TOO_MANY_UNITS && status != VO_INTERNAL_ERROR && memcmp(result, before, sizeof *result) == 0;
}

static void Check_hostile_structs(void) {
    vo_measurement x[3];
    vo_measurement result;
    vo_measurement before;
    vo_quantity q[2];
    vo_order order;
    vo_verdict verdict;
    long answered = 0;
    memset(x, 0, sizeof x);
    memset(&before, 0x55, sizeof before);
    for (long round = 0; round < 20000; ++round) {
        vo_measurement* const changed = &x[round % 3];
        vo_quantity* const changed_quantity = &q[round % 2];
        changed->value = Random_number();
        changed->lower = round % 4 != 0 ? changed->value : Random_number();
        changed->upper = round % 4 != 0 ? changed->value : Random_number();
        changed->difference = round % 16 == 0 ? Random_code() : 0;
        if (round % 5 == 0) {
            changed->unit = x[(round + 1) % 3].unit;
        } else {
            Fill(&changed->unit);
        }
        changed_quantity->value = changed->value;
        changed_quantity->lower = changed->lower;
        changed_quantity->upper = changed->upper;
        changed_quantity->unit = changed->unit;
        if (round < 2) {
            q[1] = q[0];
        }
        result = before;
#define SOUND(call)                                                                                                                                  \
    do {                                                                                                                                             \
        vo_status const status = (call);                                                                                                             \
        answered += status == VO_OK;                                                                                                                 \
        CHECK(Is_sound(status, &result, &before));                                                                                                   \
        result = before;                                                                                                                             \
    } while (0)
        SOUND(vo_measurement_convert(&x[0], &x[1].unit, &result, NULL));
        SOUND(vo_measurement_convert_with(&x[0], &x[1].unit, &x[2], &result, NULL));
        SOUND(vo_measurement_add(&x[0], &x[1], &result, NULL));
        SOUND(vo_measurement_multiply(&x[0], &x[1], &result, NULL));
        SOUND(vo_measurement_divide(&x[0], &x[1], &result, NULL));
        SOUND(vo_measurement_simplify(&x[0], &result, NULL));
        SOUND(vo_measurement_power_sum(&x[0], &x[1], &result, NULL));
        SOUND(vo_measurement_amplify(&x[0], &x[1], &result, NULL));
        CHECK(vo_measurement_compare(&x[0], &x[1], &order, NULL) != VO_INTERNAL_ERROR);
        CHECK(vo_measurement_check_limits(&x[0], &x[1], &x[2], &verdict, NULL) != VO_INTERNAL_ERROR);
        CHECK(vo_quantity_convert(&q[0], &q[1].unit, changed_quantity, NULL) != VO_INTERNAL_ERROR);
        CHECK(vo_quantity_add(&q[0], &q[1], changed_quantity, NULL) != VO_INTERNAL_ERROR);
        CHECK(vo_quantity_divide(&q[0], &q[1], changed_quantity, NULL) != VO_INTERNAL_ERROR);
    }
    CHECK(answered > 3000);
}

/* ---- Texts that do not fit */

static void Check_buffers(void) {
    char buffer[20];
    size_t length = 0;
    vo_fault fault;
    vo_measurement const x = Read("5 Ω [4, 6]");
    char const expected[] = "5 ohm [4, 6]";
    for (size_t size = 0; size <= sizeof buffer; ++size) {
        memset(buffer, '?', sizeof buffer);
        vo_status const status = vo_measurement_format(&x, "", buffer, size, &length, &fault);
        CHECK(length == strlen(expected));
        CHECK(status == (size < sizeof expected ? VO_BUFFER_TOO_SMALL : VO_OK));
        CHECK(status == VO_OK ? strcmp(buffer, expected) == 0 : buffer[0] == '?');
        CHECK(size == sizeof buffer || buffer[size] == '?');
    }
    CHECK(vo_measurement_format(&x, "", NULL, 0, NULL, NULL) == VO_BUFFER_TOO_SMALL);
}

/* ---- Memory */

static void Check_memory(void) {
    vo_unit const watt = Unit("W");
    vo_unit const second = Unit("s");
    vo_measurement level = Read("30 dBm [29, 31]");
    vo_measurement power;
    vo_measurement force;
    vo_quantity quantity;
    vo_order order;
    long const before = allocations;
    CHECK(vo_measurement_parse("30 dBm [29, 31]", &level, NULL) == VO_OK);
    CHECK(vo_measurement_convert(&level, &watt, &power, NULL) == VO_OK);
    CHECK(vo_measurement_multiply(&power, &power, &power, NULL) == VO_OK);
    CHECK(vo_measurement_compare(&level, &level, &order, NULL) == VO_OK);
    CHECK(vo_measurement_parse("9 kN [8, 10]", &force, NULL) == VO_OK);
    CHECK(vo_measurement_divide(&force, &force, &force, NULL) == VO_OK);
    CHECK(vo_measurement_simplify(&force, &force, NULL) == VO_OK);
    CHECK(vo_unit_multiply(&force.unit, &watt, &force.unit, NULL) == VO_OK);
    CHECK(vo_measurement_power_sum(&level, &level, &level, NULL) == VO_OK);
    CHECK(vo_quantity_parse("30 dBm [29, 31]", &quantity, NULL) == VO_OK);
    CHECK(vo_quantity_convert(&quantity, &watt, &quantity, NULL) == VO_OK);
    CHECK(vo_quantity_multiply(&quantity, &quantity, &quantity, NULL) == VO_OK);
    CHECK(allocations == before);
#ifdef COUNT_ALLOCATIONS
    vo_status statuses[5];
    vo_converter* converter = NULL;
    vo_fault fault;
    char text[100];
    memory_is_full = 1;
    statuses[0] = vo_converter_create(&watt, &watt, VO_QUANTITIES, &converter, &fault);
    statuses[1] = vo_measurement_format(&level, "", text, sizeof text, NULL, &fault);
    statuses[2] = vo_measurement_convert(&level, &second, &level, &fault);
    statuses[3] = vo_unit_parse("metr", &power.unit, &fault);
    statuses[4] = vo_quantity_convert(&quantity, &second, &quantity, &fault);
    memory_is_full = 0;
    CHECK(statuses[0] == VO_NO_MEMORY && converter == NULL);
    CHECK(statuses[1] == VO_NO_MEMORY);
    CHECK(statuses[2] == VO_NO_MEMORY || statuses[2] == VO_REFUSED);
    CHECK(statuses[3] == VO_NO_MEMORY);
    CHECK(statuses[4] != VO_OK);
    CHECK(allocations > before); /* or nothing was counted */
#else
    (void)second;
    (void)memory_is_full;
#endif
}

int main(void) {
    Check_answers();
    Check_other_answers();
    Check_engineering_units();
    Check_converters();
    Check_failures();
    Check_ways_out();
    Check_statuses();
    Check_null_arguments();
    Check_hostile_structs();
    Check_buffers();
    Check_memory();
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
