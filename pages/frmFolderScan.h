// The dialog that describes a folder scan and shows what it finds at the moment.
#pragma once

#include <QDialog>
#include <QTimer>

#include "model/ModProject.h"
#include "pages/ScanSearch.h"
#include "tools/Dialogs.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStringListModel;

namespace pages {

/// `txtFolder` with `cmdBrowse`, `txtPattern`, `chkSubfolders`; `lstFound` and `lblFound` show
/// what a build would find now. Each change starts the search anew; it never blocks.
class frmFolderScan : public QDialog {
  Q_OBJECT

 public:
  /// The references must outlive this object.
  frmFolderScan(const FolderScan& scan, const model::ModProject& project, tools::Dialogs& dialogs,
                QWidget* parent);

  /// What the fields say.
  [[nodiscard]] FolderScan Scan() const;

 private:
  void BuildFields(const FolderScan& scan);
  void BuildFound();
  void LayOut();
  void ScanChanged();
  void Search();
  void Show(const ScanResult& result);
  void Browse();

  const model::ModProject& project_;
  tools::Dialogs& dialogs_;
  ScanSearch search_{nullptr};
  QTimer delay_;
  QLineEdit* txtFolder;
  QPushButton* cmdBrowse;
  QLineEdit* txtPattern;
  QCheckBox* chkSubfolders;
  QListView* lstFound;
  QStringListModel* found_;
  QLabel* lblFound;
  QPushButton* cmdOK = nullptr;
};

}  // namespace pages
