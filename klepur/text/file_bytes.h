// Internal: all bytes of a file.
#ifndef KLEPUR_TEXT_FILE_BYTES_H
#define KLEPUR_TEXT_FILE_BYTES_H

#include <klepur/text/text_buffer.h>

#include <cstddef>
#include <string>
#include <variant>

namespace klepur::internal {

/// More bytes than this are no text: places in it, and a few numbers beside them, have 32 bits.
inline constexpr std::size_t kMostBytes = (std::size_t{4} << 30) - (std::size_t{64} << 10) - 1;

/// Why a file was not read.
struct FileFailure {
  enum class Step { kOpen, kRead };
  Step step;
  int reason;  // as in errno; EFBIG for a file of more bytes than are wanted
};

/// Reads a file of any kind: a regular one, a pipe until its writers have closed it, a device.
///
/// The text is what reading from the first byte to the end brings, also when the file grows or
/// shrinks meanwhile. It is not mapped: a file that shrinks later changes nothing.
///
/// \param path  "/etc/dhcp/dhcpd.conf"; empty is no file. A "-" is a file of that name.
/// \param most  the most bytes that are wanted. Of a regular file that is larger nothing is read.
/// \return the text; or why there is none, and then no file is open.
///
/// Throws std::bad_alloc when there is no memory for the text; no file is open then either. Cost:
/// the file's size, in time and in memory; a text of less than 1 MiB that is a regular file's takes
/// no more than it has bytes.
std::variant<TextBuffer, FileFailure> ReadFileBytes(const std::string& path,
                                                    std::size_t most = kMostBytes);

/// The same of a file that is open, from where it stands.
std::variant<TextBuffer, FileFailure> ReadOpenFile(int file, std::size_t most = kMostBytes);

}  // namespace klepur::internal

#endif
