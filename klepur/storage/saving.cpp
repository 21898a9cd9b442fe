#include <klepur/storage/saving.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>

#include <klepur/storage/attributes.h>
#include <klepur/storage/backup.h>
#include <klepur/storage/failure.h>
#include <klepur/storage/in_place.h>
#include <klepur/storage/new_file.h>
#include <klepur/storage/strays.h>
#include <klepur/storage/target.h>
#include <klepur/storage/verifier.h>
#include <klepur/text/uninterrupted.h>

namespace klepur::internal {
namespace {

constexpr mode_t kPrivate = 0600;
constexpr mode_t kAsUsual = 0666;  // without what the process's mask takes away

Error Changed(const std::string& path, const std::string& how) {
  return {ErrorCode::kChanged, path + ": cannot save over the file: " + how};
}

/// One save. Everything that it made goes with it, unless it was kept.
class Saving {
 public:
  Saving(KnownFile& file, const Pieces& text, const SaveWishes& wishes)
      : known_(file),
        path_(file.path),
        text_(text),
        wishes_(wishes),
        locked_(wishes.locked || file.stays_locked) {}

  std::shared_ptr<const SaveFacts> Run() {
    target_ = TargetOf(path_, IfMissing::kMake);
    Lock();
    if (HoldsText()) return Finish();
    if (!wishes_.forced) RequireUnchanged();
    facts_->written = true;
    try {
      Replace();
    } catch (const Error& error) {
      if (error.Code() != ErrorCode::kRefused) throw;
      if (!Exists()) throw Error(ErrorCode::kFile, error.what());
      if (!wishes_.in_place_if_needed) {
        throw Error(ErrorCode::kRefused,
                    std::string(error.what()) + "; the file could only be written in place");
      }
      OverWrite();
    }
    return Finish();
  }

 private:
  bool Exists() const { return file_ >= 0; }

  /// Opens the file as it is now, with its lock unless the caller wants none.
  void Lock() {
    if (known_.lock.IsHeldOf(target_)) {
      file_ = known_.lock.File();
    } else if (locked_) {
      lock_ = FileLock::Of(target_, path_, wishes_.lock_limit);
      file_ = lock_.File();
    } else {
      unlocked_ = OpenTarget(target_, path_, IfMissing::kMake, O_RDONLY);
      file_ = unlocked_.Get();
    }
    if (Exists() && ::fstat(file_, &seen_) != 0) throw Failure(path_, "look at the file");
  }

  void RequireUnchanged() const {
    if (target_ != known_.target) throw Changed(path_, "it now leads to " + target_);
    if (!Exists() && known_.state.Exists()) throw Changed(path_, "it was removed");
    if (Exists() && !known_.state.Exists()) throw Changed(path_, "somebody else made it");
    if (!Exists()) return;
    const std::optional<bool> same = known_.state.IsThat(file_);
    if (!same) throw Failure(path_, "read the file");
    if (!*same) throw Changed(path_, "somebody else changed it");
  }

  /// The last look, right before the file is replaced.
  void RequireUntouched() const {
    if (wishes_.forced || !Exists()) return;
    struct stat now = {};
    if (::stat(target_.c_str(), &now) != 0) throw Failure(path_, "look at the file");
    if (!AreAlike(now, seen_)) throw Changed(path_, "somebody else changed it meanwhile");
  }

  /// Whether there is nothing to write; then what the file is becomes known.
  bool HoldsText() {
    if (!Exists() || static_cast<std::uint64_t>(seen_.st_size) != text_.Size()) return false;
    const auto comparison = text_.CompareWith(file_);
    if (!comparison) throw Failure(path_, "read the file");
    if (!comparison->equal) return false;
    state_ = FileState::OfRead(seen_, comparison->sum);
    return true;
  }

