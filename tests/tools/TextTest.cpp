#include "tests/support/Testing.h"
#include "tools/Text.h"

namespace tools {

using testing::ElementsAre;

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

TEST(TextTest, TrimsReplacesAndSplits) {
  EXPECT_EQ(TrimBlanks(" \ta b\t "), "a b");
  EXPECT_EQ(TrimBlanks("\n a"), "\n a");
  EXPECT_EQ(TrimBlanks(" \t "), "");
  EXPECT_EQ(ReplaceAll("%t% und %t%, %T%", "%t%", "%t%%t%"), "%t%%t% und %t%%t%, %T%");
  EXPECT_EQ(ReplaceAll("aaa", "aa", ""), "a");
  EXPECT_THAT(SplitList("a;\"b;c\";d", ';', '"'), ElementsAre("a", "\"b;c\"", "d"));
  EXPECT_THAT(SplitList("\"b;c;d", ';', '"'), ElementsAre("\"b", "c", "d")) << "an open quote";
  EXPECT_THAT(SplitList("5\"; \t\"a;3\"", ';', '"'), ElementsAre("5\"", " \t\"a;3\""));
  EXPECT_THAT(SplitList("a;;", ';', '"'), ElementsAre("a", "", ""));
  EXPECT_THAT(SplitList("", ';', '"'), ElementsAre());
}

TEST(TextTest, ControlCharactersAreFoundAndEscaped) {
  const std::string plain = "Größe \xC2\xA0\xE2\x80\xA7 \xFF";
  EXPECT_FALSE(HasControlCharacter(plain));
  EXPECT_EQ(EscapeControlCharacters(plain), plain);
  for (const auto& [text, escaped] : {std::pair{"a\nb", "a\\u000Ab"},
                                      {"\x1B", "\\u001B"},
                                      {"\x7F", "\\u007F"},
                                      {"ä\xC2\x80", "ä\\u0080"},
                                      {"\xC2\x9F", "\\u009F"},
                                      {"\xE2\x80\xA8", "\\u2028"},
                                      {"\xE2\x80\xA9\r", "\\u2029\\u000D"}}) {
    EXPECT_TRUE(HasControlCharacter(text)) << escaped;
    EXPECT_EQ(EscapeControlCharacters(text), escaped);
  }
}

}  // namespace tools
