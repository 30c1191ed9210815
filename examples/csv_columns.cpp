// A column of a CSV table in another unit: the conversion is prepared once, and each number is the nearest
// double to the exact result.

#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>

#include <iostream>
#include <sstream>
#include <string>

using namespace Varnix::Value;

int main() {
    std::istringstream table("time,altitude [ft],note\n"
                             "0,1000,climbing\n"
                             "1,1012.5,\n"
                             "2,n/a,lost\n");
    Measurement_converter const to_metres(Parse_unit("ft"), Parse_unit("m"));
    std::string line;
    std::getline(table, line);
    std::cout << "time,altitude [m],note\n";
    while (std::getline(table, line)) {
        auto const first = line.find(',') + 1;
        auto const last = line.find(',', first);
        auto const altitude = Try_parse_number(line.substr(first, last - first));
        if (altitude) { // what is no number stays as it is
            line.replace(first, last - first, Format_number(to_metres.Convert_number(*altitude)));
        }
        std::cout << line << '\n';
    }
}
