#include <klepur/rewrite/order_names.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include <klepur/document/document.h>
#include <klepur/document/node_text.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

/// The scope of all classes, which a client can be in several of.
constexpr NodeId kClasses = kNoNode - 1;

/// How far up a subnet asks whether the server is authoritative.
constexpr int kMostLevels = 64;

enum class Form : std::uint8_t { kBlock, kStatement, kEither };

/// What a declaration names, or refers to, with its word of this number.
struct Declaration {
  std::string_view keyword;
  Form form;
  OrderRole role;
  std::string_view thing;
  std::size_t name;
  bool small;  ///< Whether the name means the same in small letters.
};

constexpr Declaration kDeclarations[] = {
    {"class", Form::kBlock, OrderRole::kSets, "class", 1, false},
    {"subclass", Form::kEither, OrderRole::kUses, "class", 1, false},
    {"vendor-class", Form::kEither, OrderRole::kUses, "class", 1, false},
    {"user-class", Form::kEither, OrderRole::kUses, "class", 1, false},
    {"key", Form::kBlock, OrderRole::kSets, "key", 1, true},
    {"key", Form::kStatement, OrderRole::kUses, "key", 1, true},
    {"omapi-key", Form::kStatement, OrderRole::kUses, "key", 1, true},
    {"zone", Form::kBlock, OrderRole::kSets, "zone", 1, true},
    {"failover", Form::kBlock, OrderRole::kSets, "peer", 2, false},
    {"failover", Form::kStatement, OrderRole::kUses, "peer", 2, false},
    {"group", Form::kBlock, OrderRole::kSets, "group", 1, false},
    {"group", Form::kStatement, OrderRole::kUses, "group", 1, false},
};

std::string Small(std::string_view word) {
  std::string text = WithoutQuotes(word);
  std::transform(text.begin(), text.end(), text.begin(), ToSmallLetter);
  return text;
}

bool Is(const std::vector<std::string_view>& words, std::size_t i, std::string_view text) {
  return i < words.size() && EqualButForCase(words[i], text);
}

bool IsAuthority(const std::vector<std::string_view>& words) {
  return Is(words, 0, "authoritative") || (Is(words, 0, "not") && Is(words, 1, "authoritative"));
}

bool SetsVariable(const std::vector<std::string_view>& words) {
  return Is(words, 0, "set") || Is(words, 0, "unset") || Is(words, 0, "define");
}

std::string Thing(std::string_view sort, std::string_view name) {
  return std::string(sort) + ' ' + std::string(name);
}

std::string In(NodeId scope, std::string_view sort, std::string_view name = {}) {
  return Thing(sort, name) + ' ' + std::to_string(scope);
}

/// The key of what a statement sets, the same for all statements that set it.
std::string KeyOfValue(std::string_view text, const std::vector<std::string_view>& words) {
  for (const std::string_view other : {"supersede", "default", "append", "prepend", "send"}) {
    if (Is(words, 0, other) && words.size() > 1) return Thing("option", Small(words[1]));
  }
  for (const std::string_view other : {"deny", "ignore"}) {
    if (Is(words, 0, other) && words.size() > 1) return Thing("allow", Small(words[1]));
  }
  return KeyOf(text);
}

}  // namespace

/// Collects the names of one node.
class NamesOfNode {
 public:
  NamesOfNode(const OrderNames& all, NodeId id)
      : all_(all), state_(all.state_), id_(id), words_(all.WordsOf(id)) {}

  std::vector<OrderName> Collect() {
    const NodeKind kind = state_.tree[id_].kind;
    if (kind != NodeKind::kLabel) {
      AddDeclared();
      AddOptions();
      AddNetworks();
      AddInclude();
      if (kind == NodeKind::kStatement) AddValue();
      AddCarriedOut();
      AddVariables();
    }
    if (all_.IsInSwitch(id_)) Add(In(state_.tree[id_].parent, "switch"), OrderRole::kSets);
    return std::move(names_);
  }

 private:
  bool IsBlock() const { return state_.IsBlock(id_); }
  NodeId Scope() const { return all_.ScopeAround(id_); }

