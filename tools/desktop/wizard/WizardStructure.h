// The frame of the program's wizards: shows one page after the other by their keys.
//
// The driver (WizardDriver.h) describes each page when it is shown; pages with a ProgID are made
// through the registry. The frame keeps the named values that the pages edit.
#pragma once

#include <QDialog>
#include <map>
#include <string>
#include <vector>

#include "tools/Dialogs.h"
#include "tools/desktop/wizard/WizardDriver.h"
#include "tools/desktop/wizard/WizardOptionPage.h"

class QLabel;
class QPushButton;
class QScrollArea;
class QStackedWidget;
class QBoxLayout;

namespace tools {

class WizardHeader;
class WizardPicture;

/// The buttons are `cmdBack`, `cmdNext`, `cmdFinish`, `cmdCancel` and `cmdHelp`. Enter presses Next
/// where there is one, else Finish; Escape and the close box cancel where the page allows it.
class WizardStructure : public QDialog {
  Q_OBJECT

 public:
  /// The references must outlive the frame.
  WizardStructure(WizardDriver& driver, const WizardPageRegistry& pages, Dialogs& dialogs,
                  QWidget* parent = nullptr);

  [[nodiscard]] WizardDataStore& DataStore() { return store_; }

  /// Shows the wizard, beginning with that page, until the user finishes or cancels it. Raises what
  /// the driver raises for the first page.
  void Run(const std::string& startPage);

  /// The key of the page that is shown.
  [[nodiscard]] const std::string& CurrentPage() const { return current_; }

  void reject() override;

 private:
  QBoxLayout* MakeButtons();
  void FillStepBar();
  void Show(std::string key, std::vector<std::string> visited);
  void Describe(const WizardPage& page);
  [[nodiscard]] WizardOptionPage* PageControl(const std::string& key);
  void FocusFirst(const QWidget* page);
  void GoForward();
  void GoBack();
  void Finish();

  WizardDriver& driver_;
  const WizardPageRegistry& pages_;
  Dialogs& dialogs_;
  WizardDataStore store_;
  std::string current_;
  WizardPage page_;                   ///< description of the current page
  std::vector<std::string> visited_;  ///< keys of the pages that Back leads to, the nearest last
  std::map<std::string, WizardOptionPage*> controls_;  ///< by page key; null: has none

  WizardPicture* picture_;
  WizardHeader* header_;
  QLabel* lblStepBar_;
  QStackedWidget* content_;
  QScrollArea* pageArea_ = nullptr;
  QWidget* emptyPage_;
  QPushButton* cmdBack_;
  QPushButton* cmdNext_;
  QPushButton* cmdFinish_;
  QPushButton* cmdCancel_;
  QPushButton* cmdHelp_;
};

}  // namespace tools
