// What the system refuses to write: a full disk and a protected file, as this system has them.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <random>
#include <sstream>

#include "base/safe_file.h"
#include "resfile/res_file.h"
#include "tests/support/temporary_folder.h"

namespace morvane {
namespace {

TEST(Saving, LeavesTheOldFileWhereTheDiskIsFull) {
  const TemporaryFolder folder;
  std::ostringstream log;
  const resFile file(log);
  const std::vector<double> values = {1, 2, 3, 4};
  const std::string old = folder.file("old.res");
  std::ofstream(old) << "old";
  // A limit on the size of files stands for the full disk.
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small = {100, limit.rlim_max};
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const std::string reason = file.writeRegion(values, 2, 2, old);
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
  // To the superuser nothing is protected, so the attempt is made as nobody.
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

TEST(Saving, KilledAtAnyMomentLeavesTheOldFileOrTheNew) {
  const TemporaryFolder folder;
  const std::string target = folder.file("copy.res");
  const std::string contents[] = {std::string(3'000'000, 'a'), std::string(2'000'000, 'b')};
  std::ofstream(target) << contents[0];
  std::mt19937 random(7);  // NOLINT(bugprone-random-generator-seed): the same moments every time
  constexpr int kMoments = 200;
  int replaced = 0;
  for (int i = 0; i < kMoments; ++i) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (int turn = i;; ++turn) {
        SafeFile file(target);
        file.write(contents[turn % 2].data(), contents[turn % 2].size());
        (void)file.commit();
      }
    }
    usleep(std::uniform_int_distribution<useconds_t>(0, 6000)(random));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string found = contentOf(target);
    ASSERT_TRUE(found == contents[0] || found == contents[1]) << found.size() << " bytes";
    replaced += found == contents[1] ? 1 : 0;
  }
  EXPECT_GT(replaced, 0);
  EXPECT_LT(replaced, kMoments);
  removeAbandoned(folder.path().string());
  EXPECT_EQ(folder.entries(), 1);
}

}  // namespace
}  // namespace morvane
