#include "tools/desktop/wizard/WizardPageRegistry.h"

#include <utility>

namespace tools {

void WizardPageRegistry::Add(const std::string& ProgID, Factory factory) {
  factories_.insert_or_assign(ProgID, std::move(factory));
}

WizardOptionPage* WizardPageRegistry::Create(const std::string& ProgID, WizardDataStore& DataStore,
                                             QWidget* parent) const {
  const auto found = factories_.find(ProgID);
  return found == factories_.end() ? nullptr : found->second(DataStore, parent);
}

}  // namespace tools
