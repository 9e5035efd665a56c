// The desktop program: builds the objects and connects them.
//
//   packwright [PRODUCT]
//
// A product file given as the only argument is opened after the start.
#include <QDir>
#include <memory>

#include "model/ModProject.h"
#include "model/ModProjectOperations.h"
#include "pages/PageRegistry.h"
#include "shell/GuardedApplication.h"
#include "shell/NewProductDialog.h"
#include "shell/frmMain.h"
#include "tools/Clock.h"
#include "tools/Disk.h"
#include "tools/Registry.h"
#include "tools/SettingsStore.h"
#include "tools/desktop/DesktopDialogs.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "wizards/ProgramWizards.h"

int main(int argc, char** argv) {
  shell::GuardedApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("packwright"));
  QGuiApplication::setDesktopFileName(QStringLiteral("packwright"));
  shell::InstallGermanTexts(application);

  tools::SystemDisk disk;
  tools::SettingsStore settings(disk);
  const std::unique_ptr<tools::Registry> registry = tools::OpenSystemRegistry(disk);
  const tools::SystemClock clock;
  tools::DesktopDialogs dialogs;
  application.SetDialogs(&dialogs);

  model::ModProject project(settings);
  shell::NewProductDialog newProductForm(*registry, dialogs);
  model::ModProjectOperations operations(project, dialogs, clock, newProductForm);
  const pages::PageRegistry pageRegistry = pages::AllPages();
  const QString programFolder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
  wizards::ProgramWizards wizards({.project = project,
                                   .dialogs = dialogs,
                                   .clock = clock,
                                   .disk = disk,
                                   .programFolder = tools::ToUtf8(programFolder)});
  shell::frmMain window({.project = project,
                         .operations = operations,
                         .dialogs = dialogs,
                         .registry = *registry,
                         .pageRegistry = pageRegistry});
  window.ConnectWizards(wizards);
  dialogs.SetParent(&window);
  newProductForm.SetParent(&window);
  wizards.SetParent(&window);
  window.show();

  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() == 2) {
    tools::Guard(dialogs, [&] { operations.OpenProduct(tools::ToUtf8(arguments.at(1))); });
  }
  const int result = QApplication::exec();
  application.SetDialogs(nullptr);
  return result;
}
