// The fuzzer compares reads and writes with a simple search; here is where new lines go.
#include "tests/support/Testing.h"
#include "tools/settings/SettingsFile.h"

namespace tools {

TEST(SettingsFileTest, RewritesOnlyTheLinesThatChange) {
  const std::string before =
      "\xEF\xBB\xBF; Kopf\r\n\r\n[A]\r\n; Bemerkung\r\n  Key =  "
      "1\r\nunbekannt\r\n\r\n[B]\r\nx=\xFF";
  SettingsFile file(before);
  EXPECT_FALSE(file.Write("a", "KEY", "1"));
  EXPECT_EQ(file.Render(), before + "\r\n");
  EXPECT_TRUE(file.Write("a", "KEY", "2"));
  EXPECT_TRUE(file.Write("A", "Neu", "3"));
  EXPECT_TRUE(file.Write("C", "Neu", ""));
  EXPECT_EQ(file.Clone()->Render(), file.Render());
  EXPECT_EQ(file.Render(),
            "\xEF\xBB\xBF; Kopf\r\n\r\n[A]\r\n; Bemerkung\r\nKey=2\r\nunbekannt\r\nNeu=3\r\n\r\n"
            "[B]\r\nx=\xFF\r\n\r\n[C]\r\nNeu=\r\n");
}

}  // namespace tools
