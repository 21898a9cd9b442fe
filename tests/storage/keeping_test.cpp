// What a file has besides its text, backups, and writing in place.
#include <gtest/gtest.h>
#include <klepur/storage/stored_file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <regex>
#include <string>
#include <string_view>

#include "tests/storage/folder.h"
#include "tests/support/files.h"
#include "tests/support/unprivileged.h"

namespace klepur {
namespace {

namespace fs = std::filesystem;
using test::kNew;
using test::kOld;
using test::NamesIn;
using test::ReadFile;

class Keeping : public ::testing::Test {
 protected:
  static struct stat StatusOf(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status;
  }

  /// An attribute's value; "none" when there is none.
  static std::string Attribute(const std::string& path, const char* name) {
    std::array<char, 256> bytes;
    const ssize_t size = ::getxattr(path.c_str(), name, bytes.data(), bytes.size());
    return size < 0 ? "none" : std::string(bytes.data(), static_cast<std::size_t>(size));
  }

  /// False where the file system has no such attributes.
  static bool SetAttribute(const std::string& path, const char* name, std::string_view value) {
    const int result = ::setxattr(path.c_str(), name, value.data(), value.size(), 0);
    EXPECT_TRUE(result == 0 || errno == EOPNOTSUPP) << name;
    return result == 0;
  }

