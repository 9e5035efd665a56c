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
  EXPECT_EQ(file.Render(),
            "\xEF\xBB\xBF; Kopf\r\n\r\n[A]\r\n; Bemerkung\r\nKey=2\r\nunbekannt\r\nNeu=3\r\n\r\n"
            "[B]\r\nx=\xFF\r\n\r\n[C]\r\nNeu=\r\n");
}

TEST(SettingsFileTest, RefusesWhatALineCannotHold) {
  SettingsFile file("[A]\nb=c\n");
  for (const char* value : {"zwei\nZeilen", "zwei\rZeilen"}) {
    EXPECT_THROW(file.Write("A", "b", value), Error) << value;
  }
  for (const char* name : {"", " b", "b\t", "b\nc"}) {
    EXPECT_THROW(file.Write("A", name, "x"), Error) << name;
    EXPECT_THROW(file.Write(name, "b", "x"), Error) << name;
  }
  for (const char* key : {"a=b", ";b", "[b"}) EXPECT_THROW(file.Write("A", key, "x"), Error);
  EXPECT_EQ(file.Render(), "[A]\nb=c\n");
}

TEST(SettingsFileTest, ReadsDamagedFilesAsFarAsTheyGo) {
  const std::pair<std::string, const char*> cases[] = {{std::string(1000, '\0'), "d"},
                                                       {"[A]\na=ganz\nb=hal", "hal"},
                                                       {"[A", "d"},
                                                       {"[A]\nb=\"", "\""}};
  for (const auto& [content, value] : cases) {
    EXPECT_EQ(SettingsFile(content).Read("A", "b", "d"), value) << content;
  }
  const std::string wide(100U << 20U, 'x');
  SettingsFile file("[A]\n" + wide + "\nb=da\n");
  EXPECT_EQ(file.Read("A", "b", "d"), "da");
  file.Write("A", "b", "neu");
  EXPECT_EQ(file.Render(), "[A]\n" + wide + "\nb=neu\n");
}

TEST(SettingsFileTest, ManySectionsThatAreAddedAndChangedInTurnKeepTheirLines) {
  const auto name = [](const char* kind, int n) { return kind + std::to_string(n); };
  SettingsFile file("[Files]\nCount=1\n");
  for (int n = 1; n <= 3000; ++n) {
    for (int k = 1; k <= 5; ++k) file.Write(name("File", n), name("Key", k), name("wert", n * k));
    if (n % 2 == 0) file.Write(name("File", n / 2), "Key6", "später");
    if (n % 11 == 0) file.Write(name("File", n), "key2", "geändert");
  }
  SettingsFile replayed;
  file.ReplayWrites(replayed);
  for (const std::string& content : {file.Render(), file.Clone()->Render(), replayed.Render()}) {
    const SettingsFile again(content);
    for (int n = 1; n <= 3000; ++n) {
      const std::string section = name("File", n);
      EXPECT_EQ(again.Read(section, "Key2", ""), n % 11 == 0 ? "geändert" : name("wert", n * 2));
      EXPECT_EQ(again.Read(section, "Key5", ""), name("wert", n * 5));
      EXPECT_EQ(again.Read(section, "Key6", "").empty(), n > 1500) << n;
    }
  }
}

}  // namespace tools
