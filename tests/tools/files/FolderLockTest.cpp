#include <atomic>
#include <chrono>
#include <optional>
#include <thread>

#include "tests/support/Testing.h"
#include "tools/files/FolderLock.h"

namespace tools {

using std::chrono::milliseconds;

TEST(FolderLockTest, IsWaitedForWhileItsHoldersGoOnWriting) {
  const TemporaryFolder folder;
  std::optional<FolderLock> held(folder.Path());
  // A thread may hold a lock twice on Windows.
  std::thread([&] {
    EXPECT_THAT(ErrorOf([&] { const FolderLock lock(folder.Path(), milliseconds(50)); }),
                HasSubstr(folder.Path()));
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

}  // namespace tools
