#include "Number_reader.h"

#include "Characters.h"

#include <charconv>
#include <optional>
#include <system_error>

namespace Varnix::Value {

namespace {

// A number without its sign.
struct Magnitude {
    std::size_t start;
    bool negative;
};

Magnitude Skip_sign(std::string_view text, std::size_t position) {
    std::size_t const minus = Minus_size(text, position);
    bool const plus = Character_at(text, position).kind == Character_kind::plus;
    return {position + (plus ? 1 : minus), minus != 0};
}

char Lower_at(std::string_view text, std::size_t position) {
    return position < text.size() ? static_cast<char>(text[position] | 0x20) : '\0';
}

bool Is_hexadecimal(std::string_view text, std::size_t start) {
    return text.substr(start, 1) == "0" && Lower_at(text, start + 1) == 'x';
}

bool Is_not_finite(std::string_view text, std::size_t start) {
    auto const is = [&](char const* word) {
        return Lower_at(text, start) == word[0] && Lower_at(text, start + 1) == word[1] &&
               Lower_at(text, start + 2) == word[2];
    };
    return is("inf") || is("nan");
}

// A comma between digits, or digits in groups: numbers of another notation.
std::optional<Text_fault> Notation_fault(std::string_view text, std::size_t end) {
    auto const digit_at = [&](std::size_t position) {
        return Character_at(text, position).kind == Character_kind::digit;
    };
    char const next = end < text.size() ? text[end] : '\0';
    if ((next == '_' || next == '\'') && digit_at(end + 1)) {
        return Text_fault{end, "digits are written without separators", {}};
    }
    std::size_t const behind_blanks = Skip_blanks(text, end);
    if (behind_blanks != end && digit_at(behind_blanks) &&
        Character_at(text, Skip_blanks(text, behind_blanks + 1)).kind != Character_kind::slash) {
        return Text_fault{behind_blanks, "digits are written without blanks between them", {}};
    }
    return std::nullopt;
}

std::optional<Text_fault> Form_fault(std::string_view text, std::size_t start, Number_forms forms) {
    if (!forms.hexadecimal && Is_hexadecimal(text, start)) {
        return Text_fault{start, "hexadecimal numbers are not read here", {}};
    }
    if (!forms.not_finite && Is_not_finite(text, start)) {
        return Text_fault{start, "numbers that are not finite are not read here", {}};
    }
    return std::nullopt;
}

} // namespace

Parse_result<Read_number_result> Read_number(std::string_view text, std::size_t position,
                                             Number_forms forms) {
    auto const [start, negative] = Skip_sign(text, position);
    if (std::optional<Text_fault> fault = Form_fault(text, start, forms)) {
        return std::move(*fault);
    }
    bool const hexadecimal = Is_hexadecimal(text, start);
    std::size_t const digits = start + (hexadecimal ? 2 : 0);
    char const* const last = text.data() + text.size();
    double value = 0.0;
    // A second sign would be read as well, and behind "0x" a word.
    bool const misplaced = (digits < text.size() && text[digits] == '-') ||
                           (hexadecimal && Is_not_finite(text, digits));
    auto const [behind, error] =
        std::from_chars(misplaced ? last : text.data() + digits, last, value,
                        hexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::invalid_argument) {
        return Text_fault{digits, "expected a number, found " + Described(text, digits), {}};
    }
    if (error == std::errc::result_out_of_range) {
        return Text_fault{position, "the number is beyond the range of double", {}};
    }
    auto const end = static_cast<std::size_t>(behind - text.data());
    if (std::optional<Text_fault> fault = Notation_fault(text, end)) {
        return std::move(*fault);
    }
    return Read_number_result{
        {negative, text.substr(start, end - start), 0, negative ? -value : value}, end};
}

} // namespace Varnix::Value
