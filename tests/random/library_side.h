// The library, behind the interface that it shares with the model.
#ifndef KLEPUR_TESTS_RANDOM_LIBRARY_SIDE_H
#define KLEPUR_TESTS_RANDOM_LIBRARY_SIDE_H

#include <klepur/klepur.h>

#include <algorithm>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/random/side.h"
#include "tests/support/family.h"
#include "tests/support/reach.h"

namespace klepur::test {

/// Until the first direct change, and what else needs a node, the file does not know that anybody
/// looks into it. To change something by hand a node is taken first, as any caller has to.
template <class Family>
class LibrarySide final : public Side {
 public:
  using TreeNode = Tree<CfSection>::TreeNode;
  using Section = typename Family::Section;
  using Type = typename Section::SectionType;

  using File = typename Family::File;

  explicit LibrarySide(const std::string& path) : file_(path.c_str()) {}

  bool Open() { return file_.Open(); }
  int Save(const std::string& path) { return file_.Save(path); }

  /// A copy of all that hangs below the topmost node, and the topmost node itself.
  std::unique_ptr<ModelNode> Snapshot() const { return SnapshotOf(Top()); }

  /// Where the tree differs from the model's; empty when it does not.
  std::string DifferenceTo(const ModelNode& top) const { return Difference(Top(), top); }

  /// Where a cursor that is to stand on `expected` stands otherwise; empty when it does.
  std::string NetworkDifference(const ModelNode* expected) {
    return CursorDifference("currentNetwork", Inside::CurrentNetwork(file_), expected);
  }
  std::string SubnetDifference(const ModelNode* expected) {
    return CursorDifference("currentSubnet", Inside::CurrentSubnet(file_), expected);
  }

  MaybePath GetTreeItemByNameAt(const MaybeText& name, const MaybePath& start) override {
    return PathTo(file_.GetTreeItemByNameAt(Text(name), Node(start)));
  }
  MaybePath GetTreeItemBySectionAt(const MaybeText& name, const MaybePath& start) override {
    return PathTo(file_.GetTreeItemBySectionAt(Text(name), Node(start)));
  }
  Record TreeToDhcp(const Path& node, bool rawEntries) override {
    Section section;
    file_.TreeToDhcp(At(node).section, section, rawEntries);
    return FromSection(section);
  }
  bool DhcpToTree(const Record& in, Record& out) override {
    return Filling(out, [&](Section& lines) { return file_.DhcpToTree(ToSection(in), lines); });
  }
  bool GetFirstSection(Record& section, bool rawEntries) override {
    return Filling(section, [&](Section& s) { return file_.GetFirstSection(s, rawEntries); });
  }
  bool GetNextSection(const Record& current, Record& next, bool rawEntries) override {
    return Filling(
        next, [&](Section& s) { return file_.GetNextSection(ToSection(current), s, rawEntries); });
  }
  bool GetNextSectionInPlace(Record& section, bool rawEntries) override {
    return Filling(section, [&](Section& s) { return file_.GetNextSection(s, s, rawEntries); });
  }
  bool GotoSection(const MaybeText& name, int type) override {
    return file_.GotoSection(Text(name), static_cast<Type>(type));
  }
  bool GetSectionByName(Record& section, const MaybeText& name) override {
    return Filling(section, [&](Section& s) { return file_.GetSectionByName(s, Text(name)); });
  }
  bool GetSectionByKeyname(const MaybeText& line, Record& section, bool rawEntries) override {
    return Filling(
        section, [&](Section& s) { return file_.GetSectionByKeyname(Text(line), s, rawEntries); });
  }
  bool GetHostByName(const MaybeText& name, Record& section, bool rawEntries) override {
    return Filling(section,
                   [&](Section& s) { return file_.GetHostByName(Text(name), s, rawEntries); });
  }
  bool GetHostByIp(const MaybeText& ip, Record& section, bool rawEntries) override {
    return Filling(section, [&](Section& s) { return file_.GetHostByIp(Text(ip), s, rawEntries); });
  }
  bool GetHostByMACAddress(const MaybeText& mac, Record& section, bool rawEntries) override {
    return Filling(section,
                   [&](Section& s) { return file_.GetHostByMACAddress(Text(mac), s, rawEntries); });
  }
  int GetSubnet(std::string& subnet) override { return file_.GetSubnet(subnet); }
  std::string GetNetmaskBySubnet(const std::string& subnet) override {
    if constexpr (std::is_same_v<Family, V4>) return file_.GetNetmaskBySubnet(subnet.c_str());
    return "";
  }

