// What the product model needs of the desktop, beside tools::Dialogs: the main window, its open
// pages, and the form for a new product.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace model {

/// Shows the hourglass pointer while it lives.
class Hourglass {
 public:
  virtual ~Hourglass() = default;
  Hourglass() = default;
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

class MainView {
 public:
  virtual ~MainView() = default;
  MainView() = default;
  MainView(const MainView&) = delete;
  MainView& operator=(const MainView&) = delete;

  /// A product was opened or closed: caption, enabled state, tree and editor follow.
  virtual void UpdateProjectState() = 0;
  /// Versions or components were added or deleted: the tree follows, the editor stays.
  virtual void UpdateTree() = 0;
  /// Shows a hint in the status bar.
  virtual void ShowStatusText(const std::string& text) = 0;
  /// Shows the hourglass pointer and lets pending window messages run once.
  [[nodiscard]] virtual std::unique_ptr<Hourglass> ShowHourglass() = 0;
};

/// One open page.
class OpenPage {
 public:
  virtual ~OpenPage() = default;
  OpenPage() = default;
  OpenPage(const OpenPage&) = delete;
  OpenPage& operator=(const OpenPage&) = delete;

  /// The caption that the user knows the page by.
  [[nodiscard]] virtual std::string Title() const = 0;
  /// Writes the page's state to the settings, all of it or nothing. Raises tools::Error.
  virtual void ApplyChanges() = 0;
  /// True when the page holds changes that are not in the settings.
  [[nodiscard]] virtual bool IsDirty() const = 0;
  virtual void SetDirty(bool dirty) = 0;
  /// IsDirty, or the last ApplyChanges with changes failed: whoever marks the page as unchanged
  /// then does not make it so.
  [[nodiscard]] virtual bool IsUnsaved() const = 0;
};

/// The pages of the selected tree node.
class OpenPages {
 public:
  virtual ~OpenPages() = default;
  OpenPages() = default;
  OpenPages(const OpenPages&) = delete;
  OpenPages& operator=(const OpenPages&) = delete;

  [[nodiscard]] virtual std::int32_t Count() const = 0;
  /// `index` from 1 to Count.
  [[nodiscard]] virtual OpenPage& Item(std::int32_t index) = 0;
  /// Removes all pages; with `ask`, each page with changes is first offered for applying.
  virtual void Reset(bool ask) = 0;
};

struct NewProduct {
  std::string title;
  std::string author;
  std::string fileName;  ///< full path of the product file
};

class NewProductForm {
 public:
  virtual ~NewProductForm() = default;
  NewProductForm() = default;
  NewProductForm(const NewProductForm&) = delete;
  NewProductForm& operator=(const NewProductForm&) = delete;

  /// Shows the form; nothing when the user cancelled.
  virtual std::optional<NewProduct> Ask() = 0;
};

/// All that an author's commands on products need of the desktop.
struct Desktop {
  MainView& view;
  OpenPages& pages;
  NewProductForm& newProductForm;
};

}  // namespace model
