#include "shell/SetupViews.h"

#include "model/TextTable.h"
#include "setup/Comparison.h"
#include "shell/TextWindow.h"
#include "tools/Error.h"
#include "tools/SetupNames.h"
#include "tools/Text.h"
#include "tools/desktop/QtText.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace shell {

using model::LoadText;
using model::Text;
using tools::ToQString;

namespace {

constexpr std::size_t kLargestLog = std::size_t{64} << 20;  // bytes
constexpr int kFolderBrowserFlags = 17;

setup::SetupContents ContentsOf(const std::string& folder, tools::StoppableNotice& notice) {
  setup::Setup setup = setup::OpenSetup(folder);
  return setup::TakeContents(setup, [&notice](const tools::Progress& progress) {
    notice.Update(progress);
    if (notice.IsStopWanted()) throw tools::Stopped();
  });
}

std::string Report(const std::string& otherFolder, const setup::SetupComparison& comparison) {
  if (comparison.differences.empty()) return LoadText(Text::SameSetups);
  std::string text = tools::ReplaceAll(LoadText(Text::SetupDifferences), "%folder%", otherFolder);
  text = tools::ReplaceAll(text, "%count%", std::to_string(comparison.differences.size())) + '\n';
  for (const setup::Difference& difference : comparison.differences) {
    text += '\n' + setup::DifferenceText(difference);
  }
  return text;
}

}  // namespace

void ShowBuildLog(const std::string& setupFolder, QWidget* parent) {
  const std::string path = tools::JoinPath(setupFolder, tools::kLogName);
  const auto log = tools::ReadFileUpTo(path, kLargestLog);
  if (!log) throw tools::Error("Das Protokoll ist zu groß, um es anzuzeigen: " + path);
  TextWindow window(ToQString(LoadText(Text::BuildLogTitle) + " - " + path), ToQString(log->bytes),
                    parent);
  window.exec();
}

void ShowDifferences(const std::string& setupFolder, tools::Dialogs& dialogs, QWidget* parent) {
  const std::string other =
      dialogs.BrowseFolder(LoadText(Text::ChooseSetupToCompare), kFolderBrowserFlags);
  if (other.empty()) return;
  std::string report;
  try {
    tools::StoppableNotice notice(dialogs, LoadText(Text::ComparingSetups),
                                  LoadText(Text::ReallyStopComparing));
    report = Report(
        other, setup::CompareSetups(ContentsOf(other, notice), ContentsOf(setupFolder, notice)));
  } catch (const tools::Stopped&) {
    return;
  }
  TextWindow window(ToQString(LoadText(Text::CompareWith)), ToQString(report), parent);
  window.exec();
}

}  // namespace shell
