// Starts the wizards on behalf of the main window.
#pragma once

#include <cstdint>

namespace shell {

class WizardStarter {
 public:
  virtual ~WizardStarter() = default;
  WizardStarter() = default;
  WizardStarter(const WizardStarter&) = delete;
  WizardStarter& operator=(const WizardStarter&) = delete;

  /// Shows the wizard for a version of the open product until the user leaves it.
  virtual void StartSetupWizard(std::int32_t version) = 0;
  virtual void StartUpdateWizard(std::int32_t version) = 0;
};

}  // namespace shell
