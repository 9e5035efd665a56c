#include "tests/support/Testing.h"
#include "tools/files/Names.h"

namespace tools {

TEST(NamesTest, CleansFolderNames) {
  const std::pair<const char*, const char*> rows[] = {
      {"a<b>c:d\"e/f\\g|h?i*j\tk", "a_b_c_d_e_f_g_h_i_j_k"},
      {" Größe 漢 v1.0. . ", " Größe 漢 v1.0"},
      {"a\xFF", "a_"},
      {"CON", "CON_"},
      {"LPT³", "LPT³_"},
      {"COM10", "COM10"},
      {"CONSOLE", "CONSOLE"},
      {"nul.tar.gz", "nul_.tar.gz"},
      {"Com1 .txt", "Com1_ .txt"}};
  for (const auto& [text, name] : rows) EXPECT_EQ(CleanFolderName(text, "X", 0, "_"), name);
  for (const char* nothing : {"", " . ", ".."}) {
    EXPECT_EQ(CleanFolderName(nothing, "X", 0, "_"), "X") << nothing;
  }
  EXPECT_EQ(CleanFolderName("AUX", "X", 3, "_"), "AU_");
  EXPECT_EQ(CleanFolderName("AUX", "X", 0, ""), "AUX_");
  EXPECT_EQ(CleanFolderName("console", "X", 3, "_"), "co_") << "a device name made by the cut";
  EXPECT_EQ(CleanFolderName("aüb", "X", 2, "_"), "a");
  EXPECT_EQ(CleanFolderName("ab. c", "X", 4, "_"), "ab");
  EXPECT_EQ(CleanFolderName("a" + std::string(400, 'b'), "X", 0, "_").size(), 255U);
}

TEST(NamesTest, TellsPortableFileNames) {
  EXPECT_EQ(CleanFileName(".."), "_");
  for (const char* name : {"Prüfung 1.txt", ".product"}) EXPECT_TRUE(IsPortableFileName(name));
  for (const char* name : {"", "a.", "a/b", "a\\b", "..", "prn.txt"}) {
    EXPECT_FALSE(IsPortableFileName(name)) << name;
  }
}

}  // namespace tools
