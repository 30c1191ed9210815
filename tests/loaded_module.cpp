// A module that uses the library, for load_test.cpp to load.

#include "Answers.h"

extern "C" [[gnu::visibility("default")]] std::uint64_t Module_answers(std::size_t count) {
    return Varnix::Value::Tests::Answers(count);
}
