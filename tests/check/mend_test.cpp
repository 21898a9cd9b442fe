// Mends are applied where they fit, and nowhere else.
#include <klepur/check/checker.h>
#include <klepur/check/mend.h>
#include <klepur/text/error.h>

#include <gtest/gtest.h>

#include <string>

namespace klepur::test {
namespace {

/// The mend of the first finding.
Mend FirstMend(const Document& document) {
  return Check(document).at(0).mend.value();
}

TEST(Mend, ChangesItsStatementOnly) {
  const struct {
    const char* text;
    const char* description;
    const char* mended;
  } cases[] = {
      {"max-laese-time  60 ;  # c\n", "write \"max-lease-time\"", "max-lease-time  60 ;  # c\n"},
      {"hots a { hardware ethernet 0:1:2:3:4:5; } # c\n", "write \"host\"",
       "host a { hardware ethernet 0:1:2:3:4:5; } # c\n"},
      {"max-lease-time 60 # c\nmin-lease-time 30;\n", "write a \";\" behind it",
       "max-lease-time 60; # c\nmin-lease-time 30;\n"},
      {"authoritative;;\n", "take out the \";\"", "authoritative;\n"},
      {"subnet 10.0.0.7 netmask 255.255.255.0 { range 10.0.0.10; }\n", "write \"10.0.0.0\"",
       "subnet 10.0.0.0 netmask 255.255.255.0 { range 10.0.0.10; }\n"},
  };
  for (const auto& [text, description, mended] : cases) {
    Document document(text);
    const Mend mend = FirstMend(document);
    EXPECT_EQ(mend.Description(), description);
    const Document::Mark mark = document.GetMark();
    mend.Apply(document);
    EXPECT_EQ(document.Text(), mended);
    document.RollBack(mark);
    EXPECT_EQ(document.Text(), text);
  }
}

TEST(Mend, DoesNotFitWhatWasChangedOrRemoved) {
  Document document("max-laese-time 60;\n");
  const Mend mend = FirstMend(document);
  EXPECT_TRUE(mend.Fits(document));
  const Document::Mark mark = document.GetMark();
  document.Root().FirstChild().SetValue("90");
  EXPECT_FALSE(mend.Fits(document));
  EXPECT_THROW(mend.Apply(document), Error);
  document.RollBack(mark);
  EXPECT_TRUE(mend.Fits(document));
  document.Root().FirstChild().Remove();
  EXPECT_FALSE(mend.Fits(document));
  EXPECT_THROW(mend.Apply(document), Error);
  EXPECT_EQ(document.Text(), "");
}

TEST(Mend, FitsAfterEditsElsewhere) {
  Document document("authoritative;\nmax-laese-time 60;\n");
  const Mend mend = FirstMend(document);
  document.Root().FirstChild().Remove();
  document.Root().Add("min-lease-time 30;");
  mend.Apply(document);
  EXPECT_EQ(document.Text(), "max-lease-time 60;\nmin-lease-time 30;\n");
}

TEST(Mend, DoesNotFitAnotherDocument) {
  Document document("max-laese-time 60;\n");
  Document other("max-laese-time 60;\n");
  const Mend mend = FirstMend(document);
  EXPECT_FALSE(mend.Fits(other));
  EXPECT_THROW(mend.Apply(other), Error);
  EXPECT_EQ(other.Text(), "max-laese-time 60;\n");
}

}  // namespace
}  // namespace klepur::test
