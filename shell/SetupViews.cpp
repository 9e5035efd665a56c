#include "shell/SetupViews.h"

#include <QDialog>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/TextTable.h"
#include "setup/Comparison.h"
#include "tools/Error.h"
#include "tools/SetupNames.h"
#include "tools/Text.h"
#include "tools/desktop/QtText.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace shell {

using namespace Qt::StringLiterals;
using model::LoadText;
using model::Text;
using tools::ToQString;

namespace {

constexpr std::size_t kLargestLog = std::size_t{64} << 20;  // bytes
constexpr int kFolderBrowserFlags = 17;
constexpr int kTextColumns = 100;
constexpr int kLines = 30;

/// Shows lines of text as they are, none of them broken. Closes by Escape or `cmdClose`.
class TextWindow : public QDialog {
 public:
  TextWindow(const QString& title, const QString& text, QWidget* parent);
};

TextWindow::TextWindow(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent) {
  setObjectName(u"textWindow"_s);
  setWindowTitle(title);
  auto* txtText = new QPlainTextEdit(this);
  txtText->setObjectName(u"txtText"_s);
  txtText->setAccessibleName(title);
  txtText->setReadOnly(true);
  txtText->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txtText->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  txtText->setPlainText(text);
  auto* cmdClose = new QPushButton(tools::ToQString(model::LoadText(model::Text::Close)), this);
  cmdClose->setObjectName(u"cmdClose"_s);
  connect(cmdClose, &QPushButton::clicked, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(txtText);
  layout->addWidget(cmdClose, 0, Qt::AlignRight);
  const QFontMetrics metrics = txtText->fontMetrics();
  resize(metrics.averageCharWidth() * kTextColumns, metrics.lineSpacing() * kLines);
}

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
  const QString count = tools::GermanNumber(std::ssize(comparison.differences));
  text = tools::ReplaceAll(text, "%count%", tools::ToUtf8(count)) + '\n';
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
  const QString title = ToQString(LoadText(Text::CompareWith)).remove(u"..."_s);
  TextWindow window(title, ToQString(report), parent);
  window.exec();
}

}  // namespace shell
