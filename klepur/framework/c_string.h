// Internal: how sections and entries keep their texts. Use their own members instead.
#ifndef KLEPUR_FRAMEWORK_C_STRING_H
#define KLEPUR_FRAMEWORK_C_STRING_H

#include <cstring>
#include <memory>

namespace klepur::internal {

/// An owned C string that may be absent. A tree holds millions of these, so it is one pointer wide.
class CString {
 public:
  CString() noexcept = default;
  explicit CString(const char* text) : text_(Duplicate(text)) {}
  CString(const CString& other) : text_(Duplicate(other.Get())) {}
  CString(CString&& other) noexcept = default;
  CString& operator=(const CString& other) {
    if (this != &other) text_ = Duplicate(other.Get());
    return *this;
  }
  CString& operator=(CString&& other) noexcept = default;
  ~CString() = default;

  /// The text, or null when absent.
  const char* Get() const noexcept { return text_.get(); }

  /// The text, or the empty text when absent.
  const char* GetOrEmpty() const noexcept { return text_ ? text_.get() : ""; }

 private:
  static std::unique_ptr<char[]> Duplicate(const char* text) {
    if (text == nullptr) return nullptr;
    const std::size_t size = std::strlen(text) + 1;
    std::unique_ptr<char[]> copy(new char[size]);
    std::memcpy(copy.get(), text, size);
    return copy;
  }

  std::unique_ptr<char[]> text_;
};

}  // namespace klepur::internal

#endif
