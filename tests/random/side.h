// One configuration file as both sides of the comparison offer it: the library and the model.
#ifndef KLEPUR_TESTS_RANDOM_SIDE_H
#define KLEPUR_TESTS_RANDOM_SIDE_H

#include <optional>
#include <string>
#include <vector>

#include "tests/random/model_tree.h"
#include "tests/random/record.h"

namespace klepur::test {

/// A text or a null pointer.
using MaybeText = std::optional<std::string>;

/// The operations of klepur::ConfigFile, in the types of the tests. Nodes are given and returned as
/// paths. "Direct" changes are those that a caller makes by itself on the nodes of the tree.
class Side {
 public:
  using Lines = std::vector<ModelLine>;

  Side() = default;
  Side(const Side&) = delete;
  Side& operator=(const Side&) = delete;
  virtual ~Side() = default;

  // Finding, walking, looking up
  virtual MaybePath GetTreeItemByNameAt(const MaybeText& name, const MaybePath& start) = 0;
  virtual MaybePath GetTreeItemBySectionAt(const MaybeText& name, const MaybePath& start) = 0;
  virtual Record TreeToDhcp(const Path& node, bool rawEntries) = 0;
  virtual bool DhcpToTree(const Record& in, Record& out) = 0;
  virtual bool GetFirstSection(Record& section, bool rawEntries) = 0;
  virtual bool GetNextSection(const Record& current, Record& next, bool rawEntries) = 0;
  virtual bool GetNextSectionInPlace(Record& section, bool rawEntries) = 0;
  virtual bool GotoSection(const MaybeText& name, int type) = 0;
  virtual bool GetSectionByName(Record& section, const MaybeText& name) = 0;
  virtual bool GetSectionByKeyname(const MaybeText& line, Record& section, bool rawEntries) = 0;
  virtual bool GetHostByName(const MaybeText& name, Record& section, bool rawEntries) = 0;
  virtual bool GetHostByIp(const MaybeText& ip, Record& section, bool rawEntries) = 0;
  virtual bool GetHostByMACAddress(const MaybeText& mac, Record& section, bool rawEntries) = 0;
  virtual int GetSubnet(std::string& subnet) = 0;

  /// Empty in a family that has no such operation.
  virtual std::string GetNetmaskBySubnet(const std::string& subnet) = 0;

  // Adding, removing, changing
  virtual int AddSection(const Record& section) = 0;
  virtual int AddNetwork(const Record& section) = 0;
  virtual int AddSubnet(const Record& section) = 0;
  virtual int AddHost(const Record& section) = 0;
  virtual int AddIFSection(const Record& section) = 0;
  virtual bool AddTreeSection(const Record& section, const MaybePath& parent) = 0;
  virtual int RemoveSection(const Record& section) = 0;
  virtual int RemoveNetwork(const MaybeText& name) = 0;
  virtual int RemoveSubnetSection(const MaybeText& name) = 0;
  virtual int RemoveHostSection(const MaybeText& name) = 0;
  virtual int RemoveIFSection(const MaybeText& name) = 0;
  virtual int ChangeSection(const Record& section, const MaybeText& newName) = 0;
  virtual int ChangeTreeSection(const Record& section, const MaybePath& target,
                                const MaybeText& newName) = 0;
  virtual int SetSectionParams(const Record& section) = 0;

  // Direct changes
  virtual void SetName(const Path& node, const std::string& name) = 0;
  virtual void AddEntry(const Path& node, const ModelLine& line) = 0;
  virtual void InsertEntry(const Path& node, const ModelLine& line) = 0;
  virtual void SetKeyName(const Path& node, std::size_t line, const std::string& text) = 0;
  virtual void SetCommented(const Path& node, std::size_t line, bool commented) = 0;
  virtual void RemoveEntry(const Path& node, std::size_t line) = 0;
  virtual void ClearEntryList(const Path& node) = 0;
  virtual void AssignSection(const Path& node, const std::string& name, const Lines& lines) = 0;
  virtual void SwapSections(const Path& one, const Path& other) = 0;
  virtual void NewNode(const Path& parent, std::size_t position, const std::string& name,
                       const Lines& lines) = 0;
  virtual void MoveNode(const Path& node, const Path& parent, std::size_t position) = 0;
  virtual void DeleteNode(const Path& node) = 0;
  virtual void DeleteAllItems(const Path& node) = 0;

  // The same with the lists themselves, which callers may change as they like
  virtual void PutLine(const Path& node, std::size_t position, const ModelLine& line) = 0;
  virtual void TakeLine(const Path& node, std::size_t line) = 0;
  virtual void ReverseLines(const Path& node) = 0;
  virtual void SwapNodes(const Path& one, const Path& other) = 0;
  virtual void ReverseChildren(const Path& node) = 0;
  virtual void SpliceChildren(const Path& from, const Path& to) = 0;

  /// Takes a node out and keeps it; HangKept puts the last one kept somewhere, if there is one.
  virtual void KeepNode(const Path& node) = 0;
  virtual void HangKept(const Path& parent, std::size_t position) = 0;

  /// Changes copies of a node's section, and a node that hangs nowhere: the tree stays as it is.
  virtual void ChangeCopies(const Path& node, const std::string& name) = 0;

  /// Puts both cursors somewhere, as a class derived from the library's may.
  virtual void PlaceCursors(const MaybePath& network, const MaybePath& subnet) = 0;
};

}  // namespace klepur::test

#endif
