// The product of the tests and one of its pages, in the host of the program, without a main window.
#pragma once

#include "shell/EditorTabs.h"
#include "tests/support/ProductDesk.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/UserHome.h"
#include "tools/settings/SettingsFile.h"

namespace tests {

/// Writes down what the pages' host asks of it.
struct FakeArea : QWidget, shell::EditorArea {
  QWidget* PageParent() override { return this; }
  void PositionExtender(QWidget& page) override { page.setGeometry(rect()); }
  void ShowStatusText(const std::string& text) override { hint = ToQString(text); }

  QString hint = "nichts";
};

/// The product has a component "Kern" without settings.
struct PageFixture : ProductDesk {
  static constexpr const char* kProductFile = TestProduct::kFile;
  static constexpr const char* kVersionFile = TestProduct::kVersionFile;
  static constexpr const char* kComponentFile = TestProduct::kComponentFile;

  PageFixture() {
    product.AddComponent("Kern", {});
    folder.Write(kComponentFile, "[Component]\nTitle=Kern\n");
    area.resize(540, 420);
  }

  /// Opens the page of that class for the version and component, and waits until it can be used.
  void Open(const char* name, std::int32_t version, std::int32_t component) {
    tabs.Reset(false);
    tabs.Prepare(name, version, component);
    if (tabs.Count() == 0) return;
    page = &tabs.Item(1);
    tabs.ShowTab(1);
    area.show();
    Activate(area);
  }

  /// Expects that a double click on the row of that title tells that it cannot be edited.
  void RefuseToEdit(const char* title) const {
    const std::size_t told = dialogs.Messages().size();
    DoubleClick(Grid(*page), RowWith(Grid(*page), title));
    QCOMPARE(dialogs.Messages().size(), told + 1);
    QCOMPARE(dialogs.Messages().back().text, model::LoadText(Text::ValueNotEditable));
  }

  QString Path(const char* name) const { return ToQString(folder.Path(name)); }
  /// All that a file on disk holds.
  QString File(const char* name) const { return ToQString(folder.Read(name)); }
  /// Settings that the component's file holds ("-" for an absent one), joined by "|".
  QString Stored(const char* section, std::initializer_list<const char*> keys) const {
    const tools::SettingsFile settings(folder.Read(kComponentFile));
    QStringList values;
    for (const char* key : keys) values += ToQString(settings.Read(section, key, "-"));
    return values.join('|');
  }

  std::unique_ptr<tools::Registry> registry = RegistryBelow(folder, disk);
  pages::PageRegistry pageRegistry = pages::AllPages();
  FakeArea area;
  shell::EditorTabs tabs{area, project, dialogs, *registry, pageRegistry};
  pages::EditorPage* page = nullptr;  ///< the opened one
};

}  // namespace tests
