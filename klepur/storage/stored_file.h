// A file that is read, and saved so that it cannot be lost.
#ifndef KLEPUR_STORAGE_STORED_FILE_H
#define KLEPUR_STORAGE_STORED_FILE_H

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include <klepur/document/document.h>
#include <klepur/export.h>
#include <klepur/storage/save_options.h>
#include <klepur/storage/save_report.h>

namespace klepur {

/// What happens when a file that is to be opened does not exist.
enum class IfMissing {
  kFail,  ///< An error.
  kMake,  ///< It is empty, and the first save makes it.
};

/// A file, and what it was when it was read.
///
///     klepur::StoredFile file = klepur::StoredFile::OpenLocked("/etc/dhcp/dhcpd.conf");
///     klepur::Document document = file.Read();
///     document.Find("host pc1").Set("fixed-address", "10.0.0.7");
///     file.Save(document);
///
/// **What a save promises.** At every moment, however the process or the machine ends, the path holds
/// the whole old or the whole new text, except where the caller allowed writing in place
/// (SaveOptions::InPlaceIfNeeded). The new text is written to a file beside the old one, read back and
/// compared, flushed, and renamed over it; then the folder is flushed. Owner, group, mode, access lists and
/// extended attributes stay; a symbolic link stays one, and what it leads to is replaced. Other hard links to
/// the file keep the old text. docs/storage.md says on which file systems this holds.
///
/// **Other writers.** A save fails with kChanged, and writes nothing, when the file is another one than was
/// read: its size differs, or its content does where identity or times differ or are too young to
/// tell. Savers of one file wait for each other. Two programs that both read, edit and save lose no edit if
/// they use OpenLocked, which makes the second one wait before it reads; with Open, the second one to save
/// fails. The lock is advisory: editors do not heed it, and what they write between the last look at the
/// file and the renaming, which follows at once, is lost.
///
/// **Failures** are Error, and name the step, the path and the system's reason. The old file is then
/// untouched, and nothing is left beside it. kFile: a step failed. kChanged: see above. kLocked: another saver
/// held the lock for too long. kRefused: the file can only be written in place. kRejected: see
/// RejectedText. The object can be used on, and the save be tried again.
///
/// One object is used by one thread at a time; several may be open on a file, also in one process.
class KLEPUR_EXPORT StoredFile {
 public:
  /// Opens a file without a lock. Only what is a regular file behind symbolic links can be opened.
  ///
  /// \param path  "/etc/dhcp/dhcpd.conf"; a relative one begins in the working folder, now and at each
  ///              save.
  static StoredFile Open(const std::string& path, IfMissing missing = IfMissing::kFail);

  /// Opens a file and holds its lock until the object is destroyed or Unlock is called, over saves too. A file
  /// that is missing has no lock before its first save; of two programs that make it one gets kChanged.
  ///
  /// \param limit  how long to wait for the lock; then kLocked is thrown. 0 not to wait.
  static StoredFile OpenLocked(const std::string& path,
                               std::chrono::milliseconds limit = std::chrono::seconds(10),
                               IfMissing missing = IfMissing::kFail);

  StoredFile(StoredFile&&) noexcept;
  StoredFile& operator=(StoredFile&&) noexcept;
  ~StoredFile();

  /// The path given.
  const std::string& Path() const noexcept;
  /// The path of the file itself, absolute and without symbolic links.
  const std::string& Target() const noexcept;
  /// Whether there was such a file when it was opened, or there is since a save.
  bool Exists() const noexcept;
  bool IsLocked() const noexcept;
  /// Lets others save. Does nothing when the lock is not held.
  void Unlock() noexcept;

  /// Reads the file as it is now; from here on this is what a save compares it with. Before the first
  /// reading that is the file as it was opened. Document::Path() is the path given.
  /// Cost: Document::Read, and a pass over the bytes.
  Document Read();
  /// The same as a text.
  std::string ReadText();

  /// Whether the file is another one than was read: what makes a save fail that is not forced.
  /// Cost: reads the file where identity, size and times do not tell.
  bool HasChanged() const;

  /// Saves the text of a document, or a text, and remembers the file anew. When the file holds the text already,
  /// whoever wrote it, nothing is touched: no backup is made and no verifier is run.
  ///
  /// Files that a killed saver left beside it are removed. They are called ".NAME.klepur-PID-XXXXXXXX", and
  /// locked while their saver lives.
  /// Cost: writes the text and reads it, and waits for the disk.
  SaveReport Save(const Document& document, const SaveOptions& options = SaveOptions());
  SaveReport Save(std::string_view text, const SaveOptions& options = SaveOptions());

  /// What Save would change in the file as it is now: a unified diff (UnifiedDiff) of the texts, with the
  /// path given as both names; empty when nothing.
  std::string Diff(const Document& document) const;
  std::string Diff(std::string_view text) const;

 private:
  struct State;
  explicit StoredFile(std::unique_ptr<State> state) noexcept;

  std::unique_ptr<State> state_;
};

/// Saves a text for a caller who has not read the file, as StoredFile::Save does: what the file holds
/// when the call begins is replaced, and a missing file is made.
KLEPUR_EXPORT SaveReport SaveText(const std::string& path, std::string_view text,
                                  const SaveOptions& options = SaveOptions());

}  // namespace klepur

#endif
