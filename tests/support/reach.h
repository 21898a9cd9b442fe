// The protected members of a configuration file that is of no derived class.
#ifndef KLEPUR_TESTS_SUPPORT_REACH_H
#define KLEPUR_TESTS_SUPPORT_REACH_H

#include <klepur/klepur.h>

namespace klepur::test {

/// With it a test looks into a file, which cannot know that. So it changes nothing unless the file
/// knows that its tree is in others' hands: it is of a derived class, or has handed out a node.
template <class File>
class Reach : public File {
 public:
  using TreeNode = Tree<CfSection>::TreeNode;

  static CfSectionHolder& Holder(const File& file) { return *(file.*(&Reach::holder)); }
  static TreeNode*& CurrentNetwork(File& file) { return file.*(&Reach::currentNetwork); }
  static TreeNode*& CurrentSubnet(File& file) { return file.*(&Reach::currentSubnet); }
};

}  // namespace klepur::test

#endif
