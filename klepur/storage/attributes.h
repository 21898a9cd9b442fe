// Internal: what a file has besides its bytes.
#ifndef KLEPUR_STORAGE_ATTRIBUTES_H
#define KLEPUR_STORAGE_ATTRIBUTES_H

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

namespace klepur::internal {

/// Owner, group, mode and extended attributes; access lists are among these.
class Attributes {
 public:
  /// Those of an open file. Throws Error(kFile). \param path  how it is called in errors.
  Attributes(int file, const std::string& path);

  /// Gives all of them to an open file, which then has no others. Throws Error(kRefused) when one cannot be
  /// given. \param path  how the file that they come from is called in errors.
  void GiveTo(int file, const std::string& path) const;

  /// Gives as many as can be given, and never a mode that lets in who was kept out.
  void OfferTo(int file) const;

 private:
  /// What could not be given first, for the reason in errno; null when all were.
  const char* Give(int file) const;
  bool GiveOwner(int file) const;
  bool GiveExtended(int file) const;
  bool GiveMode(int file) const;

  uid_t owner_ = 0;
  gid_t group_ = 0;
  mode_t mode_ = 0;
  std::vector<std::pair<std::string, std::string>> extended_;
};

}  // namespace klepur::internal

#endif
