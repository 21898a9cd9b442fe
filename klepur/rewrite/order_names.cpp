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

/// How far up a subnet asks whether the server is authoritative.
constexpr int kMostLevels = 64;

using Sort = ThingSort;
using Words = std::vector<std::string_view>;

enum class Form : std::uint8_t { kBlock, kStatement, kEither };

/// What a declaration names, or refers to, with its word of this number.
struct Declaration {
  std::string_view keyword;
  Form form;
  OrderRole role;
  Sort sort;
  std::size_t name;
  bool small;  ///< Whether the name means the same in small letters.
};

constexpr Declaration kDeclarations[] = {
    {"class", Form::kBlock, OrderRole::kSets, Sort::kClass, 1, false},
    {"subclass", Form::kEither, OrderRole::kUses, Sort::kClass, 1, false},
    {"vendor-class", Form::kEither, OrderRole::kUses, Sort::kClass, 1, false},
    {"user-class", Form::kEither, OrderRole::kUses, Sort::kClass, 1, false},
    {"key", Form::kBlock, OrderRole::kSets, Sort::kKey, 1, true},
    {"key", Form::kStatement, OrderRole::kUses, Sort::kKey, 1, true},
    {"omapi-key", Form::kStatement, OrderRole::kUses, Sort::kKey, 1, true},
    {"zone", Form::kBlock, OrderRole::kSets, Sort::kZone, 1, true},
    {"failover", Form::kBlock, OrderRole::kSets, Sort::kPeer, 2, false},
    {"failover", Form::kStatement, OrderRole::kUses, Sort::kPeer, 2, false},
    {"group", Form::kBlock, OrderRole::kSets, Sort::kGroup, 1, false},
    {"group", Form::kStatement, OrderRole::kUses, Sort::kGroup, 1, false},
};

/// The other words that begin what has to do with things of a sort, wherever it stands.
struct FirstWordOf {
  std::string_view word;
  Sort sort;
};

constexpr FirstWordOf kFirstWords[] = {
    {"allow", Sort::kClass},
    {"deny", Sort::kClass},
    {"option", Sort::kSpace},
    {"option", Sort::kDefinition},
    {"include", Sort::kInclude},
    {"include", Sort::kIncluded},
    {"hardware", Sort::kHardware},
    {"subnet", Sort::kSubnet},
    {"range", Sort::kSubnet},
    {"pool", Sort::kSubnet},
    {"subnet", Sort::kAuthority},
    {"shared-network", Sort::kAuthority},
    {"authoritative", Sort::kAuthority},
    {"not", Sort::kAuthority},
    {"subnet", Sort::kInclude},
    {"shared-network", Sort::kInclude},
};

std::string Small(std::string_view word) {
  std::string text = WithoutQuotes(word);
  std::transform(text.begin(), text.end(), text.begin(), ToSmallLetter);
  return text;
}

bool Is(const Words& words, std::size_t i, std::string_view text) {
  return i < words.size() && EqualButForCase(words[i], text);
}

bool IsAuthority(const Words& words) {
  return Is(words, 0, "authoritative") || (Is(words, 0, "not") && Is(words, 1, "authoritative"));
}

bool SetsVariable(const Words& words) {
  return Is(words, 0, "set") || Is(words, 0, "unset") || Is(words, 0, "define");
}

/// Reads the first words of a text, up to its ";".
void ReadWords(std::string_view text, Words& words,
               std::size_t most = static_cast<std::size_t>(-1)) {
  words.clear();
  WordsOfText rest(text);
  while (words.size() != most) {
    const std::string_view word = rest.Next();
    if (word.empty() || word == ";") return;
    words.push_back(word);
  }
}

/// Makes the number of a thing.
class Thing {
 public:
  explicit Thing(Sort sort, NodeId scope = kNoNode) : sort_(sort) {
    Mix(static_cast<std::uint64_t>(sort) << 32 | scope);
  }

  /// Adds a word, the same with quotes or without them.
  Thing& Name(std::string_view word, bool small = true) {
    if (word.substr(0, 1) == "\"") {
      MixWord(WithoutQuotes(word), small);
    } else {
      MixWord(word, small);
    }
    return *this;
  }

