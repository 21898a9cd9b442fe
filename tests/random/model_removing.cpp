// Removing, by the model.
#include "tests/random/model_file.h"

namespace klepur::test {

int ModelFile::RemoveSection(const Record& section) {
  const std::string name = ValueOf(section, kNameParam);
  if (!topHasList_ || name.empty()) return 0;
  switch (section.type) {
    case kNetwork:
      return RemoveNetwork(name);
    case kSubnet:
      return RemoveSubnetSection(AddressIn(section));
    case kHost:
      return RemoveHostSection(name);
    case kIf:
      return RemoveIFSection(name);
    default:
      return 0;
  }
}

/// The block onto which a cursor moves: the first one of the scope that is not the removed one.
ModelNode* ModelFile::CandidateAfter(ModelNode& removed, ModelNode* scope) {
  ModelNode* const first = scope == nullptr ? nullptr : FirstChild(*scope);
  return first == &removed ? NextSibling(removed) : first;
}

int ModelFile::RemoveNetwork(const MaybeText& name) {
  if (!name) return 0;
  ModelNode* const removed = Find("shared-network " + *name, nullptr);
  if (removed == nullptr) return 0;
  if (removed == currentNetwork_) {
    ModelNode* const candidate = CandidateAfter(*removed, Root());
    if (candidate == nullptr) {
      currentNetwork_ = nullptr;
      currentSubnet_ = nullptr;
    } else if (Read(family_, *candidate, false).type == kNetwork) {
      currentNetwork_ = candidate;
      currentSubnet_ = FirstChild(*candidate);
    } else {
      currentNetwork_ = nullptr;
      currentSubnet_ = candidate;
    }
  }
  return Delete(*removed);
}

int ModelFile::RemoveSubnetSection(const MaybeText& name) {
  if (!name) return 0;
  ModelNode* const removed = Find(family_.subnetPrefix + *name, currentNetwork_);
  if (removed == nullptr) return 0;
  if (removed == currentSubnet_) {
    ModelNode* const scope = currentNetwork_ == nullptr ? Root() : currentNetwork_;
    ModelNode* const candidate = CandidateAfter(*removed, scope);
    if (candidate != nullptr && Read(family_, *candidate, false).type == kNetwork) {
      currentNetwork_ = candidate;
      currentSubnet_ = FirstChild(*candidate);
    } else {
      currentSubnet_ = candidate;
    }
  }
  return Delete(*removed);
}

int ModelFile::RemoveHostSection(const MaybeText& name) {
  return RemoveBelowSubnet(name, "host ");
}

int ModelFile::RemoveIFSection(const MaybeText& name) {
  return RemoveBelowSubnet(name, "if ");
}

int ModelFile::RemoveBelowSubnet(const MaybeText& name, const std::string& prefix) {
  if (!name) return 0;
  ModelNode* const removed = Find(prefix + *name, currentSubnet_);
  if (removed == nullptr || removed == &top_ || removed->parent != currentSubnet_) return 0;
  return Delete(*removed);
}

/// A cursor into what goes is from then on a cursor on nothing. The topmost node cannot go, but what
/// is in it can.
int ModelFile::Delete(ModelNode& node) {
  if (&node == &top_) {
    while (!top_.children.empty()) Delete(*top_.children.front());
    return 0;
  }
  if (IsIn(currentNetwork_, node)) currentNetwork_ = nullptr;
  if (IsIn(currentSubnet_, node)) currentSubnet_ = nullptr;
  TakeOut(node);
  return 1;
}

}  // namespace klepur::test
