// The host of the editor pages: makes the pages of the selected node, routes their settings to the
// node's file, shows one page at a time, and removes them again.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/MainView.h"
#include "model/ModProject.h"
#include "model/NodeSettings.h"
#include "pages/EditorPage.h"
#include "pages/PageRegistry.h"
#include "tools/Dialogs.h"

namespace shell {

/// What the page host needs of the main window.
class EditorArea {
 public:
  virtual ~EditorArea() = default;
  EditorArea() = default;
  EditorArea(const EditorArea&) = delete;
  EditorArea& operator=(const EditorArea&) = delete;

  /// The widget that pages are made in.
  [[nodiscard]] virtual QWidget* PageParent() = 0;
  /// Places a page in the editor area, below the tabs.
  virtual void PositionExtender(QWidget& page) = 0;
  /// Shows a hint in the status bar.
  virtual void ShowStatusText(const std::string& text) = 0;
};

class EditorTabs : public pages::PageHost, public model::OpenPages {
 public:
  /// The references must outlive this object, the project model and its store included.
  EditorTabs(EditorArea& area, model::ModProject& project, tools::Dialogs& dialogs,
             tools::Registry& registry, const pages::PageRegistry& pageRegistry);
  ~EditorTabs() override;

  /// Removes all pages; with `ask`, each page with changes is first offered for applying, and is
  /// removed even when that fails: TakeFailures tells it. A page that cannot tell whether it has
  /// changes ends the removal: it and the pages behind it stay.
  void Reset(bool ask) override;
  /// Which changes Reset could not apply since the last call, and why: texts for the author, who
  /// has lost them.
  [[nodiscard]] std::vector<std::string> TakeFailures();
  /// Offers each page that IsUnsaved for applying, those that count as unchanged too. False when
  /// one could not be applied, which is shown: the pages hold what they held then. What the author
  /// does not want applied is not offered again by Reset.
  [[nodiscard]] bool OfferUnsaved();
  /// Makes the pages of a node, hidden: each is a control of the class "Packwright." and its name,
  /// under the name "EditorTab" and its position in the list, and has read its settings. A page
  /// that cannot be made or read is left out, and the reason reported. Several pages with the same
  /// reason are one report.
  void Prepare(std::string_view pageList, model::VersionSlot version,
               model::ComponentSlot component);

  [[nodiscard]] std::int32_t Count() const override;
  [[nodiscard]] pages::EditorPage& Item(std::int32_t index) override;
  /// Makes one page visible and hides the others; an index outside 1 to Count hides them all.
  void ShowTab(std::int32_t index);

  /// The file of the pages' settings. Raises tools::Error.
  [[nodiscard]] std::string SettingsPath() const { return settings_.FilePath(); }
  [[nodiscard]] const std::string& ProductPath() const { return settings_.ProductPath(); }
  /// True when another program has changed that file since the pages have read it.
  [[nodiscard]] bool HasChangedOutside() const;

  /// What is gone of the pages' node: its product, version or component; empty when nothing is, and
  /// without pages.
  [[nodiscard]] std::string MissingNode() const;

  void StatusTextChanged(const std::string& text) override;
  [[nodiscard]] std::string Read(std::string_view section, std::string_view key,
                                 std::string_view defaultValue) override;
  void Save(std::string_view section, std::string_view key, std::string_view value) override;
  void InOneWrite(const pages::EditorPage& page, const std::function<void()>& writes) override;
  [[nodiscard]] model::VersionSlot VersionIndex() const override { return settings_.Version(); }
  [[nodiscard]] model::ComponentSlot ComponentIndex() const override {
    return settings_.Component();
  }

 private:
  /// Returns why pages were left out.
  [[nodiscard]] std::vector<std::string> MakePages(std::string_view pageList);
  [[nodiscard]] std::unique_ptr<pages::EditorPage> MakePage(const std::string& pageName,
                                                            const QString& controlName);
  [[nodiscard]] bool IsApplyingWanted(const pages::EditorPage& page) const;
  void OfferChanges(pages::EditorPage& page);
  /// Asks whether saving this page may undo what another program did to the file; raises
  /// tools::Error when it may not.
  void AllowOverwriting(const pages::EditorPage& page, const std::string& file);

  EditorArea& area_;
  model::ModProject& project_;
  tools::Dialogs& dialogs_;
  const pages::PageRegistry& pageRegistry_;
  pages::PageServices services_;
  std::vector<std::unique_ptr<pages::EditorPage>> pages_;
  model::NodeSettings settings_;
  std::vector<std::string> failures_;  ///< of Reset
};

}  // namespace shell
