// A logger's lines, checked against limits: what passes, what fails, and what cannot be said with
// the instrument at hand. What cannot be read, or has another kind, says why.

#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>

#include <iostream>

using namespace Varnix::Value;

namespace {

char const* Word(Verdict verdict) {
    return verdict == Verdict::pass ? "pass" : verdict == Verdict::fail ? "FAIL" : "undecided";
}

} // namespace

int main() {
    char const* const lines[] = {"5.02 ± 0.01 V", "5240 ± 20 mV", "5.5 V",
                                 "4.9 dBV",       "0.8 A",        "5,1 V"};
    Measurement const low = Parse_measurement("4.75 V");
    Measurement const high = Parse_measurement("5.25 V");
    for (char const* const line : lines) {
        auto const reading = Try_parse_measurement(line);
        if (!reading) {
            std::cout << line << ": " << reading.Get_fault().message << '\n';
            continue;
        }
        try {
            Verdict const verdict = Check_limits(*reading, low, high);
            std::cout << line << ": " << Word(verdict) << '\n';
        } catch (MeasurementRefused const& refused) {
            std::cout << line << ": " << refused.what() << '\n';
        }
    }
}
