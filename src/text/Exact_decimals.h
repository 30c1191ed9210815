// Exact numbers, and the decimals that round them: nothing here loses a digit unasked.

#ifndef VARNIX_VALUE_TEXT_EXACT_DECIMALS_H
#define VARNIX_VALUE_TEXT_EXACT_DECIMALS_H

#include <string>

namespace Varnix::Value {

// Exactly number * 10^power. The number is finite.
struct Scaled_number {
    double number = 0.0;
    int power = 0;
};

// Exactly digits * 10^place.
struct Decimal {
    bool is_negative = false; // zero as well, as a double may be
    std::string digits;       // without leading zeros; empty for zero
    int place = 0;
};

enum class Rounding { nearest, down, up }; // nearest: ties to even

// All digits, and none behind the last that is not zero.
Decimal Exactly(Scaled_number const& x);

// The number rounded to a multiple of 10^place.
Decimal Rounded(Scaled_number const& x, int place, Rounding rounding);

// The number rounded to so many digits, 1 or more; where a carry makes it longer, a place earlier.
Decimal Rounded_to_digits(Scaled_number const& x, int digits, Rounding rounding);

// The fewest digits that give back the double, times the power of ten.
Decimal Shortest(Scaled_number const& x);

// The decimal with the fewest digits that is not above the double, and not below the next lesser
// double; and the same above. Beyond the greatest double there is no next: 17 digits.
Decimal Shortest_below(Scaled_number const& x);
Decimal Shortest_above(Scaled_number const& x);

// The decimal with the fewest digits from `least` to `greatest`, and the nearest to `x` of these.
// All three are times 10^power, and there is a step of a double between the two.
Decimal Shortest_within(double least, double greatest, Scaled_number const& x);

// first - second.
Decimal Difference(Decimal const& first, Decimal const& second);

// The place of the first digit of a number other than zero, or the one below it.
int Estimated_place(Scaled_number const& x);

// Whether two are the same number; zero has no sign here.
bool Are_equal(Decimal const& first, Decimal const& second);

// The place of the first digit; of zero, its own.
int Leading_place(Decimal const& decimal);

// Without zeros behind the last digit that is not one, as far as `last_place`.
void Remove_trailing_zeros(Decimal& decimal, int last_place);

// "12.50", "-0.3", "1200", where places above the units are filled with zeros; or "1.25e-12".
enum class Notation { fixed, with_exponent };
void Append(std::string& text, Decimal const& decimal, Notation notation);

// The shorter notation, as std::to_chars has it.
Notation Shorter_notation(Decimal const& decimal);

// The notation that is easy to read for a number whose first digit is at that place.
Notation Readable_notation(int leading_place);

} // namespace Varnix::Value

#endif
