#pragma once

#include "cli/command.h"
#include "store/json_schema.h"

namespace ledra {

/// Writes a value as pretty-printed JSON on the standard output.
template <class T>
void writeJson(const T& value)
{
    OrderedJSONEncoder encoder;
    encoder.outputFormatting = {JSONFormatting::prettyPrinted};
    writeOutput(encoder.encode(value).value());
}

} // namespace ledra
