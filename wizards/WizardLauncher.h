// Starts the program's wizards from the main window, and the builds that need none.
#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>

#include "findings/CheckRun.h"
#include "wizards/SetupWizard.h"
#include "wizards/UnsavedPages.h"

namespace wizards {

class WizardLauncher {
 public:
  explicit WizardLauncher(BuildServices services);

  /// The window that the wizards belong to; without one they stand on their own.
  void SetParent(QWidget* parent) { parent_ = parent; }

  /// Runs a wizard to its end, for the version in this slot; `pages` are the open editor pages.
  void StartSetupWizard(std::int32_t version, model::OpenPages& pages);
  void StartUpdateWizard(std::int32_t version, model::OpenPages& pages);

  /// Builds the version as at the last time, and asks first about pages with changes. A version
  /// that was never built gets the setup wizard.
  void BuildAgain(std::int32_t version, model::OpenPages& pages);

  /// What has to be checked for a build as at the last time.
  [[nodiscard]] findings::CheckRequest CheckOf(std::int32_t version) const;

 private:
  [[nodiscard]] WizardBase::FrameMaker Frames(const tools::WizardPageRegistry& pages) const;
  void OfferSaving(UnsavedPages& unsaved) const;

  BuildServices services_;
  QPointer<QWidget> parent_;
};

}  // namespace wizards
