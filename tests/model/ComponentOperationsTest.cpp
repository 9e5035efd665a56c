#include <regex>

#include "model/ComponentOperations.h"
#include "model/FileEntries.h"
#include "tests/support/ProductDesk.h"
#include "tests/support/Testing.h"

namespace model {

struct ComponentOperationsTest : testing::Test, tests::ProductDesk {
  /// The titles of a version's components by their slots.
  std::string Titles(std::int32_t version) {
    std::string text;
    for (const ShownComponent& each : components.ComponentsOf(version)) {
      text += std::to_string(each.component) + "=" + each.shownTitle + " ";
    }
    return text;
  }
  std::string Entry(std::int32_t component, std::string_view key) {
    return project.ReadComponentSetting(1, component, "File2", key, "-");
  }
};

TEST_F(ComponentOperationsTest, ACopyDiffersInTitleAndGuidsAndTakesTheFirstFreeSlot) {
  for (const char* title : {"A", "B"}) {
    product.AddComponent(title, {product.File("/q/a.txt"), product.File("/q/b.txt")});
  }
  components.Copy({components.ComponentsOf(1)[1]}, 1);
  DeleteComponent(1, "A");
  components.Copy({components.ComponentsOf(1)[0]}, 1);
  EXPECT_EQ(Titles(1), "1=B (Kopie 2) 2=B 3=B (Kopie) ");
  EXPECT_EQ(window.statusText, "Jetzt in Version 1.0.0: B (Kopie 2)");
  EXPECT_EQ(Entry(1, "SourceName"), "b.txt");
  EXPECT_EQ(Entry(2, "ID"), "{/q/b.txt}");
  EXPECT_TRUE(std::regex_match(Entry(1, "ID"), std::regex("\\{[0-9A-F-]{36}\\}")));
  EXPECT_NE(Entry(1, "ID"), Entry(3, "ID"));
}

TEST_F(ComponentOperationsTest, TakingOverLeavesTheSlotsAsTheyWereWhereNoneIsUsed) {
  for (const char* title : {"A", "B"}) product.AddComponent(title, {});
  AddVersion("1.0.1");
  components.Copy(components.ComponentsOf(1), 2);
  EXPECT_EQ(Titles(2), "1=A 2=B ");
  EXPECT_EQ(project.ComponentCount(2), 2);
}

TEST_F(ComponentOperationsTest, AComponentBeyondTheCountIsNeitherOverwrittenNorShown) {
  product.AddComponent("A", {});
  folder.Write("Produkt/Version 1.0.0/component2.component", "[Component]\nTitle=B\n");
  EXPECT_THAT(ErrorOf([&] { components.Copy(components.ComponentsOf(1), 1); }),
              HasSubstr("component2.component"));
  EXPECT_EQ(Titles(1), "1=A ");
}

TEST_F(ComponentOperationsTest, WhatAnotherProgramChangedIsRefused) {
  product.AddComponent("A", {});
  AddVersion("1.0.1");
  const ShownComponent shown = components.ComponentsOf(1).front();
  project.WriteComponentSetting(1, 1, "Component", "Title", "B");
  components.Copy({shown}, 2);
  EXPECT_EQ(components.Move(shown, 2), 0);
  dialogs.ExpectInputBox(Text::EnterOtherComponentTitle, "C");
  components.Rename(shown);
  EXPECT_EQ(dialogs.Messages().size(), 3U);
  EXPECT_EQ(Titles(1) + Titles(2), "1=B ");
  dialogs.ExpectInputBox(Text::EnterOtherComponentTitle, " D ");
  components.Rename(components.ComponentsOf(1).front());
  EXPECT_EQ(Titles(1), "1=D ");
}

}  // namespace model
