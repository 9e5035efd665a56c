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
      dialogs_(dialogs != nullptr ? *dialogs : desktopDialogs_),
      project_(settings_),
      newProductForm_(*registry_, dialogs_),
      operations_(project_, disk_, dialogs_, clock_, newProductForm_),
      components_(project_, disk_, dialogs_),
      pageRegistry_(pages::AllPages()),
      wizards_({.project = project_,
                .operations = operations_,
                .dialogs = dialogs_,
                .clock = clock_,
                .disk = disk_,
                .registry = *registry_,
                .programFolder = ProgramFolder(),
                .isEndWanted = [this] { return isEndWanted_; },
                .onBuilt = [this](const engine::BuildResult& result) { ShowResult(result); },
                .showPlace =
                    [this](std::int32_t version, const wizards::ChosenPlace& place) {
                      window_.ShowPlace(version, place.component, place.entry);
                    }}),
      window_({.project = project_,
               .operations = operations_,
               .components = components_,
               .dialogs = dialogs_,
               .registry = *registry_,
               .pageRegistry = pageRegistry_}) {
  using Launch = void (wizards::WizardLauncher::*)(std::int32_t, model::OpenPages&);
  const auto launch = [this](Launch start) {
    return tools::Guarded(dialogs_, [this, start](std::int32_t version, model::OpenPages& pages) {
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
                   tools::Guarded(dialogs_, [this](std::int32_t version) {
                     window_.Results().Check(wizards_.CheckOf(version),
                                             project_.VersionString(version),
                                             operations_.IsDirty());
                   }));
  QObject::connect(
      qGuiApp, &QGuiApplication::commitDataRequest, &window_,
      [this](QSessionManager& session) { OnSessionEnd(session); }, Qt::DirectConnection);
  desktopDialogs_.SetParent(&window_);
  newProductForm_.SetParent(&window_);
  wizards_.SetParent(&window_);
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
  if (!operations_.IsDirty() || !session.allowsInteraction()) return;
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
