/*
 * A level with bounds, in watts.
 *
 *     cc -std=c99 convert.c $(pkg-config --cflags --libs ValueObjectC)
 */

#include <stdio.h>
#include <value_object.h>

int main(void) {
    vo_measurement level, power;
    vo_unit watt;
    vo_fault fault;
    char text[80];
    if (vo_unit_parse("W", &watt, &fault) == VO_OK &&
        vo_measurement_parse("30 dBm [29, 31]", &level, &fault) == VO_OK &&
        vo_measurement_convert(&level, &watt, &power, &fault) == VO_OK &&
        vo_measurement_format(&power, "b", text, sizeof text, NULL, &fault) == VO_OK) {
        puts(text); /* 1.00 W [0.79, 1.26] */
        return 0;
    }
    fprintf(stderr, "%s\n", fault.message);
    return 1;
}
