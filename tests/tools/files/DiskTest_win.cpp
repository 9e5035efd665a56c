// A file that somebody holds open cannot be replaced on Windows.
#include <thread>

#include "tests/support/Testing.h"
#include "tools/WindowsApi.h"

namespace tools {

class HeldFileTest : public testing::Test {
 protected:
  HANDLE Hold() const {
    return CreateFileW(ToWide(path_).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
  }
  void Replace() { WriteTextFile(disk_, path_, "neu", ReplacementFile::Durability::Flushed); }

  TemporaryFolder folder_;
  SystemDisk disk_;
  const std::string path_ = folder_.Write("demo.product", "alt");
};

TEST_F(HeldFileTest, IsReplacedWhenItIsLetGoAfterAMoment) {
  const HANDLE held = Hold();
  std::thread holder([held] {
    Sleep(200);
    CloseHandle(held);
  });
  Replace();
  holder.join();
  EXPECT_EQ(folder_.Read("demo.product"), "neu");
}

TEST_F(HeldFileTest, StaysAsItWasWhenItIsNotLetGo) {
  const HANDLE held = Hold();
  EXPECT_THAT(ErrorOf([this] { Replace(); }), HasSubstr(path_));
  CloseHandle(held);
  EXPECT_EQ(folder_.Read("demo.product"), "alt");
  EXPECT_EQ(FindFiles(folder_.Path(), "*", Subfolders::Search).size(), 1U);
}

}  // namespace tools
