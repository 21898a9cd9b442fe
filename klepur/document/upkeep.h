// Internal: keeping a table of nodes true while the document is edited.
#ifndef KLEPUR_DOCUMENT_UPKEEP_H
#define KLEPUR_DOCUMENT_UPKEEP_H

#include <klepur/document/changed_nodes.h>

#include <cstddef>

namespace klepur::internal {

/// Makes a table when it is first asked for, enters what changed since, and makes it anew when more than
/// half of its entries may be wrong. Taking out wrong entries is left to who reads the table.
class Upkeep {
 public:
  /// \param enter  enters one node, if it belongs in the table.
  /// Cost: linear in the file the first time, then in what changed, on average over many.
  template <class Table, class Enter>
  void Update(const SyntaxTree& tree, Table& table, const Enter& enter) {
    if (table.Count() > 2 * made_with_ + kFew) changed_.Restart();
    bool anew = false;
    changed_.ForEach(
        tree,
        [&] {
          anew = true;
          table = Table();
        },
        enter);
    if (anew) made_with_ = table.Count();
  }

 private:
  static constexpr std::size_t kFew = 1000;

  ChangedNodes changed_;
  std::size_t made_with_ = 0;
};

}  // namespace klepur::internal

#endif
