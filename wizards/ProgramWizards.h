// Starts the program's wizards from the main window.
#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>

#include "shell/WizardStarter.h"
#include "wizards/SetupWizard.h"

namespace wizards {

class ProgramWizards : public shell::WizardStarter {
 public:
  explicit ProgramWizards(BuildServices services);

  /// The window that the wizards belong to; without one they stand on their own.
  void SetParent(QWidget* parent) { parent_ = parent; }

  void StartSetupWizard(std::int32_t version, model::OpenPages& pages) override;
  void StartUpdateWizard(std::int32_t version, model::OpenPages& pages) override;

 private:
  [[nodiscard]] ProgramWizard::FrameMaker Frames(const tools::WizardPageRegistry& pages) const;

  BuildServices services_;
  QPointer<QWidget> parent_;
};

}  // namespace wizards
