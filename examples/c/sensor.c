/*
 * A board's voltage divider and its temperature sensor: the measured voltage as the supply's, within the
 * limits of the data sheet, and a reading in °C for people and in K for a formula.
 *
 *     cc -std=c99 sensor.c $(pkg-config --cflags --libs ValueObjectC)
 */

#include <stdio.h>
#include <stdlib.h>
#include <value_object.h>

/* Ends the program with the reason where a call fails. */
static void require(vo_status status, vo_fault const* fault) {
    if (status != VO_OK) {
        fprintf(stderr, "%s: %s\n", vo_status_name((int)status), fault->message);
        exit(1);
    }
}

static void print(char const* name, vo_measurement const* x, char const* format) {
    char text[100];
    vo_fault fault;
    require(vo_measurement_format(x, format, text, sizeof text, NULL, &fault), &fault);
    printf("%-12s %s\n", name, text);
}

int main(void) {
    static char const* const verdicts[] = {"fail", "pass", "undecided"};
    vo_measurement tap, ratio, supply, low, high, reading, temperature;
    vo_verdict verdict;
    vo_unit kelvin, second;
    vo_fault fault;

    require(vo_measurement_parse("1.215 ± 0.008 V", &tap, &fault), &fault);
    require(vo_measurement_parse("9.90 [9.85, 9.95]", &ratio, &fault), &fault);
    require(vo_measurement_multiply(&tap, &ratio, &supply, &fault), &fault);
    print("supply", &supply, "b");

    require(vo_measurement_parse("11.4 V", &low, &fault), &fault);
    require(vo_measurement_parse("12.6 V", &high, &fault), &fault);
    require(vo_measurement_check_limits(&supply, &low, &high, &verdict, &fault), &fault);
    printf("%-12s %s\n", "limits", verdicts[verdict]);

    require(vo_measurement_parse("36.6 ± 0.5 degC", &reading, &fault), &fault);
    require(vo_unit_parse("K", &kelvin, &fault), &fault);
    require(vo_measurement_convert(&reading, &kelvin, &temperature, &fault), &fault);
    print("temperature", &temperature, "bp");

    /* What makes no sense is refused, with the reason. */
    require(vo_unit_parse("s", &second, &fault), &fault);
    if (vo_measurement_convert(&supply, &second, &supply, &fault) == VO_REFUSED) {
        printf("%-12s %s\n", fault.reason, fault.message);
    }
    return 0;
}
