// Internal: a text under edit. What was read never changes and what is added is only appended, each byte
// under an address of its own for good; the text is a chain of pieces of the two.
#ifndef KLEPUR_TEXT_PIECE_TEXT_H
#define KLEPUR_TEXT_PIECE_TEXT_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <klepur/text/piece_starts.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {

/// Names a byte: those that were read come first, then those added, in the order of their coming.
using TextAddress = std::uint32_t;

/// Bytes that stand side by side in memory.
struct Span {
  TextAddress begin = 0;
  TextAddress end = 0;
};

class PieceText {
 public:
  using PieceId = std::uint32_t;

  /// A border between two bytes of the text: the byte behind it, and its piece. Good until the text
  /// changes.
  struct Edge {
    PieceId piece;
    TextAddress address;
    friend bool operator==(const Edge&, const Edge&) = default;
  };

  explicit PieceText(TextBuffer base);

  const char* Bytes(TextAddress address) const {
    return address < base_.size() ? base_.data() + address
                                  : added_.data() + (address - base_.size());
  }
  std::string_view View(Span span) const { return {Bytes(span.begin), span.end - span.begin}; }
  TextAddress BaseSize() const { return static_cast<TextAddress>(base_.size()); }
  /// The address that the next appended byte gets.
  TextAddress NextAddress() const { return static_cast<TextAddress>(base_.size() + added_.size()); }

  /// Keeps bytes for use in the text, without putting them there. Throws Error when the addresses of
  /// 32 bits are used up.
  Span Append(std::string_view bytes);

  Edge Start() const { return BeginOf(pieces_[kHead].next); }
  Edge End() const { return {kTail, 0}; }
  /// The border before a byte, or behind the byte before `end`, that stand in the text.
  Edge Before(TextAddress byte) const { return {PieceOf(byte), byte}; }
  Edge Behind(TextAddress end) const;
  bool IsEnd(Edge edge) const { return edge.piece == kTail; }

  /// The byte behind an edge that is not the end, or before one that is not the start.
  char ByteAt(Edge edge) const { return *Bytes(edge.address); }
  bool Back(Edge& edge) const;     ///< One byte towards the start; false at the start.
  bool Forward(Edge& edge) const;  ///< One byte towards the end; false at the end.

  std::string Read(Edge from, Edge to) const;
  std::vector<Span> SpansOf(Edge from, Edge to) const;
  std::string All() const { return Read(Start(), End()); }
  std::size_t Size() const;
  template <class Use>
  void ForEachPiece(const Use& use) const {
    for (PieceId id = pieces_[kHead].next; id != kTail; id = pieces_[id].next) {
      use(id, Span{pieces_[id].begin, pieces_[id].end});
    }
  }

  /// Puts spans, none of whose bytes stands in the text elsewhere, in the place of what stands
  /// between the edges. Other edges are good no more.
  void Replace(Edge from, Edge to, std::span<const Span> spans);
  void Replace(Edge from, Edge to, Span span) { Replace(from, to, std::span(&span, 1)); }

  /// A state to return to: how many replacements there were.
  std::size_t GetMark() const { return log_.size(); }
  void RollBack(std::size_t mark) noexcept;

  /// For who keeps books of the pieces: those that came to stand in the text, left it, or changed their size, in the
  /// order of the changes. Forgotten, with another generation, when they are more than there are pieces.
  const std::vector<PieceId>& Changed() const { return changed_; }
  std::size_t Generation() const { return generation_; }
  bool Stands(PieceId piece) const { return pieces_[piece].stands; }
  PieceId Next(PieceId piece) const { return pieces_[piece].next; }
  PieceId Previous(PieceId piece) const { return pieces_[piece].previous; }
  Span SpanOf(PieceId piece) const { return {pieces_[piece].begin, pieces_[piece].end}; }
  static constexpr PieceId kHead = 0;  ///< Before the first piece.
  static constexpr PieceId kTail = 1;  ///< Behind the last.

  PieceId PieceOf(TextAddress byte) const;
  /// Whether the text is another than what was read. Cost: what was moved or written anew is compared.
  bool IsChanged() const;

 private:
  /// What a replacement did, so that it can be taken back.
  struct Change {
    PieceId right;
    PieceId old_first;
    PieceId old_last;
    PieceId new_first;
  };

  struct Piece {
    TextAddress begin;
    TextAddress end;
    PieceId previous;
    PieceId next;
    bool stands = false;  ///< Whether it is part of the text.
  };

  void NoteChange(PieceId piece) noexcept;
  void SetStands(PieceId piece, bool stands) noexcept {
    pieces_[piece].stands = stands;
    NoteChange(piece);
  }
  void TakeBack(const Change& change) noexcept;
  Edge BeginOf(PieceId piece) const { return {piece, pieces_[piece].begin}; }
  PieceId NewPiece(TextAddress begin, TextAddress end);
  PieceId Split(PieceId piece, TextAddress at);
  PieceId BorderBefore(Edge edge);
  void Link(PieceId left, PieceId right) {
    pieces_[left].next = right;
    pieces_[right].previous = left;
  }
  void MakePiecesOf(Span span);

  TextBuffer base_;
  std::string added_;
  std::vector<Piece> pieces_;
  // The piece that begins at an address; where several did, the one that stands in the text or did last.
  // No border between pieces is ever forgotten: one that is within a piece now, since its making was taken
  // back, has a piece that does not stand.
  PieceStarts starts_;
  std::vector<Change> log_;
  std::vector<PieceId> changed_;
  std::size_t generation_ = 0;
};

}  // namespace klepur::internal

#endif
