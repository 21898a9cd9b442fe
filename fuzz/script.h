// Blocks and names as the inputs of fuzz targets write them.
#ifndef KLEPUR_FUZZ_SCRIPT_H
#define KLEPUR_FUZZ_SCRIPT_H

#include <string_view>

#include "tests/random/record.h"
#include "tests/random/side.h"

namespace klepur::fuzz {

/// "3|0=pc-17|#16=00:11:22:33:44:55": the record's type, then each parameter, "#" before one that
/// is commented out. A parameter without "=" is a name.
test::Record ReadRecord(std::string_view text);

/// "#range 1 2;": a line, commented out.
test::ModelLine ReadLine(std::string_view text);

/// "-" is a null pointer.
test::MaybeText ReadMaybeText(std::string_view text);

}  // namespace klepur::fuzz

#endif
