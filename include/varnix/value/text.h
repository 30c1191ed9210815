// ValueObject text: everything that reads and names units and quantities as text.
//
//     #include <varnix/value/text.h>
//     using namespace Varnix::Value;
//
//     Value_object<double> const power = Parse_quantity("30 dBm [29, 31]").Convert_to(C_Watts);
//
// This header only includes the others; each of them can be included alone.

#ifndef VARNIX_VALUE_TEXT_H
#define VARNIX_VALUE_TEXT_H

#include <varnix/value/Text_formatting.h> // IWYU pragma: export
#include <varnix/value/Text_parsing.h>    // IWYU pragma: export
#include <varnix/value/Text_writing.h>    // IWYU pragma: export
#include <varnix/value/Unit_kinds.h>      // IWYU pragma: export

#endif
