// Internal: how sections and entries keep their texts. Use their own members instead.
#ifndef KLEPUR_FRAMEWORK_C_STRING_H
#define KLEPUR_FRAMEWORK_C_STRING_H

#include <cstddef>
#include <cstring>
#include <string_view>

namespace klepur::internal {

/// An owned C string, empty at first, in an object of `Size` bytes.
///
/// A text of up to `Size` - 2 characters stands in the object itself, so that most lines of a file
/// need no memory of their own.
template <std::size_t Size>
class CString {
 public:
  CString() noexcept { SetEmpty(); }
  explicit CString(std::string_view text) { Assign(text); }
  CString(const CString& other) { Assign(other.Get()); }
  CString(CString&& other) noexcept { TakeOver(other); }
  CString& operator=(const CString&) = delete;
  CString& operator=(CString&& other) noexcept {
    if (this != &other) {
      Release();
      TakeOver(other);
    }
    return *this;
  }
  ~CString() { Release(); }

  /// The text; never null.
  const char* Get() const noexcept { return IsInline() ? bytes_ : Pointer(); }

 private:
  static constexpr std::size_t kRoom = Size - 1;

  bool IsInline() const noexcept { return !isElsewhere_; }

  char* Pointer() const noexcept {
    char* pointer = nullptr;
    std::memcpy(&pointer, bytes_, sizeof pointer);
    return pointer;
  }

  void SetEmpty() noexcept {
    bytes_[0] = 0;
    isElsewhere_ = false;
  }

  void Assign(std::string_view text) {
    char* place = bytes_;
    if (text.size() >= kRoom) {
      place = new char[text.size() + 1];
      std::memcpy(bytes_, &place, sizeof place);
      isElsewhere_ = true;
    }
    place[text.copy(place, text.size())] = 0;
  }

  void TakeOver(CString& other) noexcept {
    std::memcpy(bytes_, other.bytes_, kRoom);
    isElsewhere_ = other.isElsewhere_;
    other.SetEmpty();
  }

  void Release() noexcept {
    if (!IsInline()) delete[] Pointer();
  }

  char bytes_[kRoom];  // the text, or a pointer to it
  bool isElsewhere_ = false;
};

}  // namespace klepur::internal

#endif
