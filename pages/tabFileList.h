// A component's page of files: which files it installs, where to, and how.
#pragma once

#include <QList>
#include <array>
#include <string>
#include <unordered_set>
#include <vector>

#include "grid/ctlPropertyEditor.h"
#include "model/FileEntries.h"
#include "pages/FileListModel.h"
#include "pages/PageRegistry.h"
#include "tools/Guid.h"

class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QMenu;
class QPushButton;
class QTreeView;

namespace pages {

/// Lists the entries of one destination folder at a time and shows the fields of the selected one
/// in a grid. All changes stay in memory until they are applied. Entries of a folder that cannot be
/// chosen are kept, but never listed. An entry that is stored without a type shows 0, which is not
/// written unless the author sets it.
///
/// Moving, and removing by the menu, are commands without an action so far; entries are removed
/// by the button.
class tabFileList : public EditorPage {
  Q_OBJECT

 public:
  tabFileList(const PageServices& services, QWidget* parent);
  ~tabFileList() override;

  [[nodiscard]] std::string Title() const override;
  /// Raises tools::Error when the stored entries cannot be read; those shown stay.
  void ReadSettings() override;

  /// Adds an entry for the file at this path, to be installed in the chosen destination folder, and
  /// lists it. Raises tools::Error for a path with control characters: settings cannot hold a line
  /// break.
  void AddFileEntry(const std::string& path);
  /// Lists the entries of the chosen destination folder anew; none is selected then.
  void RefreshFileList();

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void WriteSettings() override;
  void SettingsWritten() override;

 private:
  void BuildBrowser();
  void BuildProperties();
  void BuildMenu();
  void ConnectEvents();
  void FillDestinationFolders();

  void AddFile();
  void AddFolder(bool withSubfolders);
  void RemoveFile();
  /// The same for many paths: those that cannot be added are named by the error, the others are.
  void AddFileEntries(const std::vector<std::string>& paths);
  /// Adds an entry without listing it.
  void AppendEntry(const std::string& path);
  /// The entry selected in the list; null when there is none.
  [[nodiscard]] const model::ICFile* SelectedEntry() const;
  void ShowSelectedEntry();
  void ShowSourceFile(const model::ICFile& entry);
  void ChangeProperty(const QString& name, const QString& text);
  void SelectEntry(const std::string& id);
  [[nodiscard]] std::int32_t ChosenFolder() const;
  /// True when that section has the key "Type", be it empty. Not while writing.
  [[nodiscard]] bool IsTypeStored(std::string_view section) const;
  void ShowPopup(const QPoint& globalPosition);

  PageServices services_;
  tools::GuidSource guids_;
  model::FileEntries entries_;
  std::unordered_set<std::string> untyped_;  ///< IDs of entries that were stored without a type
  std::vector<bool> typedSections_;  ///< which of the sections "File1", "File2" ... store a type
  FileListModel* shownEntries_;
  bool filling_ = false;  ///< the list of destination folders is being filled

  QGroupBox* fraBrowser;
  QLabel* lblDestinationFolder;
  QComboBox* cmbDestinationFolder;
  QTreeView* lsvBrowser;
  QPushButton* cmdAddFile;
  QPushButton* cmdRemoveFile;
  QPushButton* cmdMoveFile;
  QGroupBox* fraFileProps;
  grid::ctlPropertyEditor* propsFile;
  QMenu* mnuPopup;
  QAction* mnuAddFile;
  std::array<QAction*, 2> mnuAddDirectory;
  QAction* mnuAddDynamic;
  QAction* mnuPopupSep1;
  QAction* mnuMoveFile;
  QAction* mnuRemoveFile;
};

}  // namespace pages
