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
      {"ping-check yes ;\n", "write \"on\"", "ping-check on ;\n"},
      {"max-lease-time 2h; # c\n", "write \"7200\"", "max-lease-time 7200; # c\n"},
      {"max-lease-time=600;\n", "write \" 600\"", "max-lease-time 600;\n"},
      {"ddns-update-style None;\n", "write \"none\"", "ddns-update-style none;\n"},
      {"filename boot/x;\n", "write \"\"boot/x\"\"", "filename \"boot/x\";\n"},
      {"option v4-lost \"a.example\";\n", "write \"a.example\"", "option v4-lost a.example;\n"},
      {"option ntp-servers 10.0.0.1 10.0.0.2\n 10.0.0.3 ;\n",
       "write \"10.0.0.1, 10.0.0.2, 10.0.0.3\"",
       "option ntp-servers 10.0.0.1, 10.0.0.2, 10.0.0.3 ;\n"},
      {"host a { hardware ethernet 0016.3E00.00aB ; }\n", "write \"00:16:3E:00:00:aB\"",
       "host a { hardware ethernet 00:16:3E:00:00:aB ; }\n"},
      {"host a { uid 1; fixed-prefix6 2001:db8::1/64; }\n", "write \"2001:db8::/64\"",
       "host a { uid 1; fixed-prefix6 2001:db8::/64; }\n"},
      {"host a { uid 1; fixed-prefix6 2001:db8::/64 ; }\n", "write \"2001:db8::/64\"",
       "host a { uid 1; fixed-prefix6 2001:db8::/64; }\n"},
      {"subnet 10.0.0.0 netmask 255.0.0.0 { range 10.0.0.5 - 10.0.0.9; }\n",
       "write \"10.0.0.5 10.0.0.9\"",
       "subnet 10.0.0.0 netmask 255.0.0.0 { range 10.0.0.5 10.0.0.9; }\n"},
      {"subnet 10.0.0.0/24 { range 10.0.0.5; }\n", "write \"10.0.0.0 netmask 255.255.255.0\"",
       "subnet 10.0.0.0 netmask 255.255.255.0 { range 10.0.0.5; }\n"},
      {"if (known) and (static) { min-secs 1; }\n", "write \"((known) and (static))\"",
       "if ((known) and (static)) { min-secs 1; }\n"},
      {"if known && static { min-secs 1; }\n", "write \"and\"",
       "if known and static { min-secs 1; }\n"},
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
    EXPECT_TRUE(Check(document).empty()) << mended;
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
