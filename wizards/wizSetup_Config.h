// The wizard's page for the configuration and the language.
#pragma once

#include <cstdint>

#include "model/ModProject.h"
#include "tools/Dialogs.h"
#include "tools/desktop/WizardOptionPage.h"

class QComboBox;
class QLabel;

namespace wizards {

/// Edits "config" in `cmbConfiguration` and "language" in `cmbLanguage`, which takes a number
/// (LCID) or the name of a common language. Choosing a configuration also proposes the output
/// folder and the language stored for it, each unless the author has set another one than was
/// proposed before.
class wizSetup_Config : public tools::WizardOptionPage {
  Q_OBJECT

 public:
  /// For the version in slot `versionIndex`. The references must outlive the page.
  wizSetup_Config(const model::ModProject& project, std::int32_t versionIndex,
                  tools::Dialogs& dialogs, tools::WizardDataStore& DataStore, QWidget* parent);

  void ShowValues() override;

 private:
  void ChooseConfiguration(std::int32_t configuration);
  void TakeLanguage();
  void ShowLanguage();
  /// Replaces the value when it is what was proposed before.
  void Propose(const char* name, const std::string& before, const std::string& now);
  [[nodiscard]] std::string StoredFolder(std::int32_t configuration) const;
  [[nodiscard]] std::string StoredLanguage(std::int32_t configuration) const;

  const model::ModProject& project_;
  std::int32_t versionIndex_;
  QComboBox* cmbConfiguration_;
  QComboBox* cmbLanguage_;
  QLabel* lblLanguageNote_;
};

}  // namespace wizards
