// What only Windows has: a file that somebody keeps to himself.
#include "tests/support/BuildFixture.h"
#include "tools/WindowsApi.h"

namespace engine {

class LockedSourceTest : public tests::BuildFixture {};

TEST_F(LockedSourceTest, IsAnErrorInTheLog) {
  const std::string locked = folder_.Write("quelle/gesperrt.txt", "gesperrt");
  folder_.Write("quelle/frei.txt", "frei");
  product_.AddComponent("A", {tests::TestProduct::Scan(folder_.Path("quelle"), "*.*")});
  const HANDLE holder = CreateFileW(tools::ToWide(locked).c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(holder, INVALID_HANDLE_VALUE);
  for (const bool packaged : {true, false}) {
    options_.packaged = packaged;
    Run();
    EXPECT_THAT(LogLines(), StartsWith("ERROR: Unable to copy file '" + locked + "' to "));
    EXPECT_THAT(Out("Probe.install"),
                AllOf(HasSubstr("%InstallPath%\\frei.txt"), Not(HasSubstr("gesperrt"))));
  }
  CloseHandle(holder);
}

}  // namespace engine
