// CfSectionHolder: the owner of one tree.
#ifndef KLEPUR_FRAMEWORK_SECTION_HOLDER_H
#define KLEPUR_FRAMEWORK_SECTION_HOLDER_H

#include <klepur/export.h>
#include <klepur/framework/tree.h>

/// Owns the tree of one file.
///
/// After a parse the top level holds one node, named "TREE_ROOT_SECTION", and every block of the
/// file hangs below it.
class KLEPUR_EXPORT CfSectionHolder {
 public:
  /// A holder whose top level is empty.
  CfSectionHolder();
  CfSectionHolder(const CfSectionHolder&) = delete;
  CfSectionHolder& operator=(const CfSectionHolder&) = delete;

  /// Deletes the whole tree.
  virtual ~CfSectionHolder();

  /// Carries the top level as its children. Its own section has no name and is never written.
  Tree<CfSection>::TreeNode topNode;
};

#endif
