// Damaged files and failing disks, as far as they depend on the system.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <fstream>

#include "base/safe_file.h"
#include "tests/support/reader.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

TEST(Refused, PathsOfNoRegularFileWithoutWaiting) {
  const TemporaryFolder folder;
  const std::string pipe = folder.file("pipe.res");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& path : {folder.path().string(), pipe, folder.file("none.res"),
                                  std::string("/dev/zero"), std::string()}) {
    const Reader reader(path);
    EXPECT_EQ(reader.file.grid(), nullptr) << path;
    EXPECT_NE(reader.log.str().find("ERROR: FILE CANNOT BE OPENED\n  err "), std::string::npos);
  }
}

TEST(Saving, LeavesTheOldFileWhereTheDiskIsFull) {
  const TemporaryFolder folder;
  const std::string old = folder.file("old.res");
  std::ofstream(old) << "old";
  // A limit on the size of files simulates a full disk.
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small = {100, limit.rlim_max};
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  SafeFile file(old);
  file.write(std::string(4000, 'n').data(), 4000);
  const std::string reason = file.commit();
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  std::signal(SIGXFSZ, previous);
  EXPECT_EQ(reason, "File too large");
  EXPECT_EQ(contentOf(old), "old");
  EXPECT_EQ(folder.entries(), 1);
}

TEST(Saving, RefusesAWriteProtectedTarget) {
  const TemporaryFolder folder;
  const std::string target = folder.file("kept.res");
  std::ofstream(target) << "old";
  ASSERT_EQ(chmod(target.c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
  // The superuser may write to protected files, so the test writes as the user "nobody".
  constexpr uid_t kNobody = 65534;
  const uid_t self = geteuid();
  if (self == 0) {
    ASSERT_EQ(seteuid(kNobody), 0);
  }
  SafeFile file(target);
  file.write("new", 3);
  const std::string reason = file.commit();
  ASSERT_EQ(seteuid(self), 0);
  EXPECT_EQ(reason, "Permission denied");
  EXPECT_EQ(contentOf(target), "old");
  EXPECT_EQ(folder.entries(), 1);
}

// The child saves files of 'b', 'c', … and sends the letter through a pipe just before each commit.
TEST(Saving, KilledAtAnyMomentLeavesTheOldFileOrTheNew) {
  const TemporaryFolder folder;
  const std::string target = folder.file("copy.res");
  constexpr std::size_t kBytes = 3'000'000;
  for (int moment = 0; moment < 60; ++moment) {
    std::ofstream(target) << std::string(kBytes, 'a');
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    for (char letter = 'b'; child == 0; ++letter) {
      SafeFile file(target);
      file.write(std::string(kBytes, letter).data(), kBytes);
      if (write(pipe[1], &letter, 1) != 1 || !file.commit().empty()) _exit(1);
    }
    char begun = 'a';
    for (int turn = 0; turn < moment % 4; ++turn) EXPECT_EQ(read(pipe[0], &begun, 1), 1);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    for (const int end : pipe) close(end);
    const std::string found = contentOf(target);
    ASSERT_EQ(found.size(), kBytes);
    EXPECT_EQ(found, std::string(kBytes, found[0]));
    EXPECT_GE(found[0], begun - 1) << "what was saved before";
  }
  removeAbandoned(folder.path().string());
  EXPECT_EQ(folder.entries(), 1);
}

}  // namespace
}  // namespace morvane