  OrderName In(OrderRole role) const { return {number_ ^ number_ >> 32, role, sort_}; }

 private:
  static constexpr std::uint64_t kEnd = 0x100;

  void MixWord(std::string_view word, bool small) {
    for (const char byte : word) {
      Mix(static_cast<unsigned char>(small ? ToSmallLetter(byte) : byte));
    }
    Mix(kEnd);
  }
  void Mix(std::uint64_t value) { number_ = (number_ ^ value) * 0x100000001B3; }

  Sort sort_;
  std::uint64_t number_ = 0xCBF29CE484222325;
};

/// What a statement sets: the same for all statements that set it.
Thing ValueThing(NodeId scope, const Words& words) {
  Thing thing(Sort::kValue, scope);
  for (const std::string_view other : {"supersede", "default", "append", "prepend", "send"}) {
    if (Is(words, 0, other) && words.size() > 1) return thing.Name("option").Name(words[1]);
  }
  for (const std::string_view other : {"deny", "ignore"}) {
    if (Is(words, 0, other) && words.size() > 1) return thing.Name("allow").Name(words[1]);
  }
  const std::size_t count = WordOf(NumberOf(words[0])).key_words;
  for (std::size_t i = 0; i != std::min(count, words.size()); ++i) thing.Name(words[i]);
  return thing;
}

}  // namespace

/// Collects the names of one node.
class NamesOfNode {
 public:
  NamesOfNode(OrderNames& all, NodeId id)
      : all_(all), state_(all.state_), id_(id), words_(all.words_), names_(all.names_) {
    ReadWords(state_.OwnText(id), all.words_);
  }

  void Collect() {
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
    if (all_.IsInSwitch(id_)) Add(Thing(Sort::kSwitch, Parent()), OrderRole::kSets);
  }

 private:
  bool IsBlock() const { return state_.IsBlock(id_); }
  NodeId Parent() const { return state_.tree[id_].parent; }
  NodeId Scope() const { return all_.ScopeAround(id_); }

  void Add(const Thing& thing, OrderRole role) {
    const OrderName name = thing.In(role);
    if (all_.Wants(name.sort)) names_.push_back(name);
  }
  /// What an included file could declare too, or refer to.
  void AddDeclaration(const Thing& thing, OrderRole role) {
    Add(thing, role);
    if (all_.includes_) Add(Thing(Sort::kInclude), OrderRole::kUses);
  }

  void AddDeclared() {
    for (const Declaration& row : kDeclarations) {
      if (row.form != Form::kEither && (row.form == Form::kBlock) != IsBlock()) continue;
      if (!Is(words_, 0, row.keyword) || words_.size() <= row.name) continue;
      AddDeclaration(Thing(row.sort).Name(words_[row.name], row.small), row.role);
    }
    if (!Is(words_, 0, "allow") && !Is(words_, 0, "deny")) return;
    if (Is(words_, 1, "members") && words_.size() > 3) {
      AddDeclaration(Thing(Sort::kClass).Name(words_[3], false), OrderRole::kUses);
    }
  }

  void AddOptions() {
    for (std::size_t i = 0; i + 1 < words_.size(); ++i) {
      const bool configured = Is(words_, i, "config-option");
      if (!configured && !Is(words_, i, "option")) continue;
      const std::string_view name = words_[i + 1];
      const bool defines = i == 0 && Is(words_, 2, "code");
      if (i == 0 && Is(words_, 1, "space") && words_.size() > 2) {
        AddDeclaration(Thing(Sort::kSpace).Name(words_[2]), OrderRole::kSets);
      } else if (defines || IsDefined(name)) {
        AddDeclaration(Thing(Sort::kDefinition).Name(name),
                       defines ? OrderRole::kSets : OrderRole::kUses);
        if (const std::size_t dot = name.find('.'); dot != std::string::npos && defines) {
          Add(Thing(Sort::kSpace).Name(name.substr(0, dot)), OrderRole::kUses);
        }
      }
      if (configured) {
        Add(Thing(Sort::kValue, Scope()).Name("option").Name(name), OrderRole::kUses);
      }
    }
    for (std::size_t i = 3; i + 1 < words_.size(); ++i) {
      if (!Is(words_, i, "encapsulate")) continue;
      Add(Thing(Sort::kSpace).Name(words_[i + 1]), OrderRole::kUses);
    }
  }

