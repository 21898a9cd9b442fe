// What is read of a leases file, with words separated by spaces:
//
//   lease  = ("ia-na" | "ia-ta" | "ia-pd") "\"" identifier "\"" "{" inner* "}"
//   inner  = ("iaaddr" | "iaprefix" | any) address "{" field* "}"
//   field  = ("cltt" | "binding state" | "preferred-life" | "max-life" | "ends") value ";"
#include <klepur/framework/tree_links.h>
#include <klepur/leases/duid.h>
#include <klepur/leases/lease_walk.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace klepur::internal {
namespace {

/// The end of a text from a position on. One past the end is an error that ends the extraction.
std::string_view From(std::string_view text, std::size_t position) {
  if (position > text.size()) throw std::out_of_range("basic_string::substr");
  return text.substr(position);
}

/// Takes the next word, a run without spaces, from the front of `rest`; empty at the end.
std::string_view TakeWord(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
  const std::string_view word = rest.substr(0, rest.find(' '));
  rest.remove_prefix(word.size());
  return word;
}

/// The text behind a block's keyword and one more character; empty when the block has another
/// keyword.
///
/// The words of the name are joined without spaces until they make one of the keywords.
std::string_view TextBehindKeyword(std::string_view name,
                                   std::initializer_list<std::string_view> keywords) {
  std::string joined;
  for (std::string_view rest = name, word = TakeWord(rest); !word.empty(); word = TakeWord(rest)) {
    joined += word;
    if (std::find(keywords.begin(), keywords.end(), joined) != keywords.end()) {
      return From(name, joined.size() + 1);
    }
  }
  return "";
}

/// The identifier of an identity association in hexadecimal; empty when the block is none.
std::string Duid(const CfSection& block) {
  std::string identifier(TextBehindKeyword(block.GetName(), {"ia-ta", "ia-na", "ia-pd"}));
  std::erase(identifier, '"');
  return DuidInHex(identifier.c_str());
}

struct Field {
  std::string_view name;
  std::string _Dhcpv6LeaseStore::*member;
};

constexpr Field kFields[] = {
    {"cltt", &_Dhcpv6LeaseStore::cltt},
    {"binding state", &_Dhcpv6LeaseStore::bindingState},
    {"preferred-life", &_Dhcpv6LeaseStore::preferredLife},
    {"max-life", &_Dhcpv6LeaseStore::maxLife},
    {"ends", &_Dhcpv6LeaseStore::ends},
};

/// Stores the value of a statement in the field that it names, if it names one.
///
/// The name grows word by word. A value is cut before each comparison, so a statement whose words
/// never make a name ends in an error when they have used up the line.
void ReadStatement(std::string_view line, _Dhcpv6LeaseStore& lease) {
  const std::size_t semicolon = line.find(';');
  if (semicolon == std::string_view::npos || semicolon == 0) return;
  std::string name;
  for (std::string_view rest = line, word = TakeWord(rest); !word.empty(); word = TakeWord(rest)) {
    if (!name.empty()) name += ' ';
    name += word;
    const std::string_view value =
        From(line, name.size() + 1).substr(0, semicolon - name.size() - 1);
    const auto field = std::find_if(std::begin(kFields), std::end(kFields),
                                    [&name](const Field& it) { return it.name == name; });
    if (field != std::end(kFields)) {
      lease.*(field->member) = value;
      return;
    }
  }
}

void ReadInnerBlock(const CfSection& block, _Dhcpv6LeaseStore& lease) {
  const std::string_view address = TextBehindKeyword(block.GetName(), {"iaaddr", "iaprefix"});
  if (!address.empty()) lease.address = address;
  for (const CfSectionEntry* entry : block.entryList) {
    if (entry == nullptr || entry->GetComment() != nullptr) continue;
    ReadStatement(entry->GetKeyName(), lease);
  }
}

/// Calls `take` for each child of a node in order and deletes the child.
template <class Take>
void TakeChildren(TreeNode& node, Take take) {
  if (node.children == nullptr) return;
  while (!node.children->empty()) {
    const std::unique_ptr<TreeNode> child(node.children->front());
    node.children->pop_front();
    if (child != nullptr) take(*child);
  }
}

void TakeLease(TreeNode& block, std::list<_Dhcpv6LeaseStore>& leases) {
  const std::string duid = Duid(block.section);
  if (duid.empty()) return;
  std::list<_Dhcpv6LeaseStore> lease(1);
  lease.front().duid = duid;  // a copy, since the text has more room than it needs
  TakeChildren(block, [&lease](TreeNode& inner) { ReadInnerBlock(inner.section, lease.front()); });
  leases.splice(leases.end(), lease);
}

}  // namespace

void TakeLeases(CfSectionHolder& tree, std::list<_Dhcpv6LeaseStore>& leases) {
  TakeChildren(tree.topNode, [&leases](TreeNode& top) {
    TakeChildren(top, [&leases](TreeNode& block) { TakeLease(block, leases); });
  });
}

void LeaseExtraction::TakeEnded(TreeNode& block) noexcept {
  if (failure_ != nullptr || block.parent->parent != &tree_.topNode) return;
  try {
    const std::unique_ptr<TreeNode> taken(&block);
    block.parent->children->pop_back();  // the last one read
    TakeLease(block, leases_);
  } catch (...) {
    failure_ = std::current_exception();
  }
}

void LeaseExtraction::Finish() {
  if (failure_ != nullptr) std::rethrow_exception(failure_);
  TakeLeases(tree_, leases_);
}

}  // namespace klepur::internal
