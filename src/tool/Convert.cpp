// `convert`: the quantities of the command line.

#include "Quantity_converter.h"
#include "Written_results.h"

namespace Varnix::Value::Tool {

Exit_status Convert_quantities(Conversion_request const& request, Options const& options,
                               Output& output) {
    Quantity_converter converter(request, options);
    Exit_status status = exit_done;
    for (std::string const& text : request.quantities) {
        try {
            Write_result(text, converter.Convert(text), options, output);
        } catch (Refusal const& refusal) {
            output.Flush();
            Report(refusal);
            status = exit_refused;
            if (!options.keep_going) {
                break;
            }
            Write_refused(text, refusal, options, output);
        }
    }
    return status;
}

} // namespace Varnix::Value::Tool
