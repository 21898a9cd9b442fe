#include <klepur/check/walk.h>

#include <klepur/check/allowances.h>
#include <klepur/check/gathering.h>
#include <klepur/check/meaning_gathering.h>
#include <klepur/check/statement_value.h>
#include <klepur/check/value_types.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

/// Whether a "{" and a body follow the word of a block or statement that has none, or the other way round.
bool IsBroken(const Item& item, const StructureWord& word) {
  if (item.unfinished) return true;
  if (word.text.empty()) return false;
  const bool has_block = item.kind == NodeKind::kBlock;
  switch (word.begins) {
    case Begins::kStatement:
    case Begins::kAlone:
      return has_block;
    case Begins::kBlock:
    case Begins::kChain:
    case Begins::kBranch:
      return !has_block;
    case Begins::kLabel:
      return item.around.scope == kInSwitch && item.kind == NodeKind::kStatement &&
             EqualButForCase(item.first, "case");
    default:
      return false;
  }
}

/// Over what a keyword has behind its second word: "allow dynamic bootp clients", "allow known clients".
void SkipRestOfKeyword(WordsOfText& words, std::string_view second, std::string_view name) {
  std::size_t at = name.find(' ', name.find(' ') + 1);
  if (at == std::string_view::npos) {
    if (EqualButForCase(second, "known") || EqualButForCase(second, "unknown")) words.Next();
    return;
  }
  for (; at != std::string_view::npos; at = name.find(' ', at + 1)) words.Next();
}

}  // namespace

Walk::Walk(Facts& facts, Report& report)
    : facts_(facts),
      report_(report),
      state_(facts.state),
      next_(state_.tree.FirstChild(kRoot)),
      frames_(1) {
  for (std::size_t rule = 0; rule != kRuleCount; ++rule) {
    if (kRules[rule].each != nullptr && !report.IsSilent(rule)) {
      rules_[static_cast<std::size_t>(kRules[rule].shown)].push_back(rule);
    }
  }
}

bool Walk::Step(std::size_t nodes) {
  for (; nodes != 0 && next_ != kNoNode; --nodes) {
    const NodeId id = next_;
    const std::size_t depth = frames_.size();
    Visit(id);
    if (frames_.size() == depth) Advance(id);
  }
  if (next_ != kNoNode) return true;
  if (facts_.family == Family::kUnknown) {
    facts_.family = facts_.seen6   ? Family::kDhcp6
                    : facts_.seen4 ? Family::kDhcp4
                                   : Family::kUnknown;
  }
  FinishFacts(facts_);
  return false;
}

/// To the node behind one, out of the blocks that end with it.
void Walk::Advance(NodeId id) {
  while (state_.tree[id].next == kNoNode && frames_.size() > 1) {
    id = frames_.back().id;
    frames_.pop_back();
  }
  next_ = state_.tree[id].next;
}

void Walk::Visit(NodeId id) {
  const SyntaxNode& node = state_.tree[id];
  switch (node.kind) {
    case NodeKind::kComment:
      return VisitComment(id);
    case NodeKind::kStray:
      facts_.seems_malformed = true;
      return;
    case NodeKind::kStatement:
    case NodeKind::kBlock:
      return VisitNode(id, node);
    case NodeKind::kLabel:
      facts_.seems_malformed = facts_.seems_malformed || node.open_quote != 0;
      return;
    default:
      return;
  }
}

void Walk::VisitComment(NodeId id) {
  std::vector<std::size_t> rules = AllowedBy(state_.OwnText(id));
  if (rules.empty()) return;
  NodeId below = state_.tree[id].next;
  while (below != kNoNode && state_.IsComment(below)) below = state_.tree[below].next;
  if (below != kNoNode) report_.Allow(below, std::move(rules));
}

void Walk::VisitNode(NodeId id, const SyntaxNode& node) {
  const std::string_view text = state_.OwnText(id);
  const std::string_view plain = node.kind == NodeKind::kBlock ? text : WithoutSemicolon(text);
  WordsOfText words(plain);
  const std::string_view first = words.Next();
  facts_.seems_malformed = facts_.seems_malformed || node.unfinished != 0 || node.open_quote != 0 ||
                           node.late_semicolon != 0 || first.empty();
  const WordMemo::First& found = memo_.Find(first);
  const KnownFirstWord known = found.known;
  std::string_view second;
  std::string_view value = words.Rest();
  const Word* word = known.alone;
  if (known.goes_on) {
    second = words.Next();
    const Word* const longer = memo_.Find(first, second);
    if (longer != nullptr) {
      word = longer;
      SkipRestOfKeyword(words, second, word->name);
    }
    if (longer != nullptr || EqualButForCase(first, "option")) value = words.Rest();
  }
  const Scopes scope = frames_.back().scope;
  if (word != nullptr && ((word->scopes4 | word->scopes6) & scope) == 0)
    word = AmongTwins(word, scope);
  const bool unfinished =
      node.unfinished != 0 && (node.kind == NodeKind::kBlock || text.back() != ';');
  const Item item = {id,     node.kind, unfinished, text,           first,
                     second, value,     word,       TraitsOf(word), frames_.back()};
  const bool broken = IsBroken(item, *found.structure);
  if (found.structure->begins == Begins::kBranch) facts_.seems_malformed = true;
  Look(item, broken);
  GatherReferences(item, facts_);
  if (node.kind == NodeKind::kStatement) {
    const bool is_right = GatherStatement(item, facts_);
    if (!is_right && !broken) CheckValue(item, facts_, report_);
    return;
  }
  if (!broken && item.word != nullptr) CheckValue(item, facts_, report_);
  const NodeId child = state_.tree.FirstChild(id);
  const Frame frame = GatherBlock(item, facts_);
  if (child == kNoNode) return;
  frames_.push_back(frame);
  next_ = child;
}

void Walk::Look(const Item& item, bool broken) {
  if (item.kind == NodeKind::kBlock) {
    Show(Shown::kBlocks, item);
    if (EqualButForCase(item.first.substr(0, 6), "subnet")) Show(Shown::kSubnets, item);
  }
  if (broken) Show(Shown::kBroken, item);
  if (item.word == nullptr) return Show(Shown::kUnknownWords, item);
  facts_.seen6 = facts_.seen6 || item.traits.tells6;
  facts_.seen4 = facts_.seen4 || item.traits.tells4;
  if (!item.unfinished) NotePlace(item);
}

/// Remembers a word that is not taken where it stands; whether that counts is known when the family is.
void Walk::NotePlace(const Item& item) {
  const Scopes scope = item.around.scope;
  const bool by4 = (item.word->scopes4 & scope) == 0;
  const bool by6 = (item.word->scopes6 & scope) == 0;
  if ((by4 || by6) && scope != kNowhere) {
    facts_.misplaced.push_back({item.id, item.word, scope, by4, by6});
  }
}

void Walk::Show(Shown shown, const Item& item) {
  for (const std::size_t rule : rules_[static_cast<std::size_t>(shown)]) {
    report_.SetRule(rule);
    kRules[rule].each(item, facts_, report_);
  }
}

}  // namespace klepur::internal
