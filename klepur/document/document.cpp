#include <klepur/document/document.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <utility>
#include <variant>

#include <klepur/document/document_maker.h>
#include <klepur/document/document_state.h>
#include <klepur/document/edit.h>
#include <klepur/document/findings.h>
#include <klepur/document/gaps.h>
#include <klepur/document/node_access.h>
#include <klepur/document/node_at.h>
#include <klepur/document/node_text.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/file_bytes.h>

namespace klepur {
namespace {

using internal::DocumentState;
using internal::NodeId;

internal::TextBuffer CopyOf(std::string_view text) {
  if (text.size() > internal::kMostBytes) {
    throw Error(ErrorCode::kTooLarge, "the text reaches 4 GiB");
  }
  return internal::TextBuffer(text);
}

internal::TextBuffer BytesOf(const std::string& path) {
  auto bytes = internal::ReadFileBytes(path);
  if (auto* text = std::get_if<internal::TextBuffer>(&bytes)) return std::move(*text);
  const auto& failure = std::get<internal::FileFailure>(bytes);
  if (failure.reason == EFBIG) throw Error(ErrorCode::kTooLarge, path + ": the file reaches 4 GiB");
  const bool open = failure.step == internal::FileFailure::Step::kOpen;
  throw Error(ErrorCode::kFile, path + ": cannot " + (open ? "open" : "read") +
                                    " the file: " + std::strerror(failure.reason));
}

}  // namespace

Document::Document(std::string_view text) : state_(std::make_unique<DocumentState>(CopyOf(text))) {}

Document::Document(std::unique_ptr<DocumentState> state) : state_(std::move(state)) {}
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&&) noexcept = default;
Document::~Document() = default;

Document Document::Read(const std::string& path) {
  return internal::DocumentMaker::Make(BytesOf(path), path);
}

Document internal::DocumentMaker::Make(TextBuffer text, const std::string& path) {
  auto state = std::make_unique<DocumentState>(std::move(text));
  state->path = path;
  return Document(std::move(state));
}

const std::string& Document::Path() const {
  return state_->path;
}

std::string Document::Text() const {
  std::string text;
  text.reserve(state_->text.Size());
  for (const std::string_view piece : Pieces()) text.append(piece);
  return text;
}

std::vector<std::string_view> Document::Pieces() const {
  std::vector<std::string_view> pieces;
  state_->text.ForEachPiece([&](internal::PieceText::PieceId, internal::Span span) {
    pieces.push_back(state_->text.View(span));
  });
  return pieces;
}

bool Document::IsChanged() const {
  return state_->text.IsChanged();
}

Node Document::Root() const {
  return {state_.get(), internal::kRoot};
}

Node Document::Find(std::string_view header) const {
  const std::vector<Node> found = FindAll(header);
  return found.empty() ? Node() : found.front();
}

std::vector<Node> Document::FindAll(std::string_view header) const {
  const std::lock_guard<std::mutex> lock(state_->lazy);
  std::vector<NodeId> found =
      state_->headers.Find(*state_, internal::KeyOf(header), internal::NameIn(header));
  if (found.size() > 1) {
    state_->positions.Update(state_->text);
    const auto offset = [this](NodeId id) {
      return state_->positions.OffsetOf(state_->text, state_->Begin(id));
    };
    std::sort(found.begin(), found.end(),
              [&](NodeId left, NodeId right) { return offset(left) < offset(right); });
  }
  std::vector<Node> nodes;
  nodes.reserve(found.size());
  for (const NodeId id : found) nodes.push_back({state_.get(), id});
  return nodes;
}

std::vector<Node> Document::Walk(std::string_view keyword) const {
  const std::string key = internal::NormalKey(keyword);
  std::vector<Node> found;
  for (NodeId id = internal::kRoot; id != internal::kNoNode;
       id = state_->tree.NextInOrder(id, internal::kRoot)) {
    if (id == internal::kRoot || state_->IsComment(id)) continue;
    if (internal::HasKey(state_->OwnText(id), key)) found.push_back({state_.get(), id});
  }
  return found;
}

Node Document::At(std::size_t line) const {
  const std::lock_guard<std::mutex> lock(state_->lazy);
  state_->positions.Update(state_->text);
  return NodeAccess::OrNone(state_.get(), internal::NodeAtLine(*state_, line));
}

std::vector<Finding> Document::Findings() const {
  const std::lock_guard<std::mutex> lock(state_->lazy);
  state_->positions.Update(state_->text);
  const std::vector<internal::NodeFinding> findings = internal::FindingsOf(*state_);
  return {findings.begin(), findings.end()};
}

Family Document::GetFamily() const {
  Family family = Family::kUnknown;
  for (NodeId id = internal::kRoot; id != internal::kNoNode;
       id = state_->tree.NextInOrder(id, internal::kRoot)) {
    const NodeKind kind = state_->tree[id].kind;
    if (kind != NodeKind::kBlock && kind != NodeKind::kStatement) continue;
    const std::string key = internal::KeyOf(internal::FirstWord(state_->OwnText(id)));
    if (key == "subnet6" || key == "range6" || key == "prefix6" || key == "pool6") {
      return Family::kDhcp6;
    }
    if (key == "subnet" || key == "range" || key == "pool") family = Family::kDhcp4;
  }
  return family;
}

Document::Mark Document::GetMark() const {
  return internal::MarkOf(*state_);
}

void Document::RollBack(const Mark& mark) noexcept {
  internal::RollBackTo(*state_, mark);
}

void Document::BeginSeries() {
  ++state_->series;
}

void Document::EndSeries() {
  if (state_->series == 1 && state_->unchecked) internal::RequireReadsAsEdited(*state_);
  --state_->series;
}

void Document::AbandonSeries() noexcept {
  if (--state_->series == 0) state_->unchecked = false;
}

Position Node::Begin() const {
  if (IsGone()) return {};
  const std::lock_guard<std::mutex> lock(state_->lazy);
  state_->positions.Update(state_->text);
  return state_->positions.Of(state_->text, state_->Begin(id_));
}

Position Node::End() const {
  if (IsGone()) return {};
  const std::lock_guard<std::mutex> lock(state_->lazy);
  state_->positions.Update(state_->text);
  return state_->positions.Of(state_->text, state_->End(id_));
}

std::size_t Node::Offset() const {
  if (IsGone()) return 0;
  const std::lock_guard<std::mutex> lock(state_->lazy);
  state_->positions.Update(state_->text);
  return state_->positions.OffsetOf(state_->text, state_->Begin(id_));
}

}  // namespace klepur
