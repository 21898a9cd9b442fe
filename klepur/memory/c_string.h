// Internal: how sections and entries keep their texts. Use their own members instead.
#ifndef KLEPUR_MEMORY_C_STRING_H
#define KLEPUR_MEMORY_C_STRING_H

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

  /// How many characters Copy may touch: no fewer than the text has.
  std::size_t RoomToCopy() const noexcept { return IsInline() ? kRoom : std::strlen(Pointer()); }

  /// Copies the text to a place with room for RoomToCopy() characters. What is behind its end may be
  /// overwritten. Short texts, which most are, are copied whatever their length in a few moves.
  /// \return where the copy ends.
  char* Copy(char* place) const noexcept {
    if (!IsInline()) return place + std::string_view(Pointer()).copy(place, std::string_view::npos);
    std::memcpy(place, bytes_, kRoom);
    return place + length_;
  }

 private:
  static constexpr std::size_t kRoom = Size - 1;
  static constexpr unsigned char kElsewhere = 255;
  static_assert(kRoom <= kElsewhere);

  bool IsInline() const noexcept { return length_ != kElsewhere; }

  char* Pointer() const noexcept {
    char* pointer = nullptr;
    std::memcpy(&pointer, bytes_, sizeof pointer);
    return pointer;
  }

  void SetEmpty() noexcept {
    bytes_[0] = 0;
    length_ = 0;
  }

  void Assign(std::string_view text) {
    char* place = bytes_;
    if (text.size() < kRoom) {
      length_ = static_cast<unsigned char>(text.size());
    } else {
      place = new char[text.size() + 1];
      std::memcpy(bytes_, &place, sizeof place);
      length_ = kElsewhere;
    }
    place[text.copy(place, text.size())] = 0;
  }

  void TakeOver(CString& other) noexcept {
    std::memcpy(bytes_, other.bytes_, kRoom);
    length_ = other.length_;
    other.SetEmpty();
  }

  void Release() noexcept {
    if (!IsInline()) delete[] Pointer();
  }

  char bytes_[kRoom];         // the text, or a pointer to it
  unsigned char length_ = 0;  // of the text in the object; kElsewhere when it is not there
};

}  // namespace klepur::internal

#endif
