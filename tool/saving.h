// The file that a command edits: read, and saved so that it cannot be lost.
#ifndef KLEPUR_TOOL_SAVING_H
#define KLEPUR_TOOL_SAVING_H

#include <klepur/document/document.h>
#include <klepur/storage/save_options.h>
#include <klepur/storage/stored_file.h>

#include <optional>
#include <string>
#include <vector>

#include <tool/invocation.h>

namespace klepur::tool {

/// What a save did, in the words that people are told.
struct Saved {
  bool written = false;  ///< False when there was nothing to change, or nothing may be written.
  std::vector<std::string> notes;  ///< "the old text is in dhcpd.conf.20240517T081500Z"
};

/// FILE and the options that all editing commands share: where it is read from, what holds it locked meanwhile,
/// and where the new text goes.
class EditedFile {
 public:
  /// Reads FILE, or the one of several that is named. It is locked until this object is gone, if it is going
  /// to be replaced.
  ///
  /// \param only_reads  nothing will be saved, as with --dry-run.
  explicit EditedFile(const Invocation& invocation);
  EditedFile(const Invocation& invocation, const std::string& path, bool only_reads);

  klepur::Document& Document() { return document_; }
  /// What the document was when it was read. Not for a file that was replaced.
  const klepur::Document::Mark& AsRead() const { return as_read_; }
  /// Takes a new text instead of the document.
  void Replace(std::string text);
  /// Whether the text is another than what was read.
  bool IsChanged() const;
  /// How the file is called in messages.
  std::string Name() const;
  /// The text as it was read, as a document of its own.
  klepur::Document Before() const;
  /// What was edited, as a unified diff; empty when nothing.
  std::string Diff() const;
  /// Whether --dry-run forbids to write anything.
  bool IsDry() const { return is_dry_; }
  /// Whether the new text goes to standard output.
  bool GoesToOutput() const { return !is_dry_ && output_ == "-"; }

  /// Writes the new text to where it belongs. Throws klepur::Error; the file then is as it was.
  Saved Save();

 private:
  SaveOptions Options() const;

  const Invocation& invocation_;
  std::string path_;
  std::string output_;  ///< Empty: the file itself.
  bool is_dry_;
  bool is_replaced_ = false;
  std::optional<StoredFile> file_;  ///< None for standard input.
  std::string input_;               ///< What standard input held.
  klepur::Document document_;
  klepur::Document::Mark as_read_;
};

}  // namespace klepur::tool

#endif
