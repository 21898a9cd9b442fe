#include <klepur/framework/section_holder.h>
#include <klepur/framework/tree_index.h>

CfSectionHolder::CfSectionHolder() : topNode(nullptr, CfSection()) {
  topNode.section.StartTree();
}

CfSectionHolder::~CfSectionHolder() = default;
