#include <klepur/storage/save_config.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/storage/folder.h"
#include "tests/support/family.h"
#include "tests/support/files.h"

namespace klepur {
namespace {

using test::NamesIn;
using test::ReadFile;

template <class Family>
class SavingConfig : public ::testing::Test {
 protected:
  static typename Family::Section Network(const char* name) {
    typename Family::Section network;
    network.type = test::SECTION_SHARED_NETWORK;
    network.params = {{false, Family::kName, name}, {false, Family::kMaxLeaseTime, "60"}};
    return network;
  }

  test::ScratchFolder scratch_;
};

TYPED_TEST_SUITE(SavingConfig, test::Families);

constexpr std::string_view kText = "authoritative;\ngroup { # all\n  next-server a;\n}\n";

TYPED_TEST(SavingConfig, WritesWhatSaveWrites) {
  const std::string path = this->scratch_.Write("f", kText);
  typename TypeParam::File file(path.c_str());
  ASSERT_TRUE(file.Open());
  ASSERT_EQ(file.AddSection(this->Network("office")), 1);
  const std::string text = file.Text();
  EXPECT_EQ(file.Text(), text);
  const SaveReport report = SaveSafely(file, SaveOptions().WithBackup(this->scratch_.Path("b")));
  EXPECT_TRUE(report.Written());
  EXPECT_EQ(ReadFile(path), text);
  EXPECT_EQ(ReadFile(this->scratch_.Path("b")), kText);
  EXPECT_FALSE(SaveSafely(file).Written());
  ASSERT_EQ(file.Save(this->scratch_.Path("saved")), 1);
  EXPECT_EQ(ReadFile(this->scratch_.Path("saved")), text);
  ASSERT_EQ(file.Save(""), 1);
  EXPECT_FALSE(SaveSafely(file).Written());
}

TYPED_TEST(SavingConfig, FileThatChangedIsNotOverwritten) {
  const std::string path = this->scratch_.Write("f", kText);
  typename TypeParam::File file(path.c_str());
  ASSERT_TRUE(file.Open());
  this->scratch_.Write("f", "# by somebody else\n");
  try {
    SaveSafely(file);
    ADD_FAILURE() << "saved";
  } catch (const Error& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kChanged);
    EXPECT_EQ(error.what(), path + ": cannot save over the file: somebody else changed it");
  }
  EXPECT_EQ(ReadFile(path), "# by somebody else\n");
  EXPECT_TRUE(SaveSafely(file, SaveOptions().Forced()).Written());
  EXPECT_EQ(ReadFile(path), file.Text());
  ASSERT_TRUE(file.Open());
  ASSERT_EQ(file.AddSection(this->Network("office")), 1);
  EXPECT_TRUE(SaveSafely(file).Written());
  EXPECT_EQ(NamesIn(this->scratch_), "f");
}

TYPED_TEST(SavingConfig, ChangeOfTheSameSizeIsSeen) {
  const std::string path = this->scratch_.Write("f", "default-lease-time 1;\n");
  typename TypeParam::File file(path.c_str());
  ASSERT_TRUE(file.Open());
  this->scratch_.Write("f", "default-lease-time 2;\n");
  EXPECT_THROW(SaveSafely(file), Error);
  EXPECT_EQ(ReadFile(path), "default-lease-time 2;\n");
}

TYPED_TEST(SavingConfig, FileThatWasNeverReadIsNotThere) {
  for (const char* const name : {"", "f"}) {
    typename TypeParam::File file(name[0] == '\0' ? nullptr : this->scratch_.Path(name).c_str());
    EXPECT_EQ(file.Text(), "");
    try {
      SaveSafely(file);
      ADD_FAILURE() << "saved";
    } catch (const Error& error) {
      EXPECT_EQ(error.Code(), ErrorCode::kNotFound);
    }
  }
  EXPECT_EQ(NamesIn(this->scratch_), "");
}

TYPED_TEST(SavingConfig, TreeThatWasBegunByAddingIsSavedToANewFile) {
  const std::string path = this->scratch_.Path("f");
  typename TypeParam::File file(path.c_str());
  ASSERT_EQ(file.AddNetwork(this->Network("office")), 1);
  EXPECT_TRUE(SaveSafely(file).Written());
  EXPECT_EQ(ReadFile(path), file.Text());
  EXPECT_FALSE(file.Text().empty());
}

}  // namespace
}  // namespace klepur
