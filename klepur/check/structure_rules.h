// Internal: the findings of the document as those of rules.
#ifndef KLEPUR_CHECK_STRUCTURE_RULES_H
#define KLEPUR_CHECK_STRUCTURE_RULES_H

#include <klepur/check/report.h>
#include <klepur/document/document.h>

namespace klepur::internal {

/// \param look  whether there may be findings within statements, comments and blocks; those in between, such
///              as NUL bytes, are looked for in any case.
void ReportStructure(const Document& document, bool look, Report& report);

}  // namespace klepur::internal

#endif
