#include "model/ModProjectOperations.h"
#include "model/TextTable.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/FaultyDisk.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/Testing.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"

namespace model {

using testing::ElementsAre;
using tests::FaultyDisk;
using tools::MessageAnswer;

class ModProjectOperationsTest : public testing::Test {
 protected:
  ModProjectOperationsTest() { operations_.Connect(window_, window_); }

  /// An open product with this section of versions.
  void OpenProduct(const std::string& versions) {
    folder_.Write("demo.product", "[General]\nVersion=1.0\n[Versions]\n" + versions);
    ASSERT_TRUE(operations_.OpenProduct(folder_.Path("demo.product")));
  }
  /// Adds a version or component by this answer of the input box.
  void AddVersion(const std::string& answer) {
    dialogs_.ExpectInputBox("Haupt.Neben.Revision", answer);
    operations_.AddVersion();
  }
  void AddComponent(const std::string& answer) {
    dialogs_.ExpectInputBox(LoadText(model::Text::EnterComponentTitle), answer);
    operations_.AddComponent(1);
  }
  void DeleteVersion(MessageAnswer answer, const std::string& shown = "1.0.0") {
    dialogs_.ExpectQuestion(LoadText(model::Text::ConfirmDeletion), answer);
    operations_.DeleteVersion(1, shown);
  }
  [[nodiscard]] std::size_t FileCount() const {
    return tools::FindFiles(folder_.Path(), "*", true).size();
  }

