#include "engine/Build.h"

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

#include "engine/ArchiveStore.h"
#include "engine/BuildLog.h"
#include "engine/BuildObserver.h"
#include "engine/CheckSettings.h"
#include "engine/InstallScript.h"
#include "engine/OutputContent.h"
#include "engine/OutputFolder.h"
#include "engine/ProtectedPlaces.h"
#include "engine/SetupStage.h"
#include "engine/StoreFiles.h"
#include "engine/Survey.h"
#include "engine/TreeStore.h"
#include "model/StoredOptions.h"
#include "model/TextTable.h"
#include "tools/Error.h"
#include "tools/SetupNames.h"
#include "tools/files/Files.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

class Build {
 public:
  Build(const BuildEnvironment& environment, const BuildOptions& options,
        model::VersionSlot version, BuildObserver& observer)
      : environment_(environment),
        options_(options),
        version_(version),
        observer_(observer),
        title_(environment.project.ProductTitle()),
        progress_(observer, environment.clock),
        log_(environment.clock, observer) {}

  BuildSummary Run() {
    try {
      RunToEnd();
    } catch (const tools::Stopped&) {
      End(BuildOutcome::Stopped, {});
    }
    summary_.times.total = TimeSince(begun_);
    return std::move(summary_);
  }

 private:
  void RunToEnd() {
    log_.BeginBuildLog();
    if (!tools::IsSafeFileTitle(title_)) {
      throw tools::Error("Die Produktbezeichnung kann kein Dateiname sein: " + title_);
    }
    // Checked before any folder is searched, and again below with the places that links lead to.
    if (options_.isConfined) RequireConfinement(SourceFoldersOf(environment_.project, version_));
    survey_ = SurveyVersion(environment_.project, version_,
                            OutputFolderPath(options_.folder, environment_.project),
                            [this](const tools::Progress& found) { progress_.Search(found); });
    summary_.times.survey = TimeSince(begun_);
    if (!survey_.unread.empty()) throw tools::Error(survey_.unread.front().text);
    if (options_.isConfined) RequireConfinement(survey_.sourceFolders);
    FindControlCharacters(
        environment_.project, version_, survey_,
        [](const std::string& text, const Place& /*place*/) { throw tools::Error(text); });
    const ScriptHead head = MakeScriptHead();
    environment_.project.Settings().ForgetRead();  // as large as the survey
    // Honours a stop request before anything is deleted.
    progress_.ThrowIfStopped();
    if (!AcceptOutputFolder()) return;
    environment_.project.Settings().ForgetRead();
    stage_.emplace(environment_.disk, *claim_);
    try {
      MakeSetup(head);
    } catch (const tools::Error& error) {
      const std::string text = stage_->WithUsersPaths(error.what());
      if (text == error.what()) throw;
      throw tools::Error(text, error.Cause());
    }
    Publish();
  }

  void RequireConfinement(const std::set<std::string>& sourceFolders) const {
    RequireConfined(environment_.project, version_,
                    OutputFolderPath(options_.folder, environment_.project), sourceFolders);
  }

  /// Gives false when the build ends here.
  bool AcceptOutputFolder() {
    const ProtectedPlaces places(environment_.project, version_, survey_.sourceFolders,
                                 environment_.programFolder);
    OutputFolder folder = engine::AcceptOutputFolder(options_.folder, environment_.project, places);
    summary_.outputFolder = folder.path;
    if (folder.IsAccepted()) {
      claim_.emplace(folder.path);
      // What lies there now is what may be deleted later: nothing half moved may be among it.
      SetupStage::Recover(environment_.disk, *claim_);
      old_ = ContentOf(folder.path, [this] { progress_.ThrowIfStopped(); });
      folder = AcceptContent(folder, old_, places);
    }
    if (!folder.IsAccepted()) {
      End(BuildOutcome::InvalidOutputFolder, folder.reason);
      return false;
    }
    if (!Replaces() || observer_.MayEmptyOutputFolder(folder.path)) return true;
    End(BuildOutcome::OutputFolderInUse, {});
    return false;
  }

  /// The output folder holds files, which may be deleted.
  [[nodiscard]] bool Replaces() const { return !old_.files.empty(); }

  void MakeSetup(const ScriptHead& head) {
    TimePoint begun = environment_.clock.SteadyNow();
    StoreFiles();
    summary_.times.packing = TimeSince(begun);
    begun = environment_.clock.SteadyNow();
    WriteInstallScript(environment_.disk, InStage(title_ + tools::kScriptEnding), head, survey_,
                       *names_);
    summary_.times.script = TimeSince(begun);
    CopyPrograms();
    log_.EndBuildLog();
    if (environment_.fileTime) tools::SetTreeTime(stage_->Path(), *environment_.fileTime);
    summary_.warnings = log_.WarningCount();
    summary_.errors = log_.ErrorCount();
  }

  using TimePoint = std::chrono::steady_clock::time_point;
  [[nodiscard]] BuildTimes::Seconds TimeSince(TimePoint begun) const {
    return environment_.clock.SteadyNow() - begun;
  }

