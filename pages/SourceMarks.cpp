#include "pages/SourceMarks.h"

#include <QEvent>
#include <QWidget>
#include <chrono>

#include "tools/desktop/Guard.h"

namespace pages {

namespace {

constexpr auto kDelay = std::chrono::milliseconds(150);  ///< several steps cause one look

std::vector<SourcePlace> PlacesOf(const model::FileEntries& entries) {
  std::vector<SourcePlace> places;
  for (const model::ICFile& entry : entries) {
    places.push_back({entry.ID, entry.SourcePath, {}});
    // A file without a name is a missing one, as the check has it.
    if (entry.Type != model::ICFile::kFolderScan) places.back().name = entry.SourceName;
  }
  return places;
}

}  // namespace

SourceMarks::SourceMarks(QWidget& page, FileListDocument& document, FileListModel& model,
                         const model::ModProject& project, tools::Dialogs& dialogs)
    : QObject(&page), page_(page), document_(document), project_(project) {
  page.installEventFilter(this);
  delay_.setSingleShot(true);
  delay_.setInterval(kDelay);
  connect(&delay_, &QTimer::timeout, this, tools::Guarded(dialogs, [this] { Start(); }));
  connect(&document, &FileListDocument::Replaced, this, &SourceMarks::Update);
  connect(&document, &FileListDocument::Changed, this, &SourceMarks::Update);
  connect(&check_, &SourceCheck::Found, &model, &FileListModel::Mark);
}

void SourceMarks::Update() {
  if (page_.isVisible()) delay_.start();
}

void SourceMarks::Start() { check_.Start(PlacesOf(document_.Entries()), project_.ProductFolder()); }

bool SourceMarks::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) delay_.start();
  return QObject::eventFilter(watched, event);
}

}  // namespace pages
