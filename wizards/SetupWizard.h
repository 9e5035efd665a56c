// Guides the author through the build of one version.
#pragma once

#include <string>

#include "wizards/BuildSetup.h"
#include "wizards/WizardBase.h"

namespace wizards {

/// The pages are "intro", "configuration", "output", "packaging" and "ready", in this order.
/// "config" and "folder" of the data store begin with the version's active configuration and its
/// output folder; "language" and the packaging options begin empty.
class SetupWizard : public WizardBase {
 public:
  /// For the version in slot `versionIndex` of the open product.
  SetupWizard(const BuildServices& services, model::VersionSlot versionIndex, FrameMaker makeFrame);

  [[nodiscard]] std::string Title() override;
  [[nodiscard]] tools::WizardPage ShowPage(const std::string& key) override;
  [[nodiscard]] std::string LoadPage(const std::string& key) override;
  /// Builds with the data store's values, then says that the setup was made, however it went.
  void Finish(tools::WizardStructure& ParentWizard) override;

 protected:
  void FillDataStore(tools::WizardDataStore& store) override;

 private:
  BuildServices services_;
  model::VersionSlot versionIndex_;
};

}  // namespace wizards
