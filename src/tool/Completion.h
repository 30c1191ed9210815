// What may stand next on a command line, for the shells.

#ifndef VARNIX_VALUE_TOOL_COMPLETION_H
#define VARNIX_VALUE_TOOL_COMPLETION_H

#include "Reports.h"
#include "Streams.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace Varnix::Value::Tool {

// "value-object complete WORD..." is how the shells ask; completions/ has what each of them runs.
inline constexpr char const* Completion_command = "complete";

// Writes what the last of `words` may become, one a line, with its meaning behind a tab. Nothing
// is written where files may stand, or where there is nothing to say.
Exit_status Write_completions(CLI::App const& tool, std::vector<std::string> const& words,
                              Output& output);

} // namespace Varnix::Value::Tool

#endif
