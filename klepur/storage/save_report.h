// What saving a file did.
#ifndef KLEPUR_STORAGE_SAVE_REPORT_H
#define KLEPUR_STORAGE_SAVE_REPORT_H

#include <memory>
#include <string>
#include <vector>

#include <klepur/export.h>
#include <klepur/text/error.h>

namespace klepur {

namespace internal {
struct SaveFacts;
}

/// What a save did that did not fail. A copy costs nothing; one that was moved from can only be assigned to.
class KLEPUR_EXPORT SaveReport {
 public:
  /// Internal: made by a save.
  explicit SaveReport(std::shared_ptr<const internal::SaveFacts> facts) noexcept;
  SaveReport(const SaveReport&) noexcept;
  SaveReport(SaveReport&&) noexcept;
  SaveReport& operator=(const SaveReport&) noexcept;
  SaveReport& operator=(SaveReport&&) noexcept;
  ~SaveReport();

  /// False when the file held the text already: then nothing was touched, and all else is empty.
  bool Written() const noexcept;
  /// Whether the bytes of the file were written over, see SaveOptions::InPlaceIfNeeded.
  bool InPlace() const noexcept;
  /// The path of the backup; empty when none was asked for, or the file is a new one.
  const std::string& Backup() const noexcept;
  /// What the verifier printed, on both of its outputs; the first MiB of it.
  const std::string& VerifierOutput() const noexcept;
  /// The paths of files that a killed saver of this file left behind, and that were removed.
  const std::vector<std::string>& StraysRemoved() const noexcept;
  /// Empty, or why it is not sure that the new text will still be there after a power failure: the
  /// folder could not be flushed once the file had been replaced. The old text may come back, whole.
  const std::string& Warning() const noexcept;

 private:
  std::shared_ptr<const internal::SaveFacts> facts_;
};

/// A verifier did not accept the new text, which was not written. Its code is ErrorCode::kRejected; the
/// text says how the program ended, or that it took too long.
class KLEPUR_EXPORT RejectedText : public Error {
 public:
  /// Internal: thrown by a save.
  RejectedText(const std::string& what, std::shared_ptr<const std::string> output);
  RejectedText(const RejectedText&) noexcept;
  RejectedText& operator=(const RejectedText&) noexcept;
  ~RejectedText() override;

  /// What the program printed, on both of its outputs; the first MiB of it.
  const std::string& Output() const noexcept;

 private:
  std::shared_ptr<const std::string> output_;
};

}  // namespace klepur

#endif
