// Random operations on a configuration file.
#ifndef KLEPUR_TESTS_RANDOM_RANDOM_OPERATIONS_H
#define KLEPUR_TESTS_RANDOM_RANDOM_OPERATIONS_H

#include <cstddef>
#include <vector>

#include "tests/random/operation.h"
#include "tests/random/random_picks.h"

namespace klepur::test {

/// Makes operations that have something to do in the model's present state: names that are there,
/// changes of what is there.
class RandomOperations : RandomPicks {
 public:
  RandomOperations(Chance& chance, ModelFile& model) : RandomPicks(chance, model) {}

  /// Whether operations may take nodes and return nodes; they may at first.
  void AllowNodes(bool allow) { allowsNodes_ = allow; }

  Operation Next();

  /// One that looks something up, or one that changes the tree: often what was just looked up.
  Operation NextLookup();
  Operation NextChange();

 private:
  using Maker = Operation (RandomOperations::*)();
  enum class Needs { kNothing, kPermission, kNodes };
  struct Row {
    std::size_t weight;
    Needs needs;
    Maker maker;
  };
  bool IsPossible(const Row& row) const;
  static const std::vector<Row>& Lookups();
  static const std::vector<Row>& Changes();

  Operation Make(const std::vector<Row>& rows);

  // Walking and looking up
  Operation TreeItem();
  Operation ReadBlock();
  Operation MakeLinesOfRecord();
  Operation First();
  Operation Following();
  Operation Goto();
  Operation ByName();
  Operation ByLine();
  Operation HostBy();
  Operation SubnetQuery();
  Operation NetmaskQuery();

  // Adding, removing, changing
  Operation Add();
  Operation AddDirectly();
  Operation AddTreeSection();
  Operation Remove();
  Operation RemoveDirectly();
  Operation Change();
  Operation ChangeTreeSection();
  Operation SetSectionParams();

  // Changes through nodes
  Operation SetName();
  Operation AddLine();
  Operation ChangeLine();
  Operation RemoveLine();
  Operation ReplaceSection();
  Operation SwapSections();
  Operation NewNode();
  Operation MoveNode();
  Operation DeleteNode();
  Operation ChangeCopies();
  Operation PlaceCursors();

  // Changes of the lists in nodes
  Operation PutLine();
  Operation TakeLine();
  Operation ReverseLines();
  Operation SwapNodes();
  Operation ReverseChildren();
  Operation SpliceChildren();
  Operation KeepNode();
  Operation HangKept();
};

}  // namespace klepur::test

#endif
