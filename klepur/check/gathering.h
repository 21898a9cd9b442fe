// Internal: what a statement or block adds to the facts.
#ifndef KLEPUR_CHECK_GATHERING_H
#define KLEPUR_CHECK_GATHERING_H

#include <klepur/check/facts.h>
#include <klepur/check/item.h>

namespace klepur::internal {

/// Says whether the value was read on that occasion, and is right.
bool GatherStatement(const Item& item, Facts& facts);
/// Gives the frame in which the block's children stand.
Frame GatherBlock(const Item& item, Facts& facts);

}  // namespace klepur::internal

#endif
