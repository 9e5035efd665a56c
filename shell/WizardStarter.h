// Starts the wizards on behalf of the main window.
#pragma once

#include <cstdint>

#include "model/OpenPages.h"

namespace shell {

class WizardStarter {
 public:
  virtual ~WizardStarter() = default;
  WizardStarter() = default;
  WizardStarter(const WizardStarter&) = delete;
  WizardStarter& operator=(const WizardStarter&) = delete;

  /// Shows the wizard for a version of the open product until the user leaves it. `pages` are those
  /// of the version.
  virtual void StartSetupWizard(std::int32_t version, model::OpenPages& pages) = 0;
  virtual void StartUpdateWizard(std::int32_t version, model::OpenPages& pages) = 0;
};

}  // namespace shell
