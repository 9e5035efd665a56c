#include "tools/desktop/DesktopDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include "tools/StandardTexts.h"
#include "tools/desktop/BusyNotice.h"
#include "tools/desktop/MessageWindow.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/WaitCursor.h"

namespace tools {

using namespace Qt::StringLiterals;

namespace {

QString Patterns(const QString& pattern) {
  QStringList patterns;
  for (const QString& item : pattern.split(u';', Qt::SkipEmptyParts)) {
    const QString one = item.trimmed();
    patterns += one == "*.*"_L1 ? u"*"_s : one;
  }
  return patterns.join(u' ');
}

/// The name filters of "text|pattern" pairs separated by "|"; several patterns of a pair are
/// separated by ";". "*.*" matches every file, also one without an extension. A text without a
/// pattern is left out; no pair at all gives a filter for every file.
QStringList NameFilters(const QString& filter) {
  const QStringList parts = filter.split(u'|');
  QStringList filters;
  for (qsizetype text = 0; text + 1 < parts.size(); text += 2) {
    const QString patterns = Patterns(parts[text + 1]);
    if (!patterns.isEmpty()) filters += u"%1 (%2)"_s.arg(parts[text], patterns);
  }
  return filters.isEmpty() ? QStringList(u"*.* (*)"_s) : filters;
}

/// `folder` when it exists, else the nearest folder above it that does; empty when there is none.
QString NearestFolder(const QString& folder) {
  QString candidate = QDir::cleanPath(QDir::fromNativeSeparators(folder));
  while (!candidate.isEmpty() && !QFileInfo(candidate).isDir()) {
    const qsizetype separator = candidate.lastIndexOf(u'/');
    if (separator < 0) return {};
    const QString above = candidate.left(separator == 0 ? 1 : separator);
    if (above == candidate) return {};
    candidate = above;
  }
  return candidate;
}

void UseGermanLabels(QFileDialog& dialog, const QString& accept) {
  dialog.setLabelText(QFileDialog::Accept, accept);
  dialog.setLabelText(QFileDialog::Reject, ToQString(StandardText(kTextCancel)));
  dialog.setLabelText(QFileDialog::LookIn, u"Suchen in:"_s);
  dialog.setLabelText(QFileDialog::FileName, u"Dateiname:"_s);
  dialog.setLabelText(QFileDialog::FileType, u"Dateityp:"_s);
}

std::string FirstOf(const std::vector<std::string>& paths) {
  return paths.empty() ? std::string() : paths.front();
}

}  // namespace

DesktopDialogs::DesktopDialogs(QWidget* parent) : parent_(parent) {}

DesktopDialogs::~DesktopDialogs() {
  for (const auto& [token, notice] : notices_) delete notice.window.data();
}

MessageAnswer DesktopDialogs::ShowMessage(const Message& message) {
  const ArrowCursor arrow;
  const MessageAnswer answer = RunMessageBox(message, Owner());
  // The window that has the keyboard again may have come above them.
  for (const auto& [token, notice] : notices_) {
    if (notice.window) notice.window->raise();
  }
  return answer;
}

std::string DesktopDialogs::InputBox(const std::string& prompt, const std::string& title,
                                     const std::string& defaultText) {
  const ArrowCursor arrow;
  InputDialog dialog(ToQString(prompt), ToQString(title), ToQString(defaultText), Owner());
  return dialog.exec() == QDialog::Accepted ? ToUtf8(dialog.Text()) : std::string();
}

std::string DesktopDialogs::OpenFile(const OpenFileRequest& request) {
  return FirstOf(RunOpenDialog(request, QFileDialog::ExistingFile));
}

std::vector<std::string> DesktopDialogs::OpenFiles(const OpenFileRequest& request) {
  return RunOpenDialog(request, QFileDialog::ExistingFiles);
}

std::vector<std::string> DesktopDialogs::RunOpenDialog(const OpenFileRequest& request,
                                                       QFileDialog::FileMode mode) const {
  QFileDialog dialog(Owner(), ToQString(request.title));
  dialog.setObjectName(u"openFile"_s);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(mode);
  UseGermanLabels(dialog, u"Öffnen"_s);
  const QStringList filters = NameFilters(ToQString(request.filter));
  // The texts of the filters say what they match; the patterns stay out of sight.
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setNameFilters(filters);
  dialog.selectNameFilter(filters.value(request.filterIndex - 1, filters.front()));
  dialog.setDefaultSuffix(ToQString(request.defaultExtension));
  const QString folder = NearestFolder(ToQString(request.initialFolder));
  if (!folder.isEmpty()) dialog.setDirectory(folder);
  return RunFileDialog(dialog);
}

std::string DesktopDialogs::BrowseFolder(const std::string& title, int /*flags*/) {
  QFileDialog dialog(Owner(), ToQString(title).simplified());
  dialog.setObjectName(u"browseFolder"_s);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  UseGermanLabels(dialog, u"Auswählen"_s);
  return FirstOf(RunFileDialog(dialog));
}

std::vector<std::string> DesktopDialogs::RunFileDialog(QFileDialog& dialog) {
  const ArrowCursor arrow;
  if (dialog.exec() != QDialog::Accepted) return {};
  std::vector<std::string> paths;
  for (const QString& path : dialog.selectedFiles()) {
    paths.push_back(ToUtf8(QDir::toNativeSeparators(path)));
  }
  return paths;
}

int DesktopDialogs::ShowBusyNotice(const std::string& text, const std::string& stopQuestion) {
  const auto buttons = stopQuestion.empty() ? BusyNotice::Buttons::None : BusyNotice::Buttons::Stop;
  Notice& notice = notices_[++lastToken_];
  notice.stopQuestion = stopQuestion;
  notice.window = new BusyNotice(ToQString(text), buttons, Owner());
  return lastToken_;
}

void DesktopDialogs::UpdateBusyNotice(int token, const Progress& progress) {
  const auto found = notices_.find(token);
  if (found == notices_.end() || !found->second.window) return;
  Notice& notice = found->second;
  notice.window->ShowProgress(progress);
  if (notice.isStopped || !notice.window->TakeStopRequest()) return;
  notice.isStopped = ShowMessage({.text = notice.stopQuestion,
                                  .caption = ToUtf8(notice.window->windowTitle()),
                                  .icon = MessageIcon::Question,
                                  .buttons = MessageButtons::YesNo,
                                  .defaultAnswer = MessageAnswer::No}) == MessageAnswer::Yes;
}

bool DesktopDialogs::IsStopWanted(int token) {
  const auto notice = notices_.find(token);
  return notice != notices_.end() && notice->second.isStopped;
}

void DesktopDialogs::WithdrawBusyNotice(int token) {
  const auto notice = notices_.find(token);
  if (notice == notices_.end()) return;
  if (notice->second.window) notice->second.window->Withdraw();
  delete notice->second.window.data();
  notices_.erase(notice);
}

QWidget* DesktopDialogs::Owner() const {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : parent_.data();
}

}  // namespace tools
