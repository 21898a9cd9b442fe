// Internal: text that is collected from several places, and not copied when it is one after all.
#ifndef KLEPUR_REWRITE_PENDING_TEXT_H
#define KLEPUR_REWRITE_PENDING_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace klepur::internal {

class PendingText {
 public:
  /// The bytes must stay where they are until Clear.
  void Append(std::string_view bytes) {
    if (bytes.empty()) return;
    if (IsEmpty()) {
      bytes_ = bytes;
    } else if (!copied_ && bytes_.data() + bytes_.size() == bytes.data()) {
      bytes_ = {bytes_.data(), bytes_.size() + bytes.size()};
    } else {
      Copy();
      copy_ += bytes;
      bytes_ = copy_;
    }
  }

  void Insert(std::size_t at, char byte) {
    Copy();
    copy_.insert(at, 1, byte);
    bytes_ = copy_;
  }

  bool IsEmpty() const { return bytes_.empty(); }
  /// Until the next change.
  std::string_view View() const { return bytes_; }
  /// Whether it stands elsewhere than what was appended.
  bool IsCopied() const { return copied_; }

  void Clear() {
    bytes_ = {};
    copied_ = false;
  }

 private:
  void Copy() {
    if (!copied_) copy_ = bytes_;
    copied_ = true;
  }

  std::string_view bytes_;
  std::string copy_;
  bool copied_ = false;
};

}  // namespace klepur::internal

#endif
