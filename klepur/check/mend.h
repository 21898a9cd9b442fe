// A change of a document that puts a finding right.
#ifndef KLEPUR_CHECK_MEND_H
#define KLEPUR_CHECK_MEND_H

#include <string>
#include <utility>

#include <klepur/document/document.h>
#include <klepur/document/node.h>
#include <klepur/export.h>

namespace klepur {

/// One obvious way to put right what a finding says: another text for one statement or header, or
/// nothing in its place. A small value, to be copied freely; it must not be used when the document is
/// gone.
class KLEPUR_EXPORT Mend {
 public:
  /// Another text for a statement, `range 10.0.0.1 10.0.0.9;`, or for a block's header, without its "{".
  static Mend Replace(Node node, std::string text, std::string description);
  /// The node is taken out, with its comments as Node::Remove does it.
  static Mend Remove(Node node, std::string description);

  /// What it does, for people: `write "max-lease-time"`.
  const std::string& Description() const noexcept { return description_; }

  /// Whether Apply can still be done: the statement or header stands in the document, as it was when the
  /// finding was made.
  bool Fits(const Document& document) const;

  /// Does it, as one edit that can be rolled back. Throws Error(kGone) when it does not fit any more, and
  /// what the document's edits throw; the document is then as it was. What else was found in the same
  /// statement no longer fits afterwards: check again.
  void Apply(Document& document) const;

 private:
  Mend(Node node, std::string text, std::string description, bool removes);

  Node node_;
  std::string was_;
  std::string text_;
  std::string description_;
  bool removes_;
};

}  // namespace klepur

#endif
