#include <sys/resource.h>

#include "engine/SettingsText.h"
#include "tests/support/Testing.h"
#include "tools/settings/SettingsFile.h"

namespace engine {

// Sanitizers keep memory of their own beside the program's.
#ifdef __SANITIZE_ADDRESS__
constexpr bool kIsMeasured = false;
#else
constexpr bool kIsMeasured = true;
#endif

// In KiB. Means something in a process of its own.
long MostMemory() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

TEST(SettingsMemoryTest, StaysWithinEightTimesAFileOfNothingButNames) {
  if (!kIsMeasured) GTEST_SKIP();
  constexpr std::size_t kBytes = std::size_t{6} << 20U;
  std::string text;
  for (std::size_t i = 0; text.size() < kBytes; ++i) text += i % 16 == 0 ? "[a]\na=\n" : "[]\n";
  const long before = MostMemory();
  const tools::SettingsFile file(text);
  EXPECT_EQ(file.Read("A", "a", "fehlt"), "");
  EXPECT_GT(FindDuplicates(file.Render()).count, kBytes / 4);
  EXPECT_LT(MostMemory() - before, static_cast<long>(8 * text.size() / 1024));
}

}  // namespace engine