  // Log, script and files of one setup move in together or not at all.
  void Publish() {
    if (Replaces() && isIncomplete_) {
      End(BuildOutcome::Incomplete, WhyIncomplete() + model::LoadText(model::Text::OldSetupStays));
      return;
    }
    try {
      if (const std::optional<tools::Error> left = stage_->Publish(Replaces() ? &old_ : nullptr)) {
        End(BuildOutcome::OutputFolderStuck,
            "Das Setup ist erstellt, aber der alte Inhalt des Ausgabeordners ist nicht "
            "ganz gelöscht. " +
                std::string(left->what()));
      }
    } catch (const tools::Error& error) {
      End(BuildOutcome::OutputFolderStuck, stage_->WithUsersPaths(error.what()));
    }
  }

  [[nodiscard]] std::string WhyIncomplete() const {
    if (summary_.diskFull) return "Der Datenträger ist voll. ";
    return "Das Archiv konnte nicht erstellt werden. ";
  }

  void End(BuildOutcome outcome, std::string reason) {
    summary_.outcome = outcome;
    summary_.reason = std::move(reason);
  }

  void StoreFiles() {
    progress_.Start(survey_.files, survey_.bytes);
    const std::unique_ptr<FileStore> store = MakeStore();
    log_.WriteTo(environment_.disk, InStage(tools::kLogName));
    summary_.diskFull = engine::StoreFiles(survey_, *store, names_.emplace(survey_), log_);
    isIncomplete_ = summary_.diskFull;
    if (const std::optional<tools::Error> failure = store->Finish()) {
      isIncomplete_ = true;
      NoteDiskFull(failure->Cause());
      const std::string cause = stage_->WithUsersPaths(failure->what());
      log_.LogError("Unable to compress setup files", {},
                    "Die Dateien können nicht verpackt werden: " + cause, cause);
    }
    summary_.stored = store->Totals();
    progress_.Finish();
  }

  std::unique_ptr<FileStore> MakeStore() {
    if (!options_.packaged) {
      return std::make_unique<TreeStore>(stage_->Path(), summary_.outputFolder,
                                         OwnNamesInTree(options_, title_), progress_);
    }
    const std::string name = title_ + tools::kArchiveEnding;
    return std::make_unique<ArchiveStore>(environment_.disk, InStage(name), PackingOf(name),
                                          environment_.fileTime, progress_, survey_);
  }

  /// The earlier setup lies in the output folder until the new one is whole.
  [[nodiscard]] tools::ArchiveOptions PackingOf(const std::string& archiveName) const {
    tools::ArchiveOptions packing;
    if (options_.compression == Compression::Fast) packing.effort = 2;
    if (options_.compression == Compression::Small) packing.effort = 24;
    packing.threads = options_.threads;
    if (!options_.isFresh) packing.earlier = tools::JoinPath(summary_.outputFolder, archiveName);
    return packing;
  }

  ScriptHead MakeScriptHead() const {
    const model::ModProject& project = environment_.project;
    model::StoredOptions::CatalogueEntry entry =
        model::StoredOptions(project, version_).Catalogue(title_);
    ScriptHead head;
    head.packaged = options_.packaged;
    head.year = environment_.clock.Year();
    head.author = project.ProductAuthor();
    head.toolVersion = environment_.toolVersion;
    head.productTitle = title_;
    head.catalogueKey = std::move(entry.key);
    head.catalogueTitle = std::move(entry.title);
    head.catalogueType = std::move(entry.type);
    return head;
  }

  void CopyPrograms() {
    if (options_.includeWrapper) {
      CopyProgram(tools::kWrapperSource, tools::kWrapperName, "setup wrapper",
                  "Das ausführbare Installationsprogramm");
    }
    if (options_.includeRuntime) {
      CopyProgram(tools::kRuntimeName, tools::kRuntimeName, "Tessel installer",
                  "Das Installationsprogramm für Tessel");
    }
  }

  void CopyProgram(std::string_view name, std::string_view targetName, const std::string& what,
                   const std::string& userWhat) {
    const tools::CopyResult copy =
        tools::CopyFile(tools::JoinPath(environment_.programFolder, name), InStage(targetName));
    if (copy.Succeeded()) return;
    NoteDiskFull(copy.cause);
    log_.LogError("Unable to copy " + what + " to output folder: " + copy.errorText, {},
                  userWhat + " kann nicht in den Ausgabeordner kopiert werden: " + copy.errorText);
  }

  void NoteDiskFull(std::error_code cause) {
    summary_.diskFull = summary_.diskFull || tools::IsDiskFull(cause);
    isIncomplete_ = isIncomplete_ || summary_.diskFull;
  }

  [[nodiscard]] std::string InStage(std::string_view name) const {
    return tools::JoinPath(stage_->Path(), name);
  }

  const BuildEnvironment& environment_;
  const BuildOptions& options_;
  model::VersionSlot version_;
  BuildObserver& observer_;
  std::string title_;
  BuildProgress progress_;
  Survey survey_;
  std::optional<StoredNameMap> names_;       ///< of the survey's files
  std::optional<tools::FolderClaim> claim_;  ///< on the output folder, as long as this lives
  OutputContent old_;                        ///< what lay there at first
  bool isIncomplete_ = false;
  std::optional<SetupStage> stage_;
  BuildLog log_;  ///< its file lies in the stage
  TimePoint begun_ = environment_.clock.SteadyNow();
  BuildSummary summary_;
};

}  // namespace

BuildSummary BuildVersion(const BuildEnvironment& environment, const BuildOptions& options,
                          model::VersionSlot version, BuildObserver& observer) {
  return Build(environment, options, version, observer).Run();
}

}  // namespace engine
