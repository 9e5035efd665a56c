#include "tests/support/Testing.h"

namespace tools {

TEST(TextTest, CaseIsIgnoredForAllLetters) {
  EXPECT_TRUE(EqualIgnoringCase("ÜBERGRÖSSE.TXT", "übergrösse.txt"));
  EXPECT_TRUE(EqualIgnoringCase("ΣΊΣΥΦΟΣ", "σίσυφος"));
  EXPECT_TRUE(EqualIgnoringCase("10 \xE2\x84\xAA", "10 k")) << "KELVIN SIGN against a letter";
  EXPECT_FALSE(EqualIgnoringCase("Maße", "Masse"));
  EXPECT_FALSE(EqualIgnoringCase("abc", "abcd"));
  EXPECT_FALSE(EqualIgnoringCase("ab", "aü"));
  EXPECT_EQ(LowerCase("ÄPFEL.DLL"), "äpfel.dll");
}

TEST(TextTest, BytesThatAreNotUtf8AreKept) {
  const std::string broken = "\xFF\xC3x\xED\xA0\x80\xC0\xAF\xE2\x84";
  EXPECT_EQ(FoldCase("A" + broken), "a" + broken);
  EXPECT_EQ(LowerCase("A" + broken), "a" + broken);
  EXPECT_FALSE(IsValidUtf8(broken));
  EXPECT_TRUE(IsValidUtf8("aü漢\xF0\x9F\x98\x80"));
}

TEST(TextTest, IsTakenApart) {
  EXPECT_EQ(TrimBlanks(" \ta b\t "), "a b");
  EXPECT_EQ(TrimBlanks("\n a"), "\n a");
  EXPECT_EQ(TrimBlanks(" \t "), "");
  EXPECT_EQ(ReplaceAll("%t% und %t%, %T%", "%t%", "%t%%t%"), "%t%%t% und %t%%t%, %T%");
  EXPECT_EQ(ReplaceAll("aaa", "aa", ""), "a");
  EXPECT_EQ(ReplaceAll("aaa", "", "x"), "aaa");
  EXPECT_THAT(SplitList("a;\"b;c\";d", ';', '"'), ElementsAre("a", "\"b;c\"", "d"));
  EXPECT_THAT(SplitList("\"b;c;d", ';', '"'), ElementsAre("\"b", "c", "d")) << "an open quote";
  EXPECT_THAT(SplitList("5\"; \t\"a;3\"", ';', '"'), ElementsAre("5\"", " \t\"a;3\""));
  EXPECT_THAT(SplitList("a;;", ';', '"'), ElementsAre("a", "", ""));
  EXPECT_THAT(SplitList("", ';', '"'), ElementsAre());
}

}  // namespace tools
