// Prints what the library answers. Two builds give the same results when they print the same.

#include "Answers.h"

#include <cstdio>

int main() {
    std::puts(Varnix::Value::Tests::Answers().c_str());
}
