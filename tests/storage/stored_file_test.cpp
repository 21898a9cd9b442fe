#include <klepur/storage/stored_file.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <thread>

#include "tests/storage/folder.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"

namespace klepur {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using test::kNew;
using test::kOld;
using test::NamesIn;
using test::ReadFile;

class Storing : public ::testing::Test {
 protected:
  ~Storing() override { EXPECT_EQ(test::OpenDescriptors(), descriptors_); }

  static struct stat StatusOf(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status;
  }

  template <class Call>
  static void ExpectError(const Call& call, ErrorCode code, const std::string& what) {
    try {
      call();
      ADD_FAILURE() << "no error; expected: " << what;
    } catch (const Error& error) {
      EXPECT_EQ(error.what(), what);
      EXPECT_EQ(error.Code(), code) << what;
    }
  }

  test::ScratchFolder scratch_;

 private:
  const std::ptrdiff_t descriptors_ = test::OpenDescriptors();
};

TEST_F(Storing, DocumentIsReadEditedAndSaved) {
  const std::string path = scratch_.Write("f", kOld);
  StoredFile file = StoredFile::OpenLocked(path);
  Document document = file.Read();
  EXPECT_EQ(document.Path(), path);
  EXPECT_TRUE(document.Root().Set("max-lease-time", "3600"));
  EXPECT_EQ(file.Diff(document),
            "--- " + path + "\n+++ " + path +
                "\n@@ -1 +1 @@\n-max-lease-time 7200;\n+max-lease-time 3600;\n");
  const SaveReport report = file.Save(document);
  EXPECT_TRUE(report.Written());
  EXPECT_FALSE(report.InPlace());
  EXPECT_EQ(report.Backup(), "");
  EXPECT_EQ(report.Warning(), "");
  EXPECT_EQ(ReadFile(path), kNew);
  EXPECT_EQ(NamesIn(scratch_), "f");
}

TEST_F(Storing, TextIsSavedWithoutReading) {
  const std::string path = scratch_.Write("f", kOld);
  EXPECT_TRUE(SaveText(path, kNew).Written());
  EXPECT_EQ(ReadFile(path), kNew);
  EXPECT_TRUE(SaveText(path, "").Written());
  EXPECT_EQ(ReadFile(path), "");
  EXPECT_EQ(NamesIn(scratch_), "f");
}

TEST_F(Storing, TextOfManyPiecesIsSavedWhole) {
  std::string text;
  for (int i = 0; i != 3000; ++i)
    text += "host h" + std::to_string(i) + " { fixed-address 10.0.0.1; }\n";
  StoredFile file = StoredFile::Open(scratch_.Write("f", text));
  Document document = file.Read();
  for (Node host : document.Walk("host")) host.Set("fixed-address", "10.20.30.40");
  ASSERT_GT(document.Pieces().size(), 2000U);
  EXPECT_TRUE(file.Save(document).Written());
  EXPECT_EQ(ReadFile(file.Path()), document.Text());
  EXPECT_FALSE(file.Save(document).Written());
}

TEST_F(Storing, WhereThereIsNothingToWriteNothingIsTouched) {
  const std::string path = scratch_.Write("f", kOld);
  scratch_.Write(".f.klepur-1-00000000", "stray");
  const struct stat before = StatusOf(path);
  const struct stat folder = StatusOf(scratch_.Path("."));
  StoredFile file = StoredFile::Open(path);
  const SaveReport report =
      file.Save(file.Read(), SaveOptions().WithBackup().VerifiedBy({"/bin/false"}));
  EXPECT_FALSE(report.Written());
  EXPECT_EQ(file.Diff(kOld), "");
  const struct stat after = StatusOf(path);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);
  EXPECT_EQ(StatusOf(scratch_.Path(".")).st_mtim.tv_nsec, folder.st_mtim.tv_nsec);
  EXPECT_EQ(NamesIn(scratch_), ".f.klepur-1-00000000 f");
}

TEST_F(Storing, LinkStaysAndWhatItLeadsToIsReplaced) {
  scratch_.Write("f", kOld);
  fs::create_directory(scratch_.Path("d"));
  fs::create_symlink("../f", scratch_.Path("d/l"));
  fs::create_symlink("d/l", scratch_.Path("k"));
  StoredFile file = StoredFile::Open(scratch_.Path("k"));
  EXPECT_EQ(file.Target(), fs::canonical(scratch_.Path("f")));
  file.Save(kNew);
  EXPECT_TRUE(fs::is_symlink(scratch_.Path("k")));
  EXPECT_TRUE(fs::is_symlink(scratch_.Path("d/l")));
  EXPECT_EQ(ReadFile(scratch_.Path("f")), kNew);
  EXPECT_EQ(NamesIn(scratch_), "d f k");
}

