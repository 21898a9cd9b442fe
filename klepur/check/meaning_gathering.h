// Internal: what statements and blocks refer to, and what they set for others.
#ifndef KLEPUR_CHECK_MEANING_GATHERING_H
#define KLEPUR_CHECK_MEANING_GATHERING_H

#include <klepur/check/facts.h>
#include <klepur/check/item.h>

namespace klepur::internal {

/// Adds the references and settings of a statement or header.
void GatherReferences(const Item& item, Facts& facts);
/// Makes what is worked out of all facts, when the walk is done.
void FinishFacts(Facts& facts);

}  // namespace klepur::internal

#endif
