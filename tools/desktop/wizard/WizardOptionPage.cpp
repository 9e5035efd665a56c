#include "tools/desktop/wizard/WizardOptionPage.h"

namespace tools {

WizardOptionPage::WizardOptionPage(WizardDataStore& DataStore, QWidget* parent)
    : QWidget(parent), store_(DataStore) {}

std::string WizardOptionPage::Value(std::string_view name) const {
  const auto found = store_.find(name);
  return found == store_.end() ? std::string() : found->second;
}

void WizardOptionPage::SetValue(std::string_view name, std::string value) {
  store_.insert_or_assign(std::string(name), std::move(value));
}

}  // namespace tools
