// Internal: the next byte that matters, in the text of a configuration file.
#ifndef KLEPUR_TEXT_STRUCTURAL_BYTES_H
#define KLEPUR_TEXT_STRUCTURAL_BYTES_H

#include <klepur/text/byte_block.h>
#include <klepur/text/padding.h>

#include <cstddef>
#include <cstring>

// All of these look at [from, end) and return a place in it, or `end`. Those that look at blocks
// also touch bytes behind `end`, of which kPadding must be readable; what stands there is never
// taken for an answer. Cost: linear in the distance of what is found.

namespace klepur::internal {

/// The first of the bytes `;`, `{`, `}`, `#`, `"` and LF. To find all, see StructuralScan.
const char* FindStructural(const char* from, const char* end);

/// The first byte that is not a blank: no space, TAB, LF, VT, FF or CR.
const char* SkipBlanks(const char* from, const char* end);

/// The first `"` or `\`, which is where the text of a string ends or goes on differently.
const char* FindStringMark(const char* from, const char* end);

/// The first LF. Nothing else ends a line or a comment, CR neither.
const char* FindLineEnd(const char* from, const char* end);

/// The same byte by byte, which takes no padding: for machines without ByteBlock, and to compare.
const char* FindStructuralPlainly(const char* from, const char* end);
const char* SkipBlanksPlainly(const char* from, const char* end);
const char* FindStringMarkPlainly(const char* from, const char* end);

/// Whether it is one of those that SkipBlanks skips.
inline bool IsBlank(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

#if defined(KLEPUR_BYTE_BLOCK)

/// The first place whose bit is set in what `fits` makes of the blocks from there on.
template <class Fits>
const char* FindInBlocks(const char* from, const char* end, Fits fits) {
  for (; from < end; from += ByteBlock::kSize) {
    if (const std::uint64_t mask = fits(ByteBlock(from))) {
      const char* const found = from + ByteBlock::First(mask);
      return found < end ? found : end;
    }
  }
  return end;
}

/// Which bytes are `;`, `{`, `}`, `#` or `"`.
inline ByteBlock StructuralBytesOf(ByteBlock block) {
  // Two pairs of them differ in one bit each.
  return block.With('"' ^ '#').Are('#') | block.With(';' ^ '{').Are('{') | block.Are('}');
}

inline const char* FindStructural(const char* from, const char* end) {
  return FindInBlocks(from, end, [](ByteBlock block) {
    return (StructuralBytesOf(block) | block.Are('\n')).Mask();
  });
}

inline const char* SkipBlanks(const char* from, const char* end) {
  return FindInBlocks(from, end, [](ByteBlock block) {
    return ByteBlock::Others((block.AreIn('\t', '\r') | block.Are(' ')).Mask());
  });
}

inline const char* FindStringMark(const char* from, const char* end) {
  return FindInBlocks(from, end,
                      [](ByteBlock block) { return (block.Are('"') | block.Are('\\')).Mask(); });
}

#else

inline const char* FindStructural(const char* from, const char* end) {
  return FindStructuralPlainly(from, end);
}
inline const char* SkipBlanks(const char* from, const char* end) {
  return SkipBlanksPlainly(from, end);
}
inline const char* FindStringMark(const char* from, const char* end) {
  return FindStringMarkPlainly(from, end);
}

#endif

inline const char* FindLineEnd(const char* from, const char* end) {
  const void* const found = std::memchr(from, '\n', static_cast<std::size_t>(end - from));
  return found == nullptr ? end : static_cast<const char*>(found);
}

}  // namespace klepur::internal

#endif
