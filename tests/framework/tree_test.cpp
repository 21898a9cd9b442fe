#include <klepur/framework/tree.h>

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <utility>

namespace {

using TreeNode = Tree<CfSection>::TreeNode;

CfSection Named(const std::string& name) {
  CfSection section;
  section.SetName(name.c_str());
  return section;
}

TreeNode* Attach(TreeNode& parent, TreeNode* child) {
  if (parent.children == nullptr) parent.children = new std::list<TreeNode*>;
  if (child != nullptr) child->parent = &parent;
  parent.children->push_back(child);
  return child;
}

TreeNode* Node(const std::string& name, std::initializer_list<TreeNode*> children = {}) {
  auto* node = new TreeNode(nullptr, Named(name));
  for (TreeNode* child : children) Attach(*node, child);
  return node;
}

/// What the functions handed to a walk were called with, and what they are to answer.
struct Record {
  std::string calls;
  std::string refusedBefore;
  std::string refusedAfter;

  bool Before(const CfSection& section) {
    calls += std::string(calls.empty() ? "" : " ") + "+" + section.GetName();
    return refusedBefore != section.GetName();
  }
  bool After(const CfSection& section) {
    calls += std::string(" -") + section.GetName();
    return refusedAfter != section.GetName();
  }
};

Record record;  // of the forms that hand over no context

bool Before(CfSection& section) {
  return record.Before(section);
}

bool After(CfSection& section) {
  return record.After(section);
}

bool BeforeIn(void* context, CfSection& section) {
  return static_cast<Record*>(context)->Before(section);
}

bool AfterIn(void* context, CfSection& section) {
  return static_cast<Record*>(context)->After(section);
}

bool SameName(const CfSection& probe, const CfSection& candidate) {
  return std::string(probe.GetName()) == candidate.GetName();
}

class TreeNodeTest : public testing::Test {
 protected:
  TreeNodeTest() { record = Record(); }

  /// The calls of TraverseDo(visit) and its result: "+a +b true".
  static std::string Visit(TreeNode& node, const std::string& refused = "") {
    record = {"", refused, ""};
    const bool result = node.TraverseDo(Before);
    return record.calls + (result ? " true" : " false");
  }

  /// The same of TraverseDo(pre, post): "+a +b -b -a true".
  static std::string Walk(TreeNode& node, const std::string& refusedBefore = "",
                          const std::string& refusedAfter = "") {
    record = {"", refusedBefore, refusedAfter};
    const bool result = node.TraverseDo(Before, After);
    return record.calls + (result ? " true" : " false");
  }

