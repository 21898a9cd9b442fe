// Blocks to records and records to lines, by the model.
#ifndef KLEPUR_TESTS_RANDOM_MODEL_CONVERSION_H
#define KLEPUR_TESTS_RANDOM_MODEL_CONVERSION_H

#include <string>

#include "tests/random/model_family.h"
#include "tests/random/model_tree.h"
#include "tests/random/record.h"

namespace klepur::test {

/// The type of a line; -1 for a line of none.
int TypeOfLine(const ModelFamily& family, const std::string& line);

/// What stands between the first blank of a subnet's header and " netmask ", or its end.
std::string HeaderAddress(const std::string& header);

/// The record of a block.
Record Read(const ModelFamily& family, const ModelNode& node, bool rawEntries);

/// The record with whole lines for values. False when there is none; then `out` is as it was or
/// without parameters.
bool MakeLines(const ModelFamily& family, const Record& in, Record& out);

}  // namespace klepur::test

#endif
