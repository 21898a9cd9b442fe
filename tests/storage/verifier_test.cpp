#include <klepur/storage/verifier.h>

#include <gtest/gtest.h>
#include <klepur/storage/stored_file.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/storage/command.h"
#include "tests/storage/folder.h"
#include "tests/support/files.h"

namespace klepur {
namespace {

using std::chrono::milliseconds;
using test::kNew;
using test::kOld;
using test::NamesIn;
using test::ReadFile;

class Verifying : public ::testing::Test {
 protected:
  Verifying() : path_(scratch_.Write("f", kOld)) {}

  SaveReport Save(std::vector<std::string> command,
                  milliseconds limit = std::chrono::seconds(60)) const {
    return SaveText(path_, kNew, SaveOptions().VerifiedBy(std::move(command), limit));
  }

  /// Expects a save that a script stops; gives its output.
  std::string Rejection(const std::string& script, const std::string& how,
                        milliseconds limit = std::chrono::seconds(60)) const {
    try {
      Save({"/bin/sh", "-c", script, "sh"}, limit);
      ADD_FAILURE() << "accepted";
    } catch (const RejectedText& rejected) {
      EXPECT_EQ(rejected.what(),
                path_ + ": the verifier /bin/sh did not accept the new text: " + how);
      EXPECT_EQ(rejected.Code(), ErrorCode::kRejected);
      EXPECT_EQ(ReadFile(path_), kOld);
      EXPECT_EQ(NamesIn(scratch_), "f");
      return rejected.Output();
    }
    return {};
  }

  test::ScratchFolder scratch_;
  const std::string path_;
};

TEST_F(Verifying, AcceptedTextIsSavedAndTheOutputHandedOver) {
  const SaveReport report =
      Save({"/bin/sh", "-c", "cat \"$1\"; echo fine >&2; pwd >/dev/null", "sh"});
  EXPECT_EQ(report.VerifierOutput(), std::string(kNew) + "fine\n");
  EXPECT_EQ(ReadFile(path_), kNew);
}

TEST_F(Verifying, ProgramIsLookedForInThePath) {
  EXPECT_TRUE(Save({"true"}).Written());
}

TEST_F(Verifying, OldTextStandsUntilTheNewOneIsAccepted) {
  EXPECT_EQ(Save({"/bin/sh", "-c", "cat " + path_ + "; cat \"$1\"", "sh"}).VerifierOutput(),
            std::string(kOld) + std::string(kNew));
}

TEST_F(Verifying, RejectedTextIsNotSaved) {
  EXPECT_EQ(Rejection("echo line 3 is wrong; exit 7", "it ended with 7"), "line 3 is wrong\n");
  EXPECT_EQ(Rejection("kill -TERM $$", "it was ended by Terminated"), "");
}

TEST_F(Verifying, VerifierThatTakesTooLongIsKilledWithWhatItStarted) {
  const auto start = std::chrono::steady_clock::now();
  const std::string process =
      Rejection("sleep 100 & echo $!; sleep 100", "it took too long", milliseconds(2000));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  const int sleeper = std::atoi(process.c_str());
  ASSERT_GT(sleeper, 1);
  for (int i = 0; i != 500 && ::kill(sleeper, 0) == 0; ++i) {
    const std::string status =
        ReadFile("/proc/" + process.substr(0, process.size() - 1) + "/status");
    if (status.find("State:\tZ") != std::string::npos) return;  // dead, and nobody waits for it
    ::usleep(10000);
  }
  EXPECT_NE(::kill(sleeper, 0), 0);
}

TEST_F(Verifying, EndlessOutputIsCutAndItsTimeLimited) {
  const std::string output =
      Rejection("while :; do echo yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy; done",
                "it took too long", milliseconds(500));
  EXPECT_LE(output.size(), std::size_t{1} << 20);
  EXPECT_EQ(Rejection("head -c 3000000 /dev/zero; exit 1", "it ended with 1").size(),
            std::size_t{1} << 20);
}

TEST_F(Verifying, WhatItLeavesRunningIsNotWaitedFor) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(Save({"/bin/sh", "-c", "sleep 20 & exit 0", "sh"}).Written());
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_F(Verifying, WhatItMakesOfTheTextIsNotSaved) {
  const std::string stop =
      path_ + ": cannot use the file beside it: somebody else changed it meanwhile";
  for (const char* const script : {"echo '# checked' >>\"$1\"", "sed -i s/3600/60/ \"$1\"",
                                   "rm \"$1\"", "cp \"$1\" \"$1.copy\"; mv \"$1.copy\" \"$1\""}) {
    try {
      Save({"/bin/sh", "-c", script, "sh"});
      ADD_FAILURE() << script;
    } catch (const Error& error) {
      EXPECT_EQ(error.what(), stop) << script;
    }
    EXPECT_EQ(ReadFile(path_), kOld) << script;
    EXPECT_EQ(NamesIn(scratch_), "f") << script;
  }
}

TEST_F(Verifying, ModeThatItGivesTheFileIsNotKept) {
  EXPECT_TRUE(Save({"/bin/chmod", "777"}).Written());
  EXPECT_NE(std::filesystem::status(path_).permissions(), std::filesystem::perms::all);
}

TEST_F(Verifying, SaverThatItKillsLeavesTheOldText) {
  scratch_.Write("kill", "#!/bin/sh\nkill -9 $PPID\n");
  std::filesystem::permissions(scratch_.Path("kill"), std::filesystem::perms::owner_all);
  const std::string save = test::Saver("save " + path_ + " new verify=");
  EXPECT_EQ(test::RunShell(save + scratch_.Path("kill")).status, 128 + SIGKILL);
  EXPECT_EQ(ReadFile(path_), kOld);
  EXPECT_EQ(test::RunShell(save + "true").output, "written\n\n");
  EXPECT_EQ(ReadFile(path_), "new");
  EXPECT_EQ(NamesIn(scratch_), "f kill");
}

TEST_F(Verifying, InputIsEmpty) {
  EXPECT_EQ(Save({"/bin/sh", "-c", "cat", "sh"}).VerifierOutput(), "");
}

TEST_F(Verifying, ProgramThatCannotBeRunStopsTheSave) {
  try {
    Save({"/no/such/program"});
    ADD_FAILURE() << "saved";
  } catch (const Error& error) {
    EXPECT_EQ(error.what(),
              path_ + ": cannot run the verifier /no/such/program: No such file or directory");
    EXPECT_EQ(error.Code(), ErrorCode::kFile);
  }
  EXPECT_EQ(ReadFile(path_), kOld);
  EXPECT_EQ(NamesIn(scratch_), "f");
}

}  // namespace
}  // namespace klepur
