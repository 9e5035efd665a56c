#include "model/FileEntries.h"
#include "tests/support/Testing.h"
#include "tools/settings/SettingsFile.h"

namespace model {

class FileEntriesTest : public testing::Test {
 protected:
  /// The entries of a file with this text.
  FileEntries Read(const std::string& text) {
    const tools::SettingsFile file(text);
    return ReadFileEntries(
        [&](auto section, auto key, auto fallback) { return file.Read(section, key, fallback); },
        "K.component");
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

// The host of a page takes an absent number that is saved as 0 for no edit.
TEST_F(FileEntriesTest, NumbersAreReadWithANumberAsDefault) {
  for (const FileEntryField& field : FileEntryFields()) {
    const bool isText = std::holds_alternative<std::string ICFile::*>(field.member);
    EXPECT_EQ(field.standard, isText ? "" : field.name == "Vital" ? "1" : "0") << field.name;
  }
}

TEST_F(FileEntriesTest, KeepsOneEntryOfEachId) {
  FileEntries entries = WithIds({"c", "a", "", "b"});
  EXPECT_THAT(ErrorOf([&] { entries.Add(*entries.Find("a")); }), HasSubstr("GUID: \"a\""));
  const ICFile* kept = entries.Find("b");
  TakenFileEntry last = entries.Take("b");
  TakenFileEntry first = entries.Take("c");
  EXPECT_EQ(Ids(entries), "a");
  EXPECT_EQ(first.Entry().ID, "c");
  entries.PutBack(first);
  entries.PutBack(last);
  const FileEntries moved = std::move(entries);
  EXPECT_EQ(Ids(moved), "cab");
  EXPECT_EQ(moved.Count(), 4U);
  EXPECT_EQ(moved.Find("b"), kept);
  EXPECT_EQ(moved.Find("B"), nullptr);
}

TEST_F(FileEntriesTest, ReadsOddValuesLeniently) {
  EXPECT_EQ(Read("").Count(), 0U);
  const std::pair<const char*, const char*> rows[] = {
      {"", "0|0||0|0|0|0|0|||0|||1|"},
      {"Vital=nein\nOverwrite=2.5\nExclude=1.5 \nTargetFolder=38abc\n", "0|2||0|2|0|0|0|||38|||0|"},
      {"Overwrite=-32768\nTargetFolder=2147483647\n", "0|0||0|-32768|0|0|0|||2147483647|||1|"}};
  for (const auto& [text, fields] : rows) {
    EXPECT_EQ(Fields(*Read(std::string("[Files]\nCount= 1 Stück\n[File1]\n") + text).begin()),
              fields);
  }
  EXPECT_THROW(Read("[Files]\nCount=2147483647\n"), tools::Error);
}

TEST_F(FileEntriesTest, ANumberThatDoesNotFitIsAnErrorOfItsPlace) {
  const std::pair<const char*, const char*> rows[] = {
      {"1\n[File1]\nVital=32768",
       "Überlauf: 32768 liegt nicht zwischen -32768 und 32767: K.component ([File1] Vital)"},
      {"-1", "Die Anzahl ist ungültig: K.component ([Files] Count=-1)"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ErrorOf([&] { (void)Read(std::string("[Files]\nCount=") + row.first); }), row.second);
  }
}

TEST_F(FileEntriesTest, StoresEditedFieldsInTheirOrder) {
  FileEntries entries = WithIds({"a"});
  const char* const typed[] = {"2.5", "1x",   "b",   "-32768", "5", " 3", "4",
                               "6",   "ä;\"", "/漢", "2004",   "n", "s",  "wahr"};
  std::size_t at = 0;
  for (const auto& field : FileEntryFields()) entries.SetField("a", field.name, typed[at++]);
  EXPECT_THROW(entries.SetField("a", "Vital", "32768"), tools::Error);
  EXPECT_THROW(entries.SetField("a", "TargetFolder", "-2147483649"), tools::Error);
  entries.SetField("b", "Vital", "1");
  const std::string fields = "2|1|a|-32768|5|3|4|6|ä;\"|/漢|2004|n|s|0|";
  EXPECT_EQ(Fields(*entries.Find("a")), fields);

  tools::SettingsFile file;
  WriteFileEntries([&](auto s, auto key, auto value) { file.Write(s, key, value); }, entries);
  EXPECT_EQ(file.Render(),
            "[Files]\nCount=1\n\n[File1]\nType=2\nExclude=1\nID=a\nIncludeChildren=-32768\n"
            "Overwrite=5\nPermanent=3\nRegisterPath=4\nSelfRegisterDLL=6\nSourceName=\"ä;\"\"\n"
            "SourcePath=/漢\nTargetFolder=2004\nTargetName=n\nTargetSubFolder=s\nVital=0\n");
  EXPECT_EQ(Fields(*Read(file.Render()).begin()), fields);
}

}  // namespace model
