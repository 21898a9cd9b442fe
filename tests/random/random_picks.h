// What random operations are made of: nodes, names and records, mostly of what is there.
#ifndef KLEPUR_TESTS_RANDOM_RANDOM_PICKS_H
#define KLEPUR_TESTS_RANDOM_RANDOM_PICKS_H

#include <string>
#include <vector>

#include "tests/random/chance.h"
#include "tests/random/model_file.h"
#include "tests/random/random_words.h"

namespace klepur::test {

class RandomPicks {
 protected:
  RandomPicks(Chance& chance, ModelFile& model)
      : chance_(chance), model_(model), words_(chance, model.Family()) {}

  // What was used a short while ago, so that what was just looked up is changed and what was just
  // changed is looked up again.
  void Remember(const std::string& header);
  void Remember(const ModelLine& line);
  void Remember(const ModelNode& node);

  // The latest one as often as not. There must be one.
  std::string RecentHeader();
  ModelLine RecentLine();

  /// The first block that has a name used a short while ago; null when there is none.
  ModelNode* RecentNode();

  /// The first block straight below `currentSubnet` that has a line used a short while ago.
  ModelNode* NodeWithRecentLine();

  // Nodes: there must be some.

  /// One near the cursors more often than not.
  ModelNode& AnyNode();

  /// One to be changed: rarely the root.
  ModelNode& AnyBlock();

  /// In the first attempts one straight below `currentSubnet`, where hosts are looked for.
  ModelNode& AnyNodeToBeFound(int attempt);

  /// Null where no nodes are allowed.
  MaybePath AnyPathOrNull();
  bool HasCursorIn(const ModelNode& node);

  // Names, values and lines

  /// Mostly a kind of block, now and then a number that is none.
  int AnyKind();

  /// The bare name of a block of the kind; a random one when none is found quickly.
  std::string ExistingName(int kind);

  /// Mostly an existing one, whole or slightly changed; now and then null or empty.
  MaybeText AnyName(int kind);

  /// Mostly a value that some line of this type holds.
  MaybeText AnyValue(int type);

  std::string AnyHeader();
  ModelLine AnyLine();
  Side::Lines AnyLines();

  // Records

  Record NewRecord(int kind);

  /// The record of a block that is there, with one thing changed.
  Record ExistingRecord(int kind);

  /// One of the two, or one without parameters.
  Record AnyRecord(int kind);

  /// The record with whole lines for values or, now and then, as it is.
  Record LinesOf(const Record& record);

  Chance& chance_;
  ModelFile& model_;
  RandomWords words_;
  std::vector<ModelNode*> nodes_;  ///< all of the tree, the topmost one left out
  bool allowsNodes_ = true;

 private:
  std::vector<std::string> recentHeaders_;
  std::vector<ModelLine> recentLines_;
};

}  // namespace klepur::test

#endif
