// What the program's wizards have in common: how they start, and empty answers to the events that a
// wizard need not handle.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "tools/Dialogs.h"
#include "tools/desktop/wizard/WizardDriver.h"
#include "tools/desktop/wizard/WizardStructure.h"

namespace wizards {

class WizardBase : public tools::WizardDriver {
 public:
  /// Makes the frame for a driver; raises an error when that fails.
  using FrameMaker =
      std::function<std::unique_ptr<tools::WizardStructure>(tools::WizardDriver& driver)>;

  /// `dialogs` must outlive this object.
  WizardBase(tools::Dialogs& dialogs, FrameMaker makeFrame);
  ~WizardBase() override;

  /// Shows the wizard until the user leaves it, beginning with the introduction when `startPage` is
  /// empty. A frame that cannot be made is reported to the user.
  void Start(const std::string& startPage = {});

  [[nodiscard]] std::vector<std::string> GetStepBar() override { return {}; }
  void ShowStepbar() override {}
  void EnterPage(const tools::WizardStep& /*step*/) override {}
  void LeavePage(const tools::WizardStep& /*step*/) override {}
  void Cancel(tools::WizardStructure& /*ParentWizard*/) override {}
  void ShowHelp(const std::string& key) override;

 protected:
  /// Sets the initial values before the frame is shown.
  virtual void FillDataStore(tools::WizardDataStore& /*store*/) {}

  [[nodiscard]] tools::Dialogs& Dialogs() const { return dialogs_; }

 private:
  tools::Dialogs& dialogs_;
  FrameMaker makeFrame_;
  std::unique_ptr<tools::WizardStructure> frame_;
};

}  // namespace wizards
