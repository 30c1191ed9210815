#include "Strict_rules.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>

namespace Varnix::Value::Tool {

std::string Described(Units const& unit) {
    std::string const text = Format_unit(unit);
    return text.empty() ? "a plain number" : text + " (" + Kind_name(unit) + ')';
}

void Refuse(Wording const& what, std::string const& reason) {
    throw Refusal(what() + ": " + reason + " (--by-the-rules skips this check)");
}

std::string Reason(std::exception const& failure) {
    std::string const text = failure.what();
    std::size_t const last = text.rfind(": ");
    return last == std::string::npos ? text : text.substr(last + 2);
}

} // namespace Varnix::Value::Tool