TEST_F(Storing, OtherHardLinksKeepTheOldText) {
  const std::string path = scratch_.Write("f", kOld);
  fs::create_hard_link(path, scratch_.Path("h"));
  SaveText(path, kNew);
  EXPECT_EQ(ReadFile(scratch_.Path("h")), kOld);
  EXPECT_EQ(ReadFile(path), kNew);
}

TEST_F(Storing, SavesFollowEachOther) {
  for (const bool locked : {false, true}) {
    const std::string path = scratch_.Write("f", kOld);
    StoredFile file = locked ? StoredFile::OpenLocked(path) : StoredFile::Open(path);
    Document document = file.Read();
    for (const char* const time : {"1", "2", "3"}) {
      document.Root().Set("max-lease-time", time);
      EXPECT_TRUE(file.Save(document).Written());
      EXPECT_FALSE(file.Save(document).Written());
      EXPECT_EQ(file.IsLocked(), locked);
      EXPECT_EQ(ReadFile(path), document.Text());
    }
  }
}

TEST_F(Storing, MissingFileIsMade) {
  const std::string path = scratch_.Path("f");
  StoredFile file = StoredFile::OpenLocked(path, milliseconds(0), IfMissing::kMake);
  EXPECT_FALSE(file.Exists());
  EXPECT_FALSE(file.IsLocked());
  Document document = file.Read();
  EXPECT_EQ(document.Text(), "");
  EXPECT_EQ(file.Diff(kNew),
            "--- " + path + "\n+++ " + path + "\n@@ -0,0 +1 @@\n+max-lease-time 3600;\n");
  const mode_t mask = ::umask(022);
  EXPECT_TRUE(file.Save(kNew, SaveOptions().WithBackup()).Written());
  ::umask(mask);
  EXPECT_TRUE(file.Exists());
  EXPECT_TRUE(file.IsLocked());
  EXPECT_EQ(StatusOf(path).st_mode & 07777U, 0644U);
  EXPECT_EQ(ReadFile(path), kNew);
  EXPECT_EQ(NamesIn(scratch_), "f");
  EXPECT_TRUE(SaveText(scratch_.Path("g"), kNew).Written());
  EXPECT_EQ(ReadFile(scratch_.Path("g")), kNew);
}

TEST_F(Storing, EmptyMissingFileIsMadeToo) {
  EXPECT_TRUE(SaveText(scratch_.Path("f"), "").Written());
  EXPECT_EQ(ReadFile(scratch_.Path("f")), "");
}

TEST_F(Storing, WhatCannotBeOpenedIsToldWithStepPathAndReason) {
  const std::string missing = scratch_.Path("missing");
  const std::string dangling = scratch_.Path("dangling");
  fs::create_symlink("nowhere", dangling);
  const std::string pipe = scratch_.Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string nowhere = scratch_.Path("no/where");
  const std::string folder = scratch_.Path("");
  const auto open = [](const std::string& path, IfMissing what) {
    return [path, what] { StoredFile::Open(path, what); };
  };
  const std::string no_such = ": No such file or directory";
  const std::string find = ": cannot find the file";
  ExpectError(open(missing, IfMissing::kFail), ErrorCode::kFile, missing + find + no_such);
  ExpectError(open("", IfMissing::kMake), ErrorCode::kFile, find + no_such);
  ExpectError(open(dangling, IfMissing::kMake), ErrorCode::kFile, dangling + find + no_such);
  ExpectError(open(nowhere, IfMissing::kMake), ErrorCode::kFile,
              nowhere + ": cannot find its folder" + no_such);
  for (const std::string& path : {pipe, folder}) {
    ExpectError(open(path, IfMissing::kMake), ErrorCode::kFile,
                path + ": cannot open the file: it is no regular file");
  }
}

/// What somebody else does to a file between its reading and its saving.
struct Meddling {
  const char* name;
  std::function<void(const test::ScratchFolder&)> run;
  const char* how;  // why the save fails, or null when it does not
};

std::ostream& operator<<(std::ostream& out, const Meddling& meddling) {
  return out << meddling.name;
}

class StoringAfterMeddling : public Storing, public ::testing::WithParamInterface<Meddling> {};

constexpr const char* kSomebody = "somebody else changed it";

void ReplaceBy(const test::ScratchFolder& folder, std::string_view text) {
  fs::rename(folder.Write("other", text), folder.Path("f"));
}

