#include "tests/support/Testing.h"
#include "tools/settings/SettingsStore.h"

namespace tools {

class SettingsStoreTest : public testing::Test {
 protected:
  /// Writes a key of section A through the store.
  void Write(const std::string& key, const std::string& value) {
    store_.Write(path_, "A", key, value);
  }
  /// Another program writes a key.
  void WriteFromOutside(const std::string& key, const std::string& value) {
    SettingsStore(disk_).Write(path_, "A", key, value);
  }
  [[nodiscard]] std::string Stored() const { return folder_.Read("a.product"); }

  TemporaryFolder folder_;
  SystemDisk disk_;
  SettingsStore store_{disk_};
  std::string path_ = folder_.Path("a.product");
};

TEST_F(SettingsStoreTest, ReadsWhatIsOnTheDisk) {
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "d");
  Write("b", "1");
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "1");
  EXPECT_EQ(Stored(), "[A]\nb=1\n");
  EXPECT_THROW(store_.Write(folder_.Path("fehlt/a.product"), "A", "b", "1"), Error);
  folder_.Write("a.product", "[A]\nb=22\n");
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "22");
  DeleteFile(path_);
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "d");
}

TEST_F(SettingsStoreTest, ASessionComparesAFileOnceAndItsWritesAreMadeAtOnce) {
  Write("b", "1");
  const SettingsStore::Session session(store_);
  EXPECT_EQ(store_.Read(path_, "A", "b", ""), "1");
  folder_.Write("a.product", "[A]\nb=22\n");
  EXPECT_EQ(store_.Read(path_, "A", "b", ""), "1");
  Write("c", "3");
  EXPECT_EQ(Stored(), "[A]\nb=22\nc=3\n");
}

TEST_F(SettingsStoreTest, ABatchKeepsWhatOthersWrite) {
  Write("b", "1");
  const auto snapshot = store_.Load(path_);
  {
    SettingsStore::Batch batch(store_);
    Write("b", "2");
    const auto second = store_.Load(path_);
    Write("c", "3");
    EXPECT_EQ(second->Read("A", "c", "fehlt"), "fehlt");
    store_.ForgetRead();
    EXPECT_EQ(store_.Read(path_, "A", "c", ""), "3");
    EXPECT_EQ(Stored(), "[A]\nb=1\n");
    WriteFromOutside("x", "fremd");
    batch.Commit();
  }
  EXPECT_EQ(Stored(), "[A]\nb=2\nx=fremd\nc=3\n");
  EXPECT_EQ(snapshot->Read("A", "b", ""), "1");

  SettingsStore::Batch batch(store_);
  Write("c", "4");
  WriteFromOutside("b", "fremd");
  batch.Commit();
  EXPECT_EQ(Stored(), "[A]\nb=fremd\nx=fremd\nc=4\n") << "what was on disk is not written again";
}

TEST_F(SettingsStoreTest, ABatchCommitsInTheOrderOfFirstWrites) {
  const std::vector<std::string> orders[] = {{"a", "b", "c"}, {"c", "b", "a"}, {"b", "C", "a"}};
  for (const std::vector<std::string>& names : orders) {
    const TemporaryFolder folder;
    FaultyDisk faulty;
    faulty.FailAt(FaultyDisk::Step::Replace, 3);
    SettingsStore store(faulty);
    SettingsStore::Batch batch(store);
    for (const std::string& name : names) store.Write(folder.Path(name), "A", "b", "1");
    store.Write(folder.Path(names[0]), "A", "c", "2");
    EXPECT_THROW(batch.Commit(), Error);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(folder.Holds(names[i]), i < 2) << names[0] << i;
  }
}

// Its time does not tell whether it has changed since.
TEST_F(SettingsStoreTest, AYoungFileIsComparedBeforeItIsWritten) {
  const FileTime later = StampOf(folder_.Write("uhr", "")).modified + std::chrono::years(50);
  for (const bool isOwnWrite : {false, true}) {
    folder_.Write("a.product", "[A]\nb=1\nc=1\n");
    if (isOwnWrite) Write("b", "2");
    SetModificationTime(path_, isOwnWrite ? StampOf(path_).modified : later);
    const auto before = store_.Load(path_);
    const FileStamp stamp = StampOf(path_);
    folder_.Write("a.product", tools::ReplaceAll(Stored(), "c=1", "c=9"));
    SetModificationTime(path_, stamp.modified);
    ASSERT_TRUE(StampOf(path_) == stamp && store_.Load(path_) == before);
    Write("b", "3");
    EXPECT_EQ(Stored(), "[A]\nb=3\nc=9\n") << isOwnWrite;
  }
}

TEST_F(SettingsStoreTest, WhatIsThereButNoFileIsAnErrorUntilItIsOne) {
  folder_.MakeFolder("a.product");
  for (int call = 1; call <= 2; ++call) {
    EXPECT_THAT(ErrorOf([&] { (void)store_.Read(path_, "A", "b", "d"); }),
                HasSubstr(path_ + " (Der Pfad bezeichnet einen Ordner)"));
  }
  EXPECT_THROW(Write("b", "1"), Error);
  EXPECT_TRUE(FolderExists(path_));
  RemoveFolderTree(path_);
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "d");
  EXPECT_EQ(store_.Read(folder_.Write("datei", "") + "/a.product", "A", "b", "d"), "d");
}

TEST_F(SettingsStoreTest, OnlyTheFilesUsedLastStayInMemory) {
  const std::string filler(25U << 20U, 'x');
  Write("b", "1");
  const auto product = store_.Load(path_);
  std::vector<std::weak_ptr<const SettingsFile>> seen;
  for (const std::string name : {"0", "1", "2", "3", "4"}) {
    folder_.Write(name, "[A]\nb=" + name + "\n; " + filler + "\n");
    const auto large = store_.Load(folder_.Path(name));
    EXPECT_EQ(large->Read("A", "b", ""), name);
    EXPECT_EQ(store_.Load(path_), product) << name;
    EXPECT_EQ(store_.Load(folder_.Path(name)), large) << name;
    seen.push_back(large);
  }
  EXPECT_TRUE(seen.front().expired());
}

}  // namespace tools
