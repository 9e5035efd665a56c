// What a wizard's frame asks of the program that drives it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tools {

class WizardOptionPage;
class WizardStructure;

/// Named text values that stay with the frame; its option pages edit them.
using WizardDataStore = std::map<std::string, std::string, std::less<>>;

/// A page as `ShowPage` describes it; the initial values are those of a page nobody describes.
struct WizardPage {
  std::string BackStep;     ///< key of the page that Back goes to; empty: the one visited before
  std::string ForwardStep;  ///< key of the page that Next goes to; empty: there is no Next
  bool AllowFinish = false;
  bool AllowCancel = true;
  bool EnableHelp = false;
  int PageStyle = 2;  ///< 1 welcome, 2 inner page, 3 final page
  std::string PageTitle;
  std::string PageDescription;
  std::string PageImage;  ///< picture file for styles 1 and 3; empty: the frame's own drawing
};

/// A step from one page to another. Keys are empty before the first page.
struct WizardStep {
  std::string ComingFrom;
  std::string GoingTo;
  WizardOptionPage* PageCtl = nullptr;  ///< the page entered or left; null when it has no control
  WizardDataStore& DataStore;
};

/// The events of the frame. Each comes on the user-interface thread; an error that leaves one
/// becomes a message box and the wizard stays where it is.
class WizardDriver {
 public:
  virtual ~WizardDriver() = default;
  WizardDriver() = default;
  WizardDriver(const WizardDriver&) = delete;
  WizardDriver& operator=(const WizardDriver&) = delete;

  /// The caption of the wizard's window.
  [[nodiscard]] virtual std::string Title() = 0;
  /// The titles of the wizard's steps; none: no step bar.
  [[nodiscard]] virtual std::vector<std::string> GetStepBar() = 0;
  /// The step bar is about to be shown.
  virtual void ShowStepbar() = 0;

  /// The description of the page `key`, whatever the key.
  [[nodiscard]] virtual WizardPage ShowPage(const std::string& key) = 0;
  /// The ProgID of the option page that `key` shows; empty for a page without one.
  [[nodiscard]] virtual std::string LoadPage(const std::string& key) = 0;
  /// The page has been shown.
  virtual void EnterPage(const WizardStep& step) = 0;
  /// The page is about to be left for another one.
  virtual void LeavePage(const WizardStep& step) = 0;

  /// The user finished the wizard; it closes when this returns.
  virtual void Finish(WizardStructure& ParentWizard) = 0;
  /// The user gave up; the wizard closes when this returns, whatever happened.
  virtual void Cancel(WizardStructure& ParentWizard) = 0;
  /// The user asked for help on the page `key`.
  virtual void ShowHelp(const std::string& key) = 0;
};

}  // namespace tools
