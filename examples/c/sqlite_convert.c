/*
 * value_convert(x, from, to) for SQLite: SELECT value_convert(altitude, 'ft', 'm') FROM flight;
 *
 *     cc -std=c99 -shared -fPIC sqlite_convert.c -o value_convert.so $(pkg-config --cflags --libs ValueObjectC)
 *     sqlite3 -cmd '.load ./value_convert' flight.db
 */

#include <sqlite3ext.h>
#include <value_object.h>
SQLITE_EXTENSION_INIT1

static void destroy(void* converter) {
    vo_converter_destroy(converter);
}

/* The converter of a call, which SQLite keeps from row to row where both units are constants. */
static vo_converter* converter_of(sqlite3_context* context, sqlite3_value** values,
                                  vo_fault* fault) {
    static char both_are_constant;
    vo_unit from, to;
    vo_converter* converter = sqlite3_get_auxdata(context, 1);
    if (converter != NULL && sqlite3_get_auxdata(context, 2) != NULL) {
        return converter;
    }
    converter = NULL;
    if (vo_unit_parse((char const*)sqlite3_value_text(values[1]), &from, fault) == VO_OK &&
        vo_unit_parse((char const*)sqlite3_value_text(values[2]), &to, fault) == VO_OK &&
        vo_converter_create(&from, &to, VO_MEASUREMENTS, &converter, fault) == VO_OK) {
        sqlite3_set_auxdata(context, 1, converter, destroy);
        sqlite3_set_auxdata(context, 2, &both_are_constant, NULL);
        return sqlite3_get_auxdata(context, 1); /* NULL without memory */
    }
    return NULL;
}

static void value_convert(sqlite3_context* context, int count, sqlite3_value** values) {
    int const type = sqlite3_value_type(values[0]);
    double number = sqlite3_value_double(values[0]);
    vo_fault fault = {VO_NO_MEMORY, 0, "", "", "there is not enough memory"};
    (void)count;
    if (type == SQLITE_NULL) {
        return; /* NULL, as with every function of SQL */
    }
    if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) {
        sqlite3_result_error(context, "value_convert: the first argument is a number", -1);
        return;
    }
    if (vo_converter_apply(converter_of(context, values, &fault), &number, &number, 1, NULL) ==
        VO_OK) {
        sqlite3_result_double(context, number);
    } else {
        sqlite3_result_error(context, fault.message, -1);
    }
}

int sqlite3_extension_init(sqlite3* database, char** message, sqlite3_api_routines const* routines);

int sqlite3_extension_init(sqlite3* database, char** message,
                           sqlite3_api_routines const* routines) {
    (void)message;
    SQLITE_EXTENSION_INIT2(routines)
    return sqlite3_create_function(database, "value_convert", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                   NULL, value_convert, NULL, NULL);
}
