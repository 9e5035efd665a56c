// Option pages by their ProgID.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "tools/desktop/wizard/WizardOptionPage.h"

namespace tools {

class WizardPageRegistry {
 public:
  using Factory = std::function<WizardOptionPage*(WizardDataStore& DataStore, QWidget* parent)>;

  void Add(const std::string& ProgID, Factory factory);

  /// A new page that `parent` owns; null for a ProgID that nobody has registered.
  [[nodiscard]] WizardOptionPage* Create(const std::string& ProgID, WizardDataStore& DataStore,
                                         QWidget* parent) const;

 private:
  std::map<std::string, Factory> factories_;
};

}  // namespace tools
