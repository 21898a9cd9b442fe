// Random configuration files.
#ifndef KLEPUR_TESTS_RANDOM_RANDOM_FILE_H
#define KLEPUR_TESTS_RANDOM_RANDOM_FILE_H

#include <memory>
#include <string>

#include "tests/random/random_words.h"

namespace klepur::test {

enum class FileSize {
  kSmall,   ///< up to 15 blocks
  kMedium,  ///< up to 100
  kLarge,   ///< some hundred to some thousand hosts
};

/// What a file is to be read as: the topmost node with the root section in it, and now and then
/// with what an unmatched "}" leaves behind the root.
std::unique_ptr<ModelNode> RandomTree(Chance& chance, const ModelFamily& family, FileSize size);

/// A text that is read as this tree, in a random layout.
std::string RandomLayout(Chance& chance, const ModelNode& top);

/// Whether a tree, written as it stands, is read back as it is.
bool IsReadBackAsItIs(const ModelNode& root);

}  // namespace klepur::test

#endif
