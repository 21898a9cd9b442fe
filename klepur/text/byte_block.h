// Internal: sixteen bytes of a text looked at together.
#ifndef KLEPUR_TEXT_BYTE_BLOCK_H
#define KLEPUR_TEXT_BYTE_BLOCK_H

#include <bit>
#include <cstddef>
#include <cstdint>

// Instructions that every x86-64 and every arm64 has. Elsewhere, and where KLEPUR_PLAIN_TEXT is
// defined, there is no ByteBlock, and texts are looked at byte by byte.
#if defined(KLEPUR_PLAIN_TEXT)
#elif defined(__SSE2__)
#include <emmintrin.h>
#define KLEPUR_BYTE_BLOCK
#elif defined(__aarch64__) && defined(__ARM_NEON) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
#include <arm_neon.h>
#define KLEPUR_BYTE_BLOCK
#endif

#if defined(KLEPUR_BYTE_BLOCK)

namespace klepur::internal {

/// Sixteen bytes. What compares them gives sixteen bytes too: all bits of each that fits are set.
class ByteBlock {
 public:
#if defined(__SSE2__)
  using Register = __m128i;
  static constexpr int kMaskBits = 1;
#else
  using Register = uint8x16_t;
  static constexpr int kMaskBits = 4;
#endif
  static constexpr std::ptrdiff_t kSize = 16;

  /// The bytes that stand here. The address need not be a multiple of anything.
  explicit ByteBlock(const char* place) : bytes_(Load(place)) {}

  /// Sixteen times this byte.
  static ByteBlock Of(char byte) {
#if defined(__SSE2__)
    return ByteBlock(_mm_set1_epi8(byte));
#else
    return ByteBlock(vdupq_n_u8(static_cast<std::uint8_t>(byte)));
#endif
  }

  /// Which bytes are this one.
  ByteBlock Are(char byte) const {
#if defined(__SSE2__)
    return ByteBlock(_mm_cmpeq_epi8(bytes_, Of(byte).bytes_));
#else
    return ByteBlock(vceqq_u8(bytes_, Of(byte).bytes_));
#endif
  }

  /// Which bytes are in a range, both ends included.
  ByteBlock AreIn(char first, char last) const {
    const Register size = Of(static_cast<char>(last - first)).bytes_;
#if defined(__SSE2__)
    const Register distance = _mm_sub_epi8(bytes_, Of(first).bytes_);
    return ByteBlock(_mm_cmpeq_epi8(_mm_min_epu8(distance, size), distance));
#else
    return ByteBlock(vcleq_u8(vsubq_u8(bytes_, Of(first).bytes_), size));
#endif
  }

  /// The bytes with these bits set in each.
  ByteBlock With(char bits) const {
    return *this | Of(bits);
  }

  friend ByteBlock operator|(ByteBlock a, ByteBlock b) {
#if defined(__SSE2__)
    return ByteBlock(_mm_or_si128(a.bytes_, b.bytes_));
#else
    return ByteBlock(vorrq_u8(a.bytes_, b.bytes_));
#endif
  }

  /// How many results CountIn may be given before Sum is asked.
  static constexpr std::size_t kMostCounted = 255;

  /// Makes each byte one more where the byte fits.
  void CountIn(ByteBlock result) {
#if defined(__SSE2__)
    bytes_ = _mm_sub_epi8(bytes_, result.bytes_);
#else
    bytes_ = vsubq_u8(bytes_, result.bytes_);
#endif
  }

  /// The sum of the bytes.
  std::size_t Sum() const {
#if defined(__SSE2__)
    const Register sums = _mm_sad_epu8(bytes_, _mm_setzero_si128());
    return static_cast<std::size_t>(_mm_cvtsi128_si32(sums)) +
           static_cast<std::size_t>(_mm_extract_epi16(sums, 4));
#else
    return vaddlvq_u8(bytes_);
#endif
  }

  /// Of the result of a comparison: kMaskBits bits a byte, the first byte's the lowest, set where
  /// the byte fits.
  std::uint64_t Mask() const {
#if defined(__SSE2__)
    return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes_));
#else
    return vget_lane_u64(vreinterpret_u64_u8(vshrn_n_u16(vreinterpretq_u16_u8(bytes_), 4)), 0);
#endif
  }

  /// The place of the first byte that fits in a mask that is not 0.
  static std::ptrdiff_t First(std::uint64_t mask) {
    return std::countr_zero(mask) / kMaskBits;
  }

  /// One bit a byte for 64 bytes, the first one's the lowest, of the results for their four blocks.
  static std::uint64_t MaskOf(ByteBlock a, ByteBlock b, ByteBlock c, ByteBlock d) {
#if defined(__SSE2__)
    return a.Mask() | b.Mask() << 16 | c.Mask() << 32 | d.Mask() << 48;
#else
    static constexpr std::uint8_t kBits[] = {1, 2, 4, 8, 16, 32, 64, 128,
                                             1, 2, 4, 8, 16, 32, 64, 128};
    const Register bits = vld1q_u8(kBits);
    const Register ab = vpaddq_u8(vandq_u8(a.bytes_, bits), vandq_u8(b.bytes_, bits));
    const Register cd = vpaddq_u8(vandq_u8(c.bytes_, bits), vandq_u8(d.bytes_, bits));
    const Register abcd = vpaddq_u8(ab, cd);
    return vgetq_lane_u64(vreinterpretq_u64_u8(vpaddq_u8(abcd, abcd)), 0);
#endif
  }

  /// The mask of the bytes that do not fit.
  static std::uint64_t Others(std::uint64_t mask) {
    return mask ^ (~std::uint64_t{0} >> (64 - kSize * kMaskBits));
  }

 private:
  explicit ByteBlock(Register bytes) : bytes_(bytes) {}

  static Register Load(const char* place) {
#if defined(__SSE2__)
    return _mm_loadu_si128(reinterpret_cast<const Register*>(place));
#else
    return vld1q_u8(reinterpret_cast<const std::uint8_t*>(place));
#endif
  }

  Register bytes_;
};

}  // namespace klepur::internal

#endif
#endif
