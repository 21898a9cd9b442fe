// A plain model of a configuration file: what each operation is to do, as slow and as obvious as it
// gets.
#ifndef KLEPUR_TESTS_RANDOM_MODEL_FILE_H
#define KLEPUR_TESTS_RANDOM_MODEL_FILE_H

#include <memory>
#include <string>
#include <vector>

#include "tests/random/model_conversion.h"
#include "tests/random/side.h"

namespace klepur::test {

class ModelFile final : public Side {
 public:
  explicit ModelFile(const ModelFamily& family) : family_(family) {}

  /// Reads a file; `parsed` is what the file adds below the topmost node.
  void Open(const ModelNode& parsed);

  /// Opens a file that is not there.
  void OpenMissing();

  /// What Save writes; null when it fails.
  std::unique_ptr<std::string> Save();

  /// Whether Save has a text to write that is defined.
  bool CanBeWritten();

  ModelNode& Top() { return top_; }
  ModelNode* Root() { return FirstChild(top_); }
  ModelNode* CurrentNetwork() { return currentNetwork_; }
  ModelNode* CurrentSubnet() { return currentSubnet_; }
  const ModelFamily& Family() const { return family_; }

  MaybePath GetTreeItemByNameAt(const MaybeText& name, const MaybePath& start) override;
  MaybePath GetTreeItemBySectionAt(const MaybeText& name, const MaybePath& start) override;
  Record TreeToDhcp(const Path& node, bool rawEntries) override;
  bool DhcpToTree(const Record& in, Record& out) override;
  bool GetFirstSection(Record& section, bool rawEntries) override;
  bool GetNextSection(const Record& current, Record& next, bool rawEntries) override;
  bool GetNextSectionInPlace(Record& section, bool rawEntries) override;
  bool GotoSection(const MaybeText& name, int type) override;
  bool GetSectionByName(Record& section, const MaybeText& name) override;
  bool GetSectionByKeyname(const MaybeText& line, Record& section, bool rawEntries) override;
  bool GetHostByName(const MaybeText& name, Record& section, bool rawEntries) override;
  bool GetHostByIp(const MaybeText& ip, Record& section, bool rawEntries) override;
  bool GetHostByMACAddress(const MaybeText& mac, Record& section, bool rawEntries) override;
  int GetSubnet(std::string& subnet) override;
  std::string GetNetmaskBySubnet(const std::string& subnet) override;

  int AddSection(const Record& section) override;
  int AddNetwork(const Record& section) override;
  int AddSubnet(const Record& section) override;
  int AddHost(const Record& section) override;
  int AddIFSection(const Record& section) override;
  bool AddTreeSection(const Record& section, const MaybePath& parent) override;
  int RemoveSection(const Record& section) override;
  int RemoveNetwork(const MaybeText& name) override;
  int RemoveSubnetSection(const MaybeText& name) override;
  int RemoveHostSection(const MaybeText& name) override;
  int RemoveIFSection(const MaybeText& name) override;
  int ChangeSection(const Record& section, const MaybeText& newName) override;
  int ChangeTreeSection(const Record& section, const MaybePath& target,
                        const MaybeText& newName) override;
  int SetSectionParams(const Record& section) override;

  void SetName(const Path& node, const std::string& name) override;
  void AddEntry(const Path& node, const ModelLine& line) override;
  void InsertEntry(const Path& node, const ModelLine& line) override;
  void SetKeyName(const Path& node, std::size_t line, const std::string& text) override;
  void SetCommented(const Path& node, std::size_t line, bool commented) override;
  void RemoveEntry(const Path& node, std::size_t line) override;
  void ClearEntryList(const Path& node) override;
  void AssignSection(const Path& node, const std::string& name, const Lines& lines) override;
  void SwapSections(const Path& one, const Path& other) override;
  void NewNode(const Path& parent, std::size_t position, const std::string& name,
               const Lines& lines) override;
  void MoveNode(const Path& node, const Path& parent, std::size_t position) override;
  void DeleteNode(const Path& node) override;
  void DeleteAllItems(const Path& node) override;
  void PutLine(const Path& node, std::size_t position, const ModelLine& line) override;
  void TakeLine(const Path& node, std::size_t line) override;
  void ReverseLines(const Path& node) override;
  void SwapNodes(const Path& one, const Path& other) override;
  void ReverseChildren(const Path& node) override;
  void SpliceChildren(const Path& from, const Path& to) override;
  void KeepNode(const Path& node) override;
  void HangKept(const Path& parent, std::size_t position) override;
  void ChangeCopies(const Path& /*node*/, const std::string& /*name*/) override {}
  void PlaceCursors(const MaybePath& network, const MaybePath& subnet) override;

 private:
  ModelNode& At(const Path& path) { return NodeAt(top_, path); }

  void StartOver();

  // Navigation
  ModelNode* Find(const std::string& header, ModelNode* start);
  ModelNode* FirstOfLevel(ModelNode* cursor);
  ModelNode* NextOfKind(const Record& current, const std::string& prefix);
  bool Fetch(ModelNode* node, Record& section, bool rawEntries);
  bool FetchOnto(ModelNode* node, ModelNode*& cursor, Record& section, bool rawEntries);
  bool FetchHost(int type, const MaybeText& value, Record& section, bool rawEntries);

  // Adding
  std::string AddressIn(const Record& section) const;
  int AddBelowSubnet(const Record& section, const std::string& prefix);
  bool AddLines(const Record& lines, ModelNode* parent);
  bool ConvertAndAdd(const Record& section, ModelNode* parent);

  // Removing
  ModelNode* CandidateAfter(ModelNode& removed, ModelNode* scope);
  int RemoveBelowSubnet(const MaybeText& name, const std::string& prefix);
  int Delete(ModelNode& node);

  // Changing
  ModelNode* Choose(const Record& section);
  int Change(const Record& section, ModelNode& target, const MaybeText& newName);
  bool ChangeParam(const Param& param, const Record& lines, const Record& current,
                   ModelNode& target);

  // Writing
  void Write(const ModelNode& node, unsigned depth, std::string& text) const;

  const ModelFamily& family_;
  ModelNode top_;
  bool topHasList_ = false;  ///< whether the topmost node ever had a child since it was cleared
  bool isRead_ = false;
  ModelNode* currentNetwork_ = nullptr;
  ModelNode* currentSubnet_ = nullptr;
  unsigned leftmostDepth_ = 0;
  std::vector<std::unique_ptr<ModelNode>> kept_;
};

}  // namespace klepur::test

#endif
