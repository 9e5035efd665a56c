#include "wizards/BuildSetup.h"

#include <exception>
#include <string_view>
#include <utility>

#include "engine/Build.h"
#include "model/TextTable.h"
#include "tools/Numbers.h"
#include "tools/SetupNames.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"

namespace wizards {

namespace {

using model::LoadText;
using model::Text;

class DesktopBuild : public engine::BuildObserver {
 public:
  /// Adds the build's messages to `result`, which must outlive this object.
  DesktopBuild(const BuildServices& services, engine::BuildResult& result,
               AfterRefusal afterRefusal)
      : dialogs_(services.dialogs),
        isEndWanted_(services.isEndWanted),
        clock_(services.clock),
        pace_(services.clock),
        result_(result),
        afterRefusal_(afterRefusal),
        notice_(dialogs_, LoadText(Text::BuildingSetup), LoadText(Text::ReallyStopBuild)) {}

  void OnMessage(const engine::BuildMessage& message) override {
    if (result_.messages.size() >= engine::BuildResult::kMostMessages) {
      ++result_.furtherMessages;
      return;
    }
    result_.messages.push_back(message);
    engine::BuildMessage& shown = result_.messages.back();
    if (shown.userText.empty()) return;
    shown.text = std::exchange(shown.userText, {});
    shown.detail.clear();
  }

  void OnProgress(const tools::Progress& progress) override {
    progress_ = progress;
    notice_.Update(progress);
  }

  bool MayEmptyOutputFolder(const std::string& /*folder*/) override {
    tools::Message question;
    question.text = LoadText(Text::OutputFolderHoldsFiles) + tools::kLineBreak + tools::kLineBreak +
                    LoadText(Text::ReallyContinue);
    question.caption = tools::StandardText(tools::kTextWarning);
    question.buttons = tools::MessageButtons::YesNo;
    question.defaultAnswer = tools::MessageAnswer::No;
    const auto asked = clock_.SteadyNow();
    const tools::MessageAnswer answer = dialogs_.ShowMessage(question);
    // The author's time is not the build's.
    result_.duration -= Since(asked);
    return answer == tools::MessageAnswer::Yes;
  }

  bool IsStopWanted() override {
    // Until the first file is stored, nothing else asks the notice for a stop request.
    if (pace_.IsDue()) notice_.Update(progress_);
    return isEndWanted_() || notice_.IsStopWanted();
  }

  /// Tells how the build ended.
  void ShowEnd(const engine::BuildSummary& summary) {
    switch (summary.outcome) {
      case engine::BuildOutcome::Finished:
        if (summary.errors > 0) ShowErrors(LogHint());
        return;
      case engine::BuildOutcome::Stopped:
        return;
      case engine::BuildOutcome::InvalidOutputFolder:
        Show(LoadText(Text::InvalidOutputFolder), tools::kTextError);
        break;
      case engine::BuildOutcome::OutputFolderStuck:
        Show(summary.reason, tools::kTextError);
        break;
      case engine::BuildOutcome::Incomplete:
        ShowErrors(summary.reason);
        break;
      case engine::BuildOutcome::OutputFolderInUse:
        break;
    }
    if (afterRefusal_ == AfterRefusal::LeaveNotice) notice_.Leave();
  }

 private:
  [[nodiscard]] std::chrono::milliseconds Since(std::chrono::steady_clock::time_point begin) const {
    return std::chrono::duration_cast<std::chrono::milliseconds>(clock_.SteadyNow() - begin);
  }

  static std::string LogHint() {
    return tools::ReplaceAll(LoadText(Text::ErrorsAreLogged), "%log%", tools::kLogName);
  }

  void ShowErrors(const std::string& more) {
    Show(LoadText(Text::BuildHadErrors) + tools::kLineBreak + more, tools::kTextWarning);
  }

  void Show(const std::string& text, std::int32_t caption) {
    (void)dialogs_.ShowMessage({.text = text, .caption = tools::StandardText(caption)});
  }

  tools::Dialogs& dialogs_;
  const std::function<bool()>& isEndWanted_;
  const tools::Clock& clock_;
  tools::ReportPace pace_;
  tools::Progress progress_;
  engine::BuildResult& result_;
  AfterRefusal afterRefusal_;
  tools::StoppableNotice notice_;
};

}  // namespace

engine::BuildOptions ReadBuildOptions(const tools::WizardDataStore& settings) {
  const auto text = [&settings](std::string_view name) {
    const auto found = settings.find(name);
    return found == settings.end() ? std::string() : found->second;
  };
  return {.folder = text("folder"),
          .packaged = tools::ToInt16(text("makezip")) == 1,
          .includeWrapper = tools::ToInt16(text("includeexe")) != 0,
          .includeRuntime = tools::ToInt16(text("includetessel")) != 0,
          .compression =
              engine::CompressionNamed(text("compression")).value_or(engine::Compression::Normal)};
}

void BuildSetup(const BuildServices& services, const tools::WizardDataStore& settings,
                model::VersionSlot versionIndex, AfterRefusal afterRefusal) {
  engine::BuildResult result;
  result.version = versionIndex;
  const auto begin = services.clock.SteadyNow();
  const auto take = [&] {
    result.duration +=
        std::chrono::duration_cast<std::chrono::milliseconds>(services.clock.SteadyNow() - begin);
  };
  std::exception_ptr failure;
  try {
    DesktopBuild build(services, result, afterRefusal);
    const engine::BuildEnvironment environment{.project = services.project,
                                               .clock = services.clock,
                                               .disk = services.disk,
                                               .programFolder = services.programFolder};
    result.summary =
        engine::BuildVersion(environment, ReadBuildOptions(settings), versionIndex, build);
    take();
    build.ShowEnd(result.summary);
  } catch (const std::exception& error) {
    take();
    result.failure = error.what();
    failure = std::current_exception();
  }
  services.onBuilt(result);
  if (failure) std::rethrow_exception(failure);
}

}  // namespace wizards
