// The desktop program.
//
//   packwright [PRODUCT]
//
// A product file given as the only argument is opened after the start.
#include "app/DesktopProgram.h"
#include "shell/GuardedApplication.h"
#include "tools/Process.h"
#include "tools/desktop/FocusStyle.h"

int main(int argc, char** argv) {
  tools::PrepareProcess();
  shell::GuardedApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("packwright"));
  QGuiApplication::setDesktopFileName(QStringLiteral("packwright"));
  shell::InstallGermanTexts(application);
  QApplication::setStyle(new tools::FocusStyle);

  app::DesktopProgram program;
  application.SetDialogs(&program.Dialogs());
  program.Window().show();
  program.OpenFromCommandLine(QCoreApplication::arguments());
  const int result = program.Run();
  application.SetDialogs(nullptr);
  return result;
}