  void Add(std::string thing, OrderRole role) { names_.push_back({std::move(thing), role}); }
  /// What an included file could declare too, or refer to.
  void AddDeclaration(std::string thing, OrderRole role) {
    Add(std::move(thing), role);
    if (all_.includes_) Add("include", OrderRole::kUses);
  }

  void AddDeclared() {
    for (const Declaration& row : kDeclarations) {
      if (row.form != Form::kEither && (row.form == Form::kBlock) != IsBlock()) continue;
      if (!Is(words_, 0, row.keyword) || words_.size() <= row.name) continue;
      const std::string_view name = words_[row.name];
      AddDeclaration(Thing(row.thing, row.small ? Small(name) : WithoutQuotes(name)), row.role);
    }
    if (!Is(words_, 0, "allow") && !Is(words_, 0, "deny")) return;
    if (Is(words_, 1, "members") && words_.size() > 3) {
      AddDeclaration(Thing("class", WithoutQuotes(words_[3])), OrderRole::kUses);
    }
  }

  void AddOptions() {
    for (std::size_t i = 0; i + 1 < words_.size(); ++i) {
      if (!Is(words_, i, "option") && !Is(words_, i, "config-option")) continue;
      const std::string name = Small(words_[i + 1]);
      const bool defines = i == 0 && Is(words_, 2, "code");
      if (i == 0 && name == "space" && words_.size() > 2) {
        AddDeclaration(Thing("space", Small(words_[2])), OrderRole::kSets);
      } else if (defines || all_.options_.count(name) != 0) {
        AddDeclaration(Thing("definition", name), defines ? OrderRole::kSets : OrderRole::kUses);
        if (const std::size_t dot = name.find('.'); dot != std::string::npos && defines) {
          Add(Thing("space", name.substr(0, dot)), OrderRole::kUses);
        }
      }
      if (Is(words_, i, "config-option") && HasBranches()) {
        Add(In(Scope(), "value", Thing("option", name)), OrderRole::kUses);
      }
    }
    for (std::size_t i = 3; i + 1 < words_.size(); ++i) {
      if (Is(words_, i, "encapsulate")) Add(Thing("space", Small(words_[i + 1])), OrderRole::kUses);
    }
  }

  void AddNetworks() {
    const bool subnet = Is(words_, 0, "subnet") || Is(words_, 0, "subnet6");
    if (IsBlock() && (subnet || Is(words_, 0, "shared-network"))) {
      if (all_.includes_) Add("include", OrderRole::kUses);
      AddAuthorities();
    }
    if (IsAuthority(words_)) Add(In(state_.tree[id_].parent, "authority"), OrderRole::kSets);
    const bool pool = Is(words_, 0, "pool") || Is(words_, 0, "pool6") || Is(words_, 0, "range");
    if (!subnet && !pool) return;
    if (const NodeId network = SharedNetwork(); network != kNoNode) {
      Add(In(network, "subnet"), subnet ? OrderRole::kEnables : OrderRole::kUses);
    }
  }

  void AddAuthorities() {
    NodeId block = state_.tree[id_].parent;
    for (int level = 0; level != kMostLevels && !all_.authorities_.empty(); ++level) {
      if (all_.authorities_.count(block) != 0) Add(In(block, "authority"), OrderRole::kUses);
      if (block == kRoot) break;
      block = state_.tree[block].parent;
    }
  }

  /// The shared network that a subnet or pool stands in, be it in groups.
  NodeId SharedNetwork() const {
    NodeId block = state_.tree[id_].parent;
    for (int level = 0; level != kMostLevels && block != kRoot; ++level) {
      const std::string_view word = FirstWord(state_.OwnText(block));
      if (EqualButForCase(word, "shared-network")) return block;
      if (!EqualButForCase(word, "group")) break;
      block = state_.tree[block].parent;
    }
    return kNoNode;
  }

  void AddInclude() {
    if (Is(words_, 0, "include")) Add("include", OrderRole::kSets);
  }

  bool HasBranches() const { return all_.branching_.count(Scope()) != 0 || Scope() == kClasses; }

  void AddValue() {
    if (Is(words_, 0, "hardware") && words_.size() > 2) {
      Add(Thing("hardware", Small(words_[2])), OrderRole::kSets);
    }
    if (!HasBranches() || words_.empty() || IsOfOneClass()) return;
    Add(In(Scope(), "value", KeyOfValue(state_.OwnText(id_), words_)), OrderRole::kSets);
    if (all_.includes_) Add("include", OrderRole::kUses);
  }

