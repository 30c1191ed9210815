// Reads a unit before main(), before the initialisers of a static library have run, and again in main().
#include <varnix/value/Text_parsing.h>

#include <cstdio>

namespace {

bool read_early = true;

bool Can_read() {
    return static_cast<bool>(Varnix::Value::Try_parse_unit("kilometers/hour"));
}

[[gnu::constructor(101)]] void Read_early() {
    read_early = Can_read();
}

} // namespace

int main() {
    std::printf("%s, then %s\n", read_early ? "read" : "refused", Can_read() ? "read" : "refused");
}
