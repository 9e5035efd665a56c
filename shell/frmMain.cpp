#include "shell/frmMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>
#include <utility>

#include "model/TextTable.h"
#include "shell/ErrorList.h"
#include "shell/IconList.h"
#include "shell/MainToolBar.h"
#include "shell/NodeKey.h"
#include "shell/ProjectTree.h"
#include "shell/ResultPanel.h"
#include "shell/TitleLabel.h"
#include "shell/WindowPlace.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/UserInputBlocker.h"
#include "tools/files/Path.h"
#include "tools/settings/SettingsStore.h"

namespace shell {

using model::Text;

namespace {

constexpr QSize kFirstSize(1040, 680);
constexpr QSize kLeastSize(640, 420);
constexpr int kFirstTreeWidth = 280;

QString Caption(Text text) { return tools::ToQString(model::LoadText(text)); }

// Qt reads "[*]" in a window's title as the place of its mark for unsaved changes.
QString LiteralTitle(QString title) {
  return title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

}  // namespace

frmMain::frmMain(const MainServices& services)
    : services_(services),
      editorTabs_(*this, services.project, services.dialogs, services.registry,
                  services.pageRegistry) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowIcon(IconList().Icon(QStringLiteral("packwright")));
  BuildToolBar();
  sbrMain = statusBar();
  sbrMain->setObjectName(QStringLiteral("sbrMain"));
  sbrMain->setMouseTracking(true);
  sbrMain->installEventFilter(this);
  splitter_ = new QSplitter(this);
  splitter_->setObjectName(QStringLiteral("splitter"));
  splitter_->setChildrenCollapsible(false);
  setCentralWidget(splitter_);
  BuildTreePane();
  BuildEditorPane();
  BuildMenus();
  BuildResultPanel();
  splitter_->setStretchFactor(1, 1);
  splitter_->setSizes({kFirstTreeWidth, kFirstSize.width() - kFirstTreeWidth});
  setMinimumSize(kLeastSize);
  resize(kFirstSize);
  RestoreWindowPlace(services_.registry, *this, *splitter_);
  services_.operations.Connect(*this, editorTabs_);
  UpdateProjectState();
  // Else the first button of the toolbar would have it.
  setFocus();
}

frmMain::~frmMain() = default;

void frmMain::BuildToolBar() {
  tbrMain = new MainToolBar(this);
  addToolBar(tbrMain);
  connect(tbrMain, &MainToolBar::ButtonClicked, this,
          tools::Guarded(services_.dialogs, [this](const QString& key) { OnToolButton(key); }));
}

void frmMain::BuildTreePane() {
  picProjectTree = new QWidget(splitter_);
  picProjectTree->setObjectName(QStringLiteral("picProjectTree"));
  lblProjectTreeTitle = new TitleLabel(picProjectTree);
  lblProjectTreeTitle->setObjectName(QStringLiteral("lblProjectTreeTitle"));
  trvProjectTree = new ProjectTree(picProjectTree);
  trvProjectTree->setObjectName(QStringLiteral("trvProjectTree"));
  lblProjectTreeInfo = new QLabel(picProjectTree);
  lblProjectTreeInfo->setObjectName(QStringLiteral("lblProjectTreeInfo"));
  lblProjectTreeInfo->setWordWrap(true);
  lblProjectTreeTitle->setBuddy(trvProjectTree);

  auto* layout = new QVBoxLayout(picProjectTree);
  layout->setContentsMargins(6, 6, 0, 6);
  layout->addWidget(lblProjectTreeTitle);
  layout->addWidget(trvProjectTree, 1);
  layout->addWidget(lblProjectTreeInfo);

  connect(trvProjectTree, &ProjectTree::NodeClicked, this,
          tools::Guarded(services_.dialogs, [this] { UpdateEditor(); }));
  connect(trvProjectTree, &ProjectTree::MenuWanted, this, &frmMain::PopUpNodeMenu);
  connect(trvProjectTree, &ProjectTree::PointerMoved, this, [this] { ShowStatusText({}); });
}

void frmMain::BuildEditorPane() {
  picDataEditor = new QWidget(splitter_);
  picDataEditor->setObjectName(QStringLiteral("picDataEditor"));
  lblDataEditorTitle = new TitleLabel(picDataEditor);
  lblDataEditorTitle->setObjectName(QStringLiteral("lblDataEditorTitle"));
  tabDataEditor = new QTabBar(picDataEditor);
  tabDataEditor->setObjectName(QStringLiteral("tabDataEditor"));
  tabDataEditor->setDocumentMode(true);
  tabDataEditor->setExpanding(false);
  tabDataEditor->setUsesScrollButtons(true);
  lblDataEditorTitle->setBuddy(tabDataEditor);

  editorLayout_ = new QVBoxLayout(picDataEditor);
  editorLayout_->setContentsMargins(0, 6, 6, 6);
  editorLayout_->addWidget(lblDataEditorTitle);
  editorLayout_->addWidget(tabDataEditor);
  editorLayout_->addStretch(0);

  connect(tabDataEditor, &QTabBar::currentChanged, this,
          tools::Guarded(services_.dialogs, [this] { OnTabClick(); }));
}

QAction* frmMain::AddMenuItem(QMenu& menu, const char* name, Text text) {
  QAction* item = menu.addAction(Caption(text));
  item->setObjectName(QString::fromLatin1(name));
  return item;
}

void frmMain::OnMenuItem(QAction* item, std::function<void()> command) {
  connect(item, &QAction::triggered, this, tools::Guarded(services_.dialogs, std::move(command)));
}

void frmMain::BuildMenus() {
  mnuPopupProduct = new QMenu(this);
  mnuPopupProduct->setObjectName(QStringLiteral("mnuPopupProduct"));
  mnuProductAddVersion = AddMenuItem(*mnuPopupProduct, "mnuProductAddVersion", Text::AddVersion);
  OnMenuItem(mnuProductAddVersion, [this] { services_.operations.AddVersion(); });

  mnuPopupVersion = new QMenu(this);
  mnuPopupVersion->setObjectName(QStringLiteral("mnuPopupVersion"));
  mnuVersionAddComponent =
      AddMenuItem(*mnuPopupVersion, "mnuVersionAddComponent", Text::AddComponent);
  mnuVersionSep = mnuPopupVersion->addSeparator();
  mnuVersionSep->setObjectName(QStringLiteral("mnuVersionSep"));
  mnuVersionDelete = AddMenuItem(*mnuPopupVersion, "mnuVersionDelete", Text::Delete);
  mnuVersionProperties = AddMenuItem(*mnuPopupVersion, "mnuVersionProperties", Text::Properties);
  OnMenuItem(mnuVersionAddComponent, [this] {
    services_.operations.AddComponent(SlotsOf(trvProjectTree->SelectedNode()).version);
  });
  OnMenuItem(mnuVersionDelete, [this] { DeleteSelectedNode(); });

  mnuPopupComponent = new QMenu(this);
  mnuPopupComponent->setObjectName(QStringLiteral("mnuPopupComponent"));
  mnuComponentDelete = AddMenuItem(*mnuPopupComponent, "mnuComponentDelete", Text::Delete);
  mnuComponentProperties =
      AddMenuItem(*mnuPopupComponent, "mnuComponentProperties", Text::Properties);
  OnMenuItem(mnuComponentDelete, [this] { DeleteSelectedNode(); });
}

void frmMain::BuildResultPanel() {
  pnlResult = new ResultPanel(services_.dialogs, this);
  addDockWidget(Qt::BottomDockWidgetArea, pnlResult);
  pnlResult->hide();
  connect(pnlResult, &ResultPanel::PlaceChosen, this,
          tools::Guarded(services_.dialogs,
                         [this](std::int32_t version, std::int32_t component, std::int32_t entry) {
                           ShowPlace(version, component, entry);
                         }));
  connect(pnlResult, &ResultPanel::BuildAgainWanted, this,
          [this](std::int32_t version) { Q_EMIT BuildAgainWanted(version, editorTabs_); });

  // In the version's menu, and by their keys from wherever the user is.
  mnuPopupVersion->addSeparator();
  mnuVersionCheck = AddMenuItem(*mnuPopupVersion, "mnuVersionCheck", Text::CheckVersion);
  mnuVersionCheck->setShortcut(Qt::Key_F5);
  mnuVersionBuildAgain = AddMenuItem(*mnuPopupVersion, "mnuVersionBuildAgain", Text::BuildAgain);
  mnuVersionBuildAgain->setShortcut(Qt::Key_F7);
  addActions({mnuVersionCheck, mnuVersionBuildAgain});
  OnMenuItem(mnuVersionCheck, [this] { RunForVersion(Text::CheckVersion, &frmMain::CheckWanted); });
  OnMenuItem(mnuVersionBuildAgain,
             [this] { RunForVersion(Text::BuildAgain, &frmMain::BuildAgainWanted); });
}

void frmMain::SetFixedCaptions() {
  setWindowTitle(Caption(Text::ProgramName));
  lblProjectTreeTitle->setText(Caption(Text::ProjectTreeTitle) + QLatin1Char(' '));
  lblDataEditorTitle->setText(Caption(Text::ProjectEditorTitle) + QLatin1Char(' '));
  lblProjectTreeInfo->setText(Caption(Text::ProjectTreeHint));
  trvProjectTree->setAccessibleName(Caption(Text::ProjectTreeTitle));
  tabDataEditor->setAccessibleName(Caption(Text::ProjectEditorTitle));
}

void frmMain::UpdateProjectState() {
  const bool open = services_.project.IsOpen();
  if (open) {
    setWindowTitle(
        LiteralTitle(Caption(Text::ProgramName) + QStringLiteral(" - ") +
                     tools::ToQString(tools::FileNamePart(services_.project.ProductPath()))));
  } else {
    SetFixedCaptions();
  }
  EnableDisableAll(open);
  ErrorList errors;
  FillTree(errors);
  errors.Try([this] { UpdateEditor(); });
  if (open) trvProjectTree->setFocus();
  pnlResult->Clear();
  errors.Show(services_.dialogs);
}

void frmMain::EnableDisableAll(bool enable) {
  for (QWidget* control : std::initializer_list<QWidget*>{
           trvProjectTree, tabDataEditor, picProjectTree, picDataEditor, lblProjectTreeInfo}) {
    control->setEnabled(enable);
  }
  lblProjectTreeTitle->SetActive(enable);
  lblDataEditorTitle->SetActive(enable);
}

void frmMain::UpdateTree() {
  ErrorList errors;
  FillTree(errors);
  errors.Show(services_.dialogs);
}

void frmMain::FillTree(ErrorList& errors) {
  // Thousands of components are read: inside a batch each file is compared with the disk once.
  const tools::SettingsStore::Batch batch(services_.project.Settings());
  std::int32_t latest = 0;
  errors.Try([&] { latest = services_.operations.LatestVersion(); });
  trvProjectTree->Fill(services_.project, latest, errors);
}

void frmMain::UpdateEditor() {
  editorTabs_.Reset(true);
  const QSignalBlocker quiet(tabDataEditor);
  while (tabDataEditor->count() > 0) tabDataEditor->removeTab(0);
  // First: a product file that cannot be read is told once, not by each page.
  trvProjectTree->SetProductTitle(services_.project.ProductTitle());
  const Node node = trvProjectTree->SelectedNode();
  const NodeSlots slots = SlotsOf(node);
  editorTabs_.Prepare(PageListOf(node), slots.version, slots.component);
  for (std::int32_t i = 1; i <= editorTabs_.Count(); ++i) {
    tabDataEditor->addTab(tools::ToQString(editorTabs_.Item(i).Title()));
  }
  OnTabClick();
}

void frmMain::OnTabClick() {
  if (!services_.project.IsOpen() || tabDataEditor->currentIndex() < 0) return;
  editorTabs_.ShowTab(tabDataEditor->currentIndex() + 1);
}

void frmMain::PositionExtender(QWidget& page) {
  if (editorLayout_->indexOf(&page) < 0) editorLayout_->addWidget(&page, 1);
}

void frmMain::ShowStatusText(const std::string& text) {
  sbrMain->showMessage(tools::ToQString(text));
}

void frmMain::ShowHourglass(bool shown) {
  if (shown) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    tools::PaintWithoutUserInput();
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void frmMain::PopUpNodeMenu(const QPoint& globalPosition) {
  const std::string tag = trvProjectTree->SelectedNode().tag;
  QMenu* menu = tag == kProductTag     ? mnuPopupProduct
                : tag == kVersionTag   ? mnuPopupVersion
                : tag == kComponentTag ? mnuPopupComponent
                                       : nullptr;
  if (menu != nullptr) menu->popup(globalPosition);
}

void frmMain::DeleteSelectedNode() {
  const Node node = trvProjectTree->SelectedNode();
  const NodeSlots slots = SlotsOf(node);
  const ShownTexts shown = trvProjectTree->SelectedTexts();
  tools::Guard(services_.dialogs, [&] {
    if (node.tag == kVersionTag) services_.operations.DeleteVersion(slots.version, shown.version);
    if (node.tag == kComponentTag) {
      services_.operations.DeleteComponent(slots.version, slots.component, shown.version,
                                           shown.component);
    }
  });
  // Its pages could only write to files that are gone, or to a later node of the same slot.
  if (trvProjectTree->SelectedNode() != node) DropPages();
}

void frmMain::DropPages() {
  editorTabs_.Reset(false);
  const QSignalBlocker quiet(tabDataEditor);
  while (tabDataEditor->count() > 0) tabDataEditor->removeTab(0);
}

void frmMain::OnToolButton(const QString& key) {
  model::ModProjectOperations& operations = services_.operations;
  if (key == QLatin1String("new")) operations.NewProduct();
  if (key == QLatin1String("open")) operations.OpenProduct({});
  if (key == QLatin1String("save")) {
    operations.SaveAllPages();
    trvProjectTree->SetProductTitle(services_.project.ProductTitle());
  }
  if (key == QLatin1String("close")) operations.CloseProduct(false);
  if (key == QLatin1String("setupwiz")) StartWizard(Text::SetupWizard, &frmMain::SetupWizardWanted);
  if (key == QLatin1String("updatewiz"))
    StartWizard(Text::UpdateWizard, &frmMain::UpdateWizardWanted);
}

void frmMain::StartWizard(Text title, Wanted wanted) {
  if (!services_.project.IsOpen()) {
    Refuse(Text::NoProjectOpen, title);
    return;
  }
  const Node node = trvProjectTree->SelectedNode();
  if (node.tag != kVersionTag) {
    Refuse(Text::NoVersionSelected, title);
    return;
  }
  Q_EMIT(this->*wanted)(SlotsOf(node).version, editorTabs_);
}

void frmMain::RunForVersion(Text title, Wanted wanted) {
  if (!services_.project.IsOpen()) {
    Refuse(Text::NoProjectOpen, title);
    return;
  }
  const std::int32_t version = SlotsOf(trvProjectTree->SelectedNode()).version;
  if (version == 0) {
    Refuse(Text::NoVersionSelected, title);
    return;
  }
  Q_EMIT(this->*wanted)(version, editorTabs_);
}

void frmMain::ShowPlace(std::int32_t version, std::int32_t component, std::int32_t entry) {
  if (!trvProjectTree->SelectNode(ComponentNode(version, component))) return;
  UpdateEditor();
  for (std::int32_t i = 1; entry != 0 && i <= editorTabs_.Count(); ++i) {
    if (!editorTabs_.Item(i).ShowEntry(entry)) continue;
    tabDataEditor->setCurrentIndex(i - 1);
    break;
  }
}

void frmMain::Refuse(Text text, Text caption) {
  services_.dialogs.ShowMessage(
      {.text = model::LoadText(text), .caption = model::LoadText(caption)});
}

void frmMain::closeEvent(QCloseEvent* event) {
  tools::Guard(services_.dialogs,
               [this] { RememberWindowPlace(services_.registry, *this, *splitter_); });
  // The answer does not keep the window open.
  if (event->spontaneous()) {
    tools::Guard(services_.dialogs, [this] { services_.operations.CloseProduct(true); });
  }
  DropPages();
  event->accept();
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
  if (watched == sbrMain && event->type() == QEvent::MouseMove) ShowStatusText({});
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace shell
