// Internal: a file that is made beside another, to take its place.
#ifndef KLEPUR_STORAGE_NEW_FILE_H
#define KLEPUR_STORAGE_NEW_FILE_H

#include <sys/types.h>

#include <cstdint>
#include <string>

#include <klepur/storage/pieces.h>
#include <klepur/text/descriptor.h>

namespace klepur::internal {

/// A file of a name that is recognised later (strays.h), locked while it lives, and removed at the end unless
/// it took the other one's place. In errors it is called by the path given.
class NewFile {
 public:
  /// Makes an empty one. Throws Error(kRefused) when the folder does not allow that, and Error(kFile).
  /// \param target  the file beside which it is made
  /// \param mode    as for open
  /// \param locked  false where files cannot be locked
  NewFile(const std::string& target, const std::string& path, mode_t mode, bool locked);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  int File() const noexcept { return file_.Get(); }
  const std::string& Name() const noexcept { return name_; }

  /// Writes a text, reads it back and compares. Throws Error(kFile).
  /// \return the checksum of the text.
  std::uint64_t Write(const Pieces& text);

  /// Copies another open file, as Write writes a text.
  void WriteCopyOf(int file);

  /// Throws Error(kFile) when somebody wrote over the text, or over the file.
  void RequireStill(const Pieces& text) const;

  /// Flushes it to the disk. Throws Error(kFile).
  void Flush() const;

  /// Takes the place of a file. Throws Error(kRefused) where that cannot be replaced, and Error(kFile).
  void Replace(const std::string& target);
  /// Gets a name that nobody has yet. Throws Error(kChanged) when somebody has, and Error(kFile).
  void BecomeNew(const std::string& target);

  /// The open file, with its lock, once it is in place.
  Descriptor Take() noexcept { return std::move(file_); }

 private:
  bool Make(const std::string& target, mode_t mode);
  bool IsThere() const noexcept;
  void Remove() noexcept;
  bool Name(const std::string& target) const;

  std::string path_;
  std::string name_;  // empty when there is no file to remove
  Descriptor file_;
};

/// The folder of a file, opened before anything is done that could not be taken back.
class Folder {
 public:
  explicit Folder(const std::string& target);

  /// Makes the names in it last. Empty, or why it is not sure that they do.
  std::string Flush(const std::string& path) const;

 private:
  Descriptor file_;
  int reason_ = 0;  // why it is not open
};

}  // namespace klepur::internal

#endif
