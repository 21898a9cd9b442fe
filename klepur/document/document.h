// A DHCP server's configuration file, kept exactly as it is written.
#ifndef KLEPUR_DOCUMENT_DOCUMENT_H
#define KLEPUR_DOCUMENT_DOCUMENT_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <klepur/document/family.h>
#include <klepur/document/finding.h>
#include <klepur/document/node.h>
#include <klepur/document/placement.h>
#include <klepur/export.h>
#include <klepur/text/error.h>

namespace klepur {

namespace internal {
struct DocumentMaker;
}

/// The text of a dhcpd.conf or dhcpd6.conf, and its structure.
///
///     klepur::Document document = klepur::Document::Read("/etc/dhcp/dhcpd.conf");
///     klepur::Node group = document.Find("group printers");
///     klepur::Node host = group.Add("host prn7 { hardware ethernet 00:16:3e:10:00:07; }");
///     host.Set("fixed-address", "10.20.0.7");
///     std::string text = document.Text();
///
/// Any bytes can be read, and the text of a document that nobody edited is what was read, byte for byte.
/// What is malformed is told by Findings, and stays as it is.
///
/// Several threads may read one document (all that is const, and all of Node that does not edit) while
/// nobody edits it.
class KLEPUR_EXPORT Document {
 public:
  /// A state to return to, see GetMark.
  struct Mark {
    std::size_t text = 0;
    std::size_t log = 0;
    std::size_t memory = 0;
    std::uint32_t nodes = 0;
    bool malformed = false;
  };

  /// Reads a text. Throws Error(kTooLarge) from 4 GiB on. Cost: linear.
  explicit Document(std::string_view text);
  /// Reads a file. Throws Error(kFile) with the step, the path and the system's reason.
  static Document Read(const std::string& path);
  Document(Document&&) noexcept;
  Document& operator=(Document&&) noexcept;
  ~Document();

  /// Where it was read from; empty for a text.
  const std::string& Path() const;

  /// The text as it is now. Cost: a copy of it.
  std::string Text() const;
  /// The same without a copy: pieces that make up the text one behind the other, good until the
  /// document is edited.
  std::vector<std::string_view> Pieces() const;
  /// Whether the text is another than what was read.
  bool IsChanged() const;

  /// The node of the whole file.
  Node Root() const;
  /// The first block anywhere with this header, however that is spelled: Find("host pc1"),
  /// Find("host \"pc1\""), Find("subnet 10.0.0.0 netmask 255.255.255.0"). Cost: independent of the
  /// file, after the first lookup made its table.
  Node Find(std::string_view header) const;
  /// All of them in the order of the text.
  std::vector<Node> FindAll(std::string_view header) const;
  /// All blocks and statements of a keyword, in the order of the text: Walk("host"). Cost: linear in
  /// the file.
  std::vector<Node> Walk(std::string_view keyword) const;
  /// The innermost node that has bytes in a line, counted from 1: the first statement, block or comment
  /// that begins there, else the one that goes on there; the file's node for a blank line between
  /// others, and no node behind the last line.
  Node At(std::size_t line) const;

  /// What is wrong with the structure, in the order of the text. Cost: linear in the file.
  std::vector<Finding> Findings() const;
  /// Told from the content: DHCPv6 if there is a statement or block that only DHCPv6 has ("subnet6",
  /// "range6", "prefix6", "pool6"), else DHCPv4 if there is one of DHCPv4 ("subnet", "range", "pool").
  Family GetFamily() const;

  /// The state as it is now, and the way back to it: RollBack takes back all edits since. Nodes
  /// that were added since are gone, and removed ones are back. Marks that were got since are void.
  Mark GetMark() const;
  void RollBack(const Mark& mark) noexcept;
  /// Does several edits as one: when one of them throws, none has happened, and the exception goes on.
  template <class Edits>
  void AsOne(Edits edits) {
    const Mark mark = GetMark();
    BeginSeries();
    try {
      edits();
      EndSeries();
    } catch (...) {
      AbandonSeries();
      RollBack(mark);
      throw;
    }
  }

 private:
  friend struct internal::DocumentMaker;
  explicit Document(std::unique_ptr<internal::DocumentState> state);
  void BeginSeries();
  void EndSeries();
  void AbandonSeries() noexcept;

  std::unique_ptr<internal::DocumentState> state_;
};

/// A text between quotes as the language writes it, with a backslash before quotes and backslashes:
/// Quoted("z#1") is "\"z#1\"".
KLEPUR_EXPORT std::string Quoted(std::string_view text);
/// The text between the quotes of a word, without the backslashes before other bytes: WithoutQuotes("\"z#1\"") is
/// "z#1". A word without quotes as it is.
KLEPUR_EXPORT std::string WithoutQuotes(std::string_view word);

}  // namespace klepur

#endif
