// Starts the program's wizards from the main window.
#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>

#include "wizards/SetupWizard.h"

namespace wizards {

class WizardLauncher {
 public:
  explicit WizardLauncher(BuildServices services);

  /// The window that the wizards belong to; without one they stand on their own.
  void SetParent(QWidget* parent) { parent_ = parent; }

  /// Runs a wizard to its end, for the version in this slot; `pages` are the open editor pages.
  void StartSetupWizard(std::int32_t version, model::OpenPages& pages);
  void StartUpdateWizard(std::int32_t version, model::OpenPages& pages);

 private:
  [[nodiscard]] WizardBase::FrameMaker Frames(const tools::WizardPageRegistry& pages) const;

  BuildServices services_;
  QPointer<QWidget> parent_;
};

}  // namespace wizards
