/*
 * ValueObject for C: quantities with their units and bounds, for C programs and for everything that
 * calls C (Lua, Rust, Go, SQLite).
 *
 *     #include <stdio.h>
 *     #include <value_object.h>
 *
 *     vo_measurement level, power;
 *     vo_unit watt;
 *     vo_fault fault;
 *     char text[80];
 *     if (vo_unit_parse("W", &watt, &fault) == VO_OK &&
 *         vo_measurement_parse("30 dBm [29, 31]", &level, &fault) == VO_OK &&
 *         vo_measurement_convert(&level, &watt, &power, &fault) == VO_OK &&
 *         vo_measurement_format(&power, "b", text, sizeof text, NULL, &fault) == VO_OK) {
 *         puts(text); // 1.00 W [0.79, 1.26]
 *     } else {
 *         fprintf(stderr, "%s\n", fault.message);
 *     }
 *
 * What holds of every function, and is not repeated below:
 *
 * - It returns VO_OK, or says why it did not do what it was asked. Then its results are what they
 *   were, and `fault`, unless it is NULL, holds the reason. Where it returns VO_OK, the fault is
 *   left alone.
 * - It checks the structs it is given as the constructors in C++ do: they may be filled in by hand,
 *   or come from a file. Any other pointer must not be NULL, which is VO_INVALID_ARGUMENT; pointers
 *   that are neither NULL nor valid are beyond what it can see.
 * - A result may be the same object as an argument.
 * - Texts are UTF-8 and end with a zero byte.
 * - It allocates no memory, but in vo_converter_create, while a text is written (which is freed
 *   again), in the first text that is read, which gathers the names of the units, and where it fails.
 *   Without memory it returns VO_NO_MEMORY. Nothing is thrown through it.
 * - It depends on no locale and has no state: threads may call it at any time, each with results and
 *   faults of its own. A converter may be used by many threads at once.
 *
 * Names and numbers of 1.x stay what they are. A later 1.x may add functions and statuses.
 */

#ifndef VALUE_OBJECT_H
#define VALUE_OBJECT_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Marks a function as part of the binary interface. */
#if defined(__GNUC__)
#define VO_EXPORT __attribute__((visibility("default")))
#else
#define VO_EXPORT
#endif

/**
 * @addtogroup c
 * @{
 */

/* ---- Version */

/** The version of this header: 10000 times the major, 100 times the minor and the patch number. */
#define VALUE_OBJECT_VERSION_NUMBER 10000

/** The version of the library that is loaded, as VALUE_OBJECT_VERSION_NUMBER. Never fails. */
VO_EXPORT int vo_version(void);

/* ---- Results */

/** What became of a call. */
typedef enum vo_status {
    VO_OK = 0,               /**< done */
    VO_INVALID_ARGUMENT = 1, /**< a NULL, or a number that has no meaning here */
    VO_BUFFER_TOO_SMALL = 2, /**< the text does not fit; its length was stored */
    VO_NO_MEMORY = 3,        /**< there is not enough memory */
    VO_INTERNAL_ERROR = 4,   /**< a fault of the library */
    VO_TEXT_NOT_VALID = 5,   /**< a text that has no meaning or more than one; has a position */
    VO_REFUSED = 6,          /**< a measurement that physics or its bounds forbid; has a reason */
    VO_OUT_OF_RANGE = 7,     /**< a quantity would be infinite or not a number */
    VO_OPERATION_NOT_VALID = 8,        /**< units that do not take part in the operation */
    VO_NO_RULE_TO_CONVERT = 9,         /**< units of kinds between which no rule leads */
    VO_UNIT_DIMENSION_NOT_SAME = 10,   /**< units of other dimensions */
    VO_MISSING_UNIT = 11,              /**< a first quantity that lacks a unit of the second */
    VO_OPERATION_UNDEFINED = 12,       /**< a decibel operand without meaning */
    VO_UNIT_DIMENSION_NOT_PROPER = 13, /**< a unit in a dimension where it has no place */
    VO_UNIT_EXPONENT_NOT_VALID = 14,   /**< a power beyond what is supported */
    VO_UNIT_NOT_DEFINED = 15,          /**< a unit that there is not, or not for vo_quantity */
    VO_TOO_MANY_UNITS = 16             /**< a product of more than five units */
} vo_status;

/** The name of a vo_status, "VO_OK"; "unknown status" for any other number. Lives for ever. */
VO_EXPORT char const* vo_status_name(int status);

/**
 * Why a call failed, in memory of the caller. Every text ends with a zero byte, and is cut between
 * two characters where it is longer than its room.
 */