  tests::TemporaryFolder folder_;
  tools::SystemDisk systemDisk_;
  FaultyDisk disk_{systemDisk_};
  tools::SettingsStore store_{disk_};
  ModProject project_{store_};
  tests::ScriptedDialogs dialogs_;
  tests::FixedClock clock_;
  tests::FakeWindow window_;
  ModProjectOperations operations_{project_, disk_, dialogs_, clock_, window_};
};

TEST_F(ModProjectOperationsTest, CreatesAProductAndReplacesOneOnlyWhenTold) {
  EXPECT_FALSE(operations_.NewProduct());
  folder_.Write("demo.product", "alt");
  window_.newProduct = NewProduct{" Demo\t", " Ich ", folder_.Path("demo.product")};
  dialogs_.ExpectQuestion(LoadText(model::Text::ProductFileExists), MessageAnswer::No);
  EXPECT_FALSE(operations_.NewProduct());
  EXPECT_EQ(dialogs_.LastMessage(), LoadText(model::Text::OverwriteWarning) + "|" +
                                        LoadText(model::Text::ProductFileExists));
  EXPECT_EQ(dialogs_.Messages().back().defaultAnswer, MessageAnswer::No);
  EXPECT_EQ(dialogs_.Messages().back().icon, tools::MessageIcon::Exclamation);
  dialogs_.ExpectQuestion(LoadText(model::Text::ProductFileExists), MessageAnswer::Yes);
  disk_.FailAt(FaultyDisk::Step::Write, 1);
  EXPECT_THROW(operations_.NewProduct(), tools::Error);
  EXPECT_EQ(folder_.Read("demo.product"), "alt");

  disk_.FailAt(FaultyDisk::Step::Write, 0);
  window_.newProduct->fileName = folder_.Path("neu/tief/demo.product");
  EXPECT_TRUE(operations_.NewProduct());
  EXPECT_EQ(project_.ProductPath(), folder_.Path("neu/tief/demo.product"));
  EXPECT_EQ(folder_.Read("neu/tief/demo.product"),
            "[General]\nVersion=1.0\n\n[Product]\nTitle=Demo\nAuthor=Ich\n");
  EXPECT_EQ(window_.stateUpdates, 1);
}

TEST_F(ModProjectOperationsTest, RefusesFilesThatAreNoProducts) {
  const std::string missing = folder_.Path("fehlt.product");
  EXPECT_FALSE(operations_.OpenProduct(missing));
  EXPECT_EQ(dialogs_.LastMessage(),
            "Fehler|" + LoadText(model::Text::ProductFileNotFound) + "\r\n" + missing);
  for (const char* content : {"", "[General]\nVersion=1.00\n", "[General]\nVersion=2.0\n"}) {
    EXPECT_FALSE(operations_.OpenProduct(folder_.Write("falsch.product", content)));
    EXPECT_EQ(dialogs_.LastMessage(), "Fehler|" + LoadText(model::Text::UnknownProductFormat));
  }
  dialogs_.ExpectOpenFile(LoadText(model::Text::OpenProject), "");
  EXPECT_FALSE(operations_.OpenProduct(""));
  const tools::OpenFileRequest& request = dialogs_.LastOpenFile();
  EXPECT_EQ(request.initialFolder,
            tools::JoinPath(tools::SpecialFolder(tools::kDocumentsFolder), "Installationen"));
  EXPECT_EQ(request.filter, "Produkte (*.product)|*.product");
  EXPECT_EQ(request.defaultExtension, "product");
  EXPECT_FALSE(project_.IsOpen());
}

TEST_F(ModProjectOperationsTest, ClosingWarnsOfChangedPagesAndSavingGoesOnPastOneThatFails) {
  OpenProduct("");
  window_.pages.resize(2);
  for (tests::FakePage& page : window_.pages) page.dirty = true;
  const std::function<bool()> closing[] = {[&] { return operations_.CloseProduct(true); },
                                           [&] { return operations_.NewProduct(); },
                                           [&] { return operations_.OpenProduct(""); }};
  for (const auto& close : closing) {
    dialogs_.ExpectQuestion(LoadText(model::Text::UnsavedChangesAreLost), MessageAnswer::Cancel);
    EXPECT_FALSE(close());
    EXPECT_TRUE(project_.IsOpen());
    EXPECT_EQ(dialogs_.LastMessage(), "Warnung|" + LoadText(model::Text::UnsavedChangesAreLost));
    EXPECT_EQ(dialogs_.Messages().back().icon, tools::MessageIcon::Exclamation);
    EXPECT_EQ(dialogs_.Messages().back().defaultAnswer, MessageAnswer::Ok);
  }
  EXPECT_THAT(window_.resets, ElementsAre());
  window_.pages[0].failure = "Seite kaputt";
  EXPECT_THAT(operations_.SaveAllPages(), ElementsAre(window_.pages[0].title));
  EXPECT_EQ(window_.pages[1].applied, 1);
  EXPECT_FALSE(operations_.IsDirty());
  EXPECT_EQ(dialogs_.LastMessage(), "Fehler|Seite kaputt");
  EXPECT_FALSE(window_.hourglass);
  EXPECT_TRUE(operations_.CloseProduct(true));
  EXPECT_FALSE(project_.IsOpen());
  EXPECT_THAT(window_.resets, ElementsAre(true));
}

TEST_F(ModProjectOperationsTest, ANewVersionInheritsTheLatestAndTakesTheFirstFreeSlot) {
  OpenProduct("Count=4\nVer1=2.3.9\nVer3=1.10.0\nVer4=2.3.9.1\n");
  folder_.Write("Version 2.3.9/product.version", "[Own]\nIs=2.3.9\n");
  folder_.Write("Version 2.3.9/component1.component", "[Component]\nTitle=A\n");
  folder_.Write("Version 2.3.10/rest.txt", "von früher");
  AddVersion(" 2.3.10 ");
  EXPECT_EQ(dialogs_.LastDefaultText(), "2.3.10");
  EXPECT_EQ(project_.VersionString(2), "2.3.10");
  EXPECT_EQ(project_.VersionCount(), 4);
  EXPECT_EQ(folder_.Read("Version 2.3.10/product.version"),
            "[Own]\nIs=2.3.9\n\n[General]\nCreated=" + clock_.DateTimeText() + "\n");
  EXPECT_EQ(tools::FindFiles(folder_.Path("Version 2.3.10"), "*", true).size(), 1U);
  EXPECT_EQ(window_.treeUpdates, 1);
}

TEST_F(ModProjectOperationsTest, RefusesVersionsThatExistOrLeadElsewhere) {
  OpenProduct("Count=3\nVer1=1.0.0-Ä\nVer3=\"2.0 \"\nVer9=9.0\n");
  folder_.MakeFolder("Version 9.0");
  for (const char* answer : {" 1.0.0-ä ", "1.0.0-Ä", "2.0", "9.0", ""}) {
    AddVersion(answer);
    EXPECT_EQ(dialogs_.Messages().back().text, LoadText(model::Text::VersionExists)) << answer;
  }
  for (const char* answer : {"../../x", "a/b", "a\\b", "C:x", "1\x01"}) {
    EXPECT_THROW(AddVersion(answer), tools::Error) << answer;
  }
  EXPECT_EQ(project_.VersionString(2), "");
  EXPECT_EQ(window_.treeUpdates, 0);
  EXPECT_TRUE(folder_.Holds("Version 9.0"));
  AddVersion("  1..0");
  EXPECT_TRUE(folder_.Holds("Version 1..0/product.version"));
}

TEST_F(ModProjectOperationsTest, ADamagedCountDoesNotMakeTakenSlotsFree) {
  OpenProduct("Count=1\nVer1=1.0.0\n");
  folder_.Write("Version 1.0.0/product.version", "");
  folder_.Write("Version 1.0.0/component1.component", "[Component]\nTitle=A\n");
  AddComponent("B");
  EXPECT_EQ(project_.ComponentTitle(1, 1) + project_.ComponentTitle(1, 2), "AB");
  project_.WriteProductSetting("Versions", "Count", "");
  AddVersion("1.1.0");
  EXPECT_EQ(project_.VersionString(1) + "|" + project_.VersionString(2), "1.0.0|1.1.0");
}

TEST_F(ModProjectOperationsTest, AProductThatIsGoneIsNotMadeAgainInPart) {
  OpenProduct("Count=1\nVer1=1.0.0\n");
  tools::DeleteFile(folder_.Path("demo.product"));
  EXPECT_THROW(AddVersion("1.0.1"), tools::Error);
  EXPECT_THROW(DeleteVersion(MessageAnswer::Yes), tools::Error);
  EXPECT_EQ(FileCount(), 0U);
}

TEST_F(ModProjectOperationsTest, DeletesAVersionWithItsFolderAfterConfirmation) {
  OpenProduct("Count=2\nVer1=1.0.0\nVer2=2.0.0\n");
  folder_.Write("Version 1.0.0/product.version", "");
  folder_.Write("Version 2.0.0/product.version", "");
  DeleteVersion(MessageAnswer::No);
  EXPECT_EQ(dialogs_.LastMessage(),
            LoadText(model::Text::Delete) + "|" + LoadText(model::Text::ConfirmDeletion));
  EXPECT_EQ(dialogs_.Messages().back().defaultAnswer, MessageAnswer::No);
  EXPECT_EQ(dialogs_.Messages().back().icon, tools::MessageIcon::Exclamation);
  EXPECT_TRUE(folder_.Holds("Version 1.0.0/product.version"));
  DeleteVersion(MessageAnswer::Yes);
  EXPECT_EQ(project_.VersionString(1), "");
  EXPECT_EQ(project_.VersionCount(), 2);
  EXPECT_EQ(FileCount(), 2U);
}

TEST_F(ModProjectOperationsTest, DeletingOneOfTwoSlotsWithOneVersionKeepsItsFolder) {
  OpenProduct("Count=2\nVer1=1.0.0\nVer2=1.0.0\n");
  folder_.Write("Version 1.0.0/product.version", "[General]\nCreated=x\n");
  DeleteVersion(MessageAnswer::Yes);
  EXPECT_EQ(project_.VersionString(1), "");
  EXPECT_TRUE(folder_.Holds("Version 1.0.0/product.version"));
}

TEST_F(ModProjectOperationsTest, DeletesNothingWhenTheSlotHoldsSomethingElseThanShown) {
  OpenProduct("Count=1\nVer1=1.0.0\n");
  folder_.Write("Version 1.0.0/product.version", "[Components]\nCount=1\n");
  folder_.Write("Version 1.0.0/component1.component", "[Component]\nTitle=A\n");
  DeleteVersion(MessageAnswer::Yes, "2.0.0");
  EXPECT_EQ(dialogs_.LastMessage(),
            LoadText(model::Text::Delete) + "|" + LoadText(model::Text::ProjectChangedElsewhere));
  EXPECT_EQ(dialogs_.Messages().back().icon, tools::MessageIcon::Exclamation);
  const std::pair<const char*, const char*> shown[] = {{"1.0.0", "B"}, {"2.0.0", "A"}};
  for (const auto& [version, title] : shown) {
    dialogs_.ExpectQuestion(LoadText(model::Text::ConfirmDeletion), MessageAnswer::Yes);
    operations_.DeleteComponent(1, 1, version, title);
    EXPECT_EQ(dialogs_.LastMessage(),
              LoadText(model::Text::Delete) + "|" + LoadText(model::Text::ProjectChangedElsewhere));
  }
  EXPECT_EQ(FileCount(), 3U);
  EXPECT_EQ(window_.treeUpdates, 3);
}

TEST_F(ModProjectOperationsTest, ComponentsKeepTheirSlots) {
  OpenProduct("Count=1\nVer1=1.0.0\n");
  EXPECT_THROW(AddComponent("ohne Version"), tools::Error);
  folder_.Write("Version 1.0.0/product.version", "");
  for (const char* title : {"A", " B ", "C"}) AddComponent(title);
  dialogs_.ExpectQuestion(LoadText(model::Text::ConfirmDeletion), MessageAnswer::Yes);
  operations_.DeleteComponent(1, 2, "1.0.0", "B");
  EXPECT_THAT(project_.ComponentSlots(1), ElementsAre(1, 3));
  EXPECT_EQ(project_.ComponentCount(1), 3);

  folder_.Write("Version 1.0.0/component2.component", "[Files]\nCount=1\n[File1]\nID=alt\n");
  AddComponent("neu");
  EXPECT_EQ(folder_.Read("Version 1.0.0/component2.component"), "[Component]\nTitle=neu\n");
  AddComponent(" ");
  EXPECT_EQ(project_.ComponentCount(1), 3);
}

}  // namespace model
