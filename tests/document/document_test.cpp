#include "tests/document/document_test.h"

#include "tests/support/document_tree.h"
#include "tests/support/files.h"

namespace klepur::test {

std::string LineEndName(const ::testing::TestParamInfo<bool>& info) {
  return info.param ? "CrLf" : "Lf";
}

void DocumentTest::Given(std::string_view text) {
  given_ = text;
  bytes_ = InThisRun(text);
  document_ = std::make_unique<Document>(bytes_);
  start_ = document_->GetMark();
  EXPECT_FALSE(document_->IsChanged());
  EXPECT_EQ(Text(), given_);
}

void DocumentTest::Edit(const Edits& edits) {
  const std::string before = document_->Text();
  const std::string tree_before = PlacedTree(*document_);
  const Document::Mark mark = document_->GetMark();
  edits();
  const std::string after = document_->Text();
  document_->RollBack(mark);
  EXPECT_EQ(document_->Text(), before) << "taken back";
  EXPECT_EQ(PlacedTree(*document_), tree_before) << "taken back";
  edits();
  EXPECT_EQ(document_->Text(), after) << "done again";
}

std::string DocumentTest::Text() const {
  ExpectSound();
  std::string text = document_->Text();
  if (!carriage_returns_) return text;
  std::string with_line_feeds;
  for (std::size_t i = 0; i != text.size(); ++i) {
    if (text.compare(i, 2, "\r\n") == 0) continue;
    EXPECT_TRUE(text[i] != '\n' || (i != 0 && text[i - 1] == '\r')) << "a line end of another kind";
    with_line_feeds += text[i];
  }
  return with_line_feeds;
}

std::string DocumentTest::Refused(const Edits& edits) {
  const std::string before = document_->Text();
  const std::string tree_before = PlacedTree(*document_);
  std::string why = "nothing";
  try {
    edits();
  } catch (const Error& error) {
    why = ToText(error.Code());
    EXPECT_STRNE(error.what(), "");
  }
  EXPECT_EQ(document_->Text(), before) << "refused";
  EXPECT_EQ(PlacedTree(*document_), tree_before) << "refused";
  return why;
}

void DocumentTest::TearDown() {
  if (document_ == nullptr) return;
  document_->RollBack(start_);
  EXPECT_EQ(Text(), given_) << "all taken back";
}

std::string DocumentTest::InThisRun(std::string_view text) const {
  return carriage_returns_ ? WithCarriageReturns(text) : std::string(text);
}

void DocumentTest::ExpectSound() const {
  const std::string text = document_->Text();
  std::string pieces;
  for (const std::string_view piece : document_->Pieces()) pieces += piece;
  EXPECT_EQ(pieces, text);
  EXPECT_EQ(document_->Root().Text(), text);
  EXPECT_EQ(document_->IsChanged(), text != bytes_);
  const Document again(text);
  EXPECT_EQ(PlacedTree(*document_), PlacedTree(again));
  EXPECT_EQ(FindingsText(*document_), FindingsText(again));
}

}  // namespace klepur::test