typedef struct vo_fault {
    int32_t status;      /**< what was returned, a vo_status */
    uint32_t position;   /**< VO_TEXT_NOT_VALID: where in the text, in bytes from 0; 0 otherwise */
    char reason[32];     /**< VO_REFUSED: the reason in one word, "kinds_differ"; empty otherwise */
    char suggestion[72]; /**< VO_TEXT_NOT_VALID: a unit that can be read instead, or empty */
    char message[400];   /**< one line for people, no full stop */
} vo_fault;

/* ---- Units */

/** One factor of a unit. `unit` is a code, 0 for an empty slot. */
typedef struct vo_factor {
    int32_t unit;     /**< the code, as in <varnix/value/Units.h> or Engineering_units.h: 1 metre,
                           5 second, 12 watt, 1001 newton, 1005 pascal ... */
    int32_t exponent; /**< its power */
} vo_factor;

/**
 * A unit. {0} is that of a plain number; there are no constants for others: read those that you need
 * with vo_unit_parse once, when the program starts.
 *
 * Units from 1001 on (N, hPa, lb, gal ...; docs/units.md has all) are for measurements. To a
 * vo_quantity they are VO_UNIT_NOT_DEFINED.
 */
typedef struct vo_unit {
    int32_t decibels;     /**< 1 for levels and gains, whose numbers are decibels; or 0 */
    int32_t prefix;       /**< the prefix of the whole, as in <varnix/value/Units.h>; 0 for none */
    vo_factor factors[5]; /**< its factors */
} vo_unit;

/** Reads a unit: "km/h", "dBm", "mV/K", "hPa". @see docs/text.md for the notation. */
VO_EXPORT vo_status vo_unit_parse(char const* text, vo_unit* unit, vo_fault* fault);

/** Reads a unit as instruments write it, by IEEE 488.2 and SCPI: "DBM", "MAOHM", "M/S2". */
VO_EXPORT vo_status vo_unit_parse_scpi(char const* text, vo_unit* unit, vo_fault* fault);

/**
 * Writes a unit so that vo_unit_parse reads the same one. That of a plain number is written as
 * nothing; and what no text is read as, a power of zero or a prefix beyond 10^40, so that it is not
 * taken for another unit.
 *
 * Like every function that writes a text: `buffer` has room for `size` bytes, the zero byte
 * included, and may be NULL if `size` is 0. `length`, unless it is NULL, receives the length of the
 * text in bytes without the zero byte, also with VO_BUFFER_TOO_SMALL. A text that does not fit is
 * not written.
 */
VO_EXPORT vo_status vo_unit_format(vo_unit const* unit, char* buffer, size_t size, size_t* length,
                                   vo_fault* fault);

/** Writes what a unit measures, "pressure" or "length^3/time", as vo_unit_format. */
VO_EXPORT vo_status vo_unit_kind(vo_unit const* unit, char* buffer, size_t size, size_t* length,
                                 vo_fault* fault);

/** Stores 1 in `same` if both units measure the same kind of quantity, or 0. */
VO_EXPORT vo_status vo_unit_same_kind(vo_unit const* first, vo_unit const* second, int* same,
                                      vo_fault* fault);

/**
 * The unit that vo_quantity_multiply gives to a product of quantities in these units, or where one of
 * them has a code from 1001 on vo_measurement_multiply. The number has its own part in it: 1 km times
 * 1 km are 1000000 m^2.
 */
VO_EXPORT vo_status vo_unit_multiply(vo_unit const* first, vo_unit const* second, vo_unit* product,
                                     vo_fault* fault);

/** The unit of a quotient, as vo_unit_multiply. */
VO_EXPORT vo_status vo_unit_divide(vo_unit const* first, vo_unit const* second, vo_unit* quotient,
                                   vo_fault* fault);

/* ---- What a comparison says */

/** How the first of two relates to the second. */
typedef enum vo_order {
    VO_LESS = -1,    /**< the first is less */
    VO_EQUAL = 0,    /**< both are the same */
    VO_GREATER = 1,  /**< the first is greater */
    VO_UNDECIDED = 2 /**< the bounds overlap, or a number of a vo_quantity is not one */
} vo_order;

/** Whether something lies within limits. */
typedef enum vo_verdict {
    VO_FAIL = 0,             /**< it lies outside, wherever in its bounds it is */
    VO_PASS = 1,             /**< it lies within, wherever in its bounds it is, ends included */
    VO_VERDICT_UNDECIDED = 2 /**< neither is certain */
} vo_verdict;

/* ---- Measurements: the physically right answer with bounds that are certain, or VO_REFUSED */

