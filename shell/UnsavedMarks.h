// Where the main window shows that its pages hold changes that are not saved: on tab and tree node,
// in the window's caption and at the right end of the status bar.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <vector>

#include "shell/NodeKey.h"

class QLabel;
class QMainWindow;
class QTabBar;

namespace pages {
class EditorPage;
}

namespace shell {

class EditorTabs;
class ProjectTree;

/// The status bar's `lblSaveState` tells of changes, of a save that failed, or when the last one
/// was.
class UnsavedMarks : public QObject {
  Q_OBJECT

 public:
  /// The widgets must outlive this object; the label is made in the window's status bar.
  UnsavedMarks(QMainWindow& window, ProjectTree& tree, QTabBar& tabs);

  /// Another product, or none, is open now: forgets the last save and shows this caption.
  void Begin(const QString& caption);
  /// `pages` now holds the pages of `node`; the tabs are in the same order.
  void Watch(EditorTabs& pages, const Node& node);

 private:
  void OnSaved();
  void OnSaveFailed();
  void Show();
  void MarkTab(int index, bool unsaved);
  void MarkWindow(bool unsaved);
  [[nodiscard]] QString SavedText() const;

  QMainWindow& window_;
  ProjectTree& tree_;
  QTabBar& tabs_;
  QLabel* lblSaveState_;
  QString caption_;
  Node node_;
  std::vector<QPointer<pages::EditorPage>> pages_;
  QString savedAt_;  ///< hours and minutes of the last save; empty: none so far, or one failed
};

}  // namespace shell
