// What the page calls: one question as the command-line tool answers it, on its standard output and error.

#include "Commands.h"
#include "Reports.h"
#include "Streams.h"

#include <exception>
#include <string>

using namespace Varnix::Value;
using namespace Varnix::Value::Tool;

namespace {

Exit_status Answer(std::string const& question, std::string const& unit, std::string const& with,
                   Options const& options, Output& output) {
    if (unit.empty() && !with.empty()) {
        throw Refusal("a unit to convert to is missing, by what stands across");
    }
    if (Is_expression(question) || unit.empty()) {
        Computation_request request;
        request.words = {question};
        request.to = unit;
        request.with = with;
        return Compute(request, options, output);
    } else {
        Conversion_request request;
        request.quantities = {question};
        request.to = unit;
        request.with = with;
        return Convert_quantities(request, options, output);
    }
}

} // namespace

// `unit` and `with` may be empty. `json`: for the picture; otherwise as people read it. Returns the tool's
// exit status.
extern "C" int answer(char const* question, char const* unit, char const* with, int json) {
    Output output;
    Options options;
    options.json = json != 0;
    try {
        // A quantity that is refused is reported, and the status says so.
        Exit_status const status = Answer(question, unit, with, options, output);
        output.Flush();
        return status;
    } catch (Refusal const& refusal) {
        Report(refusal);
        return exit_refused;
    } catch (std::exception const& failure) {
        Report(failure.what());
        return exit_trouble;
    }
}