  bool IsDefined(std::string_view option) const {
    return !all_.options_.empty() && all_.options_.count(Small(option)) != 0;
  }

  void AddNetworks() {
    const bool subnet = Is(words_, 0, "subnet") || Is(words_, 0, "subnet6");
    if (IsBlock() && (subnet || Is(words_, 0, "shared-network"))) {
      if (all_.includes_) Add(Thing(Sort::kInclude), OrderRole::kUses);
      AddAuthorities();
    }
    if (IsAuthority(words_)) Add(Thing(Sort::kAuthority, Parent()), OrderRole::kSets);
    const bool pool = Is(words_, 0, "pool") || Is(words_, 0, "pool6") || Is(words_, 0, "range");
    if (!subnet && !pool) return;
    if (const NodeId network = SharedNetwork(); network != kNoNode) {
      Add(Thing(Sort::kSubnet, network), subnet ? OrderRole::kEnables : OrderRole::kUses);
    }
  }

  void AddAuthorities() {
    NodeId block = Parent();
    for (int level = 0; level != kMostLevels && !all_.authorities_.empty(); ++level) {
      if (all_.authorities_.count(block) != 0) {
        Add(Thing(Sort::kAuthority, block), OrderRole::kUses);
      }
      if (block == kRoot) break;
      block = state_.tree[block].parent;
    }
  }

  /// The shared network that a subnet or pool stands in, be it in groups.
  NodeId SharedNetwork() const {
    NodeId block = Parent();
    for (int level = 0; level != kMostLevels && block != kRoot; ++level) {
      const std::string_view word = FirstWord(state_.OwnText(block));
      if (EqualButForCase(word, "shared-network")) return block;
      if (!EqualButForCase(word, "group")) break;
      block = state_.tree[block].parent;
    }
    return kNoNode;
  }

  void AddInclude() {
    if (!Is(words_, 0, "include")) return;
    Add(Thing(Sort::kInclude), OrderRole::kSets);
    Add(Thing(Sort::kIncluded, Scope()), OrderRole::kSets);
  }

  void AddValue() {
    if (Is(words_, 0, "hardware") && words_.size() > 2) {
      Add(Thing(Sort::kHardware).Name(words_[2]), OrderRole::kSets);
    }
    const NodeId scope = IsOfOneClass() ? Parent() : Scope();
    if (words_.empty() || !all_.Matters(scope)) return;
    Add(ValueThing(scope, words_), OrderRole::kSets);
    if (all_.includes_) Add(Thing(Sort::kIncluded, scope), OrderRole::kUses);
  }

  /// Whether a statement says what a class is, not what its clients get.
  bool IsOfOneClass() const {
    return Is(words_, 0, "match") || Is(words_, 0, "spawn") || Is(words_, 0, "lease");
  }

  void AddCarriedOut() {
    if (Is(words_, 0, "on")) {
      for (std::size_t i = 1; i < words_.size(); i += 2) {
        Add(Thing(Sort::kEvent, Scope()).Name(words_[i]), OrderRole::kSets);
      }
    }
    if (Is(words_, 0, "log") || Is(words_, 0, "execute") || Is(words_, 0, "add")) {
      Add(Thing(Sort::kDoing, Scope()), OrderRole::kSets);
    }
    if (all_.breaking_.count(Scope()) != 0) {
      const bool breaks = Is(words_, 0, "break") && !all_.IsInSwitch(id_);
      Add(Thing(Sort::kFlow, Scope()), breaks ? OrderRole::kSets : OrderRole::kUses);
    }
  }

  void AddVariables() {
    if (all_.variables_.empty()) return;
    const bool sets = SetsVariable(words_);
    for (std::size_t i = 0; i != words_.size(); ++i) {
      if (all_.variables_.count(Small(words_[i])) == 0) continue;
      Add(Thing(Sort::kVariable, Scope()).Name(words_[i]),
          sets && i == 1 ? OrderRole::kSets : OrderRole::kUses);
    }
  }

  const OrderNames& all_;
  const DocumentState& state_;
  const NodeId id_;
  const Words& words_;
  std::vector<OrderName>& names_;
};

