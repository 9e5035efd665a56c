#include "app/DesktopProgram.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>

#include "shell/ResultPanel.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"

namespace app {

namespace {

std::string ProgramFolder() {
  return tools::ToUtf8(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
}

}  // namespace

DesktopProgram::DesktopProgram(tools::Dialogs* dialogs)
    : settings_(disk_),
      registry_(tools::OpenSystemRegistry(disk_)),
      project_(settings_),
      pageRegistry_(pages::AllPages()),
      window_({.project = project_,
               .disk = disk_,
               .clock = clock_,
               .dialogs = dialogs,
               .registry = *registry_,
               .pageRegistry = pageRegistry_}),
      dialogs_(window_.Dialogs()),
      operations_(window_.Operations()),
      lastBuilds_(*registry_, project_),
      wizards_({.project = project_,
                .operations = operations_,
                .dialogs = dialogs_,
                .clock = clock_,
                .disk = disk_,
                .lastBuilds = lastBuilds_,
                .programFolder = ProgramFolder(),
                .isEndWanted = [this] { return isEndWanted_; },
                .onBuilt = [this](const engine::BuildResult& result) { ShowResult(result); },
                .showPlace =
                    [this](model::VersionSlot version, const findings::ChosenPlace& place) {
                      window_.ShowPlace(version, place);
                    }},
               &window_) {
  using Launch = void (wizards::WizardLauncher::*)(model::VersionSlot, model::OpenPages&);
  const auto launch = [this](Launch start) {
    return tools::Guarded(dialogs_,
                          [this, start](model::VersionSlot version, model::OpenPages& pages) {
                            (wizards_.*start)(version, pages);
                          });
  };
  QObject::connect(&window_, &shell::frmMain::SetupWizardWanted, &window_,
                   launch(&wizards::WizardLauncher::StartSetupWizard));
  QObject::connect(&window_, &shell::frmMain::UpdateWizardWanted, &window_,
                   launch(&wizards::WizardLauncher::StartUpdateWizard));
  QObject::connect(&window_, &shell::frmMain::BuildAgainWanted, &window_,
                   launch(&wizards::WizardLauncher::BuildAgain));
  QObject::connect(&window_, &shell::frmMain::CheckWanted, &window_,
                   tools::Guarded(dialogs_, [this](model::VersionSlot version) {
                     window_.Results().Check(wizards_.CheckOf(version),
                                             project_.VersionString(version),
                                             operations_.HasUnsaved());
                   }));
  QObject::connect(
      qGuiApp, &QGuiApplication::commitDataRequest, &window_,
      [this](QSessionManager& session) { OnSessionEnd(session); }, Qt::DirectConnection);
}

DesktopProgram::~DesktopProgram() = default;

int DesktopProgram::Run() {
  // The end may have come before, in a dialog's own loop.
  const int result = isEndWanted_ ? 0 : QCoreApplication::exec();
  if (window_.isVisible()) window_.close();
  return result;
}

void DesktopProgram::End() {
  isEndWanted_ = true;
  QCoreApplication::exit();
}

void DesktopProgram::ShowResult(const engine::BuildResult& result) {
  std::string version;
  tools::Guard(dialogs_, [&] { version = project_.VersionString(result.version); });
  window_.Results().ShowBuild(result, version);
}

bool DesktopProgram::MayEndSession() {
  bool mayEnd = true;
  tools::Guard(dialogs_, [&] { mayEnd = operations_.MayDropChanges(); });
  return mayEnd;
}

void DesktopProgram::OnSessionEnd(QSessionManager& session) {
  if (!operations_.HasUnsaved() || !session.allowsInteraction()) return;
  if (MayEndSession()) {
    session.release();
  } else {
    session.cancel();
  }
}

void DesktopProgram::OpenFromCommandLine(const QStringList& arguments) {
  if (arguments.size() != 2) return;
  tools::Guard(dialogs_, [&] { operations_.OpenProduct(tools::ToUtf8(arguments.at(1))); });
}

}  // namespace app
