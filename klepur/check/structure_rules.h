// Internal: the findings of the document as those of rules.
#ifndef KLEPUR_CHECK_STRUCTURE_RULES_H
#define KLEPUR_CHECK_STRUCTURE_RULES_H

#include <klepur/check/report.h>
#include <klepur/document/document.h>

namespace klepur::internal {

void ReportStructure(const Document& document, Report& report);

}  // namespace klepur::internal

#endif
