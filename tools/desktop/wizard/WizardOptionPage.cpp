#include "tools/desktop/wizard/WizardOptionPage.h"

#include <utility>

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

void WizardPageRegistry::Add(const std::string& ProgID, Factory factory) {
  factories_.insert_or_assign(ProgID, std::move(factory));
}

WizardOptionPage* WizardPageRegistry::Create(const std::string& ProgID, WizardDataStore& DataStore,
                                             QWidget* parent) const {
  const auto found = factories_.find(ProgID);
  return found == factories_.end() ? nullptr : found->second(DataStore, parent);
}

}  // namespace tools