  void Replace() {
    if (Exists() && IsMountPoint(file_)) {
      errno = EBUSY;
      throw FailureToReplace(path_, "replace the file");
    }
    // Whose lock is not held may be somebody's who saves without one.
    if (locked_) TidyUp();
    const Folder folder(target_);
    NewFile fresh(target_, path_, Exists() ? kPrivate : kAsUsual, locked_);
    GiveAttributes(fresh);  // first, to write nothing when they cannot be given
    const std::uint64_t sum = fresh.Write(text_);
    Judge(fresh);
    GiveAttributes(fresh);  // writing takes bits of the mode away, and a verifier may do anything
    fresh.Flush();
    Backup backup = MakeBackup();
    RequireUntouched();
    backup.Name();
    if (Exists()) {
      fresh.Replace(target_);
    } else {
      fresh.BecomeNew(target_);
    }
    facts_->backup = backup.Keep();
    facts_->warning = folder.Flush(path_);
    Know(fresh.File(), sum);
    if (locked_) next_lock_ = FileLock(fresh.Take());
  }

  /// Removes strays. One of them may have been another name of the file, whose time has then changed.
  void TidyUp() {
    facts_->strays_removed = RemoveStrays(target_);
    if (facts_->strays_removed.empty() || !Exists()) return;
    if (::fstat(file_, &seen_) != 0) throw Failure(path_, "look at the file");
    if (!wishes_.forced) RequireUnchanged();
  }

  void OverWrite() {
    facts_->in_place = true;
    if (!wishes_.verifier.empty()) JudgeInMemory();
    Backup backup = MakeBackup();
    RequireUntouched();
    backup.Name();
    const std::uint64_t sum = WriteInPlace(target_, path_, text_);
    facts_->backup = backup.Keep();
    Know(file_, sum);
  }

  void GiveAttributes(const NewFile& fresh) const {
    if (Exists()) Attributes(file_, path_).GiveTo(fresh.File(), path_);
  }

  void Judge(const NewFile& fresh) {
    if (wishes_.verifier.empty()) return;
    facts_->verifier_output = Verify(wishes_.verifier, wishes_.verifier_limit, fresh.Name(), path_);
    fresh.RequireStill(text_);
  }

  /// For who cannot make files beside the one that is saved.
  void JudgeInMemory() {
    const Descriptor memory =
        Above(STDERR_FILENO, Descriptor(::memfd_create("klepur", MFD_CLOEXEC)));
    if (!memory.IsOpen() || !text_.WriteTo(memory.Get())) {
      throw Failure(path_, "write the text for the verifier");
    }
    facts_->verifier_output =
        VerifyOpen(wishes_.verifier, wishes_.verifier_limit, memory.Get(), path_);
  }

  Backup MakeBackup() const {
    return Exists() && wishes_.backup ? Backup(file_, target_, path_, wishes_.backup_path, locked_)
                                      : Backup();
  }

  void Know(int file, std::uint64_t sum) {
    struct stat status = {};
    state_ = ::fstat(file, &status) == 0 ? FileState::OfRead(status, sum) : FileState();
  }

  std::shared_ptr<const SaveFacts> Finish() {
    known_.target = std::move(target_);
    known_.state = state_;
    if (known_.stays_locked) {
      if (next_lock_.IsHeld()) {
        known_.lock = std::move(next_lock_);
      } else if (lock_.IsHeld()) {
        known_.lock = std::move(lock_);
      }
    }
    return std::move(facts_);
  }

  KnownFile& known_;
  const std::string path_;
  const Pieces& text_;
  const SaveWishes& wishes_;
  const bool locked_;
  std::string target_;
  FileLock lock_;
  FileLock next_lock_;
  Descriptor unlocked_;
  int file_ = -1;
  struct stat seen_ = {};
  FileState state_;
  std::shared_ptr<SaveFacts> facts_ = std::make_shared<SaveFacts>();
};

}  // namespace

std::shared_ptr<const SaveFacts> Save(KnownFile& file, const Pieces& text,
                                      const SaveWishes& wishes) {
  return Saving(file, text, wishes).Run();
}

}  // namespace klepur::internal