/**
 * A measurement. All three numbers are in `unit`, in decibels if that is in decibels.
 *
 * What is read from a text is exact in decimals: "3.3 V" is 3.3 V, which no double is. `decimals` says
 * so; copy it with the numbers, and set it to 0 in a measurement that you fill in. It has no effect
 * once you have written another number.
 */
typedef struct vo_measurement {
    double value;       /**< finite, within the bounds */
    double lower;       /**< the lower bound; -INFINITY if it is unknown */
    double upper;       /**< the upper bound; INFINITY if it is unknown */
    vo_unit unit;       /**< of all three */
    int32_t difference; /**< 1 for a difference of temperatures, "5 delta_K"; 0 for all else */
    int32_t decimals;   /**< which decimals the three numbers are; 0 for doubles */
} vo_measurement;

/** Checks three numbers with their unit, and puts the unit into canonical order. */
VO_EXPORT vo_status vo_measurement_make(double value, double lower, double upper,
                                        vo_unit const* unit, vo_measurement* made, vo_fault* fault);

/**
 * Reads "30 dBm [29, 31]", "5.0 ± 0.1 V", "5.00(3) kV". The decimals are kept exactly; those that do
 * not fit, of more than 15 digits or so, are enclosed.
 */
VO_EXPORT vo_status vo_measurement_parse(char const* text, vo_measurement* read, vo_fault* fault);

/**
 * Writes a measurement, as vo_unit_format. `format` is "" for decimals as they were typed, and for
 * other numbers the fewest digits that enclose, at most one step of a double wider. Otherwise it has
 * digits (".3" significant, ".2f" decimals, "b" by the bounds), then "p" for ± or "~" without bounds,
 * then "k" with a prefix by size. Any other is VO_INVALID_ARGUMENT.
 */
VO_EXPORT vo_status vo_measurement_format(vo_measurement const* x, char const* format, char* buffer,
                                          size_t size, size_t* length, vo_fault* fault);

/** The measurement in another unit of its kind. Refused: another kind, the level of zero. */
VO_EXPORT vo_status vo_measurement_convert(vo_measurement const* x, vo_unit const* target,
                                           vo_measurement* converted, vo_fault* fault);

/**
 * Volts, amperes, watts and ohms by the laws of Ohm and Joule, and their levels: dBµV across 50 ohm
 * in dBm. Field strengths (V/m, A/m, W/m^2 and ohm) likewise. Refused: units without such a law.
 */
VO_EXPORT vo_status vo_measurement_convert_with(vo_measurement const* x, vo_unit const* target,
                                                vo_measurement const* with,
                                                vo_measurement* converted, vo_fault* fault);

/**
 * The measurement in the unit of SI that has a name: 686.7 kg*m/s^2 is 686.7 N. Where there is none, as
 * for km/h, and in decibels, it stays as it is.
 */
VO_EXPORT vo_status vo_measurement_simplify(vo_measurement const* x, vo_measurement* simplified,
                                            vo_fault* fault);

/** The sum in the unit of `x`. Refused: kinds that differ, levels that have no sum. */
VO_EXPORT vo_status vo_measurement_add(vo_measurement const* x, vo_measurement const* y,
                                       vo_measurement* sum, vo_fault* fault);

/** The difference, as vo_measurement_add. */
VO_EXPORT vo_status vo_measurement_subtract(vo_measurement const* x, vo_measurement const* y,
                                            vo_measurement* difference, vo_fault* fault);

/**
 * The product. Prefixes are kept where the result has one: 2500 kg/h times 3.5 h are 8750 kg. Refused:
 * levels, points of temperature, more than five units.
 */
VO_EXPORT vo_status vo_measurement_multiply(vo_measurement const* x, vo_measurement const* y,
                                            vo_measurement* product, vo_fault* fault);

/** The quotient. Refused as vo_measurement_multiply, and a divisor that may be zero. */
VO_EXPORT vo_status vo_measurement_divide(vo_measurement const* x, vo_measurement const* y,
                                          vo_measurement* quotient, vo_fault* fault);

/** A level or a linear quantity, amplified by a gain in dB. */
VO_EXPORT vo_status vo_measurement_amplify(vo_measurement const* x, vo_measurement const* gain,
                                           vo_measurement* amplified, vo_fault* fault);

/** The level of the sum of two powers of uncorrelated sources, in the unit of `x`. */
VO_EXPORT vo_status vo_measurement_power_sum(vo_measurement const* x, vo_measurement const* y,
                                             vo_measurement* sum, vo_fault* fault);

