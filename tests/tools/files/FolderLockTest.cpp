#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

#include "tests/support/Testing.h"
#include "tools/files/FolderLock.h"

namespace tools {

using std::chrono::milliseconds;

TEST(FolderLockTest, IsWaitedForWhileItsHoldersGoOnWriting) {
  const tests::TemporaryFolder folder;
  std::optional<FolderLock> held(folder.Path());
  // A thread may hold a lock twice on Windows.
  std::thread([&] {
    EXPECT_THAT(tests::ErrorOf([&] { const FolderLock lock(folder.Path(), milliseconds(50)); }),
                testing::HasSubstr(folder.Path()));
  }).join();
  std::atomic<bool> done = false;
  std::thread waiter([&] {
    EXPECT_NO_THROW(FolderLock(folder.Path(), milliseconds(1000)));
    done = true;
  });
  const auto end = std::chrono::steady_clock::now() + milliseconds(1500);
  for (int i = 0; !done && std::chrono::steady_clock::now() < end; ++i) {
    folder.Write(std::to_string(i), "");
    std::this_thread::sleep_for(milliseconds(20));
  }
  EXPECT_FALSE(done);
  held.reset();
  waiter.join();
}

TEST(FolderClaimTest, KeepsASecondOneOutAndNamesTheHolder) {
  const tests::TemporaryFolder folder;
  const std::string path = folder.Path("neu/aus");
  {
    const FolderClaim first(path);
    EXPECT_THAT(
        tests::ErrorOf([&] { const FolderClaim second(path); }),
        AllOf(testing::StartsWith("In den Ordner wird gerade ein anderes Setup geschrieben: "),
              testing::HasSubstr("(Prozess ")));
    EXPECT_TRUE(folder.Holds("neu/aus"));
  }
  EXPECT_FALSE(folder.Holds("neu")) << "what was made for it goes when it is empty";
  {
    const FolderClaim again(path);
    folder.Write("neu/aus/datei", "");
    folder.Write("neu/aus/ordner/tief", "");
    again.Remove("ordner");
    again.Remove("ordner");
  }
  EXPECT_TRUE(folder.Holds("neu/aus/datei"));
  EXPECT_FALSE(folder.Holds("neu/aus/ordner"));
}

}  // namespace tools
