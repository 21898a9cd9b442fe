// Internal: how sections and entries keep their texts. Use their own members instead.
#ifndef KLEPUR_FRAMEWORK_C_STRING_H
#define KLEPUR_FRAMEWORK_C_STRING_H

#include <cstddef>
#include <cstring>

namespace klepur::internal {

/// An owned C string, empty at first, in an object of `Size` bytes.
///
/// A text of up to `Size` - 2 characters stands in the object itself, so that most lines of a file
/// need no memory of their own.
template <std::size_t Size>
class CString {
 public:
  CString() noexcept { SetInline("", 1); }
  explicit CString(const char* text) { Assign(text); }
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
  static constexpr std::size_t kRoom = Size - 1;  // the last byte tells where the text is

  bool IsInline() const noexcept { return bytes_[kRoom] == 0; }

  char* Pointer() const noexcept {
    char* pointer = nullptr;
    std::memcpy(&pointer, bytes_, sizeof pointer);
    return pointer;
  }

  void SetInline(const char* text, std::size_t size) noexcept {
    std::memcpy(bytes_, text, size);
    bytes_[kRoom] = 0;
  }

  /// Null is the empty text.
  void Assign(const char* text) {
    if (text == nullptr) text = "";
    const std::size_t size = std::strlen(text) + 1;
    if (size <= kRoom) {
      SetInline(text, size);
    } else {
      char* const pointer = new char[size];
      std::memcpy(pointer, text, size);
      std::memcpy(bytes_, &pointer, sizeof pointer);
      bytes_[kRoom] = 1;
    }
  }

  void TakeOver(CString& other) noexcept {
    std::memcpy(bytes_, other.bytes_, Size);
    other.SetInline("", 1);
  }

  void Release() noexcept {
    if (!IsInline()) delete[] Pointer();
  }

  char bytes_[Size];  // the text, or a pointer to it
};

}  // namespace klepur::internal

#endif
