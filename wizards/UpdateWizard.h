// The wizard for updates: a placeholder with an introduction and a summary. Its inner pages lead
// nowhere and its Finish does nothing.
#pragma once

#include <string>

#include "wizards/WizardBase.h"

namespace wizards {

class UpdateWizard : public WizardBase {
 public:
  using WizardBase::WizardBase;

  [[nodiscard]] std::string Title() override;
  [[nodiscard]] tools::WizardPage ShowPage(const std::string& key) override;
  /// The option pages' bare names, which are no ProgIDs: the pages stay empty.
  [[nodiscard]] std::string LoadPage(const std::string& key) override;
  void Finish(tools::WizardStructure& /*ParentWizard*/) override {}
};

}  // namespace wizards
