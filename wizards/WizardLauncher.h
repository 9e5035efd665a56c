// Starts the program's wizards from the main window, and the builds that need none.
#pragma once

#include <QWidget>

#include "findings/CheckRun.h"
#include "wizards/SetupWizard.h"
#include "wizards/UnsavedPages.h"

namespace wizards {

class WizardLauncher {
 public:
  /// The wizards belong to the window `parent`, which must outlive this object; without one they
  /// stand on their own.
  explicit WizardLauncher(BuildServices services, QWidget* parent = nullptr);

  /// Runs a wizard to its end, for the version in this slot; `pages` are the open editor pages.
  void StartSetupWizard(model::VersionSlot version, model::OpenPages& pages);
  void StartUpdateWizard(model::VersionSlot version, model::OpenPages& pages);

  /// Builds the version as at the last time, and asks first about pages with changes. A version
  /// that was never built gets the setup wizard. Raises tools::Error when the version is gone.
  void BuildAgain(model::VersionSlot version, model::OpenPages& pages);

  /// What has to be checked for a build as at the last time. Raises tools::Error when the version
  /// is gone.
  [[nodiscard]] findings::CheckRequest CheckOf(model::VersionSlot version) const;

 private:
  [[nodiscard]] WizardBase::FrameMaker Frames(const tools::WizardPageRegistry& pages) const;
  void RequireVersion(model::VersionSlot version) const;
  /// False when the author wants them saved, and that failed.
  [[nodiscard]] bool OfferSaving(UnsavedPages& unsaved) const;

  BuildServices services_;
  QWidget* parent_;
};

}  // namespace wizards
