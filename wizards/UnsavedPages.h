// The main window's pages with changes that a build would not see.
#pragma once

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

  /// Their titles in the order of the tabs.
  [[nodiscard]] std::vector<std::string> Titles() const;
  /// Saves every open page, as the main window's command does; those that fail are told of.
  void Save() { operations_.SaveAllPages(); }

 private:
  model::OpenPages& pages_;
  model::ModProjectOperations& operations_;
};

}  // namespace wizards
