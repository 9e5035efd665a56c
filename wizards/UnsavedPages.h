// The main window's pages with changes that a build would not see.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "model/MainView.h"
#include "model/ModProjectOperations.h"

namespace wizards {

class UnsavedPages {
 public:
  /// The references must outlive this object.
  UnsavedPages(model::OpenPages& pages, model::ModProjectOperations& operations)
      : pages_(pages), operations_(operations) {}

  /// Their titles in the order of the tabs, with those whose changes the last Save could not store.
  [[nodiscard]] std::vector<std::string> Titles() const;
  /// Whether the last Save left changes behind.
  [[nodiscard]] bool HasFailed() const { return !failed_.empty(); }
  /// Saves every open page, as the main window's command does.
  void Save();

 private:
  model::OpenPages& pages_;
  model::ModProjectOperations& operations_;
  std::set<std::string> failed_;  ///< titles of pages that count as saved, but are not
};

}  // namespace wizards
