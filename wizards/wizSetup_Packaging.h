// The wizard's page for what the finished setup consists of.
#pragma once

#include "tools/desktop/wizard/WizardOptionPage.h"

class QCheckBox;

namespace wizards {

/// Edits "makezip", "includeexe" and "includetessel" in check boxes: "1" checked, "0" not.
class wizSetup_Packaging : public tools::WizardOptionPage {
  Q_OBJECT

 public:
  wizSetup_Packaging(tools::WizardDataStore& DataStore, QWidget* parent);

  void ShowValues() override;

 private:
  QCheckBox* AddOption(const QString& name, const std::string& text, const char* value);

  QCheckBox* chkMakeZip_;
  QCheckBox* chkIncludeExe_;
  QCheckBox* chkIncludeTessel_;
};

}  // namespace wizards
