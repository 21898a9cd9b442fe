#include "tests/random/random_operations.h"

namespace klepur::test {

const std::vector<RandomOperations::Row>& RandomOperations::Lookups() {
  using R = RandomOperations;
  static const std::vector<Row> rows = {
      {4, Needs::kPermission, &R::TreeItem},
      {2, Needs::kNodes, &R::ReadBlock},
      {2, Needs::kNothing, &R::MakeLinesOfRecord},
      {4, Needs::kNothing, &R::First},
      {8, Needs::kNothing, &R::Following},
      {9, Needs::kNothing, &R::Goto},
      {7, Needs::kNothing, &R::ByName},
      {4, Needs::kNothing, &R::ByLine},
      {12, Needs::kNothing, &R::HostBy},
      {1, Needs::kNothing, &R::SubnetQuery},
      {1, Needs::kNothing, &R::NetmaskQuery},
      {5, Needs::kNodes, &R::PlaceCursors},
  };
  return rows;
}

const std::vector<RandomOperations::Row>& RandomOperations::Changes() {
  using R = RandomOperations;
  static const std::vector<Row> rows = {
      {10, Needs::kNothing, &R::Add},
      {4, Needs::kNothing, &R::AddDirectly},
      {2, Needs::kNothing, &R::AddTreeSection},
      {5, Needs::kNothing, &R::Remove},
      {8, Needs::kNothing, &R::RemoveDirectly},
      {10, Needs::kNothing, &R::Change},
      {4, Needs::kNodes, &R::ChangeTreeSection},
      {3, Needs::kNothing, &R::SetSectionParams},
      {4, Needs::kNodes, &R::SetName},
      {4, Needs::kNodes, &R::AddLine},
      {5, Needs::kNodes, &R::ChangeLine},
      {2, Needs::kNodes, &R::RemoveLine},
      {1, Needs::kNodes, &R::ReplaceSection},
      {1, Needs::kNodes, &R::SwapSections},
      {4, Needs::kNodes, &R::NewNode},
      {2, Needs::kNodes, &R::MoveNode},
      {2, Needs::kNodes, &R::DeleteNode},
      {1, Needs::kNodes, &R::ChangeCopies},
      {2, Needs::kNodes, &R::PutLine},
      {1, Needs::kNodes, &R::TakeLine},
      {1, Needs::kNodes, &R::ReverseLines},
      {2, Needs::kNodes, &R::SwapNodes},
      {2, Needs::kNodes, &R::ReverseChildren},
      {1, Needs::kNodes, &R::SpliceChildren},
      {1, Needs::kNodes, &R::KeepNode},
      {1, Needs::kNodes, &R::HangKept},
  };
  return rows;
}

Operation RandomOperations::Make(const std::vector<Row>& rows) {
  nodes_ = AllNodes(model_.Top());
  nodes_.erase(nodes_.begin());
  std::size_t sum = 0;
  for (const Row& row : rows) sum += row.weight;
  while (true) {
    std::size_t at = chance_.Below(sum);
    const Row* row = rows.data();
    for (; at >= row->weight; ++row) at -= row->weight;
    if (IsPossible(*row)) return (this->*row->maker)();
  }
}

bool RandomOperations::IsPossible(const Row& row) const {
  if (row.needs == Needs::kNodes && nodes_.empty()) return false;
  return row.needs == Needs::kNothing || allowsNodes_;
}

Operation RandomOperations::Next() {
  return Make(chance_.OneIn(2) ? Lookups() : Changes());
}

Operation RandomOperations::NextLookup() {
  return Make(Lookups());
}

Operation RandomOperations::NextChange() {
  return Make(Changes());
}

}  // namespace klepur::test