OrderNames::OrderNames(const DocumentState& state, const std::vector<bool>& disordered)
    : state_(state),
      scope_(state.tree.Count()),
      matters_(state.tree.Count(), false),
      wanted_(kSorts, true) {
  for (NodeId id = 0; id != state.tree.Count(); ++id) {
    scope_[id] = id;
    if (id != kRoot && !state.IsComment(id)) Survey(id);
    if (!disordered[id]) continue;
    matters_[id] = true;
    if (scope_[id] != kClasses) matters_[scope_[id]] = true;
  }
  WantFirstWords();
}

void OrderNames::Limit(const std::vector<bool>& sorts, const std::vector<NodeId>& nodes) {
  wanted_ = sorts;
  matters_.assign(matters_.size(), false);
  for (const NodeId id : nodes) {
    matters_[state_.tree[id].parent] = true;
    if (ScopeAround(id) != kClasses) matters_[ScopeAround(id)] = true;
  }
  WantFirstWords();
}

void OrderNames::WantFirstWords() {
  first_bytes_ = {};
  anywhere_ = Wants(Sort::kDefinition) && !options_.empty();
  const auto want = [this](std::string_view word) {
    const char small = word.front();
    first_bytes_[static_cast<unsigned char>(small)] = true;
    first_bytes_[static_cast<unsigned char>(small - 'a' + 'A')] = true;
  };
  for (const Declaration& row : kDeclarations) {
    if (Wants(row.sort) || Wants(Sort::kInclude)) want(row.keyword);
  }
  for (const FirstWordOf& row : kFirstWords) {
    if (Wants(row.sort)) want(row.word);
  }
}

/// A quick look, for most nodes have none that are wanted.
bool OrderNames::MayHaveNames(NodeId id) const {
  const NodeKind kind = state_.tree[id].kind;
  if (id == kRoot || kind == NodeKind::kComment || kind == NodeKind::kStray) return false;
  if (anywhere_ || Matters(ScopeAround(id)) || IsInSwitch(id)) return true;
  const std::string_view text = state_.OwnText(id);
  return !text.empty() && first_bytes_[static_cast<unsigned char>(text.front())];
}

const std::vector<OrderName>& OrderNames::Of(NodeId id) {
  names_.clear();
  if (MayHaveNames(id)) NamesOfNode(*this, id).Collect();
  return names_;
}

void OrderNames::Survey(NodeId id) {
  if (IsBranch(id)) scope_[id] = ScopeAround(id);
  if (!state_.IsBlock(id)) return SurveyStatement(id);
  if (EqualButForCase(FirstWord(state_.OwnText(id)), "class")) scope_[id] = kClasses;
}

void OrderNames::SurveyStatement(NodeId id) {
  const std::string_view text = state_.OwnText(id);
  // None of the words that are looked for begins with another letter.
  constexpr std::string_view kFirstLetters = "abdinosu";
  if (text.empty() || kFirstLetters.find(ToSmallLetter(text.front())) == std::string_view::npos) {
    return;
  }
  constexpr std::size_t kMostWords = 3;
  ReadWords(text, words_, kMostWords);
  if (Is(words_, 0, "include")) includes_ = true;
  if (Is(words_, 0, "break") && !IsInSwitch(id)) breaking_.insert(ScopeAround(id));
  if (Is(words_, 0, "option") && Is(words_, 2, "code")) options_.insert(Small(words_[1]));
  if (SetsVariable(words_) && words_.size() > 1) variables_.insert(Small(words_[1]));
  if (IsAuthority(words_)) authorities_.insert(state_.tree[id].parent);
}

/// What is set in a branch is set in the block around it.
bool OrderNames::IsBranch(NodeId id) const {
  if (!state_.IsBlock(id)) return false;
  const std::uint8_t number = state_.tree[id].word;
  const Begins begins = WordOf(number).begins;
  return begins == Begins::kChain || begins == Begins::kBranch || number == kWordSwitch;
}

bool OrderNames::IsInSwitch(NodeId id) const {
  return state_.tree[state_.tree[id].parent].word == kWordSwitch;
}

}  // namespace klepur::internal
