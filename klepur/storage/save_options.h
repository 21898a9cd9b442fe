// How a file is saved, where the caller has a wish.
#ifndef KLEPUR_STORAGE_SAVE_OPTIONS_H
#define KLEPUR_STORAGE_SAVE_OPTIONS_H

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include <klepur/export.h>

namespace klepur {

namespace internal {
struct SaveWishes;
}

/// The wishes of a caller that saves. Without any the file is replaced, if nobody changed it meanwhile.
///
///     file.Save(document, klepur::SaveOptions()
///                             .WithBackup()
///                             .VerifiedBy({"/usr/sbin/dhcpd", "-t", "-4", "-cf"}));
///
/// Each function changes the object that it is called on and returns it. When one throws std::bad_alloc
/// the wishes are as they were.
class KLEPUR_EXPORT SaveOptions {
 public:
  SaveOptions();
  SaveOptions(const SaveOptions& other);
  SaveOptions& operator=(const SaveOptions& other);
  ~SaveOptions();

  /// Saves over a file that changed since it was read: what others wrote there is lost.
  SaveOptions& Forced(bool forced = true);

  /// Where the file cannot be replaced, because it is a mount point, or because no file can be made beside
  /// it or given its owner, group, mode and attributes, its bytes are written over. A reader may then see
  /// a part of the text, and a crash in that moment costs the file: ask for a backup too.
  SaveOptions& InPlaceIfNeeded(bool allowed = true);

  /// Keeps the old text, with owner, mode and attributes, beside the file under a name that is made from
  /// the file's and the time in UTC: "dhcpd.conf.20240517T081500Z", with "-2" behind it when there is one.
  SaveOptions& WithBackup();
  /// The same under a name of the caller's. A file of that name is replaced, and where it is a symbolic link what
  /// that leads to; what is no regular file makes the save fail. An empty name asks for no backup. A relative path
  /// begins in the working folder.
  SaveOptions& WithBackup(const std::string& path);

  /// Lets a program judge the new text before it replaces the old one. It is started without a shell, its
  /// standard input empty, its last argument the path of a file that holds the new text, and accepts
  /// it by ending with 0. Anything else refuses it: see RejectedText. The save fails too, with kFile, when the
  /// program changed the text. Its end is a SIGCHLD for this process, which must not ignore that signal, nor take
  /// the status of children that are not its own when it handles it.
  ///
  /// \param command  the program and its arguments: {"/usr/sbin/dhcpd", "-t", "-4", "-cf"}. A name
  ///                 without "/" is looked for in the folders of PATH. An empty list asks for no verifier.
  /// \param limit    how long it may take. Then it is killed, with the processes of its group.
  SaveOptions& VerifiedBy(std::vector<std::string> command,
                          std::chrono::milliseconds limit = std::chrono::seconds(60));

  /// How long to wait for another saver's lock: 10 seconds, if not told otherwise; 0 not to wait.
  SaveOptions& LockedWithin(std::chrono::milliseconds limit);
  /// Saves without a lock, for file systems that have none. What another saver writes in that moment can
  /// be lost, and stray files of killed processes stay.
  SaveOptions& WithoutLock();

 private:
  friend struct internal::SaveWishes;
  std::unique_ptr<internal::SaveWishes> wishes_;
};

}  // namespace klepur

#endif