  test::ScratchFolder scratch_;
};

/// An access list with an entry for user 1, as the system stores it.
std::string AccessList(char permissions_of_user_1) {
  const auto entry = [](char tag, char permissions, std::string_view id) {
    return std::string{tag, 0, permissions, 0} + std::string(id);
  };
  const std::string_view nobody("\xff\xff\xff\xff", 4);
  return std::string("\2\0\0\0", 4) + entry(1, 6, nobody) +
         entry(2, permissions_of_user_1, std::string_view("\1\0\0\0", 4)) + entry(4, 0, nobody) +
         entry(16, 7, nobody) + entry(32, 0, nobody);
}

TEST_F(Keeping, ModeStays) {
  const std::string path = scratch_.Write("f", kOld);
  for (const mode_t mode : {0600U, 0644U, 0664U, 0440U, 0666U, 0777U}) {
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    EXPECT_TRUE(SaveText(path, std::to_string(mode)).Written());
    EXPECT_EQ(StatusOf(path).st_mode & 07777U, mode);
  }
}

TEST_F(Keeping, OwnerAndGroupStay) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root gives files to others";
  const std::string path = scratch_.Write("f", kOld);
  ASSERT_EQ(::chown(path.c_str(), 12, 34), 0);
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  SaveText(path, kNew);
  EXPECT_EQ(StatusOf(path).st_uid, 12U);
  EXPECT_EQ(StatusOf(path).st_gid, 34U);
  EXPECT_EQ(StatusOf(path).st_mode & 07777U, 0640U);
}

TEST_F(Keeping, ExtendedAttributesStay) {
  const std::string path = scratch_.Write("f", kOld);
  if (!SetAttribute(path, "user.origin", "by hand")) GTEST_SKIP() << "no extended attributes here";
  SetAttribute(path, "user.empty", "");
  SaveText(path, kNew, SaveOptions().WithBackup(scratch_.Path("b")));
  for (const char* const name : {"f", "b"}) {
    EXPECT_EQ(Attribute(scratch_.Path(name), "user.origin"), "by hand");
    EXPECT_EQ(Attribute(scratch_.Path(name), "user.empty"), "");
  }
}

TEST_F(Keeping, AccessListStaysAndTheFoldersOwnDoesNotCome) {
  const std::string path = scratch_.Write("f", kOld);
  const std::string other = scratch_.Write("g", kOld);
  if (!SetAttribute(path, "system.posix_acl_access", AccessList(4))) {
    GTEST_SKIP() << "no access lists here";
  }
  SetAttribute(scratch_.Path("."), "system.posix_acl_default", AccessList(7));
  const mode_t mode = StatusOf(path).st_mode;
  SaveText(path, kNew);
  SaveText(other, kNew);
  EXPECT_EQ(Attribute(path, "system.posix_acl_access"), AccessList(4));
  EXPECT_EQ(StatusOf(path).st_mode, mode);
  EXPECT_EQ(Attribute(other, "system.posix_acl_access"), "none");
  EXPECT_EQ(StatusOf(other).st_mode & 07777U, StatusOf(scratch_.Path("g")).st_mode & 07777U);
  SaveText(scratch_.Path("h"), kNew);  // a file that is made has what the folder gives
  EXPECT_NE(Attribute(scratch_.Path("h"), "system.posix_acl_access"), "none");
}

TEST_F(Keeping, BackupGetsTheNameGiven) {
  const std::string path = scratch_.Write("f", kOld);
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  const std::string backup = scratch_.Path("f.old");
  const SaveOptions options = SaveOptions().WithBackup(backup);
  const std::string made = SaveText(path, kNew, options).Backup();
  EXPECT_EQ(made, fs::canonical(backup));
  EXPECT_EQ(ReadFile(backup), kOld);
  EXPECT_EQ(StatusOf(backup).st_mode & 07777U, 0640U);
  EXPECT_EQ(SaveText(path, "", options).Backup(), fs::canonical(backup));
  EXPECT_EQ(ReadFile(backup), kNew);
  EXPECT_EQ(NamesIn(scratch_), "f f.old");
}

TEST_F(Keeping, BackupGetsANameOfItsOwn) {
  const std::string path = scratch_.Write("f", kOld);
  std::string names = "f";
  for (const std::string_view text : {"1", "2", "3"}) {
    const std::string before = ReadFile(path);
    const std::string backup = SaveText(path, text, SaveOptions().WithBackup()).Backup();
    EXPECT_TRUE(std::regex_match(fs::path(backup).filename().string(),
                                 std::regex("f\\.[0-9]{8}T[0-9]{6}Z(-[23])?")))
        << backup;
    EXPECT_EQ(ReadFile(backup), before);
    names += " " + fs::path(backup).filename().string();
  }
  EXPECT_EQ(NamesIn(scratch_), names);
}

TEST_F(Keeping, BackupThatCannotBeMadeStopsTheSave) {
  const std::string path = scratch_.Write("f", kOld);
  fs::create_hard_link(path, scratch_.Path("h"));
  for (const std::string& backup : {path, scratch_.Path("h"), scratch_.Path("no/where")}) {
    try {
      SaveText(path, kNew, SaveOptions().WithBackup(backup));
      ADD_FAILURE() << backup;
    } catch (const Error& error) {
      EXPECT_EQ(error.Code(), ErrorCode::kFile) << error.what();
    }
    EXPECT_EQ(ReadFile(path), kOld);
    EXPECT_EQ(NamesIn(scratch_), "f h");
  }
}

TEST_F(Keeping, BackupDoesNotReplaceWhatIsNoFile) {
  const std::string path = scratch_.Write("f", kOld);
  const std::string pipe = scratch_.Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& name : {pipe, scratch_.Path(".")}) {
    try {
      SaveText(path, kNew, SaveOptions().WithBackup(name));
      ADD_FAILURE() << "saved";
    } catch (const Error& error) {
      EXPECT_EQ(error.what(), path + ": cannot make a backup: " + fs::canonical(name).string() +
                                  " is no regular file");
    }
  }
  EXPECT_TRUE(S_ISFIFO(StatusOf(pipe).st_mode));
  EXPECT_EQ(ReadFile(path), kOld);
  EXPECT_EQ(NamesIn(scratch_), "f pipe");
}

TEST_F(Keeping, BackupMayLieOnAnotherFileSystem) {
  const std::string path = scratch_.Write("f", kOld);
  struct stat memory = {};
  if (::stat("/dev/shm", &memory) != 0 || memory.st_dev == StatusOf(path).st_dev ||
      ::access("/dev/shm", W_OK) != 0) {
    GTEST_SKIP() << "there is no second file system";
  }
  const std::string backup = "/dev/shm/klepur-test-" + std::to_string(::getpid());
  SaveText(path, kNew, SaveOptions().WithBackup(backup));
  EXPECT_EQ(ReadFile(backup), kOld);
  fs::create_symlink(backup, scratch_.Path("l"));
  SaveText(scratch_.Path("l"), "over there\n");
  EXPECT_EQ(ReadFile(backup), "over there\n");
  fs::remove(backup);
}

/// A file that an ordinary user may write, where root made a folder or file that this one may not.
class KeepingAsAUser : public Keeping {
 protected:
  void ExpectRefused(const std::string& path, const std::string& what) {
    try {
      SaveText(path, kNew);
      ADD_FAILURE() << "not refused";
    } catch (const Error& error) {
      EXPECT_EQ(error.what(),
                path + ": cannot " + what + "; the file could only be written in place");
      EXPECT_EQ(error.Code(), ErrorCode::kRefused);
    }
    EXPECT_EQ(ReadFile(path), kOld);
  }

