// Internal: writing over the bytes of a file.
#ifndef KLEPUR_STORAGE_IN_PLACE_H
#define KLEPUR_STORAGE_IN_PLACE_H

#include <cstdint>
#include <string>

#include <klepur/storage/pieces.h>

namespace klepur::internal {

/// Writes a text over the bytes of a file, flushes it, reads it back and compares. When that fails the old
/// bytes are written again; the error says if they could not be.
///
/// \param path  how the file is called in errors.
/// \return the checksum of the text. Throws Error(kFile).
std::uint64_t WriteInPlace(const std::string& target, const std::string& path, const Pieces& text);

}  // namespace klepur::internal

#endif