INSTANTIATE_TEST_SUITE_P(
    Meddlings, StoringAfterMeddling,
    ::testing::Values(
        Meddling{"Nothing", [](const auto&) {}, nullptr},
        Meddling{"LongerText",
                 [](const auto& s) { s.Write("f", "authoritative;\nmax-lease-time 1;\n"); },
                 kSomebody},
        Meddling{"SameSizeAtOnce", [](const auto& s) { s.Write("f", "max-lease-time 7201;\n"); },
                 kSomebody},
        Meddling{"SameSizeWithTheOldTime",
                 [](const auto& s) {
                   const auto time = fs::last_write_time(s.Path("f"));
                   s.Write("f", "max-lease-time 7201;\n");
                   fs::last_write_time(s.Path("f"), time);
                 },
                 kSomebody},
        Meddling{"Replaced", [](const auto& s) { ReplaceBy(s, "max-lease-time 7201;\n"); },
                 kSomebody},
        Meddling{"ReplacedByTheSame", [](const auto& s) { ReplaceBy(s, kOld); }, nullptr},
        Meddling{"WrittenTheSame", [](const auto& s) { s.Write("f", kOld); }, nullptr},
        Meddling{"OtherMode",
                 [](const auto& s) { fs::permissions(s.Path("f"), fs::perms::owner_all); },
                 nullptr},
        Meddling{"Removed", [](const auto& s) { fs::remove(s.Path("f")); }, "it was removed"},
        Meddling{"LinkElsewhere",
                 [](const auto& s) {
                   fs::remove(s.Path("l"));
                   fs::create_symlink(s.Write("g", kOld), s.Path("l"));
                 },
                 "it now leads to "}),
    [](const ::testing::TestParamInfo<Meddling>& meddling) {
      return std::string(meddling.param.name);
    });

TEST_P(StoringAfterMeddling, IsRefusedWhereSomethingWouldBeLost) {
  for (const bool locked : {false, true}) {
    fs::remove(scratch_.Path("l"));
    const std::string path = scratch_.Write("f", kOld);
    fs::create_symlink("f", scratch_.Path("l"));
    StoredFile file =
        locked ? StoredFile::OpenLocked(scratch_.Path("l")) : StoredFile::Open(scratch_.Path("l"));
    file.Read();
    GetParam().run(scratch_);
    const std::string names = NamesIn(scratch_);
    EXPECT_EQ(file.HasChanged(), GetParam().how != nullptr);
    if (GetParam().how != nullptr) {
      const std::string left = fs::exists(path) ? ReadFile(path) : std::string();
      std::string what = scratch_.Path("l") + ": cannot save over the file: " + GetParam().how;
      if (what.back() == ' ') what += fs::canonical(scratch_.Path("g")).string();
      // Of a link to a file that was removed it is the link that leads nowhere.
      if (!fs::exists(path)) {
        what = scratch_.Path("l") + ": cannot find the file: No such file or directory";
      }
      ExpectError([&] { file.Save(kNew); },
                  fs::exists(path) ? ErrorCode::kChanged : ErrorCode::kFile, what);
      EXPECT_EQ(NamesIn(scratch_), names);
      if (!fs::exists(path)) return;
      EXPECT_EQ(ReadFile(path), left);
      EXPECT_TRUE(file.Save(kNew, SaveOptions().Forced()).Written());
    } else {
      EXPECT_TRUE(file.Save(kNew).Written());
    }
    EXPECT_EQ(ReadFile(scratch_.Path("l")), kNew);
    EXPECT_EQ(NamesIn(scratch_), names);
    EXPECT_FALSE(file.HasChanged());
  }
}

TEST_F(Storing, FileToWhichSomebodyElseWroteTheTextIsSaved) {
  const std::string path = scratch_.Write("f", kOld);
  StoredFile file = StoredFile::Open(path);
  file.Read();
  scratch_.Write("f", "as another wrote it;\n");
  EXPECT_FALSE(file.Save("as another wrote it;\n").Written());
  EXPECT_FALSE(file.HasChanged());
  EXPECT_TRUE(file.Save(kNew).Written());
}

TEST_F(Storing, RemovedFileIsMadeAgainOnlyWhenForced) {
  const std::string path = scratch_.Write("f", kOld);
  StoredFile file = StoredFile::Open(path);
  fs::remove(path);
  EXPECT_TRUE(file.HasChanged());
  ExpectError([&] { file.Save(kNew); }, ErrorCode::kChanged,
              path + ": cannot save over the file: it was removed");
  EXPECT_TRUE(file.Save(kNew, SaveOptions().Forced()).Written());
  EXPECT_EQ(ReadFile(path), kNew);
}

TEST_F(Storing, FileThatSomebodyElseMadeIsNotOverwritten) {
  const std::string path = scratch_.Path("f");
  StoredFile file = StoredFile::Open(path, IfMissing::kMake);
  scratch_.Write("f", kOld);
  ExpectError([&] { file.Save(kNew); }, ErrorCode::kChanged,
              path + ": cannot save over the file: somebody else made it");
  EXPECT_EQ(ReadFile(path), kOld);
  file.Read();
  EXPECT_TRUE(file.Save(kNew).Written());
}

