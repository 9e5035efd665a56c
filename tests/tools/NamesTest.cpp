#include <gtest/gtest.h>

#include "tools/Names.h"

namespace tools {
namespace {

std::string Clean(std::string_view text) { return CleanFolderName(text, "X", 0, "_"); }

TEST(NamesTest, ReplacesForbiddenCharactersAndCutsTheEnd) {
  EXPECT_EQ(Clean("a<b>c:d\"e/f\\g|h?i*j\tk"), "a_b_c_d_e_f_g_h_i_j_k");
  EXPECT_EQ(Clean(" Größe 漢 v1.0. . "), " Größe 漢 v1.0");
  EXPECT_EQ(Clean("a\xFF"), "a_");
}

TEST(NamesTest, NothingLeftGivesTheNameOfNothing) {
  for (const char* text : {"", " ", ".", "..", " . "}) {
    EXPECT_EQ(Clean(text), "X") << text;
  }
  EXPECT_EQ(CleanFileName(".."), "_");
  EXPECT_EQ(CleanFileName(".product"), ".product");
}

TEST(NamesTest, MakesDeviceNamesSafe) {
  EXPECT_EQ(Clean("CON"), "CON_");
  EXPECT_EQ(Clean("nul.tar.gz"), "nul_.tar.gz");
  EXPECT_EQ(Clean("Com1 .txt"), "Com1_ .txt");
  EXPECT_EQ(Clean("LPT³"), "LPT³_");
  EXPECT_EQ(Clean("CONSOLE"), "CONSOLE");
  EXPECT_EQ(Clean("COM10"), "COM10");
  EXPECT_EQ(CleanFolderName("AUX", "X", 3, "_"), "AU_");
  EXPECT_EQ(CleanFolderName("AUX", "X", 0, ""), "AUX_");
}

TEST(NamesTest, CutsBetweenCharacters) {
  EXPECT_EQ(CleanFolderName("aüb", "X", 2, "_"), "a");
  EXPECT_EQ(CleanFolderName("ab. c", "X", 4, "_"), "ab");
  EXPECT_EQ(CleanFolderName("console", "X", 3, "_"), "co_") << "a device name made by the cut";
  EXPECT_EQ(Clean("a" + std::string(400, 'b')).size(), 255U);
}

TEST(NamesTest, TellsPortableNames) {
  EXPECT_TRUE(IsPortableFileName("Prüfung 1.txt"));
  for (const char* name : {"", "a.", "a/b", "a\\b", "..", "prn.txt"}) {
    EXPECT_FALSE(IsPortableFileName(name)) << name;
  }
}

}  // namespace
}  // namespace tools
