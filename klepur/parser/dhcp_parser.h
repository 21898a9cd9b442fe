// DhcpParser: a configuration file's text into a tree, and a tree back into text.
#ifndef KLEPUR_PARSER_DHCP_PARSER_H
#define KLEPUR_PARSER_DHCP_PARSER_H

#include <klepur/export.h>
#include <klepur/framework/block_parser.h>
#include <klepur/framework/section_holder.h>

#include <cstddef>
#include <string>
#include <string_view>

/// Reads and writes one DHCP server configuration file. How text becomes a tree: see
/// klepur::BlockParser.
///
/// Each one opens the system log under the identity "dhcpparser" with the process id, and closes it
/// at its end, whoever else uses it. Use a new object for each file that is read.
class KLEPUR_EXPORT DhcpParser : public klepur::BlockParser {
 public:
  /// Opens the system log: identity "dhcpparser", option LOG_PID, facility LOG_USER.
  DhcpParser() noexcept;

  /// Closes the output file when one is open, and the system log.
  ~DhcpParser() override;

  /// Writes the first top-level node of `target`, the root section, to the file at `path`,
  /// replacing what the file held. Further top-level nodes are not written.
  ///
  /// The layout: one line for each entry; a block as an empty line, its name, "{", its entries and
  /// blocks, and "}", all indented by one tab for each block around them. A commented-out line has
  /// its "#" in the first column, before the tabs.
  ///
  /// Reading what was written gives the same tree, and writing that gives the same bytes, for every
  /// file whose statements end in ";" and that has none of these:
  ///
  /// - More behind a "{" on its line. It is part of the block's name, so "host a { }" and
  ///   "subnet 10.0.0.0 netmask 255.0.0.0 { # main" come back as something else.
  /// - A "}" too many, such as that of a "{" that opened no block. What follows it hangs beside the
  ///   root section and is not written.
  /// - A block named "TREE_ROOT_SECTION". It is written without its name and braces, and what it
  ///   holds comes back as part of the block around it.
  /// - A quoted text over lines. It is written on one line, where double quotes may pair in another
  ///   way.
  /// - A "\r" that no "\n" follows. It becomes part of a line end when it ends a written line.
  ///
  /// Before the "}" of a top-level block there is an empty line unless the leftmost depth is 1.
  /// Each write, one that cannot open its file included, adds to it the number of levels on the way
  /// from the root's first child down through first children. So the empty line is left out by the
  /// first write of a file with blocks when the first of these holds none.
  ///
  /// \param path    where to write; null is a file that cannot be opened.
  /// \param target  what to write; when null, the tree last read or written.
  /// \return true when the file was opened and written; a short write, as on a full disk, is not
  ///         reported. False when there is no tree or its top level is empty, and when the file
  ///         cannot be opened, which is then left as it was.
  ///
  /// Cost: linear in the text written.
  bool FileWriter(const char* path, CfSectionHolder* target);

  /// The text that FileWriter would write; nothing else changes, and the leftmost depth does not grow. The
  /// empty text when there is no tree or its top level is empty. Cost: FileWriter, and memory for the text.
  std::string TextOf(CfSectionHolder* target);

  /// Writes a block's name, its "{" and its entries to the open file, one level deeper than the
  /// last. A section named "TREE_ROOT_SECTION" is the root: level 0, no header.
  /// \return true.
  bool WriteSection(CfSection& section);

  /// Writes a block's "}" to the open file and goes up one level. Nothing for the root.
  /// \return 0.
  int WriteSectionEnd(CfSection& section);

  /// Writes a text to the open file, behind all that was written before.
  /// \return how many bytes were written; 0 when no file is open or `text` is null.
  std::size_t WriteBuff(const char* text);

 protected:
  unsigned int writeDepth;     ///< How many blocks are around the text being written.
  unsigned int leftmostDepth;  ///< Grows with every write, see FileWriter.

 private:
  class Collecting;
  char* Room(std::size_t size);
  void MakeRoom(std::size_t size);
  void AppendLine(std::size_t tabs, std::string_view line);
  void AppendEntry(std::size_t tabs, const CfSectionEntry& entry);
  void WriteWhenLong() noexcept;
  void WriteCollected() noexcept;
  void FinishFile() noexcept;

  std::string text_;           // its front is about to be written
  std::size_t collected_ = 0;  // how long that is
  std::size_t writeSize_ = 0;  // how long that must be to be written: 0 but for whole files
};

/// Calls WriteSection of the DhcpParser that `ctx` points at. False when `ctx` is null.
KLEPUR_EXPORT bool WriteSectionW(void* ctx, CfSection& section);

/// Calls WriteSectionEnd of the DhcpParser that `ctx` points at. False when `ctx` is null.
KLEPUR_EXPORT bool WriteSectionEndW(void* ctx, CfSection& section);

#endif
