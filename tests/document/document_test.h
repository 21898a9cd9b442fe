// A document that is edited, and what holds after each edit of it.
#ifndef KLEPUR_TESTS_DOCUMENT_DOCUMENT_TEST_H
#define KLEPUR_TESTS_DOCUMENT_DOCUMENT_TEST_H

#include <gtest/gtest.h>
#include <klepur/document/document.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace klepur::test {

/// Each test reads:
///
///     Given("host a { fixed-address 10.0.0.1; }\n");
///     Edit([&] { Find("host a").Remove(); });
///     EXPECT_EQ(Text(), "");
///
/// Whatever the edit is, it must be possible to take it back and to do it again, and the text must be
/// read again as what the edited document holds. At its end each test takes back all that it did.
class DocumentTest : public ::testing::Test {
 protected:
  using Edits = std::function<void()>;

  /// What the document is made of; "\n" stands for the line end of this run.
  void Given(std::string_view text);
  /// The text that was given.
  const std::string& First() const { return given_; }

  /// Does something, takes it back, and does it again.
  void Edit(const Edits& edits);
  /// The text as it is now, with "\n" for the line end of this run.
  std::string Text() const;
  /// Does what must be refused, and leave everything as it was; why it was: "bad place".
  std::string Refused(const Edits& edits);

  Document& Doc() { return *document_; }
  const Document& Doc() const { return *document_; }
  Node Root() const { return document_->Root(); }
  Node Find(std::string_view header) const { return document_->Find(header); }

  void TearDown() override;

  bool carriage_returns_ = false;

 private:
  std::string InThisRun(std::string_view text) const;
  void ExpectSound() const;

  std::string given_;
  std::string bytes_;
  std::unique_ptr<Document> document_;
  Document::Mark start_;
};

/// A test that runs with "\n" and with "\r\n".
class EditTest : public DocumentTest, public ::testing::WithParamInterface<bool> {
 protected:
  EditTest() { carriage_returns_ = GetParam(); }
};

std::string LineEndName(const ::testing::TestParamInfo<bool>& info);

}  // namespace klepur::test

#define KLEPUR_WITH_BOTH_LINE_ENDS(suite) \
  INSTANTIATE_TEST_SUITE_P(LineEnds, suite, ::testing::Bool(), ::klepur::test::LineEndName)

#endif
