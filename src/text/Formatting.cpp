// Quantities as text, by the one writer.

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_writing.h>

#include <ostream>
#include <stdexcept>
#include <string>

namespace Varnix::Value {

std::string Format(Value_object<double> const& quantity, Text_format const& format) {
    // The electrical relations leave the bounds as they come; a copy has them in ascending order.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    Value_object<double> const ordered(quantity);
    Exact_numbers numbers{ordered.Get_value(), ordered.Get_minus_err(), ordered.Get_plus_err()};
    Writing const writing{format};
    Units unit = ordered.Get_unit();
    if (format.engineering_prefix) {
        unit = Choose_prefix(numbers, unit, writing);
    }
    return Write_numbers(numbers, Format_unit(unit, format.unit), writing);
}

std::string Format_number(double number, Text_format const& format) {
    return Write_numbers({number, number, number}, "", {format});
}

std::ostream& operator<<(std::ostream& stream, Value_object<double> const& quantity) {
    return stream << Format(quantity);
}

void Throw_format_not_valid() {
    throw std::invalid_argument("a format is [.N | .Nf | b][p | ~][k], with up to 100 digits");
}

} // namespace Varnix::Value
