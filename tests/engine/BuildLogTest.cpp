#include "engine/BuildLog.h"
#include "tests/support/BuildFixture.h"

namespace engine {

class BuildLogTest : public tests::BuildFixture {};

TEST_F(BuildLogTest, IsWrittenAsItGrows) {
  FaultyDisk faulty;
  BuildLog log(clock_, *this);
  log.BeginBuildLog();
  log.WriteTo(faulty, folder_.Path("build.log"));
  faulty.FailAt(FaultyDisk::Step::Write, 3);
  const auto fillUp = [&] {
    for (int i = 0; i < 1000; ++i) log.LogWarning(std::string(1000, 'x'), {}, {});
  };
  EXPECT_THAT(ErrorOf(fillUp), HasSubstr(folder_.Path("build.log")));
  EXPECT_LT(log.WarningCount(), 300);
}

}  // namespace engine