  int AddSection(const Record& section) override { return file_.AddSection(ToSection(section)); }
  int AddNetwork(const Record& section) override { return file_.AddNetwork(ToSection(section)); }
  int AddSubnet(const Record& section) override { return file_.AddSubnet(ToSection(section)); }
  int AddHost(const Record& section) override { return file_.AddHost(ToSection(section)); }
  int AddIFSection(const Record& section) override {
    return file_.AddIFSection(ToSection(section));
  }
  bool AddTreeSection(const Record& section, const MaybePath& parent) override {
    return file_.AddTreeSection(ToSection(section), Node(parent));
  }
  int RemoveSection(const Record& section) override {
    return file_.RemoveSection(ToSection(section));
  }
  int RemoveNetwork(const MaybeText& name) override { return file_.RemoveNetwork(Text(name)); }
  int RemoveSubnetSection(const MaybeText& name) override {
    return file_.RemoveSubnetSection(Text(name));
  }
  int RemoveHostSection(const MaybeText& name) override {
    return file_.RemoveHostSection(Text(name));
  }
  int RemoveIFSection(const MaybeText& name) override { return file_.RemoveIFSection(Text(name)); }
  int ChangeSection(const Record& section, const MaybeText& newName) override {
    return file_.ChangeSection(ToSection(section), Text(newName));
  }
  int ChangeTreeSection(const Record& section, const MaybePath& target,
                        const MaybeText& newName) override {
    CfSection* const block = target ? &At(*target).section : nullptr;
    return file_.ChangeTreeSection(ToSection(section), block, Text(newName));
  }
  int SetSectionParams(const Record& section) override {
    return file_.SetSectionParams(ToSection(section));
  }

