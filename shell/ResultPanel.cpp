#include "shell/ResultPanel.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>

#include "findings/FindingsList.h"
#include "model/TextTable.h"
#include "shell/SetupViews.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/PageArea.h"
#include "tools/desktop/QtText.h"

namespace shell {

using namespace Qt::StringLiterals;
using engine::BuildOutcome;
using model::LoadText;
using model::Text;
using tools::ToQString;

namespace {

constexpr int kMargin = 6;      // pixels
constexpr int kLeastLines = 3;  // of the panel where the window is small

QString WithVersion(Text text, const std::string& version) {
  return ToQString(tools::ReplaceAll(LoadText(text), "%version%", version));
}

bool HoldsSetup(const engine::BuildResult& result) {
  return result.failure.empty() && result.summary.outcome == BuildOutcome::Finished;
}

Text OutcomeText(const engine::BuildResult& result) {
  if (HoldsSetup(result)) return Text::BuildFinished;
  const bool wasStopped = result.failure.empty() && result.summary.outcome == BuildOutcome::Stopped;
  return wasStopped ? Text::BuildStopped : Text::BuildNotFinished;
}

QString Fact(Text text, const char* name, const QString& value) {
  return ToQString(LoadText(text)).replace(QString::fromUtf8(name), value);
}

QString SizeFact(const tools::ArchiveTotals& stored) {
  const QString size = tools::SizeText(stored.bytesOut);
  if (stored.bytesOut == stored.bytesIn) return Fact(Text::SizeOfTree, "%size%", size);
  return Fact(Text::SizeOfSetup, "%size%", size)
      .replace(u"%unpacked%"_s, tools::SizeText(stored.bytesIn));
}

QString DurationText(std::chrono::milliseconds duration) {
  constexpr double kShortest = 0.1;
  const double seconds = std::chrono::duration<double>(duration).count();
  const QString text =
      tools::GermanLocale().toString(std::max(seconds, kShortest), 'f', 1) + u" s"_s;
  return seconds < kShortest ? u"< "_s + text : text;
}

QString FactsOf(const engine::BuildResult& result) {
  if (!HoldsSetup(result)) {
    QString reason = ToQString(result.failure.empty() ? result.summary.reason : result.failure);
    if (reason.isEmpty() && result.summary.outcome == BuildOutcome::InvalidOutputFolder) {
      reason = ToQString(LoadText(Text::InvalidOutputFolder));
    }
    return reason;
  }
  const std::uint64_t files = result.summary.stored.files;
  return ToQString(result.summary.outputFolder) + u'\n' +
         Fact(files == 1 ? Text::OneFileOfSetup : Text::FilesOfSetup, "%count%",
              tools::GermanNumber(static_cast<qlonglong>(files))) +
         u", "_s + SizeFact(result.summary.stored) + u", "_s + DurationText(result.duration);
}

}  // namespace

ResultPanel::ResultPanel(tools::Dialogs& dialogs, QWidget* parent)
    : QDockWidget(ToQString(LoadText(Text::ResultPanel)), parent),
      dialogs_(dialogs),
      content_(new QWidget(this)),
      lblOutcome_(new QLabel(content_)),
      lblFacts_(new QLabel(content_)),
      buttons_(new QWidget(content_)),
      lsvFindings_(new findings::FindingsList(content_)) {
  setObjectName(u"pnlResult"_s);
  setAllowedAreas(Qt::BottomDockWidgetArea);
  setFeatures(QDockWidget::DockWidgetClosable);
  lblOutcome_->setObjectName(u"lblOutcome"_s);
  QFont bold = lblOutcome_->font();
  bold.setBold(true);
  lblOutcome_->setFont(bold);
  lblFacts_->setObjectName(u"lblFacts"_s);
  lblFacts_->setTextFormat(Qt::PlainText);
  lblFacts_->setWordWrap(true);
  lblFacts_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  lsvFindings_->setAccessibleName(windowTitle());
  lsvFindings_->hide();

  auto* row = new QHBoxLayout(buttons_);
  row->setContentsMargins(0, 0, 0, 0);
  cmdOpenFolder_ = AddButton("cmdOpenFolder", LoadText(Text::OpenFolder));
  cmdShowLog_ = AddButton("cmdShowLog", LoadText(Text::ShowLog));
  cmdCompare_ = AddButton("cmdCompare", LoadText(Text::CompareWith));
  cmdBuildAgain_ = AddButton("cmdBuildAgain", LoadText(Text::BuildAgain));
  cmdBuildAgain_->setToolTip(ToQString(LoadText(Text::BuildAgain)) + u" (F7)"_s);
  row->addStretch();
  auto* layout = new QVBoxLayout(content_);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  for (QWidget* part : std::initializer_list<QWidget*>{lblOutcome_, lblFacts_, buttons_}) {
    layout->addWidget(part);
  }
  layout->addWidget(lsvFindings_, 1);
  layout->addStretch();
  QScrollArea* area = tools::MakePageArea(content_, 0, this);
  area->setMinimumHeight(kLeastLines * fontMetrics().height());
  area->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  setWidget(area);
  hide();

  connect(cmdOpenFolder_, &QPushButton::clicked, this, tools::Guarded(dialogs_, [this] {
            const std::string folder = SetupFolder();
            if (QDesktopServices::openUrl(QUrl::fromLocalFile(ToQString(folder)))) return;
            throw tools::Error("Der Ordner kann nicht geöffnet werden: " + folder);
          }));
  connect(cmdShowLog_, &QPushButton::clicked, this,
          tools::Guarded(dialogs_, [this] { ShowBuildLog(SetupFolder(), window()); }));
  connect(cmdCompare_, &QPushButton::clicked, this,
          tools::Guarded(dialogs_, [this] { ShowDifferences(SetupFolder(), dialogs_, window()); }));
  connect(cmdBuildAgain_, &QPushButton::clicked, this,
          [this] { Q_EMIT BuildAgainWanted(version_); });
  connect(lsvFindings_, &findings::FindingsList::PlaceChosen, this,
          [this](const findings::ChosenPlace& place) { Q_EMIT PlaceChosen(version_, place); });
  connect(&check_, &findings::CheckRun::Finished, this, &ResultPanel::ShowFindings);
}

QPushButton* ResultPanel::AddButton(const char* name, const std::string& text) {
  auto* button = new QPushButton(ToQString(text), buttons_);
  button->setObjectName(QString::fromLatin1(name));
  buttons_->layout()->addWidget(button);
  return button;
}

void ResultPanel::BringUp(model::VersionSlot version, const QString& outcome,
                          const QString& facts) {
  version_ = version;
  lblOutcome_->setText(outcome);
  lblFacts_->setText(facts);
  lblFacts_->setVisible(!facts.isEmpty());
  const std::string folder = SetupFolder();
  for (QPushButton* button : {cmdOpenFolder_, cmdShowLog_, cmdCompare_}) {
    button->setEnabled(!folder.empty());
    button->setToolTip(folder.empty() ? QString() : Qt::convertFromPlainText(ToQString(folder)));
  }
  if (isHidden()) isFitted_ = false;
  show();
}

void ResultPanel::ShowBuild(const engine::BuildResult& result, const std::string& version) {
  check_.Stop();
  versionText_ = version;
  // A build that comes to nothing leaves the setup before it.
  if (HoldsSetup(result)) KeepSetup(result);
  QString outcome = WithVersion(OutcomeText(result), version);
  if (!result.messages.empty()) {
    outcome += u": "_s + findings::FindingsList::Summary(result.messages);
  }
  lsvFindings_->Show(result.messages, result.furtherMessages);
  lsvFindings_->setVisible(!result.messages.empty());
  BringUp(result.version, outcome, FactsOf(result));
  FitHeight();
}

void ResultPanel::Check(const findings::CheckRequest& request, const std::string& version,
                        bool hasUnsavedPages) {
  checkNote_ = hasUnsavedPages ? ToQString(LoadText(Text::SavedStateIsChecked)) : QString();
  versionText_ = version;
  lsvFindings_->clear();  // though it stays: the panel would change its height twice
  BringUp(request.version, ToQString(LoadText(Text::CheckIsRunning)), {});
  check_.Start(request);
}

void ResultPanel::ShowFindings(const std::vector<engine::BuildMessage>& messages) {
  lsvFindings_->Show(messages);
  lsvFindings_->setVisible(!messages.empty());
  BringUp(version_,
          WithVersion(Text::CheckFinished, versionText_) + u": "_s +
              findings::FindingsList::Summary(messages),
          checkNote_);
  FitHeight();
}

void ResultPanel::FitHeight() {
  auto* mainWindow = qobject_cast<QMainWindow*>(parentWidget());
  if (mainWindow == nullptr) return;
  const int title = sizeHint().height() - widget()->sizeHint().height();
  const int told = content_->hasHeightForWidth() ? content_->heightForWidth(mainWindow->width())
                                                 : content_->sizeHint().height();
  if (isFitted_ && height() >= title + told) return;
  isFitted_ = true;
  mainWindow->resizeDocks({this}, {title + told}, Qt::Vertical);
}

// Another version's setup that lay in that folder is gone.
void ResultPanel::KeepSetup(const engine::BuildResult& result) {
  const std::string& folder = result.summary.outputFolder;
  std::erase_if(setups_, [&folder](const auto& each) { return each.second.folder == folder; });
  setups_[result.version] = {versionText_, folder};
}

std::string ResultPanel::SetupFolder() const {
  const auto found = setups_.find(version_);
  // The slot may have got another version meanwhile, by another program.
  const bool isOfThis = found != setups_.end() && found->second.version == versionText_;
  return isOfThis ? found->second.folder : std::string();
}

void ResultPanel::Forget(model::VersionSlot version) {
  setups_.erase(version);
  if (version == version_) Withdraw();
}

void ResultPanel::Clear() {
  setups_.clear();
  Withdraw();
}

void ResultPanel::Withdraw() {
  check_.Stop();
  hide();
  version_ = 0;
}

}  // namespace shell
