// The desktop program as app/main.cpp starts it, ended when its window is there.
#include "app/DesktopProgram.h"
#include "bench/QuitWhenPainted.h"
#include "shell/GuardedApplication.h"
#include "tools/desktop/FocusStyle.h"

int main(int argc, char** argv) {
  shell::GuardedApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("packwright"));
  shell::InstallGermanTexts(application);
  QApplication::setStyle(new tools::FocusStyle);
  app::DesktopProgram program;
  application.SetDialogs(&program.Dialogs());
  new bench::QuitWhenPainted(program.Window());
  program.Window().show();
  program.OpenFromCommandLine(QCoreApplication::arguments());
  const int result = QApplication::exec();
  application.SetDialogs(nullptr);
  return result;
}
