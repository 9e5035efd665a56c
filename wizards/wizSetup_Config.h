// The wizard's page for the configuration and the language.
#pragma once

#include <cstdint>

#include "model/StoredOptions.h"
#include "tools/Dialogs.h"
#include "tools/desktop/wizard/WizardOptionPage.h"
#include "wizards/UnsavedPages.h"

class QComboBox;
class QLabel;

namespace wizards {

/// Edits "config" in `cmbConfiguration` and "language" in `cmbLanguage`, which takes a number
/// (LCID) or the name of a common language. Choosing a configuration also proposes the output
/// folder and the language stored for it, each unless the author has set another one than was
/// proposed before.
///
/// The build takes what is stored: `lblUnsavedPages` names the open pages with changes that are
/// not, and `cmdSavePages` stores them; those that fail stay named. The values then follow what is
/// stored now, as above.
class wizSetup_Config : public tools::WizardOptionPage {
  Q_OBJECT

 public:
  /// For the version in slot `versionIndex`. The references must outlive the page.
  wizSetup_Config(const model::ModProject& project, model::VersionSlot versionIndex,
                  tools::Dialogs& dialogs, UnsavedPages& unsaved, tools::WizardDataStore& DataStore,
                  QWidget* parent);

  void ShowValues() override;

 private:
  using Proposal = model::StoredOptions::Proposal;

  void ChooseConfiguration(std::int32_t configuration);
  void TakeLanguage();
  void ShowLanguage();
  [[nodiscard]] QWidget* MakeUnsavedRow(tools::Dialogs& dialogs);
  void ShowUnsavedPages();
  void SavePages();
  /// The configuration chosen; 0 for a value that is no number.
  [[nodiscard]] std::int32_t Configuration() const;
  /// What is stored for a configuration. Its language is a number, or a text that names none.
  [[nodiscard]] Proposal ProposalOf(std::int32_t configuration) const;
  /// Takes the configuration, and what is proposed for it in place of what was proposed before.
  void Follow(const Proposal& before, std::int32_t configuration);

  model::StoredOptions stored_;
  UnsavedPages& unsaved_;
  QComboBox* cmbConfiguration_;
  QComboBox* cmbLanguage_;
  QLabel* lblLanguageNote_;
  QWidget* fraUnsavedPages_;
  QLabel* lblUnsavedPages_;
};

}  // namespace wizards
