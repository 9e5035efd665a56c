// The program's only main window: the project tree on the left, the editor pages of its selected
// node on the right, a toolbar, a status bar and the nodes' menus.
#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "findings/FindingsList.h"
#include "model/ComponentOperations.h"
#include "model/MainView.h"
#include "model/ModProject.h"
#include "model/ModProjectOperations.h"
#include "model/TextTable.h"
#include "pages/PageRegistry.h"
#include "shell/EditorTabs.h"
#include "shell/NodeKey.h"
#include "shell/frmNewProduct.h"
#include "tools/Clock.h"
#include "tools/Dialogs.h"
#include "tools/desktop/DesktopDialogs.h"
#include "tools/desktop/PopUpMenu.h"
#include "tools/files/Disk.h"
#include "tools/registry/Registry.h"

class QLabel;
class QMenu;
class QScrollArea;
class QSplitter;
class QStatusBar;
class QTabBar;
class QVBoxLayout;

namespace shell {

class ComponentCommands;
class ErrorList;
class MainToolBar;
class PageBars;
class ProjectTree;
class ResultPanel;
class StartArea;
class TitleLabel;
class UnsavedMarks;

/// What the main window works with. The references must outlive it.
struct MainServices {
  model::ModProject& project;
  tools::Disk& disk;
  const tools::Clock& clock;
  tools::Dialogs* dialogs;  ///< null: windows over this one
  tools::Registry& registry;
  const pages::PageRegistry& pageRegistry;
};

/// Makes the commands on products, which work with it and its page host. An error of any of them is
/// shown as a message; the program goes on.
class frmMain : public QMainWindow, public model::MainView, public EditorArea {
  Q_OBJECT

 public:
  explicit frmMain(const MainServices& services);
  ~frmMain() override;

  void EnableDisableAll(bool enable);
  // Files that cannot be read leave out only what they would show; one message names them all.
  void UpdateProjectState() override;
  void UpdateTree() override;
  /// Makes the pages of the selected node; those of the node before are offered for applying.
  void UpdateEditor();
  void PositionExtender(QWidget& page) override;

  [[nodiscard]] QWidget* PageParent() override;
  /// Opens the component in those slots, and the entry on the page that lists it; an entry of 0 is
  /// none. Pages of another node are offered for applying first where they have changes.
  void ShowPlace(model::VersionSlot version, const findings::ChosenPlace& place);
  [[nodiscard]] ResultPanel& Results() { return *pnlResult; }

  void ShowStatusText(const std::string& text) override;
  [[nodiscard]] std::unique_ptr<model::Hourglass> ShowHourglass() override;

  [[nodiscard]] tools::Dialogs& Dialogs() { return dialogs_; }
  [[nodiscard]] model::ModProjectOperations& Operations() { return operations_; }

 Q_SIGNALS:
  /// The user asked for a wizard for the version in this slot; `pages` are the open editor pages.
  void SetupWizardWanted(model::VersionSlot version, model::OpenPages& pages);
  void UpdateWizardWanted(model::VersionSlot version, model::OpenPages& pages);
  /// The user wants the version built as at the last time, or checked for that.
  void BuildAgainWanted(model::VersionSlot version, model::OpenPages& pages);
  void CheckWanted(model::VersionSlot version, model::OpenPages& pages);

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildToolBar();
  void BuildTreePane();
  void BuildEditorPane();
  void BuildMenus();
  void SetFixedCaptions();
  QAction* AddMenuItem(QMenu& menu, const char* name, model::Text text);
  void OnMenuItem(QAction* item, std::function<void()> command);

  void OnToolButton(const QString& key);
  void FillTree(ErrorList& errors);
  void OnTabClick();
  void PopUpNodeMenu(const QPoint& globalPosition, tools::OpenedBy by);
  void DeleteSelectedNode();
  using Wanted = void (frmMain::*)(model::VersionSlot, model::OpenPages&);
  void StartWizard(model::Text title, Wanted wanted);
  /// Emits `wanted` for the version that the selected node is or belongs to; refuses without one,
  /// with the text `withoutVersion`.
  void RunForVersion(model::Text title, model::Text withoutVersion, Wanted wanted);
  void BuildResultPanel();
  [[nodiscard]] ComponentCommands* MakeComponentCommands();
  [[nodiscard]] PageBars* MakePageBars();
  void BuildKeys();
  enum class Changes {
    Offer,  ///< each page with changes is offered for applying first
    Lose
  };
  void DropPages(Changes changes);
  /// Selects the node. Its pages stay where they are shown already with all that the author did on
  /// them, unless they are without changes and another program changed their file. False when there
  /// is no such node, which the status bar tells, or the pages shown could not be saved.
  [[nodiscard]] bool OpenNode(const Node& node);
  /// In the tree; of a product that is gone it keeps the one that it had.
  void ShowProductTitle();
  void UpdateStartArea();
  void ShowTabs();
  void Refuse(model::Text text, model::Text caption);

  MainServices services_;
  tools::DesktopDialogs desktopDialogs_{this};
  tools::Dialogs& dialogs_;

  MainToolBar* tbrMain = nullptr;
  QStatusBar* sbrMain = nullptr;
  QSplitter* splitter_ = nullptr;

  QWidget* picProjectTree = nullptr;
  TitleLabel* lblProjectTreeTitle = nullptr;
  ProjectTree* trvProjectTree = nullptr;
  QLabel* lblProjectTreeInfo = nullptr;

  QWidget* picDataEditor = nullptr;
  TitleLabel* lblDataEditorTitle = nullptr;
  QTabBar* tabDataEditor = nullptr;
  QVBoxLayout* editorLayout_ = nullptr;
  QScrollArea* pageArea_ = nullptr;
  QVBoxLayout* pageLayout_ = nullptr;
  PageBars* pageBars_ = nullptr;
  StartArea* startArea_ = nullptr;
  UnsavedMarks* marks_ = nullptr;
  Node shownNode_;                            ///< that the pages belong to
  std::map<std::string, QString> lastPages_;  ///< the title of the page shown last, by kind of node

  ResultPanel* pnlResult = nullptr;

  ComponentCommands* componentCommands_ = nullptr;
  QMenu* mnuPopupProduct = nullptr;
  QAction* mnuProductAddVersion = nullptr;
  QMenu* mnuPopupVersion = nullptr;
  QAction* mnuVersionAddComponent = nullptr;
  QAction* mnuVersionSep = nullptr;
  QAction* mnuVersionDelete = nullptr;
  QAction* mnuVersionProperties = nullptr;
  QAction* mnuVersionCheck = nullptr;
  QAction* mnuVersionBuildAgain = nullptr;
  QMenu* mnuPopupComponent = nullptr;
  QAction* mnuComponentDelete = nullptr;
  QAction* mnuComponentProperties = nullptr;

  /// Owns the pages, though pageArea_ holds them: they must go before it does.
  EditorTabs editorTabs_;
  NewProductDialog newProductForm_;
  model::ModProjectOperations operations_;
  model::ComponentOperations components_;
};

}  // namespace shell
