#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/FileEntries.h"
#include "model/FileEntryFields.h"
#include "tools/Error.h"
#include "tools/SettingsFile.h"

namespace model {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

class FileEntriesTest : public testing::Test {
 protected:
  [[nodiscard]] SettingReader Reader() const {
    return [this](auto section, auto key, auto fallback) {
      return file_.Read(section, key, fallback);
    };
  }
  SettingWriter Writer() {
    return [this](auto section, auto key, auto value) { file_.Write(section, key, value); };
  }
  static ICFile Entry(const std::string& id) {
    ICFile entry;
    entry.ID = id;
    return entry;
  }
  static std::string Ids(const FileEntries& entries) {
    std::string ids;
    for (const ICFile& entry : entries) ids += entry.ID;
    return ids;
  }

  tools::SettingsFile file_;
};

TEST_F(FileEntriesTest, KeepsTheOrderOfInsertionAndRefusesTheSecondOfTwoEqualIds) {
  FileEntries entries;
  for (const char* id : {"c", "a", "", "b"}) entries.Add(Entry(id));
  EXPECT_THAT([&] { entries.Add(Entry("a")); },
              ThrowsMessage<tools::Error>(HasSubstr("GUID: \"a\"")));
  entries.Remove("a");
  entries.Remove("nobody");
  entries.Add(Entry("a"));
  entries.Add(Entry("A"));
  const ICFile* kept = entries.Find("b");
  const FileEntries moved = std::move(entries);
  EXPECT_EQ(Ids(moved), "cbaA");
  EXPECT_EQ(moved.Count(), 5U);
  EXPECT_EQ(moved.Find("b"), kept);
  EXPECT_EQ(moved.Find("nobody"), nullptr);
}

TEST_F(FileEntriesTest, WritesAllEntriesAndLeavesSectionsAboveTheCount) {
  WriteFileEntries(Writer(), {});
  EXPECT_EQ(file_.Render(), "[Files]\nCount=0\n");
  FileEntries entries;
  for (const char* id : {"a", "b", "c"}) entries.Add(Entry(id));
  WriteFileEntries(Writer(), entries);
  entries.Remove("a");
  WriteFileEntries(Writer(), entries);
  EXPECT_EQ(Ids(ReadFileEntries(Reader())), "bc");
  EXPECT_EQ(file_.Read("File3", "ID", "gone"), "c");
}

TEST_F(FileEntriesTest, ReadsWhatIsMissingAsTheEditorDoes) {
  EXPECT_EQ(ReadFileEntries(Reader()).Count(), 0U);
  file_.Write("Files", "Count", "1 and more");
  const FileEntries entries = ReadFileEntries(Reader());
  EXPECT_EQ(entries.begin()->Type, 0);
  EXPECT_EQ(entries.begin()->Vital, 1);
}

TEST_F(FileEntriesTest, StopsReadingAtEqualIdsAndOverflows) {
  file_.Write("Files", "Count", "2147483647");
  EXPECT_THROW((void)ReadFileEntries(Reader()), tools::Error);
  file_.Write("Files", "Count", "1");
  file_.Write("File1", "Vital", "32768");
  EXPECT_THROW((void)ReadFileEntries(Reader()), tools::Error);
}

TEST_F(FileEntriesTest, SetsEditableFieldsFromText) {
  FileEntries entries;
  entries.Add(Entry("a"));
  const std::pair<const char*, const char*> edits[] = {
      {"Type", "2.5"},          {"Exclude", "1x"},      {"IncludeChildren", "-32768"},
      {"Overwrite", "wahr"},    {"Permanent", " 3"},    {"RegisterPath", "4"},
      {"SelfRegisterDLL", ""},  {"SourceName", "ä;\""}, {"SourcePath", "/漢"},
      {"TargetFolder", "2004"}, {"TargetName", "n"},    {"TargetSubFolder", "s"},
      {"Vital", "32767"}};
  for (const auto& [name, text] : edits) entries.SetField("a", name, text);
  std::string shown;
  for (const FileEntryField& field : FileEntryFields()) {
    shown += FileEntryFieldText(*entries.Find("a"), field) + "|";
  }
  EXPECT_EQ(shown, "2|1|a|-32768|0|3|4|0|ä;\"|/漢|2004|n|s|32767|");

  EXPECT_THROW(entries.SetField("a", "Vital", "32768"), tools::Error);
  EXPECT_THROW(entries.SetField("a", "TargetFolder", "-2147483649"), tools::Error);
  entries.SetField("a", "ID", "b");
  entries.SetField("b", "Vital", "1");
  EXPECT_EQ(entries.Find("a")->Vital, 32767);
  EXPECT_EQ(entries.Find("a")->TargetFolder, 2004);
}

}  // namespace
}  // namespace model