  /// The same of TraverseDo(ctx, pre, post).
  static std::string WalkWithContext(TreeNode& node, const std::string& refusedBefore = "",
                                     const std::string& refusedAfter = "") {
    Record context = {"", refusedBefore, refusedAfter};
    const bool result = node.TraverseDo(&context, BeforeIn, AfterIn);
    return context.calls + (result ? " true" : " false");
  }
};

std::unique_ptr<TreeNode> Family() {
  return std::unique_ptr<TreeNode>(
      Node("top", {Node("a", {Node("a1", {Node("a11")}), Node("a2")}), Node("b"), Node("c")}));
}

// ---- construction ----

TEST_F(TreeNodeTest, NewNodeHasItsParentNoChildListAndACopyOfTheSection) {
  CfSection section = Named("host a");
  section.AddEntry("fixed-address 10.0.0.5;", nullptr, nullptr);
  TreeNode parent(nullptr, CfSection());
  const TreeNode node(&parent, section);
  section.SetName("host b");
  section.ClearEntryList();

  EXPECT_EQ(node.parent, &parent);
  EXPECT_EQ(node.children, nullptr);
  EXPECT_EQ(parent.children, nullptr);
  EXPECT_STREQ(node.section.GetName(), "host a");
  ASSERT_EQ(node.section.entryList.size(), 1U);
  EXPECT_STREQ(node.section.entryList[0]->GetKeyName(), "fixed-address 10.0.0.5;");
}

TEST_F(TreeNodeTest, NewNodeTakesOverASectionThatIsMovedIn) {
  CfSection section = Named("host a");
  section.AddEntry("fixed-address 10.0.0.5;", nullptr, nullptr);
  const CfSectionEntry* const entry = section.entryList[0];
  const TreeNode node(nullptr, std::move(section));
  EXPECT_STREQ(node.section.GetName(), "host a");
  ASSERT_EQ(node.section.entryList.size(), 1U);
  EXPECT_EQ(node.section.entryList[0], entry);
}

// ---- TraverseDo(visit) ----

TEST_F(TreeNodeTest, VisitGoesOverNodesInFileOrder) {
  EXPECT_EQ(Visit(*Family()), "+top +a +a1 +a11 +a2 +b +c true");
}

TEST_F(TreeNodeTest, VisitorThatRefusesSkipsTheChildrenAndGoesOnWithTheNextSibling) {
  EXPECT_EQ(Visit(*Family(), "a"), "+top +a +b +c true");
  EXPECT_EQ(Visit(*Family(), "a1"), "+top +a +a1 +a2 +b +c true");
  EXPECT_EQ(Visit(*Family(), "c"), "+top +a +a1 +a11 +a2 +b +c true");
}

TEST_F(TreeNodeTest, VisitorThatRefusesTheTopNodeEndsTheWalkWithFalse) {
  EXPECT_EQ(Visit(*Family(), "top"), "+top false");
}

TEST_F(TreeNodeTest, VisitOfAnInnerNodeStaysBelowIt) {
  const auto top = Family();
  EXPECT_EQ(Visit(*top->children->front()), "+a +a1 +a11 +a2 true");
}

bool AppendLine(CfSection& section) {
  return section.AddEntry("seen;", nullptr, nullptr) != 0;
}

TEST_F(TreeNodeTest, VisitHandsOverTheNodesOwnSection) {
  const auto top = Family();
  top->TraverseDo(AppendLine);
  EXPECT_EQ(top->section.entryList.size(), 1U);
  EXPECT_EQ(top->children->front()->section.entryList.size(), 1U);
}

// ---- TraverseDo(pre, post), TraverseDo(ctx, pre, post) ----

const struct {
  const char* refusedBefore;
  const char* refusedAfter;
  const char* calls;
} kWalks[] = {
    {"", "", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c -top true"},
    // a refusal before a node leaves out its children and its own `post`
    {"a", "", "+top +a +b -b +c -c -top true"},
    {"a1", "", "+top +a +a1 +a2 -a2 -a +b -b +c -c -top true"},
    {"c", "", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -top true"},
    {"top", "", "+top false"},
    // a refusal after a node tells only when it is the node that the walk began at
    {"", "a", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c -top true"},
    {"", "c", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c -top true"},
    {"", "top", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c -top false"},
    {"top", "top", "+top false"},
};

TEST_F(TreeNodeTest, WalkCallsPreBeforeAndPostAfterTheNodesBelow) {
  for (const auto& row : kWalks) {
    EXPECT_EQ(Walk(*Family(), row.refusedBefore, row.refusedAfter), row.calls)
        << "refused before '" << row.refusedBefore << "', after '" << row.refusedAfter << "'";
  }
}

TEST_F(TreeNodeTest, WalkWithContextHandsItToBothFunctionsOnEveryLevel) {
  for (const auto& row : kWalks) {
    EXPECT_EQ(WalkWithContext(*Family(), row.refusedBefore, row.refusedAfter), row.calls)
        << "refused before '" << row.refusedBefore << "', after '" << row.refusedAfter << "'";
  }
}

TEST_F(TreeNodeTest, PostNeverRunsForANodeThatPreRefused) {
  EXPECT_EQ(Walk(*Family(), "a").find("-a "), std::string::npos);
  EXPECT_EQ(WalkWithContext(*Family(), "a").find("-a "), std::string::npos);
}

// ---- lists that are missing, empty or hold nulls ----

TEST_F(TreeNodeTest, LeafIsWalkedAlone) {
  TreeNode leaf(nullptr, Named("leaf"));
  EXPECT_EQ(Visit(leaf), "+leaf true");
  EXPECT_EQ(Walk(leaf), "+leaf -leaf true");
  EXPECT_EQ(WalkWithContext(leaf), "+leaf -leaf true");
  EXPECT_EQ(Walk(leaf, "", "leaf"), "+leaf -leaf false");
}

TEST_F(TreeNodeTest, NodeWithAnEmptyChildListIsWalkedAlone) {
  TreeNode node(nullptr, Named("node"));
  node.children = new std::list<TreeNode*>;
  EXPECT_EQ(Visit(node), "+node true");
  EXPECT_EQ(Walk(node), "+node -node true");
  EXPECT_EQ(WalkWithContext(node), "+node -node true");
}

TEST_F(TreeNodeTest, EmptyChildListBelowDoesNotEndTheWalk) {
  const std::unique_ptr<TreeNode> top(Node("top", {Node("a"), Node("b")}));
  top->children->front()->children = new std::list<TreeNode*>;
  EXPECT_EQ(Visit(*top), "+top +a +b true");
  EXPECT_EQ(Walk(*top), "+top +a -a +b -b -top true");
}

TEST_F(TreeNodeTest, NullChildrenArePassedOver) {
  const std::unique_ptr<TreeNode> top(
      Node("top", {nullptr, Node("a"), nullptr, Node("b"), nullptr}));
  EXPECT_EQ(Visit(*top), "+top +a +b true");
  EXPECT_EQ(Walk(*top), "+top +a -a +b -b -top true");
  EXPECT_EQ(WalkWithContext(*top), "+top +a -a +b -b -top true");
  EXPECT_EQ(top->FindIf(Named("b"), SameName), *std::prev(top->children->end(), 2));
  EXPECT_EQ(top->FindIf(Named("z"), SameName), nullptr);
  EXPECT_EQ(top->DeleteAllItems(), 0);
  EXPECT_EQ(top->children, nullptr);
}

// ---- lists that grow during a walk ----

/// Hangs "new", with "below" in it, behind the nodes below `parent` when the calls reach `at`.
struct Growth {
  TreeNode* parent;
  std::string at;
  std::string calls;

  bool Call(const std::string& call) {
    calls += (calls.empty() ? "" : " ") + call;
    if (call == at) Attach(*parent, Node("new", {Node("below")}));
    return true;
  }
};

Growth growth;  // of the forms that hand over no context

bool GrowBefore(CfSection& section) {
  return growth.Call(std::string("+") + section.GetName());
}

bool GrowAfter(CfSection& section) {
  return growth.Call(std::string("-") + section.GetName());
}

bool GrowBeforeIn(void* context, CfSection& section) {
  return static_cast<Growth*>(context)->Call(std::string("+") + section.GetName());
}

bool GrowAfterIn(void* context, CfSection& section) {
  return static_cast<Growth*>(context)->Call(std::string("-") + section.GetName());
}

template <class Walk>
std::string CallsWhileGrowing(const char* parent, const char* at, Walk walk) {
  const auto top = Family();
  growth = {top->FindIf(Named(parent), SameName), at, ""};
  walk(*top);
  return growth.calls;
}

TEST_F(TreeNodeTest, NodeThatIsAppendedDuringAVisitIsVisitedToo) {
  const struct {
    const char* parent;
    const char* at;
    const char* calls;
  } kRows[] = {
      // behind the last node, when the visit is there
      {"top", "+c", "+top +a +a1 +a11 +a2 +b +c +new +below"},
      {"a", "+a2", "+top +a +a1 +a11 +a2 +new +below +b +c"},
      // behind a last node that the visit is below
      {"a1", "+a11", "+top +a +a1 +a11 +new +below +a2 +b +c"},
      // behind nodes that the visit has still to come to
      {"top", "+top", "+top +a +a1 +a11 +a2 +b +c +new +below"},
      {"top", "+a11", "+top +a +a1 +a11 +a2 +b +c +new +below"},
      // below a node that had none
      {"c", "+c", "+top +a +a1 +a11 +a2 +b +c +new +below"},
      {"c", "+a", "+top +a +a1 +a11 +a2 +b +c +new +below"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(CallsWhileGrowing(row.parent, row.at,
                                [](TreeNode& top) { return top.TraverseDo(GrowBefore); }),
              row.calls)
        << row.parent << ", " << row.at;
  }
}

TEST_F(TreeNodeTest, NodeThatIsAppendedDuringAWalkIsWalkedToo) {
  const struct {
    const char* parent;
    const char* at;
    const char* calls;
  } kRows[] = {
      // behind the last node, when the walk is there
      {"top", "+c",
       "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c +new +below -below -new -top"},
      {"top", "-c",
       "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c +new +below -below -new -top"},
      {"a", "-a2", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 +new +below -below -new -a +b -b +c -c -top"},
      {"a1", "-a11",
       "+top +a +a1 +a11 -a11 +new +below -below -new -a1 +a2 -a2 -a +b -b +c -c -top"},
      // behind nodes that the walk has still to come to
      {"top", "-a",
       "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c +new +below -below -new -top"},
      // below a node that had none
      {"c", "+c", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c +new +below -below -new -c -top"},
      // too late
      {"c", "-c", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c -top"},
      {"a", "-a", "+top +a +a1 +a11 -a11 -a1 +a2 -a2 -a +b -b +c -c -top"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(
        CallsWhileGrowing(row.parent, row.at,
                          [](TreeNode& top) { return top.TraverseDo(GrowBefore, GrowAfter); }),
        row.calls)
        << row.parent << ", " << row.at;
    EXPECT_EQ(CallsWhileGrowing(
                  row.parent, row.at,
                  [](TreeNode& top) { return top.TraverseDo(&growth, GrowBeforeIn, GrowAfterIn); }),
              row.calls)
        << row.parent << ", " << row.at;
  }
}

// ---- derived nodes ----

/// Tells of the walks that reach it, and of its end.
class TellingNode : public TreeNode {
 public:
  TellingNode(const std::string& name, std::string* tale)
      : TreeNode(nullptr, Named(name)), tale_(tale) {}
  ~TellingNode() override { Tell("end"); }

  bool TraverseDo(bool (*visit)(CfSection&)) override {
    Tell("visit");
    return TreeNode::TraverseDo(visit);
  }
  bool TraverseDo(bool (*pre)(CfSection&), bool (*post)(CfSection&)) override {
    Tell("walk");
    return TreeNode::TraverseDo(pre, post);
  }
  bool TraverseDo(void* context, bool (*pre)(void*, CfSection&),
                  bool (*post)(void*, CfSection&)) override {
    Tell("context");
    return TreeNode::TraverseDo(context, pre, post);
  }

 private:
  void Tell(const char* what) {
    *tale_ += std::string(tale_->empty() ? "" : " ") + what + " " + section.GetName();
  }

  std::string* tale_;
};

TEST_F(TreeNodeTest, OverridesOfADerivedNodeAreCalledOnEveryLevel) {
  std::string tale;
  {
    const std::unique_ptr<TreeNode> top(Node("top", {Node("a"), Node("b")}));
    TreeNode* const derived = Attach(*top->children->front(), new TellingNode("a1", &tale));
    Attach(*derived, new TellingNode("a11", &tale));
    EXPECT_EQ(Visit(*top), "+top +a +a1 +a11 +b true");
    EXPECT_EQ(tale, "visit a1 visit a11");
    tale.clear();
    EXPECT_EQ(Walk(*top), "+top +a +a1 +a11 -a11 -a1 -a +b -b -top true");
    EXPECT_EQ(tale, "walk a1 walk a11");
    tale.clear();
    EXPECT_EQ(WalkWithContext(*top), "+top +a +a1 +a11 -a11 -a1 -a +b -b -top true");
    EXPECT_EQ(tale, "context a1 context a11");
    tale.clear();
  }
  EXPECT_EQ(tale, "end a11 end a1");
}

/// A node that wants more than the usual alignment.
struct alignas(64) WideNode : TreeNode {
  using TreeNode::TreeNode;
};

TEST_F(TreeNodeTest, DerivedNodeOfAnyAlignmentIsDeletedWithTheOthers) {
  TreeNode top(nullptr, Named("top"));
  top.children = new std::list<TreeNode*>;
  top.children->push_back(new WideNode(&top, Named("wide")));
  top.children->push_back(new TreeNode(&top, Named("usual")));
  EXPECT_EQ(top.DeleteAllItems(), 0);
  EXPECT_EQ(top.children, nullptr);
}

/// Keeps every walk out of itself and what is below it.
class ClosedNode : public TreeNode {
 public:
  using TreeNode::TraverseDo;
  using TreeNode::TreeNode;
  bool TraverseDo(bool (*)(CfSection&)) override { return false; }
  bool TraverseDo(bool (*)(CfSection&), bool (*)(CfSection&)) override { return false; }
};

TEST_F(TreeNodeTest, ResultOfAnOverrideIsIgnored) {
  const std::unique_ptr<TreeNode> top(
      Node("top", {new ClosedNode(nullptr, Named("closed")), Node("b")}));
  Attach(*top->children->front(), Node("hidden"));
  EXPECT_EQ(Visit(*top), "+top +b true");
  EXPECT_EQ(Walk(*top), "+top +b -b -top true");
}

// ---- FindIf ----

std::string asked;  // the names that a search asked about

bool SameNameAsked(const CfSection& probe, const CfSection& candidate) {
  asked += std::string(asked.empty() ? "" : " ") + probe.GetName() + "?" + candidate.GetName();
  return SameName(probe, candidate);
}

TEST_F(TreeNodeTest, FindIfReturnsTheNodeItselfEvenIfDescendantsMatchToo) {
  const std::unique_ptr<TreeNode> top(Node("x", {Node("x", {Node("x")}), Node("x")}));
  EXPECT_EQ(top->FindIf(Named("x"), SameName), top.get());
}

TEST_F(TreeNodeTest, FindIfSearchesAChildsWholeSubtreeBeforeItsNextSibling) {
  TreeNode* const a1 = Node("x");
  const std::unique_ptr<TreeNode> top(Node("top", {Node("a", {a1}), Node("x")}));
  EXPECT_EQ(top->FindIf(Named("x"), SameName), a1);
}

TEST_F(TreeNodeTest, FindIfAsksInFileOrderWithTheProbeFirstAndStopsAtTheMatch) {
  const auto top = Family();
  asked.clear();
  const TreeNode* const found = top->FindIf(Named("a2"), SameNameAsked);
  ASSERT_NE(found, nullptr);
  EXPECT_STREQ(found->section.GetName(), "a2");
  EXPECT_EQ(asked, "a2?top a2?a a2?a1 a2?a11 a2?a2");
}

TEST_F(TreeNodeTest, FindIfReturnsNullWhenNothingMatches) {
  const auto top = Family();
  asked.clear();
  EXPECT_EQ(top->FindIf(Named("z"), SameNameAsked), nullptr);
  EXPECT_EQ(asked, "z?top z?a z?a1 z?a11 z?a2 z?b z?c");
}

TEST_F(TreeNodeTest, FindIfStaysBelowTheNodeItBeganAt) {
  const auto top = Family();
  TreeNode* const a = top->children->front();
  EXPECT_EQ(a->FindIf(Named("b"), SameName), nullptr);
  EXPECT_EQ(a->FindIf(Named("top"), SameName), nullptr);
}

TEST_F(TreeNodeTest, FindIfFindsNothingBelowALeafOrAnEmptyChildList) {
  TreeNode node(nullptr, Named("node"));
  EXPECT_EQ(node.FindIf(Named("x"), SameName), nullptr);
  node.children = new std::list<TreeNode*>;
  EXPECT_EQ(node.FindIf(Named("x"), SameName), nullptr);
  EXPECT_EQ(node.FindIf(Named("node"), SameName), &node);
}

TEST_F(TreeNodeTest, FindIfGoesOnBehindAnEmptyChildList) {
  const std::unique_ptr<TreeNode> top(Node("top", {Node("a"), Node("x")}));
  top->children->front()->children = new std::list<TreeNode*>;
  EXPECT_EQ(top->FindIf(Named("x"), SameName), top->children->back());
}

// ---- deletion ----

TEST_F(TreeNodeTest, DeleteAllItemsOnALeafReturnsZeroAndChangesNothing) {
  TreeNode leaf(nullptr, Named("host a"));
  leaf.section.AddEntry("fixed-address 10.0.0.5;", nullptr, nullptr);
  EXPECT_EQ(leaf.DeleteAllItems(), 0);
  EXPECT_EQ(leaf.children, nullptr);
  EXPECT_STREQ(leaf.section.GetName(), "host a");
  EXPECT_EQ(leaf.section.entryList.size(), 1U);
}

TEST_F(TreeNodeTest, DeleteAllItemsMakesAnInnerNodeALeafAndKeepsItsSection) {
  const auto top = Family();
  TreeNode* const a = top->children->front();
  a->section.AddEntry("max-lease-time 7200;", nullptr, nullptr);
  EXPECT_EQ(a->DeleteAllItems(), 0);
  EXPECT_EQ(a->children, nullptr);
  EXPECT_EQ(a->parent, top.get());
  EXPECT_STREQ(a->section.GetName(), "a");
  ASSERT_EQ(a->section.entryList.size(), 1U);
  EXPECT_STREQ(a->section.entryList[0]->GetKeyName(), "max-lease-time 7200;");
  EXPECT_EQ(Visit(*top), "+top +a +b +c true");
}

TEST_F(TreeNodeTest, DeleteAllItemsSetsAnEmptyChildListToNull) {
  TreeNode node(nullptr, Named("node"));
  node.children = new std::list<TreeNode*>;
  EXPECT_EQ(node.DeleteAllItems(), 0);
  EXPECT_EQ(node.children, nullptr);
}

TEST_F(TreeNodeTest, DeleteAllItemsDeletesEveryDescendantThroughItsDestructorDeepestFirst) {
  std::string tale;
  TreeNode top(nullptr, Named("top"));
  TreeNode* const a = Attach(top, new TellingNode("a", &tale));
  Attach(*Attach(*a, new TellingNode("a1", &tale)), new TellingNode("a11", &tale));
  Attach(*a, new TellingNode("a2", &tale));
  Attach(top, new TellingNode("b", &tale));
  EXPECT_EQ(top.DeleteAllItems(), 0);
  EXPECT_EQ(tale, "end a11 end a1 end a2 end a end b");
}

TEST_F(TreeNodeTest, DestructorDeletesEveryDescendantThroughItsDestructor) {
  std::string tale;
  {
    TreeNode top(nullptr, Named("top"));
    TreeNode* const plain = Attach(top, Node("plain"));
    Attach(*plain, new TellingNode("below", &tale));
    Attach(top, new TellingNode("b", &tale));
    EXPECT_EQ(tale, "");
  }
  EXPECT_EQ(tale, "end below end b");
}

TEST_F(TreeNodeTest, DestructorLeavesTheParentsChildListAlone) {
  const auto top = Family();
  TreeNode* const a = top->children->front();
  delete a;
  EXPECT_EQ(top->children->size(), 3U);
  top->children->pop_front();
  EXPECT_EQ(Visit(*top), "+top +b +c true");
}

// ---- deep nesting ----

constexpr std::size_t kDepth = 100000;

/// Runs `task` where recursion into each of kDepth levels would overflow the stack.
void OnASmallStack(const std::function<void()>& task) {
  constexpr std::size_t kStackSize = 512 * 1024;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackSize), 0);
  const auto run = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  pthread_t thread = {};
  auto* const argument = const_cast<std::function<void()>*>(&task);
  ASSERT_EQ(pthread_create(&thread, &attributes, run, argument), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

/// kDepth nodes one below the other; the last one is named "bottom".
TreeNode* Chain() {
  TreeNode* node = Node("bottom");
  for (std::size_t i = 1; i != kDepth; ++i) node = Node("level", {node});
  return node;
}

bool Count(void* counter, CfSection& /*section*/) {
  ++*static_cast<std::size_t*>(counter);
  return true;
}

std::size_t visited;

bool CountVisit(CfSection& /*section*/) {
  ++visited;
  return true;
}

TEST_F(TreeNodeTest, AHundredThousandNestedNodesAreWalked) {
  const std::unique_ptr<TreeNode> top(Chain());
  std::size_t calls = 0;
  OnASmallStack([&] { top->TraverseDo(&calls, Count, Count); });
  EXPECT_EQ(calls, 2 * kDepth);
  visited = 0;
  OnASmallStack([&] { top->TraverseDo(CountVisit); });
  EXPECT_EQ(visited, kDepth);
  visited = 0;
  OnASmallStack([&] { top->TraverseDo(CountVisit, CountVisit); });
  EXPECT_EQ(visited, 2 * kDepth);
}

TEST_F(TreeNodeTest, AHundredThousandNestedNodesAreSearched) {
  const std::unique_ptr<TreeNode> top(Chain());
  const TreeNode* bottom = nullptr;
  const TreeNode* missing = top.get();
  OnASmallStack([&] {
    bottom = top->FindIf(Named("bottom"), SameName);
    missing = top->FindIf(Named("missing"), SameName);
  });
  ASSERT_NE(bottom, nullptr);
  EXPECT_EQ(bottom->children, nullptr);
  EXPECT_EQ(missing, nullptr);
}

TEST_F(TreeNodeTest, AHundredThousandNestedNodesAreDeleted) {
  std::string tale;
  TreeNode* const top = Chain();
  Attach(*top->FindIf(Named("bottom"), SameName), new TellingNode("deepest", &tale));
  OnASmallStack([top] { delete top; });
  EXPECT_EQ(tale, "end deepest");

  const std::unique_ptr<TreeNode> kept(Chain());
  OnASmallStack([&kept] { kept->DeleteAllItems(); });
  EXPECT_EQ(kept->children, nullptr);
}

}  // namespace
