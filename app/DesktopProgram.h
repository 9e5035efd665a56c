// The objects of the desktop program, built and connected.
#pragma once

#include <QSessionManager>
#include <QStringList>
#include <memory>

#include "app/EndSignals.h"
#include "model/ModProject.h"
#include "pages/PageRegistry.h"
#include "shell/frmMain.h"
#include "tools/Clock.h"
#include "tools/files/Disk.h"
#include "tools/registry/Registry.h"
#include "tools/settings/SettingsStore.h"
#include "wizards/LastBuilds.h"
#include "wizards/WizardLauncher.h"

namespace app {

/// Needs a QApplication. The main window is not shown yet.
class DesktopProgram {
 public:
  /// `dialogs` answers the program's questions in place of the real windows; it must outlive this
  /// object. Null: the real ones.
  explicit DesktopProgram(tools::Dialogs* dialogs = nullptr);
  ~DesktopProgram();
  DesktopProgram(const DesktopProgram&) = delete;
  DesktopProgram& operator=(const DesktopProgram&) = delete;

  /// Opens the product when the command line (program name included) has it as its only argument;
  /// nothing else is taken from there.
  void OpenFromCommandLine(const QStringList& arguments);

  /// Handles events until the program is to end, and closes the window then.
  int Run();

  /// Asks about unsaved changes, where there are some; false when the author wants to go on.
  [[nodiscard]] bool MayEndSession();

  [[nodiscard]] shell::frmMain& Window() { return window_; }
  [[nodiscard]] tools::Dialogs& Dialogs() { return dialogs_; }

 private:
  /// Ends all event loops, those of dialogs too, and a running build; nothing is asked.
  void End();
  void ShowResult(const engine::BuildResult& result);
  /// Asks about unsaved changes where the desktop that closes the session lets programs ask.
  void OnSessionEnd(QSessionManager& session);

  bool isEndWanted_ = false;
  tools::SystemDisk disk_;
  tools::SettingsStore settings_;
  std::unique_ptr<tools::Registry> registry_;
  tools::SystemClock clock_;
  model::ModProject project_;
  pages::PageRegistry pageRegistry_;
  shell::frmMain window_;
  tools::Dialogs& dialogs_;
  model::ModProjectOperations& operations_;
  wizards::LastBuilds lastBuilds_;
  wizards::WizardLauncher wizards_;
  EndSignals endSignals_{[this] { End(); }};
};

}  // namespace app