  void SetName(const Path& node, const std::string& name) override {
    At(node).section.SetName(name.c_str());
  }
  void AddEntry(const Path& node, const ModelLine& line) override { Add(line, At(node).section); }
  void InsertEntry(const Path& node, const ModelLine& line) override {
    CfSectionEntry entry;
    entry.SetKeyName(line.text.c_str());
    if (line.commented) entry.SetComment("#");
    At(node).section.InsertEntry(&entry);
  }
  void SetKeyName(const Path& node, std::size_t line, const std::string& text) override {
    At(node).section.entryList.at(line)->SetKeyName(text.c_str());
  }
  void SetCommented(const Path& node, std::size_t line, bool commented) override {
    CfSectionEntry& entry = *At(node).section.entryList.at(line);
    commented ? entry.SetComment("#") : entry.UndoComment();
  }
  void RemoveEntry(const Path& node, std::size_t line) override {
    CfSection& section = At(node).section;
    section.RemoveEntry(section.entryList.at(line));
  }
  void ClearEntryList(const Path& node) override { At(node).section.ClearEntryList(); }
  void AssignSection(const Path& node, const std::string& name, const Lines& lines) override {
    At(node).section = MakeSection(name, lines);
  }
  void SwapSections(const Path& one, const Path& other) override {
    std::swap(At(one).section, At(other).section);
  }
  void NewNode(const Path& parent, std::size_t position, const std::string& name,
               const Lines& lines) override {
    TreeNode& above = At(parent);
    Hang(new TreeNode(&above, MakeSection(name, lines)), above, position);
  }
  void MoveNode(const Path& node, const Path& parent, std::size_t position) override {
    TreeNode& moving = At(node);
    TreeNode& above = At(parent);
    moving.parent->children->remove(&moving);
    moving.parent = &above;
    Hang(&moving, above, position);
  }
  void DeleteNode(const Path& node) override {
    TreeNode& doomed = At(node);
    doomed.parent->children->remove(&doomed);
    delete &doomed;
  }
  void DeleteAllItems(const Path& node) override { At(node).DeleteAllItems(); }
  void PutLine(const Path& node, std::size_t position, const ModelLine& line) override {
    auto entry = std::make_unique<CfSectionEntry>();
    entry->SetKeyName(line.text.c_str());
    if (line.commented) entry->SetComment("#");
    auto& lines = At(node).section.entryList;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(position), entry.release());
  }
  void TakeLine(const Path& node, std::size_t line) override {
    auto& lines = At(node).section.entryList;
    const std::unique_ptr<CfSectionEntry> taken(lines.at(line));
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(line));
    taken->SetKeyName("taken;");
  }
  void ReverseLines(const Path& node) override {
    auto& lines = At(node).section.entryList;
    std::reverse(lines.begin(), lines.end());
  }
  void SwapNodes(const Path& one, const Path& other) override {
    TreeNode& a = At(one);
    TreeNode& b = At(other);
    const auto placeOfA = PlaceOf(a);
    std::swap(*placeOfA, *PlaceOf(b));
    std::swap(a.parent, b.parent);
  }
  void ReverseChildren(const Path& node) override {
    if (At(node).children != nullptr) At(node).children->reverse();
  }
  void SpliceChildren(const Path& from, const Path& to) override {
    TreeNode& above = At(to);
    std::list<TreeNode*>* const moving = At(from).children;
    if (moving == nullptr) return;
    for (TreeNode* child : *moving) child->parent = &above;
    if (above.children == nullptr) above.children = new std::list<TreeNode*>;
    above.children->splice(above.children->end(), *moving);
  }
  void KeepNode(const Path& node) override {
    TreeNode& taken = At(node);
    taken.parent->children->erase(PlaceOf(taken));
    taken.parent = nullptr;
    kept_.emplace_back(&taken);
  }
  void HangKept(const Path& parent, std::size_t position) override {
    if (kept_.empty()) return;
    TreeNode& above = At(parent);
    kept_.back()->parent = &above;
    Hang(kept_.back().release(), above, position);
    kept_.pop_back();
  }
  void ChangeCopies(const Path& node, const std::string& name) override {
    CfSection copy(At(node).section);
    copy.SetName(name.c_str());
    copy.ClearEntryList();
    CfSection assigned;
    assigned = At(node).section;
    assigned.AddEntry("copied;", nullptr, nullptr);
    TreeNode stray(&At(node), At(node).section);
    stray.section.SetName(name.c_str());
  }
  void PlaceCursors(const MaybePath& network, const MaybePath& subnet) override {
    Inside::CurrentNetwork(file_) = Node(network);
    Inside::CurrentSubnet(file_) = Node(subnet);
  }

 private:
  static const char* Text(const MaybeText& text) { return text ? text->c_str() : nullptr; }

  static Section ToSection(const Record& record) {
    Section section;
    section.type = static_cast<Type>(record.type);
    for (const Param& param : record.params) {
      section.params.push_back({param.commented, param.type, param.value});
    }
    return section;
  }

  static Record FromSection(const Section& section) {
    Record record;
    record.type = section.type;
    for (const auto& param : section.params) {
      record.params.push_back({param.commented, param.type, param.value});
    }
    return record;
  }

  /// Runs an operation that may fill a record.
  template <class Operation>
  static bool Filling(Record& record, Operation operation) {
    Section section = ToSection(record);
    const bool result = operation(section);
    record = FromSection(section);
    return result;
  }

  static void Add(const ModelLine& line, CfSection& section) {
    section.AddEntry(line.text.c_str(), nullptr, line.commented ? "#" : nullptr);
  }

  static CfSection MakeSection(const std::string& name, const Lines& lines) {
    CfSection section;
    section.SetName(name.c_str());
    for (const ModelLine& line : lines) Add(line, section);
    return section;
  }

  static void Hang(TreeNode* node, TreeNode& above, std::size_t position) {
    if (above.children == nullptr) above.children = new std::list<TreeNode*>;
    above.children->insert(
        std::next(above.children->begin(), static_cast<std::ptrdiff_t>(position)), node);
  }

  static std::list<TreeNode*>::iterator PlaceOf(TreeNode& node) {
    auto& siblings = *node.parent->children;
    return std::find(siblings.begin(), siblings.end(), &node);
  }

  TreeNode& Top() const { return Inside::Holder(file_).topNode; }

  /// A node to be changed, or handed to the file, by somebody who has nodes.
  TreeNode& At(const Path& path) {
    file_.GetTreeItemByNameAt(nullptr, nullptr);
    return Look(path);
  }

  TreeNode* Node(const MaybePath& path) { return path ? &At(*path) : nullptr; }

  /// A node to be looked at only.
  TreeNode& Look(const Path& path) const {
    TreeNode* node = &Top();
    for (const std::size_t index : path) {
      node = *std::next(node->children->begin(), static_cast<std::ptrdiff_t>(index));
    }
    return *node;
  }

  static MaybePath PathTo(const TreeNode* node) {
    if (node == nullptr) return std::nullopt;
    Path path;
    for (; node->parent != nullptr; node = node->parent) {
      const auto& siblings = *node->parent->children;
      const auto at = std::find(siblings.begin(), siblings.end(), node);
      path.insert(path.begin(), static_cast<std::size_t>(std::distance(siblings.begin(), at)));
    }
    return path;
  }

  static std::unique_ptr<ModelNode> SnapshotOf(const TreeNode& node) {
    auto copy = std::make_unique<ModelNode>();
    copy->name = node.section.GetName();
    for (const CfSectionEntry* entry : node.section.entryList) {
      copy->lines.push_back({entry->GetKeyName(), entry->GetComment() != nullptr});
    }
    if (node.children == nullptr) return copy;
    for (const TreeNode* child : *node.children) {
      AddNode(*copy, copy->children.size(), SnapshotOf(*child));
    }
    return copy;
  }

  static bool SameLine(const CfSectionEntry* entry, const ModelLine& line) {
    return entry->GetKeyName() == line.text && (entry->GetComment() != nullptr) == line.commented;
  }

  /// What is different about a node or one below it, with its path in front.
  static std::string Difference(const TreeNode& node, const ModelNode& expected) {
    if (node.section.GetName() != expected.name) {
      return " is named " + Quoted(node.section.GetName()) + " and not " + Quoted(expected.name);
    }
    const auto& lines = node.section.entryList;
    if (!std::equal(lines.begin(), lines.end(), expected.lines.begin(), expected.lines.end(),
                    SameLine)) {
      return " has other lines";
    }
    const std::size_t count = node.children == nullptr ? 0 : node.children->size();
    if (count != expected.children.size()) {
      return " has " + std::to_string(count) + " blocks and not " +
             std::to_string(expected.children.size());
    }
    if (count == 0) return "";
    std::size_t index = 0;
    for (const TreeNode* child : *node.children) {
      const std::string difference = child->parent == &node
                                         ? Difference(*child, *expected.children[index])
                                         : " has another parent";
      if (!difference.empty()) return "/" + std::to_string(index) + difference;
      ++index;
    }
    return "";
  }

  std::string CursorDifference(const char* name, const TreeNode* cursor,
                               const ModelNode* expected) const {
    const MaybePath path = expected == nullptr ? MaybePath() : MaybePath(PathOf(*expected));
    if (cursor == (path ? &Look(*path) : nullptr)) return "";
    return std::string(name) + " stands on " + WhereIs(cursor) + " and not on " + ToText(path);
  }

  /// The path of a node that may be gone: only its address is looked at.
  std::string WhereIs(const TreeNode* node) const {
    if (node == nullptr) return "null";
    const std::string found = Where(Top(), node);
    return found.empty() ? "a node that is not in the tree" : found;
  }

  static std::string Where(const TreeNode& at, const TreeNode* node) {
    if (&at == node) return "/";
    if (at.children == nullptr) return "";
    std::size_t index = 0;
    for (const TreeNode* child : *at.children) {
      const std::string found = Where(*child, node);
      if (!found.empty()) return "/" + std::to_string(index) + (found == "/" ? "" : found);
      ++index;
    }
    return "";
  }

  using Inside = Reach<File>;

  File file_;
  std::vector<std::unique_ptr<TreeNode>> kept_;
};

}  // namespace klepur::test

#endif
