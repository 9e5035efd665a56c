// Keeps the marks of the file list's missing sources current.
#pragma once

#include <QObject>
#include <QTimer>

#include "model/ModProject.h"
#include "pages/FileListDocument.h"
#include "pages/FileListModel.h"
#include "pages/SourceCheck.h"
#include "tools/Dialogs.h"

namespace pages {

/// Looks for all sources when the page is shown, when its window becomes the active one (another
/// program may have made a file meanwhile), when the entries are read anew, after each step and
/// when told to.
class SourceMarks : public QObject {
  Q_OBJECT

 public:
  /// The references must outlive this object, which belongs to the page.
  SourceMarks(QWidget& page, FileListDocument& document, FileListModel& model,
              const model::ModProject& project, tools::Dialogs& dialogs);

  /// Looks again a moment later, if the page is seen.
  void Update();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Start();

  QWidget& page_;
  FileListDocument& document_;
  const model::ModProject& project_;
  SourceCheck check_{nullptr};
  QTimer delay_;
};

}  // namespace pages
