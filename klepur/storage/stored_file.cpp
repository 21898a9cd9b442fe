#include <klepur/storage/stored_file.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdint>
#include <utility>
#include <variant>

#include <klepur/document/document_maker.h>
#include <klepur/storage/failure.h>
#include <klepur/storage/saving.h>
#include <klepur/storage/target.h>
#include <klepur/storage/unified_diff.h>
#include <klepur/text/file_blocks.h>
#include <klepur/text/file_bytes.h>

namespace klepur {

using internal::Descriptor;
using internal::FileLock;
using internal::FileState;
using internal::Pieces;
using internal::TextBuffer;

/// What is known of the file.
struct StoredFile::State : internal::KnownFile {
  State(const std::string& the_path, IfMissing if_missing) : missing(if_missing) {
    path = the_path;
    target = internal::TargetOf(path, missing);
  }

  Descriptor Open() const { return internal::OpenTarget(target, path, missing, O_RDONLY); }

  void Know(const Descriptor& file) {
    if (!file.IsOpen()) return;
    const auto now = FileState::OfFile(file.Get());
    if (!now) throw internal::Failure(path, "read the file");
    state = *now;
  }

  IfMissing missing;
};

namespace {

/// A text, and the file that it was read from as it was then.
struct Reading {
  TextBuffer text;
  FileState state;
};

Reading ReadOnce(const Descriptor& file, const std::string& path) {
  struct stat status = {};
  if (::fstat(file.Get(), &status) != 0) throw internal::Failure(path, "look at the file");
  auto bytes = internal::ReadOpenFile(file.Get());
  if (auto* const text = std::get_if<TextBuffer>(&bytes)) {
    const std::uint64_t sum = internal::Checksum::Of(text->view());
    return {std::move(*text), FileState::OfRead(status, sum)};
  }
  const int reason = std::get<internal::FileFailure>(bytes).reason;
  const ErrorCode code = reason == EFBIG ? ErrorCode::kTooLarge : ErrorCode::kFile;
  throw internal::Failure(code, path, "read the file", reason);
}

Reading ReadFile(const internal::KnownFile& known, const Descriptor& file) {
  return file.IsOpen() ? ReadOnce(file, known.path) : Reading();
}

}  // namespace

StoredFile::StoredFile(std::unique_ptr<State> state) noexcept : state_(std::move(state)) {}
StoredFile::StoredFile(StoredFile&&) noexcept = default;
StoredFile& StoredFile::operator=(StoredFile&&) noexcept = default;
StoredFile::~StoredFile() = default;

StoredFile StoredFile::Open(const std::string& path, IfMissing missing) {
  auto state = std::make_unique<State>(path, missing);
  state->Know(state->Open());
  return StoredFile(std::move(state));
}

StoredFile StoredFile::OpenLocked(const std::string& path, std::chrono::milliseconds limit,
                                  IfMissing missing) {
  auto state = std::make_unique<State>(path, missing);
  state->stays_locked = true;
  state->lock = FileLock::Of(state->target, path, limit);
  state->Know(state->Open());
  return StoredFile(std::move(state));
}

const std::string& StoredFile::Path() const noexcept {
  return state_->path;
}

const std::string& StoredFile::Target() const noexcept {
  return state_->target;
}

bool StoredFile::Exists() const noexcept {
  return state_->state.Exists();
}

bool StoredFile::IsLocked() const noexcept {
  return state_->lock.IsHeld();
}

void StoredFile::Unlock() noexcept {
  state_->stays_locked = false;
  state_->lock = FileLock();
}

Document StoredFile::Read() {
  Reading reading = ReadFile(*state_, state_->Open());
  Document document = internal::DocumentMaker::Make(std::move(reading.text), state_->path);
  state_->state = reading.state;
  return document;
}

std::string StoredFile::ReadText() {
  const Reading reading = ReadFile(*state_, state_->Open());
  std::string text(reading.text.view());
  state_->state = reading.state;
  return text;
}

bool StoredFile::HasChanged() const {
  try {
    if (internal::TargetOf(state_->path, IfMissing::kMake) != state_->target) return true;
  } catch (const Error&) {
    return true;  // it leads nowhere
  }
  const Descriptor file =
      internal::OpenTarget(state_->target, state_->path, IfMissing::kMake, O_RDONLY);
  if (!file.IsOpen()) return state_->state.Exists();
  const auto same = state_->state.IsThat(file.Get());
  if (!same) throw internal::Failure(state_->path, "read the file");
  return !*same;
}

SaveReport StoredFile::Save(const Document& document, const SaveOptions& options) {
  return SaveReport(
      internal::Save(*state_, Pieces(document.Pieces()), internal::SaveWishes::Of(options)));
}

SaveReport StoredFile::Save(std::string_view text, const SaveOptions& options) {
  return SaveReport(internal::Save(*state_, Pieces(text), internal::SaveWishes::Of(options)));
}

std::string StoredFile::Diff(const Document& document) const {
  return Diff(document.Text());
}

std::string StoredFile::Diff(std::string_view text) const {
  const Reading reading = ReadFile(*state_, state_->Open());
  return UnifiedDiff(reading.text.view(), text, state_->path, state_->path);
}

SaveReport SaveText(const std::string& path, std::string_view text, const SaveOptions& options) {
  const internal::SaveWishes& wishes = internal::SaveWishes::Of(options);
  StoredFile file = wishes.locked
                        ? StoredFile::OpenLocked(path, wishes.lock_limit, IfMissing::kMake)
                        : StoredFile::Open(path, IfMissing::kMake);
  return file.Save(text, options);
}

}  // namespace klepur