  /// Whether a statement says what a class is, not what its clients get.
  bool IsOfOneClass() const {
    return Is(words_, 0, "match") || Is(words_, 0, "spawn") || Is(words_, 0, "lease");
  }

  void AddCarriedOut() {
    if (Is(words_, 0, "on")) {
      for (std::size_t i = 1; i < words_.size(); i += 2)
        Add(In(Scope(), "on", Small(words_[i])), OrderRole::kSets);
    }
    if (Is(words_, 0, "log") || Is(words_, 0, "execute") || Is(words_, 0, "add")) {
      Add(In(Scope(), "doing"), OrderRole::kSets);
    }
    if (all_.breaking_.count(Scope()) != 0) {
      const bool breaks = Is(words_, 0, "break") && !all_.IsInSwitch(id_);
      Add(In(Scope(), "flow"), breaks ? OrderRole::kSets : OrderRole::kUses);
    }
  }

  void AddVariables() {
    if (all_.variables_.empty()) return;
    const bool sets = SetsVariable(words_);
    for (std::size_t i = 0; i != words_.size(); ++i) {
      const std::string name = Small(words_[i]);
      if (all_.variables_.count(name) != 0)
        Add(In(Scope(), "variable", name), sets && i == 1 ? OrderRole::kSets : OrderRole::kUses);
    }
  }

  const OrderNames& all_;
  const DocumentState& state_;
  const NodeId id_;
  const std::vector<std::string_view> words_;
  std::vector<OrderName> names_;
};

OrderNames::OrderNames(const DocumentState& state) : state_(state), scope_(state.tree.Count()) {
  for (NodeId id = 0; id != state.tree.Count(); ++id) {
    scope_[id] = id;
    if (id != kRoot && !state.IsComment(id)) Survey(id);
  }
}

OrderNames::Words OrderNames::WordsOf(NodeId id) const {
  Words words;
  WordsOfText text(state_.OwnText(id));
  for (std::string_view word = text.Next(); !word.empty() && word != ";"; word = text.Next()) {
    words.push_back(word);
  }
  return words;
}

void OrderNames::Survey(NodeId id) {
  SurveyBranch(id);
  const std::string_view first = FirstWord(state_.OwnText(id));
  if (EqualButForCase(first, "class") && state_.IsBlock(id)) scope_[id] = kClasses;
  if (EqualButForCase(first, "include")) includes_ = true;
  if (EqualButForCase(first, "break") && !IsInSwitch(id)) breaking_.insert(ScopeAround(id));
  const Words words = EqualButForCase(first, "option") || EqualButForCase(first, "set") ||
                              EqualButForCase(first, "unset") || EqualButForCase(first, "define") ||
                              EqualButForCase(first, "not") ||
                              EqualButForCase(first, "authoritative")
                          ? WordsOf(id)
                          : Words();
  if (Is(words, 0, "option") && Is(words, 2, "code")) options_.insert(Small(words[1]));
  if (SetsVariable(words) && words.size() > 1) variables_.insert(Small(words[1]));
  if (IsAuthority(words)) authorities_.insert(state_.tree[id].parent);
}

/// What is set in a branch is set in the block around it.
void OrderNames::SurveyBranch(NodeId id) {
  if (!state_.IsBlock(id)) return;
  const std::uint8_t number = state_.tree[id].word;
  const Begins begins = WordOf(number).begins;
  if (begins != Begins::kChain && begins != Begins::kBranch && number != kWordSwitch) return;
  scope_[id] = ScopeAround(id);
  branching_.insert(scope_[id]);
}

bool OrderNames::IsInSwitch(NodeId id) const {
  return state_.tree[state_.tree[id].parent].word == kWordSwitch;
}

std::vector<OrderName> OrderNames::Of(NodeId id) const {
  const NodeKind kind = state_.tree[id].kind;
  if (kind == NodeKind::kComment || kind == NodeKind::kStray || id == kRoot) return {};
  return NamesOfNode(*this, id).Collect();
}

}  // namespace klepur::internal
