#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"
#include "tools/SettingsStore.h"

namespace tools {
namespace {

/// Rights do not bind the superuser: acts as a user without any while it lives.
class OrdinaryUser {
 public:
  OrdinaryUser() : superuser_(::geteuid() == 0) {
    constexpr uid_t kNobody = 65534;
    if (superuser_) succeeded_ = ::seteuid(kNobody) == 0;
  }
  ~OrdinaryUser() {
    if (superuser_) succeeded_ = ::seteuid(0) == 0;
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  [[nodiscard]] bool Succeeded() const { return succeeded_; }

 private:
  bool superuser_;
  bool succeeded_ = true;
};

class ProtectedSettingsTest : public testing::Test {
 protected:
  void ExpectRefusal(mode_t fileMode, mode_t folderMode) {
    const std::string path = folder_.Write("a.product", "[A]\nb=alt\n");
    ::chmod(path.c_str(), fileMode);
    ::chmod(folder_.Path().c_str(), folderMode);
    {
      const OrdinaryUser user;
      ASSERT_TRUE(user.Succeeded());
      SystemDisk disk;
      SettingsStore store(disk);
      try {
        store.Write(path, "A", "b", "neu");
        ADD_FAILURE() << "no error";
      } catch (const Error& error) {
        EXPECT_NE(std::string(error.what()).find(folder_.Path()), std::string::npos);
        EXPECT_EQ(error.Cause(), std::errc::permission_denied) << error.what();
      }
    }
    ::chmod(folder_.Path().c_str(), 0755);
    EXPECT_EQ(folder_.Read("a.product"), "[A]\nb=alt\n");
    EXPECT_EQ(FindFiles(folder_.Path(), "*", true).size(), 1U);
  }

  tests::TemporaryFolder folder_;
};

TEST_F(ProtectedSettingsTest, AReadOnlyFolderIsAnErrorThatNamesThePath) {
  ExpectRefusal(0644, 0555);
}

TEST_F(ProtectedSettingsTest, AReadOnlyFileIsNotReplacedByARename) { ExpectRefusal(0444, 0777); }

}  // namespace
}  // namespace tools
