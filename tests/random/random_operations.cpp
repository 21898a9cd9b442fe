#include "tests/random/random_operations.h"

namespace klepur::test {

const std::vector<RandomOperations::Row>& RandomOperations::Lookups() {
  using R = RandomOperations;
  static const std::vector<Row> rows = {
      {4, false, &R::TreeItem},    {2, true, &R::ReadBlock},     {2, false, &R::MakeLinesOfRecord},
      {4, false, &R::First},       {8, false, &R::Following},    {9, false, &R::Goto},
      {7, false, &R::ByName},      {4, false, &R::ByLine},       {12, false, &R::HostBy},
      {1, false, &R::SubnetQuery}, {1, false, &R::NetmaskQuery}, {5, true, &R::PlaceCursors},
  };
  return rows;
}

const std::vector<RandomOperations::Row>& RandomOperations::Changes() {
  using R = RandomOperations;
  static const std::vector<Row> rows = {
      {10, false, &R::Add},
      {4, false, &R::AddDirectly},
      {2, false, &R::AddTreeSection},
      {5, false, &R::Remove},
      {8, false, &R::RemoveDirectly},
      {10, false, &R::Change},
      {4, true, &R::ChangeTreeSection},
      {3, false, &R::SetSectionParams},
      {4, true, &R::SetName},
      {4, true, &R::AddLine},
      {5, true, &R::ChangeLine},
      {2, true, &R::RemoveLine},
      {1, true, &R::ReplaceSection},
      {1, true, &R::SwapSections},
      {4, true, &R::NewNode},
      {2, true, &R::MoveNode},
      {2, true, &R::DeleteNode},
      {1, true, &R::ChangeCopies},
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
    if (!row->needsNodes || !nodes_.empty()) return (this->*row->maker)();
  }
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