TEST_F(Storing, FileThatWasReadAnewIsSavedAgain) {
  const std::string path = scratch_.Write("f", kOld);
  StoredFile file = StoredFile::Open(path);
  scratch_.Write("f", "# other\n");
  ExpectError([&] { file.Save(kNew); }, ErrorCode::kChanged,
              path + ": cannot save over the file: somebody else changed it");
  EXPECT_EQ(file.ReadText(), "# other\n");
  EXPECT_TRUE(file.Save(kNew).Written());
}

TEST_F(Storing, FileThatChangesWhileTheVerifierRunsIsNotOverwritten) {
  const std::string path = scratch_.Write("f", kOld);
  const std::string program = scratch_.Write("meddle", "#!/bin/sh\necho '# other' >" + path + "\n");
  fs::permissions(program, fs::perms::owner_all);
  ExpectError([&] { SaveText(path, kNew, SaveOptions().VerifiedBy({program}).WithBackup()); },
              ErrorCode::kChanged,
              path + ": cannot save over the file: somebody else changed it meanwhile");
  EXPECT_EQ(ReadFile(path), "# other\n");
  EXPECT_EQ(NamesIn(scratch_), "f meddle");
}

TEST_F(Storing, LockIsHeldFromReadingOverSaves) {
  const std::string path = scratch_.Write("f", kOld);
  const std::string held = path + ": cannot lock the file: another saver holds its lock";
  const SaveOptions at_once = SaveOptions().LockedWithin(milliseconds(0));
  {
    StoredFile file = StoredFile::OpenLocked(path);
    for (const std::string_view text : {kOld, kNew, std::string_view("# third\n")}) {
      file.Save(text);
      ExpectError([&] { StoredFile::OpenLocked(path, milliseconds(0)); }, ErrorCode::kLocked, held);
      ExpectError([&] { SaveText(path, "", at_once); }, ErrorCode::kLocked, held);
      StoredFile other = StoredFile::Open(path);
      ExpectError([&] { other.Save("", at_once); }, ErrorCode::kLocked, held);
      EXPECT_EQ(ReadFile(path), text);
    }
    file.Unlock();
    EXPECT_FALSE(file.IsLocked());
    EXPECT_TRUE(SaveText(path, kOld, at_once).Written());
    EXPECT_EQ(NamesIn(scratch_), "f");
  }
  EXPECT_TRUE(StoredFile::OpenLocked(path, milliseconds(0)).IsLocked());
}

TEST_F(Storing, SaverWaitsForAnother) {
  const std::string path = scratch_.Write("f", kOld);
  StoredFile file = StoredFile::OpenLocked(path);
  std::thread second([&] {
    StoredFile other = StoredFile::OpenLocked(path, std::chrono::minutes(1));
    other.Save(other.ReadText() + "# second\n");
  });
  std::this_thread::sleep_for(milliseconds(30));
  file.Save(kNew);
  file.Unlock();
  second.join();
  EXPECT_EQ(ReadFile(path), std::string(kNew) + "# second\n");
}

TEST_F(Storing, LockIsFoundOnAFileThatReplacedTheLockedOne) {
  const std::string path = scratch_.Write("f", kOld);
  StoredFile file = StoredFile::OpenLocked(path);
  ReplaceBy(scratch_, kOld);
  StoredFile other = StoredFile::OpenLocked(path, milliseconds(0));  // the new one is nobody's
  ExpectError([&] { file.Save(kNew, SaveOptions().LockedWithin(milliseconds(0))); },
              ErrorCode::kLocked, path + ": cannot lock the file: another saver holds its lock");
  other.Unlock();
  EXPECT_TRUE(file.Save(kNew).Written());
  ExpectError([&] { StoredFile::OpenLocked(path, milliseconds(0)); }, ErrorCode::kLocked,
              path + ": cannot lock the file: another saver holds its lock");
}

TEST_F(Storing, SaveWithoutALockWaitsForNobody) {
  const std::string path = scratch_.Write("f", kOld);
  const StoredFile file = StoredFile::OpenLocked(path);
  EXPECT_TRUE(SaveText(path, kNew, SaveOptions().WithoutLock()).Written());
  EXPECT_EQ(ReadFile(path), kNew);
  EXPECT_EQ(NamesIn(scratch_), "f");
}

TEST_F(Storing, LongestNameCanBeSaved) {
  const std::string path = scratch_.Write(std::string(255, 'n'), kOld);
  EXPECT_TRUE(SaveText(path, kNew).Written());
  EXPECT_EQ(ReadFile(path), kNew);
}

}  // namespace
}  // namespace klepur
