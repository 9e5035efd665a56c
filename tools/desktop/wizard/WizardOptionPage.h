// A page of a wizard on which the user sets options.
#pragma once

#include <QWidget>
#include <string>
#include <string_view>

#include "tools/desktop/wizard/WizardDriver.h"

namespace tools {

/// Shows values of the wizard's data store, and writes each back as soon as the user changes it; a
/// value that the user leaves alone stays as it is.
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

}  // namespace tools