  void ExpectWrittenInPlace(const std::string& path) {
    const struct stat before = StatusOf(path);
    const SaveReport report =
        SaveText(path, kNew, SaveOptions().InPlaceIfNeeded().VerifiedBy({"/bin/cat"}));
    EXPECT_TRUE(report.Written());
    EXPECT_TRUE(report.InPlace());
    EXPECT_EQ(report.VerifierOutput(), kNew);
    EXPECT_EQ(ReadFile(path), kNew);
    EXPECT_EQ(StatusOf(path).st_ino, before.st_ino);
    SaveText(path, "short\n", SaveOptions().InPlaceIfNeeded());
    EXPECT_EQ(ReadFile(path), "short\n");
  }
};

TEST_F(KeepingAsAUser, BitsOfTheModeStayThatWritingTakesAway) {
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0777), 0);
  const test::Unprivileged user;
  if (!user.Holds()) GTEST_SKIP() << "root's rights cannot be let go of";
  const std::string path = scratch_.Write("f", kOld);
  ASSERT_EQ(::chmod(path.c_str(), 04755), 0);
  SaveText(path, kNew);
  EXPECT_EQ(ReadFile(path), kNew);
  EXPECT_EQ(StatusOf(path).st_mode & 07777U, 04755U);
}

TEST_F(KeepingAsAUser, FileThatCannotBeMadeIsNotSaidToBeWrittenInPlace) {
  const std::string path = scratch_.Write("f", kOld);
  ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0555), 0);
  {
    const test::Unprivileged user;
    if (!user.Holds()) GTEST_SKIP() << "root's rights cannot be let go of";
    const std::string step = ": cannot make a file beside it: Permission denied";
    const std::string g = scratch_.Path("g");
    const std::string b = scratch_.Path("b");
    const auto failure = [](const std::string& saved, const SaveOptions& options) {
      try {
        SaveText(saved, kNew, options);
      } catch (const Error& error) {
        EXPECT_EQ(error.Code(), ErrorCode::kFile);
        return std::string(error.what());
      }
      return std::string("saved");
    };
    EXPECT_EQ(failure(g, SaveOptions()), g + step);
    EXPECT_EQ(failure(g, SaveOptions().InPlaceIfNeeded()), g + step);
    EXPECT_EQ(failure(path, SaveOptions().InPlaceIfNeeded().WithBackup(b)),
              path + ": cannot make a backup: " + b + step);
  }
  EXPECT_EQ(NamesIn(scratch_), "f");
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0755), 0);
}

TEST_F(KeepingAsAUser, FolderThatCannotBeReadIsNotFlushed) {
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0333), 0);
  {
    const test::Unprivileged user;
    if (!user.Holds()) GTEST_SKIP() << "root's rights cannot be let go of";
    const std::string path = scratch_.Write("f", kOld);
    EXPECT_EQ(SaveText(path, kNew).Warning(),
              path + ": cannot flush its folder: Permission denied");
    EXPECT_EQ(ReadFile(path), kNew);
  }
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0755), 0);
}

TEST_F(KeepingAsAUser, UnwritableFolderIsRefusedOrWrittenInPlace) {
  const std::string path = scratch_.Write("f", kOld);
  ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0555), 0);
  {
    const test::Unprivileged user;
    if (!user.Holds()) GTEST_SKIP() << "root's rights cannot be let go of";
    ExpectRefused(path, "make a file beside it: Permission denied");
    ExpectWrittenInPlace(path);
  }
  EXPECT_EQ(NamesIn(scratch_), "f");
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0755), 0);
}

TEST_F(KeepingAsAUser, OwnerThatCannotBeKeptIsRefusedOrWrittenInPlace) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root has files of others";
  const std::string path = scratch_.Write("f", kOld);
  ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(::chmod(scratch_.Path(".").c_str(), 0777), 0);
  {
    const test::Unprivileged user;
    if (!user.Holds()) GTEST_SKIP() << "root's rights cannot be let go of";
    ExpectRefused(path, "keep its owner and group: Operation not permitted");
    ExpectWrittenInPlace(path);
  }
  EXPECT_EQ(NamesIn(scratch_), "f");
}

}  // namespace
}  // namespace klepur
