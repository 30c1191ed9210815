// What the library answers, as one number: results, texts, comparisons and failures. Two runs agree
// when their numbers do.

#ifndef VARNIX_VALUE_TESTS_ANSWERS_H
#define VARNIX_VALUE_TESTS_ANSWERS_H

#include "Named_constants.h"

#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <exception>
#include <string>

namespace Varnix::Value::Tests {

// A hash of all that it is given (FNV-1a).
class Digest {
  public:
    void Add(std::string const& text) {
        for (char const letter : text) {
            sum = (sum ^ static_cast<unsigned char>(letter)) * 0x100000001b3u;
        }
    }

    void Add(double number) {
        char bytes[sizeof number];
        std::memcpy(bytes, &number, sizeof number);
        Add(std::string(bytes, sizeof bytes));
    }

    std::uint64_t Sum() const { return sum; }

  private:
    std::uint64_t sum = 0xcbf29ce484222325u;
};

inline void Add_answers(Digest& digest, Units const& from, Units const& to) {
    Value_object<double> object(17.3, from, 16.9, 18.1);
    Value_object<double> const other(4.7, to, 4.1, 5.3);
    digest.Add(object.Get_unit_string(STR_SYMBOL) + Units_library::Get_unit_string(Units_library::Divide_units(from, to), STR_NAME));
    try {
        object *= other;
        digest.Add(object.Get_plus_err());
        object = Value_object<double>(17.3, from, 16.9, 18.1).Convert_to(to);
        digest.Add(object < other ? object.Get_minus_err() : object.Get_value());
        digest.Add(Value_converter<double>(to, from).Convert(1.5));
    } catch (std::exception const& failure) {
        digest.Add(failure.what());
    }
}

// Over the pairs of the first `count` named units with all others.
inline std::uint64_t Answers(std::size_t count) {
    Digest digest;
    for (std::size_t k = 0; k < std::min(count, std::size(named_constants)); ++k) {
        for (Named_constant const& to : named_constants) {
            Add_answers(digest, *named_constants[k].unit, *to.unit);
        }
    }
    return digest.Sum();
}

} // namespace Varnix::Value::Tests

#endif
