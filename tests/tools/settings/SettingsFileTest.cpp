// The fuzzer compares reads and writes with a simple search; here is where new lines go.
#include <utility>

#include "tests/support/Testing.h"
#include "tools/settings/NameIndex.h"
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

TEST(NameIndexTest, ComparesFewNamesHoweverTheirHashesMeet) {
  // Each pair leads the quick hash to one state: all names made of one half of each have one hash.
  const std::pair<const char*, const char*> halves[] = {
      {"bgpvu", "b13ea"}, {"ajpfs", "a2vja"}, {"amtzx", "a31cd"}, {"aotzx", "a11cd"},
      {"aotzx", "a11cd"}, {"aotzx", "a11cd"}, {"aotzx", "a11cd"}, {"aotzx", "a11cd"},
      {"aotzx", "a11cd"}, {"aotzx", "a11cd"}, {"aotzx", "a11cd"},
  };
  std::vector<std::string> names{""};
  for (const auto& [one, other] : halves) {
    const std::vector<std::string> shorter = std::exchange(names, {});
    for (const std::string& name : shorter) {
      names.push_back(name + one);
      names.push_back(name + other);
    }
  }
  std::size_t looks = 0;
  const auto nameAt = [&](std::uint32_t place) {
    ++looks;
    return std::string_view(names[place]);
  };
  NameIndex index;
  for (std::uint32_t i = 0; i < names.size(); ++i) EXPECT_TRUE(index.Add(names[i], i, nameAt));
  for (std::uint32_t i = 0; i < names.size(); ++i) EXPECT_EQ(index.Find(names[i], nameAt), i);
  EXPECT_LT(looks, 100 * names.size());
}

}  // namespace tools
