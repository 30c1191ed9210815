// ValueObject text: quantities printed with the {fmt} library.
//
//     #include <varnix/value/text_fmt.h>
//     using namespace Varnix::Value;
//
//     Value_object<double> const length(1234.5, C_Meter, 1234.0, 1235.0);
//     fmt::print("{}\n", length);        // 1234.5 m [1234, 1235]
//     fmt::print("{:bpk}\n", length);    // 1.23450 ± 0.00050 km
//
// The text after the colon is what `Read_text_format` reads; a wrong one is an error where {fmt}
// reads its format string, at compile time by default. Only this header needs {fmt}, and a program
// that includes it links to {fmt} or defines FMT_HEADER_ONLY.
//
// Threads: as {fmt} itself.

#ifndef VARNIX_VALUE_TEXT_FMT_H
#define VARNIX_VALUE_TEXT_FMT_H

#include <varnix/value/Text_formatting.h>

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

/// @cond Doxygen does not find the scope of the specialisation
/// Prints a quantity as `Varnix::Value::Format` does.
template <>
struct fmt::formatter<Varnix::Value::Value_object<double>> {
    /// Reads the format. @throws fmt::format_error where `Try_read_text_format` fails.
    constexpr auto parse(format_parse_context& context) {
        auto end = context.begin();
        while (end != context.end() && *end != '}') {
            ++end;
        }
        auto const length = static_cast<std::size_t>(end - context.begin());
        std::string_view const text =
            length == 0 ? std::string_view() : std::string_view(&*context.begin(), length);
        if (!Varnix::Value::Try_read_text_format(text, format_)) {
            throw fmt::format_error("a quantity's format is [.N | .Nf | b][p | ~][k]");
        }
        return end;
    }

    /// Writes the quantity. @throws std::bad_alloc
    template <typename Context>
    auto format(Varnix::Value::Value_object<double> const& quantity, Context& context) const {
        std::string const text = Varnix::Value::Format(quantity, format_);
        return std::copy(text.begin(), text.end(), context.out());
    }

  private:
    Varnix::Value::Text_format format_;
};
/// @endcond

#endif