/** How `x` relates to `y`, bounds and all. Refused: kinds that differ. */
VO_EXPORT vo_status vo_measurement_compare(vo_measurement const* x, vo_measurement const* y,
                                           vo_order* order, vo_fault* fault);

/** Whether `x` lies between `low` and `high`. Refused: kinds that differ, a lower limit above the upper. */
VO_EXPORT vo_status vo_measurement_check_limits(vo_measurement const* x, vo_measurement const* low,
                                                vo_measurement const* high, vo_verdict* verdict,
                                                vo_fault* fault);

/* ---- Quantities of the core: documented rules to the bit, which surprise; docs/behaviour.md */

/** A quantity of the core, `Value_object<double>` in C++. Its bounds are not certain to enclose. */
typedef struct vo_quantity {
    double value; /**< in `unit` */
    double lower; /**< the lower bound, in `unit` */
    double upper; /**< the upper bound, in `unit` */
    vo_unit unit; /**< of all three */
} vo_quantity;

/** Checks a unit, puts it into canonical order, and the bounds into theirs. */
VO_EXPORT vo_status vo_quantity_make(double value, double lower, double upper, vo_unit const* unit,
                                     vo_quantity* made, vo_fault* fault);

/** Reads what vo_measurement_parse reads, each number as the nearest double. */
VO_EXPORT vo_status vo_quantity_parse(char const* text, vo_quantity* read, vo_fault* fault);

/** Writes a quantity, as vo_measurement_format. */
VO_EXPORT vo_status vo_quantity_format(vo_quantity const* x, char const* format, char* buffer,
                                       size_t size, size_t* length, vo_fault* fault);

/** The quantity in another unit. */
VO_EXPORT vo_status vo_quantity_convert(vo_quantity const* x, vo_unit const* target,
                                        vo_quantity* converted, vo_fault* fault);

/** Volts, amperes, watts and ohms with a second quantity: lower bound from both lower bounds. */
VO_EXPORT vo_status vo_quantity_convert_with(vo_quantity const* x, vo_unit const* target,
                                             vo_quantity const* with, vo_quantity* converted,
                                             vo_fault* fault);

/** The sum, in the unit of `x`; the lower bound is the sum of the lower ones. */
VO_EXPORT vo_status vo_quantity_add(vo_quantity const* x, vo_quantity const* y, vo_quantity* sum,
                                    vo_fault* fault);

/** The difference; the lower bound is that of the lower ones. */
VO_EXPORT vo_status vo_quantity_subtract(vo_quantity const* x, vo_quantity const* y,
                                         vo_quantity* difference, vo_fault* fault);

/** The product; the lower bound is that of the lower ones. */
VO_EXPORT vo_status vo_quantity_multiply(vo_quantity const* x, vo_quantity const* y,
                                         vo_quantity* product, vo_fault* fault);

/** The quotient; the lower bound is that of the lower ones. */
VO_EXPORT vo_status vo_quantity_divide(vo_quantity const* x, vo_quantity const* y,
                                       vo_quantity* quotient, vo_fault* fault);

/** Compares the values alone; `x` is converted into the unit of `y` first. */
VO_EXPORT vo_status vo_quantity_compare(vo_quantity const* x, vo_quantity const* y, vo_order* order,
                                        vo_fault* fault);

/* ---- Converters: one conversion for many numbers */

/** A prepared conversion of numbers without bounds. */
typedef struct vo_converter vo_converter;

/** Which results a converter gives. */
typedef enum vo_rules {
    VO_MEASUREMENTS = 0, /**< the nearest double to what vo_measurement_convert encloses; of
                             levels within 4 units in the last place or 1e-13 dB */
    VO_QUANTITIES = 1    /**< what vo_quantity_convert gives, to the bit */
} vo_rules;

/**
 * Prepares a conversion by `rules`, a vo_rules, or refuses it as the conversion of a quantity. Free it
 * by vo_converter_destroy.
 */
VO_EXPORT vo_status vo_converter_create(vo_unit const* from, vo_unit const* to, int rules,
                                        vo_converter** made, vo_fault* fault);

/**
 * Converts `count` numbers; `to` may be `from`, but must not overlap it otherwise. What has no result
 * becomes NaN, or an infinity: the level of a negative number, of zero. With `count` 0 the arrays
 * may be NULL.
 */
VO_EXPORT vo_status vo_converter_apply(vo_converter const* converter, double const* from,
                                       double* to, size_t count, vo_fault* fault);

/** Frees a converter. NULL is fine. Never fails. */
VO_EXPORT void vo_converter_destroy(vo_converter* converter);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
