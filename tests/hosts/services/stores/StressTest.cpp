// Several processes at one file, and processes killed while they write.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <set>

#include "Child.h"
#include "WatchedStore.h"
#include "support/Folder.h"

namespace wayfell {
namespace {

using Clock = std::chrono::steady_clock;

// In memory where there is such a place: none of this is about a loss of power, and tens of
// thousands of writes wait long for a disk.
std::filesystem::path quickPlace() {
  const std::filesystem::path memory = "/dev/shm";
  return access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
}

std::int64_t integerIn(const SqliteStore& store, const std::string& key) {
  const PropertyValue* const value = store.find(key);
  return value != nullptr ? value->integerValue() : 0;
}

TEST(Stress, TwoWritersLoseNothingAndNoPairIsTorn) {
  constexpr int kWrites = 10'000;
  const std::string names[] = {"app", "widget"};
  const Folder folder(quickPlace());
  const auto file = folder / "suite.db";
  std::set<pid_t> writers;
  for (const std::string& name : names) {
    writers.insert(startWorker({"--write-pairs", file, name, std::to_string(kWrites)}));
  }

  std::uint64_t turn = 0;
  WatchedStore seen(file, SqliteStore::Access::readOnly, [&turn] { return turn; });
  std::set<std::int64_t> states;
  std::map<std::string, std::int64_t> before;
  while (!writers.empty()) {
    ++turn;
    for (const std::string& name : names) {
      const std::int64_t a = integerIn(seen.store, name + ".a");
      ASSERT_EQ(a, integerIn(seen.store, name + ".b"));
      ASSERT_GE(a, before[name]);
      before[name] = a;
      states.insert(a);
    }
    int status = 0;
    const pid_t ended = waitpid(-1, &status, WNOHANG);
    if (ended > 0) {
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
      writers.erase(ended);
    }
  }
  EXPECT_GT(states.size(), 10U) << "the reader did not read while others wrote";

  ++turn;
  for (const std::string& name : names) {
    EXPECT_EQ(integerIn(seen.store, name + ".a"), kWrites);
    for (int i = 0; i < 100; ++i) {
      const std::int64_t last = i == 0 ? kWrites : kWrites - 100 + i;
      EXPECT_EQ(integerIn(seen.store, name + "." + std::to_string(i)), last);
    }
  }
  EXPECT_TRUE(seen.warnings.empty()) << seen.warnings.front();
}

// The last number of which the whole line has been printed.
std::int64_t lastOf(const std::string& lines) {
  std::int64_t last = 0;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = lines.find('\n', begin)) != std::string::npos; begin = end + 1) {
    last = std::stoll(lines.substr(begin));
  }
  return last;
}

TEST(Stress, EveryAcknowledgedWriteOutlivesAKill) {
  const Folder folder(quickPlace());
  const auto file = folder / "suite.db";
  std::mt19937 random(1);
  std::int64_t saved = 0;
  int killedAtWork = 0;
  for (int round = 0; round < 200; ++round) {
    const OwnFile printed = temporaryFile();
    const pid_t writer = startWorker({"--count", file}, printed.get());
    // Every other one is let begin; the others may be killed while they open the file.
    struct stat status {};
    while (round % 2 == 0 && status.st_size == 0) fstat(fileno(printed.get()), &status);
    const auto life = std::chrono::microseconds(random() % (round % 2 == 0 ? 1000 : 20'000));
    for (const auto end = Clock::now() + life; Clock::now() < end;) {
    }
    kill(writer, SIGKILL);
    ASSERT_EQ(statusOf(writer), -1);
    const std::int64_t acknowledged = std::max(saved, lastOf(contentsOf(printed.get())));
    killedAtWork += acknowledged > saved ? 1 : 0;

    WatchedStore found(file);
    const std::int64_t n = integerIn(found.store, "n");
    ASSERT_GE(n, acknowledged);
    ASSERT_LE(n, acknowledged + 1);  // saved, and killed before it was said
    ASSERT_EQ(n, integerIn(found.store, "n.again"));
    ASSERT_TRUE(found.warnings.empty()) << found.warnings.front();
    saved = n;
  }
  EXPECT_GE(killedAtWork, 100);
}

// All at once make the file and its folders, or find it damaged: each finds what all have written,
// the damaged file is kept once, and nobody's new file is taken for it.
TEST(Stress, ManyBeginOneFile) {
  const std::string damaged = "This is no database, whatever its name says.";
  for (int round = 0; round < 10; ++round) {
    const bool isDamaged = round % 2 == 0;
    const Folder folder(quickPlace());
    const auto file = isDamaged ? folder / "suite.db" : folder / "new/folder/suite.db";
    if (isDamaged) putBytes(file, damaged);
    std::vector<pid_t> writers;
    for (int i = 0; i < 8; ++i) {
      writers.push_back(startWorker({"--write-pairs", file, std::to_string(i), "1"}));
    }
    std::multiset<int> statuses;
    for (const pid_t writer : writers) statuses.insert(statusOf(writer));
    EXPECT_EQ(statuses.count(2), isDamaged ? 1U : 0U);  // who warned
    EXPECT_EQ(statuses.count(0), isDamaged ? 7U : 8U);
    WatchedStore found(file);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(integerIn(found.store, std::to_string(i) + ".a"), 1);
    const auto kept = putAsideIn(file.parent_path());
    EXPECT_EQ(kept.size(), isDamaged ? 1U : 0U);
    for (const auto& one : kept) EXPECT_EQ(bytesOf(one), damaged);
  }
}

}  // namespace
}  // namespace wayfell
