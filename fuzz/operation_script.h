// Operations on a configuration file as the inputs of the fuzz target for them write them.
#ifndef KLEPUR_FUZZ_OPERATION_SCRIPT_H
#define KLEPUR_FUZZ_OPERATION_SCRIPT_H

#include <string>
#include <string_view>

#include "tests/random/model_file.h"
#include "tests/random/operation.h"
#include "tests/random/random_operations.h"

namespace klepur::fuzz {

/// Makes operations of lines: a letter, a "!" for raw entries, a blank, what the operation wants.
/// Every line is some operation: a letter that is none counts as one of those there are.
///
///     t /0/1 host pc-17         GetTreeItemByNameAt from a node on; from null: "t - host pc-17"
///     T /0/1 host pc-17         GetTreeItemBySectionAt
///     r! /0/1                   TreeToDhcp with raw entries
///     d 3|0=pc-17|#17=10.0.0.1  DhcpToTree; a record as in fuzz/script.h
///     f! 3                      GetFirstSection of a kind
///     n! 3|0=pc-17              GetNextSection; N: with one record for both
///     g 2 10.0.0.0              GotoSection of a kind and name
///     b 3 pc-17                 GetSectionByName
///     k! range 1 2;             GetSectionByKeyname
///     h! pc-17                  GetHostByName; i: GetHostByIp; m: GetHostByMACAddress
///     q                         GetSubnet
///     a 3|0=pc-17|17=10.0.0.1   AddSection; 1 to 4: AddNetwork, AddSubnet, AddHost, AddIFSection
///     A /0/1 3|0=host a|17=b;   AddTreeSection below a node
///     x 3|0=pc-17               RemoveSection; 5 to 8: RemoveNetwork, RemoveSubnetSection,
///                               RemoveHostSection, RemoveIFSection, each with a name
///     c 3|0=pc-17|10=60>pc-18   ChangeSection with a new name; without ">" it keeps its name
///     C /0/1 3|10=60>pc-18      ChangeTreeSection of a node
///     s 3|0=pc-17|10=IPLine;    SetSectionParams
///     p /0/0 /0/0/1             puts the cursors on nodes; "-" is null
///     e /0/1 #range 1 2;        a caller's own AddEntry to a node
///     w /0/1 host pc-18         a caller's own SetName of a node
///     ~ 17                      an operation of the randomised test, which the rest of the line
///                               decides
///
/// A name or value "-" is null. In a node's path each number counts modulo the number of blocks
/// there; a path ends where there are none.
class OperationScript {
 public:
  explicit OperationScript(test::ModelFile& model);

  test::Operation Make(std::string_view line);

 private:
  test::Operation MakeLookup(char letter, bool raw, std::string_view arguments);
  test::Operation MakeEdit(char letter, std::string_view arguments);
  test::Operation MakeChange(char letter, std::string_view arguments);
  test::Operation MakeNodeEdit(char letter, std::string_view arguments);
  test::Operation MakeRandom(std::string_view text);

  test::MaybePath TakePath(std::string_view& arguments);
  test::Path TakeNode(std::string_view& arguments);

  test::ModelFile& model_;
  test::Chance chance_;
  test::RandomOperations random_;
};

}  // namespace klepur::fuzz

#endif
