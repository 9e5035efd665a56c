#include "model/FileEntries.h"
#include "model/FileEntryFields.h"
#include "tests/support/Testing.h"
#include "tools/SettingsFile.h"

namespace model {

class FileEntriesTest : public testing::Test {
 protected:
  /// The entries of a file with this text.
  FileEntries Read(const std::string& text) {
    const tools::SettingsFile file(text);
    return ReadFileEntries(
        [&](auto section, auto key, auto fallback) { return file.Read(section, key, fallback); });
  }
  static FileEntries WithIds(const std::vector<std::string>& ids) {
    FileEntries entries;
    for (const std::string& id : ids) {
      ICFile entry;
      entry.ID = id;
      entries.Add(entry);
    }
    return entries;
  }
  static std::string Ids(const FileEntries& entries) {
    std::string ids;
    for (const ICFile& entry : entries) ids += entry.ID;
    return ids;
  }
  /// The texts of an entry's fields, each followed by "|".
  static std::string Fields(const ICFile& entry) {
    std::string shown;
    for (const auto& field : FileEntryFields()) shown += FileEntryFieldText(entry, field) + "|";
    return shown;
  }
};

TEST_F(FileEntriesTest, KeepsTheOrderOfInsertionAndRefusesTheSecondOfTwoEqualIds) {
  FileEntries entries = WithIds({"c", "a", "", "b"});
  EXPECT_THAT(tests::ErrorOf([&] { entries.Add(*entries.Find("a")); }),
              testing::HasSubstr("GUID: \"a\""));
  ICFile again = *entries.Find("a");
  entries.Remove("a");
  entries.Remove("nobody");
  entries.Add(again);
  const ICFile* kept = entries.Find("b");
  const FileEntries moved = std::move(entries);
  EXPECT_EQ(Ids(moved), "cba");
  EXPECT_EQ(moved.Count(), 4U);
  EXPECT_EQ(moved.Find("b"), kept);
  EXPECT_EQ(moved.Find("B"), nullptr);
}

TEST_F(FileEntriesTest, WritesAllEntriesAndLeavesSectionsAboveTheCount) {
  tools::SettingsFile file;
  const auto write = [&](auto section, auto key, auto value) { file.Write(section, key, value); };
  WriteFileEntries(write, {});
  EXPECT_EQ(file.Render(), "[Files]\nCount=0\n");
  for (const auto& ids : {std::vector<std::string>{"a", "b", "c"}, {"b", "c"}}) {
    WriteFileEntries(write, WithIds(ids));
    EXPECT_EQ(Read(file.Render()).Count(), ids.size());
  }
  EXPECT_EQ(Ids(Read(file.Render())), "bc");
  EXPECT_EQ(file.Read("File3", "ID", "gone"), "c");
}

TEST_F(FileEntriesTest, StoresFourteenKeysInTheirOrder) {
  std::string text;
  const ICFile entry{"{id}", 2, "C:\\q", "*.*", -1, 2004, "D:\\z", "n", 3, 4, 5, 6, 7, 0};
  WriteFileEntry(
      [&](auto, auto key, auto value) { text.append(key).append("=").append(value) += '\n'; }, 1,
      entry);
  EXPECT_EQ(text,
            "Type=2\nExclude=3\nID={id}\nIncludeChildren=-1\nOverwrite=6\nPermanent=4\n"
            "RegisterPath=7\nSelfRegisterDLL=5\nSourceName=*.*\nSourcePath=C:\\q\n"
            "TargetFolder=2004\nTargetName=n\nTargetSubFolder=D:\\z\nVital=0\n");
  EXPECT_EQ(Fields(*Read("[Files]\nCount=1\n[File1]\n" + text).begin()),
            "2|3|{id}|-1|6|4|7|5|*.*|C:\\q|2004|n|D:\\z|0|");
}

TEST_F(FileEntriesTest, ReadsMissingAndOddValuesLeniently) {
  EXPECT_EQ(Read("").Count(), 0U);
  const std::pair<const char*, const char*> rows[] = {
      {"", "0|0||0|0|0|0|0|||0|||1|"},
      {"Vital=nein\nOverwrite=2.5\nExclude=1.5 \nTargetFolder=38abc\n", "0|2||0|2|0|0|0|||38|||0|"},
      {"Overwrite=-32768\nTargetFolder=2147483647\n", "0|0||0|-32768|0|0|0|||2147483647|||1|"}};
  for (const auto& [text, fields] : rows) {
    EXPECT_EQ(Fields(*Read(std::string("[Files]\nCount= 1 Stück\n[File1]\n") + text).begin()),
              fields);
  }
  for (const char* text :
       {"1\n[File1]\nVital=32768", "1\n[File1]\nTargetFolder=2147483648", "2147483647\n"}) {
    EXPECT_THROW(Read(std::string("[Files]\nCount=") + text), tools::Error) << text;
  }
}

TEST_F(FileEntriesTest, SetsEditableFieldsFromText) {
  FileEntries entries = WithIds({"a"});
  const std::pair<const char*, const char*> edits[] = {{"Type", "2.5"},
                                                       {"Exclude", "1x"},
                                                       {"IncludeChildren", "-32768"},
                                                       {"Overwrite", "wahr"},
                                                       {"Permanent", " 3"},
                                                       {"RegisterPath", "4"},
                                                       {"SelfRegisterDLL", ""},
                                                       {"SourceName", "ä;\""},
                                                       {"SourcePath", "/漢"},
                                                       {"TargetFolder", "2004"},
                                                       {"TargetName", "n"},
                                                       {"TargetSubFolder", "s"},
                                                       {"Vital", "32767"},
                                                       {"ID", "b"}};
  for (const auto& [name, text] : edits) entries.SetField("a", name, text);
  EXPECT_THROW(entries.SetField("a", "Vital", "32768"), tools::Error);
  EXPECT_THROW(entries.SetField("a", "TargetFolder", "-2147483649"), tools::Error);
  entries.SetField("b", "Vital", "1");
  EXPECT_EQ(Fields(*entries.Find("a")), "2|1|a|-32768|0|3|4|0|ä;\"|/漢|2004|n|s|32767|");
}

}  // namespace model
