// Units and quantities as people type them: read strictly, refused with the place and a suggestion, and written
// so that they read back.

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>

#include <exception>
#include <iostream>

using namespace Varnix::Value;

int main() try {
    Value_object<double> const level = Parse_quantity("30 dBm [29, 31]"); // throws TextNotValid
    std::cout << level.Convert_to(Parse_unit("mW")) << '\n';
    for (char const* const text : {"km/h", "degC", "pinch", "ton"}) {
        if (auto const unit = Try_parse_unit(text)) {
            std::cout << text << ": " << Format_unit(*unit, STR_NAME) << '\n';
        } else {
            Text_fault const& fault = unit.Get_fault();
            std::cout << text << ": at " << fault.position << ", " << fault.message << '\n';
        }
    }
    std::cout << Format(level, Read_text_format("bp")) << '\n';
} catch (std::exception const& failure) {
    std::cout << failure.what() << '\n';
}
