// The pages of a wizard on which the user sets options, and which of them belongs to a ProgID.
#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "tools/desktop/wizard/WizardDriver.h"

namespace tools {

/// A page on which the user sets options. Shows values of the wizard's data store, and writes each
/// back as soon as the user changes it; a value that the user leaves alone stays as it is.
class WizardOptionPage : public QWidget {
  Q_OBJECT

 public:
  /// `DataStore` must outlive the page.
  WizardOptionPage(WizardDataStore& DataStore, QWidget* parent);

  /// Fills the controls; called each time that the page is about to be shown.
  virtual void ShowValues() = 0;

 protected:
  /// The value of that name; an absent one is empty.
  [[nodiscard]] std::string Value(std::string_view name) const;
  void SetValue(std::string_view name, std::string value);

 private:
  WizardDataStore& store_;
};

/// Option pages by their ProgID.
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
