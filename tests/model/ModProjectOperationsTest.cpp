#include "model/ModProjectOperations.h"
#include "model/TextTable.h"
#include "tests/support/ProductDesk.h"
#include "tests/support/Testing.h"
#include "tools/files/SpecialFolders.h"

namespace model {

using tools::MessageAnswer;

class ModProjectOperationsTest : public testing::Test, protected tests::ProductDesk {
 protected:
  /// Has the open product hold these versions, and version 1.0.0 this component.
  void SetUpProduct(const std::string& versions, const char* component = nullptr) {
    product.WriteVersions(versions);
    if (component != nullptr) product.AddComponent(component, {});
  }
  [[nodiscard]] bool Holds(const std::string& name) const {
    return folder.Holds("Produkt/" + name);
  }
  [[nodiscard]] std::size_t FileCount() const {
    return tools::FindFiles(folder.Path(), "*", tools::Subfolders::Search).size();
  }
  void ExpectLastMessage(Text caption, Text text, const char* style = "!Ok") {
    EXPECT_EQ(dialogs.LastMessage(), LoadText(caption) + "|" + LoadText(text));
    EXPECT_EQ(dialogs.LastStyle(), style);
  }
};

TEST_F(ModProjectOperationsTest, ReplacesAProductOnlyWhenTold) {
  EXPECT_FALSE(operations.NewProduct());
  folder.Write("demo.product", "alt");
  window.newProduct = NewProduct{"Demo", "Ich", folder.Path("demo.product")};
  dialogs.ExpectQuestion(Text::ProductFileExists, MessageAnswer::No);
  EXPECT_FALSE(operations.NewProduct());
  ExpectLastMessage(Text::OverwriteWarning, Text::ProductFileExists, "!No");
  dialogs.ExpectQuestion(Text::ProductFileExists, MessageAnswer::Yes);
  disk.FailOnce(FaultyDisk::Step::Write, 1);
  EXPECT_THROW(operations.NewProduct(), tools::Error);
  EXPECT_EQ(folder.Read("demo.product"), "alt");
  dialogs.ExpectQuestion(Text::ProductFileExists, MessageAnswer::Yes);
  EXPECT_TRUE(operations.NewProduct());
  EXPECT_NE(folder.Read("demo.product"), "alt");
}

TEST_F(ModProjectOperationsTest, OpensTheProductThatItCreates) {
  window.newProduct = NewProduct{" Demo\t", " Ich ", folder.Path("neu/tief/demo.product")};
  EXPECT_TRUE(operations.NewProduct());
  EXPECT_EQ(project.ProductPath(), folder.Path("neu/tief/demo.product"));
  EXPECT_EQ(folder.Read("neu/tief/demo.product"),
            "[General]\nVersion=1.0\n\n[Product]\nTitle=Demo\nAuthor=Ich\n");
  EXPECT_EQ(window.stateUpdates, 2);  // the other product was closed
  window.newProduct->fileName = folder.Path("neu/");
  EXPECT_THAT(ErrorOf([&] { operations.NewProduct(); }), StartsWith("Der Dateiname fehlt"));
}

TEST_F(ModProjectOperationsTest, RefusesFilesThatAreNoProducts) {
  const std::string missing = folder.Path("fehlt.product");
  EXPECT_FALSE(operations.OpenProduct(missing));
  EXPECT_EQ(dialogs.LastMessage(),
            "Fehler|" + LoadText(Text::ProductFileNotFound) + "\r\n" + missing);
  for (const char* content : {"", "[General]\nVersion=1.00\n", "[General]\nVersion=2.0\n"}) {
    EXPECT_FALSE(operations.OpenProduct(folder.Write("falsch.product", content)));
    EXPECT_EQ(dialogs.LastMessage(), "Fehler|" + LoadText(Text::UnknownProductFormat));
  }
  EXPECT_FALSE(project.IsOpen());
}

TEST_F(ModProjectOperationsTest, AsksForTheProductInTheFolderOfProducts) {
  dialogs.ExpectOpenFile(Text::OpenProject, "");
  EXPECT_FALSE(operations.OpenProduct(""));
  const tools::OpenFileRequest& request = dialogs.LastOpenFile();
  EXPECT_EQ(request.initialFolder,
            tools::JoinPath(tools::SpecialFolder(tools::kDocumentsFolder), "Installationen"));
  EXPECT_EQ(request.filter, "Produkte (*.product)|*.product");
  EXPECT_EQ(request.defaultExtension, "product");
}

TEST_F(ModProjectOperationsTest, ClosingWarnsOfChangedPages) {
  window.pages.resize(2);
  window.pages[1].dirty = true;
  for (int way = 0; way < 3; ++way) {
    dialogs.ExpectQuestion(Text::UnsavedChangesAreLost, MessageAnswer::Cancel);
    EXPECT_FALSE(way == 0   ? operations.CloseProductAfterWarning()
                 : way == 1 ? operations.NewProduct()
                            : operations.OpenProduct(""));
    EXPECT_EQ(dialogs.LastMessage(), "Warnung|" + LoadText(Text::UnsavedChangesAreLost));
    EXPECT_EQ(dialogs.LastStyle(), "!Ok");
  }
  EXPECT_TRUE(project.IsOpen());
  EXPECT_THAT(window.resets, ElementsAre());
  window.pages[1].dirty = false;
  EXPECT_TRUE(operations.CloseProductAfterWarning());
  EXPECT_FALSE(project.IsOpen());
  EXPECT_THAT(window.resets, ElementsAre(true));
}

TEST_F(ModProjectOperationsTest, SavingGoesOnPastAPageThatFails) {
  window.pages.resize(2);
  for (tests::FakePage& page : window.pages) page.dirty = true;
  window.pages[0].failure = "Seite kaputt";
  operations.SaveAllPages();
  EXPECT_EQ(window.pages[1].applied, 1);
  EXPECT_FALSE(operations.IsDirty());
  EXPECT_TRUE(operations.HasUnsaved());
  EXPECT_EQ(dialogs.LastMessage(), "Fehler|Seite kaputt");
  EXPECT_EQ(window.hourglasses, 0);
}

TEST_F(ModProjectOperationsTest, ANewVersionInheritsTheLatest) {
  SetUpProduct("Count=4\nVer1=2.3.9\nVer3=1.10.0\nVer4=2.3.9.1\n");
  folder.Write("Produkt/Version 2.3.9/product.version", "[Own]\nIs=2.3.9\n");
  folder.Write("Produkt/Version 2.3.9/component1.component", "[Component]\nTitle=A\n");
  folder.Write("Produkt/Version 2.3.10/rest.txt", "von früher");
  AddVersion(" 2.3.10 ");
  EXPECT_EQ(dialogs.LastDefaultText(), "2.3.10");
  EXPECT_EQ(project.VersionString(2), "2.3.10");
  EXPECT_EQ(project.VersionCount(), 4);
  EXPECT_EQ(folder.Read("Produkt/Version 2.3.10/product.version"),
            "[Own]\nIs=2.3.9\n\n[General]\nCreated=" + clock.DateTimeText() + "\n");
  EXPECT_EQ(tools::FindFiles(folder.Path("Produkt/Version 2.3.10"), "*", tools::Subfolders::Search)
                .size(),
            1U);
  EXPECT_EQ(window.treeUpdates, 1);
}

TEST_F(ModProjectOperationsTest, ADamagedVersionIsNotInherited) {
  for (const std::string& content : {std::string("[A]\0", 4), std::string(), std::string("-")}) {
    folder.Write(product.kVersionFile, content);
    if (content == "-") tools::DeleteFile(folder.Path(product.kVersionFile));
    EXPECT_THAT(tests::ErrorOf([&] { AddVersion("1.0.1"); }),
                testing::EndsWith(folder.Path(product.kVersionFile)));
    EXPECT_FALSE(Holds("Version 1.0.1"));
  }
}

TEST_F(ModProjectOperationsTest, RefusesVersionsThatItCannotAdd) {
  SetUpProduct("Count=3\nVer1=3.0.0-Ä\nVer3=\"2.0 \"\nVer9=9.0\n");
  folder.MakeFolder("Produkt/Version 9.0");
  folder.Write("Produkt/Version 3.0.0-Ä/product.version", "[A]\n");
  for (const char* answer : {" 3.0.0-ä ", "3.0.0-Ä", "2.0", "9.0", ""}) {
    AddVersion(answer);
    ExpectLastMessage(Text::AddVersion, Text::VersionExists);
  }
  for (const char* answer : {"../../x", "a/b", "a\\b", "C:x", "1\x01"}) {
    EXPECT_THROW(AddVersion(answer), tools::Error) << answer;
  }
  EXPECT_EQ(dialogs.Messages().size(), 5U);
  EXPECT_EQ(project.VersionString(2), "");
  EXPECT_EQ(window.treeUpdates, 0);
  EXPECT_TRUE(Holds("Version 9.0"));
  AddVersion("  1..0");
  EXPECT_TRUE(Holds("Version 1..0/product.version"));
}

TEST_F(ModProjectOperationsTest, ADamagedCountDoesNotMakeTakenSlotsFree) {
  SetUpProduct("Count=1\nVer1=1.0.0\n", "A");
  project.WriteVersionSetting(1, "Components", "Count", "");
  AddComponent("B");
  EXPECT_THAT(project.ComponentSlots(1), ElementsAre(1, 2));
  project.WriteProductSetting("Versions", "Count", "");
  AddVersion("1.1.0");
  EXPECT_THAT(project.VersionSlots(), ElementsAre(1, 2));
}

TEST_F(ModProjectOperationsTest, AProductThatIsGoneIsNotMadeAgainInPart) {
  tools::DeleteFile(project.ProductPath());
  const std::size_t files = FileCount();
  EXPECT_THROW(AddVersion("1.0.1"), tools::Error);
  EXPECT_THROW(DeleteVersion(MessageAnswer::Yes), tools::Error);
  EXPECT_EQ(FileCount(), files);
}

TEST_F(ModProjectOperationsTest, DeletingOneOfTwoSlotsWithOneVersionKeepsItsFolder) {
  SetUpProduct("Count=2\nVer1=1.0.0\nVer2=1.0.0\n");
  DeleteVersion(MessageAnswer::Yes);
  EXPECT_EQ(project.VersionString(1), "");
  EXPECT_TRUE(Holds("Version 1.0.0/product.version"));
}

TEST_F(ModProjectOperationsTest, OnlyWhatAKilledDeletionLeftIsRemovedByTheNext) {
  const std::string mark = "/.packwright-deleted/Version 0.9";
  folder.MakeFolder("Produkt/Version 0.9" + mark);
  folder.MakeFolder("Produkt/Version 0.9 Sicherung" + mark);
  AddVersion("1.1.0");
  EXPECT_FALSE(folder.Holds("Produkt/Version 0.9"));
  EXPECT_TRUE(folder.Holds("Produkt/Version 0.9 Sicherung"));

  // Behind a link lies what is somebody's own.
  std::filesystem::rename(folder.Path("Produkt/Version 1.0.0"), folder.Path("Produkt/basis"));
  std::error_code error;
  std::filesystem::create_directory_symlink("basis", folder.Path("Produkt/Version 1.0.0"), error);
  if (error) GTEST_SKIP() << "links cannot be made here";
  DeleteVersion(tools::MessageAnswer::Yes);
  AddVersion("1.2.0");
  EXPECT_FALSE(folder.Holds("Produkt/Version 1.0.0"));
  EXPECT_TRUE(folder.Holds("Produkt/basis/product.version"));
}

TEST_F(ModProjectOperationsTest, DeletesNothingWhenTheSlotHoldsSomethingElseThanShown) {
  SetUpProduct("Count=1\nVer1=1.0.0\n", "A");
  DeleteVersion(MessageAnswer::Yes, "2.0.0");
  ExpectLastMessage(Text::Delete, Text::ProjectChangedElsewhere);
  const std::pair<const char*, const char*> shown[] = {{"1.0.0", "B"}, {"2.0.0", "A"}};
  for (const auto& [version, title] : shown) {
    DeleteComponent(1, title, version);
    ExpectLastMessage(Text::Delete, Text::ProjectChangedElsewhere);
  }
  EXPECT_EQ(FileCount(), 3U);
  EXPECT_EQ(window.treeUpdates, 3);
}

TEST_F(ModProjectOperationsTest, ComponentsKeepTheirSlots) {
  for (const char* title : {"A", " B ", "C", " "}) AddComponent(title);
  DeleteComponent(2, "B");
  EXPECT_THAT(project.ComponentSlots(1), ElementsAre(1, 3));
  EXPECT_EQ(project.ComponentCount(1), 3);
  folder.Write("Produkt/Version 1.0.0/component2.component", "[Files]\nCount=1\n");
  AddComponent("neu");
  EXPECT_EQ(folder.Read("Produkt/Version 1.0.0/component2.component"), "[Component]\nTitle=neu\n");
  EXPECT_EQ(project.ComponentCount(1), 3);
  tools::DeleteFile(folder.Path(product.kVersionFile));
  EXPECT_THROW(AddComponent("ohne Version"), tools::Error);
}

}  // namespace model
