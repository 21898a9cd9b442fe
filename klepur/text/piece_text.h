// Internal: a text under edit. What was read never changes and what is added is only appended, each byte
// under an address of its own for good; the text is a chain of pieces of the two.
#ifndef KLEPUR_TEXT_PIECE_TEXT_H
#define KLEPUR_TEXT_PIECE_TEXT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

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
  void Replace(Edge from, Edge to, const std::vector<Span>& spans);

  /// A state to return to: how many replacements there were.
  std::size_t GetMark() const { return log_.size(); }
  void RollBack(std::size_t mark) noexcept;

  /// For who keeps books of the pieces: how often the text changed, edits taken back counted too, and of each of
  /// the last kTouches changes the piece before which it changed nothing. A piece that does not stand in the text
  /// now says nothing, for a later change took it.
  static constexpr std::size_t kTouches = 64;
  std::size_t Touches() const { return touches_; }
  PieceId Touched(std::size_t touch) const { return touched_[touch % kTouches]; }
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

  void Touch(PieceId piece) noexcept { touched_[touches_++ % kTouches] = piece; }
  void TakeBack(const Change& change) noexcept;
  Edge BeginOf(PieceId piece) const { return {piece, pieces_[piece].begin}; }
  using Beginnings = std::map<TextAddress, PieceId>;
  Beginnings::iterator NewPiece(TextAddress begin, TextAddress end);
  PieceId Split(PieceId piece, TextAddress at);
  PieceId BorderBefore(Edge edge);
  void Link(PieceId left, PieceId right) {
    pieces_[left].next = right;
    pieces_[right].previous = left;
  }
  struct NewOne {
    PieceId id;
    Beginnings::iterator place;
  };
  void AppendPiecesOf(Span span, std::vector<NewOne>& pieces);

  TextBuffer base_;
  std::string added_;
  std::vector<Piece> pieces_;
  // The piece that begins at an address; where several did, the one that stands in the text or did last.
  // No border between pieces is ever forgotten: one that is within a piece now, since its making was taken
  // back, has a piece that does not stand.
  Beginnings at_;
  std::vector<Change> log_;
  std::size_t touches_ = 0;
  std::array<PieceId, kTouches> touched_ = {};
};

}  // namespace klepur::internal

#endif
