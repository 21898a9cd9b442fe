// Internal: the rows of the table of words.
#ifndef KLEPUR_LANGUAGE_WORD_ROWS_H
#define KLEPUR_LANGUAGE_WORD_ROWS_H

#include <cstddef>

#include <klepur/language/words.h>

namespace klepur::internal {

extern const Word* const kWordRows;
extern const std::size_t kWordCount;

}  // namespace klepur::internal

#endif
