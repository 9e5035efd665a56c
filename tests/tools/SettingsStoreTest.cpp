#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/FaultyDisk.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"
#include "tools/SettingsStore.h"

namespace tools {
namespace {

class SettingsStoreTest : public testing::Test {
 protected:
  tests::TemporaryFolder folder_;
  SystemDisk disk_;
  SettingsStore store_{disk_};
  std::string path_ = folder_.Path("a.product");
};

TEST_F(SettingsStoreTest, WritesAreOnDiskAndVisibleAtOnce) {
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "d");
  store_.Write(path_, "A", "b", "1");
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "1");
  EXPECT_EQ(folder_.Read("a.product"), "[A]\nb=1\n");
  EXPECT_THROW(store_.Write(folder_.Path("fehlt/a.product"), "A", "b", "1"), Error);
}

TEST_F(SettingsStoreTest, SeesChangesFromOutside) {
  store_.Write(path_, "A", "b", "1");
  folder_.Write("a.product", "[A]\nb=22\n");
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "22");
  DeleteFile(path_);
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "d");
}

TEST_F(SettingsStoreTest, ABatchReplacesTheFileOnceAndKeepsOthersSettings) {
  store_.Write(path_, "A", "b", "1");
  {
    SettingsStore::Batch batch(store_);
    store_.Write(path_, "A", "b", "2");
    store_.Write(path_, "A", "c", "3");
    EXPECT_EQ(store_.Read(path_, "A", "c", ""), "3");
    EXPECT_EQ(folder_.Read("a.product"), "[A]\nb=1\n");
    // Another program writes another key meanwhile.
    SettingsStore other(disk_);
    other.Write(path_, "A", "x", "fremd");
    batch.Commit();
  }
  EXPECT_EQ(folder_.Read("a.product"), "[A]\nb=2\nx=fremd\nc=3\n");
}

TEST_F(SettingsStoreTest, AWriteThatIsOnDiskIsNotRepeatedOverALaterOne) {
  store_.Write(path_, "A", "b", "1");
  SettingsStore other(disk_);
  SettingsStore::Batch batch(store_);
  store_.Write(path_, "A", "c", "1");
  other.Write(path_, "A", "b", "fremd");
  batch.Commit();
  EXPECT_EQ(folder_.Read("a.product"), "[A]\nb=fremd\nc=1\n");
}

TEST_F(SettingsStoreTest, ABatchWithoutCommitChangesNothing) {
  store_.Write(path_, "A", "b", "1");
  {
    SettingsStore::Batch batch(store_);
    store_.Write(path_, "A", "b", "2");
    store_.Write(folder_.Path("neu"), "A", "b", "2");
  }
  EXPECT_EQ(store_.Read(path_, "A", "b", ""), "1");
  EXPECT_FALSE(folder_.Holds("neu"));
}

TEST_F(SettingsStoreTest, ASnapshotStaysAsItWas) {
  store_.Write(path_, "A", "b", "1");
  const auto snapshot = store_.Load(path_);
  SettingsStore::Batch batch(store_);
  store_.Write(path_, "A", "b", "2");
  const auto second = store_.Load(path_);
  store_.Write(path_, "A", "c", "3");
  batch.Commit();
  EXPECT_EQ(snapshot->Read("A", "b", ""), "1");
  EXPECT_EQ(second->Read("A", "c", "fehlt"), "fehlt");
  EXPECT_EQ(folder_.Read("a.product"), "[A]\nb=2\nc=3\n");
}

TEST_F(SettingsStoreTest, AFailureAtAnyStepLeavesTheOldFileAndNothingBeside) {
  const std::string before = "[A]\nb=alt\n";
  folder_.Write("a.product", before);
  for (const auto step : {tests::FaultyDisk::Step::Create, tests::FaultyDisk::Step::Write,
                          tests::FaultyDisk::Step::Sync, tests::FaultyDisk::Step::Close,
                          tests::FaultyDisk::Step::Replace}) {
    tests::FaultyDisk faulty(disk_);
    faulty.FailAt(step, 1);
    SettingsStore store(faulty);
    try {
      store.Write(path_, "A", "b", "neu");
      ADD_FAILURE() << "no error at step " << static_cast<int>(step);
    } catch (const Error& error) {
      EXPECT_NE(std::string(error.what()).find(folder_.Path()), std::string::npos) << error.what();
    }
    EXPECT_EQ(store.Read(path_, "A", "b", ""), "alt");
    EXPECT_EQ(folder_.Read("a.product"), before);
    EXPECT_EQ(FindFiles(folder_.Path(), "*", true).size(), 1U);
  }
}

TEST_F(SettingsStoreTest, AFolderInTheFilesPlaceReadsAsDefaultAndIsNotReplaced) {
  folder_.MakeFolder("a.product");
  EXPECT_EQ(store_.Read(path_, "A", "b", "d"), "d");
  EXPECT_THROW(store_.Write(path_, "A", "b", "1"), Error);
  EXPECT_TRUE(FolderExists(path_));
}

TEST_F(SettingsStoreTest, ManyFilesAreReadWithoutKeepingThemAll) {
  const std::string filler(3U << 20U, 'x');
  for (int i = 0; i < 12; ++i) {
    const std::string name = std::to_string(i);
    folder_.Write(name, "[A]\nb=" + name + "\n; " + filler + "\n");
    EXPECT_EQ(store_.Read(folder_.Path(name), "A", "b", ""), name);
  }
  EXPECT_EQ(store_.Read(folder_.Path("0"), "A", "b", ""), "0");
}

}  // namespace
}  // namespace tools
