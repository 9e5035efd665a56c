// A component's page of files: which files it installs, where to, and how.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "grid/ctlPropertyEditor.h"
#include "model/FileEntries.h"
#include "pages/FileListDocument.h"
#include "pages/FileListModel.h"
#include "pages/PageRegistry.h"

class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QLayout;
class QMenu;
class QPushButton;
class QTreeView;

namespace pages {

class EmptyFileHint;
class FileFilter;
class SourceMarks;
struct DroppedPaths;

/// Lists the entries of one destination folder at a time and shows the fields of the selected ones
/// in a grid. All changes stay in memory until they are applied, and can be undone until then.
/// Entries of a folder that cannot be chosen are kept, but never listed.
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
  bool ShowEntry(std::int32_t entry, const std::string& id) override;

  /// Adds an entry for the file at this path, to be installed in the chosen destination folder,
  /// and selects it. Raises tools::Error for a path with control characters: settings cannot hold a
  /// line break.
  void AddFileEntry(const std::string& path);
  /// Lists the entries of the chosen destination folder anew; none is selected then.
  void RefreshFileList();

 protected:
  void WriteSettings() override;
  void SettingsWritten() override;

 private:
  void BuildBrowser();
  QLayout* BuildButtons();
  void BuildList();
  void BuildProperties();
  void BuildMenu();
  void BuildAddedMenu();
  void ConnectEvents();

  void AddFiles();
  void AddFolder(tools::Subfolders subfolders);
  void AddDropped(const DroppedPaths& dropped);
  /// Those paths that cannot be added are named by the error, the others are added.
  void AddFileEntries(const std::vector<std::string>& paths);
  void RemoveSelected();
  void AddScan();
  /// What the selected scan finds now; its entry can be edited there.
  void ShowScan();
  void MakeSourcesRelative();
  /// Lets the author set the destinations of entries whose folder is unknown.
  void MendUnknownTargets(const model::ICFile* wanted = nullptr);
  /// The entries selected in the list, in its order.
  [[nodiscard]] std::vector<const model::ICFile*> SelectedEntries() const;
  [[nodiscard]] std::vector<std::string> SelectedIds() const;
  void ShowChosenFolder();
  /// Lists anew after these entries alone have changed; none: all may have.
  void ShowEntries(const std::vector<const model::ICFile*>& changed);
  void ShowSelectedEntries();
  void ChangeProperty(const QString& name, const QString& text);
  void TellOfChange(const QString& name, const std::vector<std::string>& ids);
  /// Lists anew after these entries were added, removed or edited, and selects what there is of
  /// them, else the row that moved up.
  void ShowChange(const std::vector<std::string>& ids, FileListDocument::By by);
  [[nodiscard]] std::int32_t ChosenFolder() const;
  void ChooseFolderOf(const std::vector<const model::ICFile*>& entries);
  void EnableMenuItems();

  PageServices services_;
  FileListDocument* document_;
  FileListModel* shownEntries_;
  FileFilter* filter_ = nullptr;
  EmptyFileHint* emptyHint_ = nullptr;
  SourceMarks* marks_ = nullptr;

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
  QAction* mnuShowScan_ = nullptr;
};

}  // namespace pages
