// A product on disk, a host that routes a page's settings to it, and what a user does with a page.
#pragma once

#include <QAbstractItemView>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>
#include <memory>
#include <string>
#include <vector>

#include "pages/PageRegistry.h"
#include "tests/support/FaultyDisk.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/Widgets.h"
#include "tools/SettingsFile.h"
#include "tools/desktop/QtText.h"

namespace tests {

/// The host of one page of version 1 (and component 1, if `component` is 1).
class ProjectHost : public pages::PageHost {
 public:
  explicit ProjectHost(model::ModProject& project) : project_(project) {}

  [[nodiscard]] std::string Read(std::string_view section, std::string_view key,
                                 std::string_view fallback) override {
    return component == 0 ? project_.ReadVersionSetting(1, section, key, fallback)
                          : project_.ReadComponentSetting(1, 1, section, key, fallback);
  }
  void Save(std::string_view section, std::string_view key, std::string_view value) override {
    if (component == 0) {
      project_.WriteVersionSetting(1, section, key, value);
    } else {
      project_.WriteComponentSetting(1, 1, section, key, value);
    }
  }
  void InOneWrite(const std::function<void()>& writes) override {
    tools::SettingsStore::Batch batch(project_.Settings());
    writes();
    batch.Commit();
  }
  void StatusTextChanged(const std::string& text) override { hint = text; }
  [[nodiscard]] std::int32_t VersionIndex() const override { return 1; }
  [[nodiscard]] std::int32_t ComponentIndex() const override { return component; }

  std::int32_t component = 0;
  std::string hint = "nichts";

 private:
  model::ModProject& project_;
};

class PageFixture {
 public:
  static constexpr const char* kVersionFile = "Demo/Version 1.0.0/product.version";
  static constexpr const char* kComponentFile = "Demo/Version 1.0.0/component1.component";

  PageFixture() {
    qputenv("HOME", QByteArray::fromStdString(folder.Path()));
    folder.Write(
        "Demo/demo.product",
        "[General]\nVersion=1.0\n[Product]\nTitle=Demo\n[Versions]\nCount=1\nVer1=1.0.0\n");
    folder.Write(kVersionFile, "[Components]\nCount=1\n");
    folder.Write(kComponentFile, "[Component]\nTitle=Kern\n");
    project.SetProductPath(folder.Path("Demo/demo.product"));
    registry = tools::OpenSystemRegistry(disk);
  }

  /// Opens a page as the host does and waits until it can be used.
  template <typename Page>
  std::unique_ptr<Page> Open(std::int32_t component) {
    host.component = component;
    auto page = std::make_unique<Page>(pages::PageServices{project, dialogs, *registry}, nullptr);
    page->SetHost(&host);
    page->ReadSettings();
    page->SetDirty(false);
    page->resize(540, 420);
    page->show();
    if (!QTest::qWaitForWindowActive(page.get())) qFatal("the page does not become active");
    return page;
  }

  /// What the file on disk holds; "-" for an absent key.
  [[nodiscard]] std::string Stored(const char* file, std::string_view section,
                                   std::string_view key) const {
    return tools::SettingsFile(folder.Read(file)).Read(section, key, "-");
  }

  TemporaryFolder folder;
  tools::SystemDisk systemDisk;
  FaultyDisk disk{systemDisk};
  tools::SettingsStore store{disk};
  model::ModProject project{store};
  ScriptedDialogs dialogs;
  std::unique_ptr<tools::Registry> registry;
  ProjectHost host{project};
};

inline void Click(QAbstractItemView& view, const QModelIndex& index,
                  Qt::MouseButton button = Qt::LeftButton) {
  view.scrollTo(index);
  QTest::mouseClick(view.viewport(), button, {}, view.visualRect(index).center());
}

inline void DoubleClick(QAbstractItemView& view, const QModelIndex& index) {
  Click(view, index);
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

/// The row whose first column shows `text`; invalid when there is none.
inline QModelIndex RowWith(const QAbstractItemView& view, const QString& text) {
  for (int row = 0; row < view.model()->rowCount(); ++row) {
    const QModelIndex index = view.model()->index(row, 0);
    if (index.data().toString() == text) return index;
  }
  return {};
}

/// All rows of a list, each as its columns joined by "=".
inline QStringList Rows(const QAbstractItemView& view) {
  QStringList rows;
  for (int row = 0; row < view.model()->rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < view.model()->columnCount(); ++column) {
      cells += view.model()->index(row, column).data().toString();
    }
    rows += cells.join('=');
  }
  return rows;
}

/// The list of rows inside the page's property grid.
inline QTreeView& Grid(const QWidget& page) { return Child<QTreeView>(page, "lsvProps"); }

/// Expects the grid's dialog and types a value into it.
inline void ExpectTyping(ModalScript& script, const QString& value) {
  script.Expect<QDialog>("frmEditProperty", [value](QDialog& dialog) {
    auto& box = Child<QLineEdit>(dialog, "txtNewValue");
    box.selectAll();
    box.insert(value);
    QTest::keyClick(&box, Qt::Key_Return);
  });
}

/// Edits the row of that title in the grid's dialog.
inline void Edit(const QWidget& page, const QString& title, const QString& value) {
  ModalScript script;
  ExpectTyping(script, value);
  DoubleClick(Grid(page), RowWith(Grid(page), title));
}

}  // namespace tests
