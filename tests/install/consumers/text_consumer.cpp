// Reads the quantity that it is given, and says of what kind it is.

#include <iostream>
#include <varnix/value/text.h>
using namespace Varnix::Value;

int main(int, char** arguments) try {
    Value_object<double> const quantity = Parse_quantity(arguments[1]);
    std::cout << quantity.Get_value() << ' ' << quantity.Get_unit_string(STR_SYMBOL) << " is a " << Kind_name(quantity.Get_unit()) << '\n';
} catch (TextNotValid const& refusal) {
    std::cout << refusal.what() << '\n';
    return 1;
}
