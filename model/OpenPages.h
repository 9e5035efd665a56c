// What the product model needs of the editor pages that are open.
#pragma once

#include <cstdint>
#include <string>

namespace model {

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

}  // namespace model
