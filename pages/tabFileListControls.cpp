// The controls of the file page: what tabFileList.cpp makes work together.
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

#include "pages/EmptyFileHint.h"
#include "pages/FileFilter.h"
#include "pages/FileListMenu.h"
#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "pages/TargetFolders.h"
#include "pages/tabFileList.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/ListViewStyle.h"

namespace pages {

using namespace Qt::StringLiterals;
using tools::Guarded;

namespace {

template <typename Widget>
Widget* Named(Widget* widget, const QString& name) {
  widget->setObjectName(name);
  return widget;
}

}  // namespace

void tabFileList::BuildBrowser() {
  fraBrowser = Named(new QGroupBox(Caption(Text::FileList)), u"fraBrowser"_s);
  lblDestinationFolder =
      Named(new QLabel(Caption(Text::DestinationFolder)), u"lblDestinationFolder"_s);
  cmbDestinationFolder = Named(new QComboBox, u"cmbDestinationFolder"_s);
  tools::IgnoreWheelWithoutFocus(*cmbDestinationFolder);
  cmbDestinationFolder->setAccessibleName(lblDestinationFolder->text());
  cmbDestinationFolder->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  lblDestinationFolder->setBuddy(cmbDestinationFolder);
  auto* folder = new QHBoxLayout;
  folder->addWidget(lblDestinationFolder);
  folder->addWidget(cmbDestinationFolder, 1);

  FillTargetFolders(*cmbDestinationFolder);
  BuildList();
  filter_ = new FileFilter(*shownEntries_, *lsvBrowser);
  emptyHint_ = new EmptyFileHint(*lsvBrowser);

  auto* layout = new QVBoxLayout(fraBrowser);
  layout->addLayout(folder);
  layout->addWidget(filter_);
  layout->addWidget(lsvBrowser, 1);
  layout->addLayout(BuildButtons());
}

void tabFileList::BuildList() {
  lsvBrowser = Named(new QTreeView, u"lsvBrowser"_s);
  lsvBrowser->setAccessibleName(fraBrowser->title());
  lsvBrowser->setModel(shownEntries_);
  tools::ApplyListViewStyle(*lsvBrowser);
  lsvBrowser->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lsvBrowser->setTextElideMode(Qt::ElideMiddle);
  QHeaderView& header = *lsvBrowser->header();
  header.setSectionResizeMode(FileListModel::kFileName, QHeaderView::Stretch);
  header.resizeSection(FileListModel::kTarget,
                       fontMetrics().horizontalAdvance(u"%CommonProgramsDir%\\"_s) * 5 / 4);
  header.setSortIndicator(-1, Qt::AscendingOrder);
  header.setSortIndicatorClearable(true);
  lsvBrowser->setSortingEnabled(true);
}

QLayout* tabFileList::BuildButtons() {
  cmdAddFile = Named(new QPushButton(Caption(Text::AddFileButton)), u"cmdAddFile"_s);
  cmdRemoveFile = Named(new QPushButton(Caption(Text::RemoveFileButton)), u"cmdRemoveFile"_s);
  cmdMoveFile = Named(new QPushButton(Caption(Text::MoveFileButton)), u"cmdMoveFile"_s);
  cmdRemoveFile->setEnabled(false);
  cmdMoveFile->setEnabled(false);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {cmdAddFile, cmdRemoveFile, cmdMoveFile}) buttons->addWidget(button);
  buttons->addStretch(1);
  return buttons;
}

void tabFileList::BuildProperties() {
  fraFileProps = Named(new QGroupBox(Caption(Text::FileProperties)), u"fraFileProps"_s);
  propsFile = Named(MakeGrid(services_.dialogs), u"propsFile"_s);
  propsFile->setAccessibleName(fraFileProps->title());
  propsFile->SetShowTooltips(true);
  propsFile->setEnabled(false);
  auto* layout = new QVBoxLayout(fraFileProps);
  layout->addWidget(propsFile);
}

void tabFileList::BuildMenu() {
  mnuPopup = Named(new QMenu(this), u"mnuPopup"_s);
  const auto add = [this](const QString& name, Text text) {
    return Named(mnuPopup->addAction(Caption(text)), name);
  };
  mnuAddFile = add(u"mnuAddFile"_s, Text::AddFile);
  mnuAddDirectory = {add(u"mnuAddDirectory0"_s, Text::AddFolder),
                     add(u"mnuAddDirectory1"_s, Text::AddFolderWithSubfolders)};
  mnuAddDynamic = add(u"mnuAddDynamic"_s, Text::AddDynamicEntry);
  mnuPopupSep1 = Named(mnuPopup->addSeparator(), u"mnuPopupSep1"_s);
  mnuMoveFile = add(u"mnuMoveFile"_s, Text::MoveSelection);
  mnuRemoveFile = add(u"mnuRemoveFile"_s, Text::RemoveSelection);
  BuildAddedMenu();
  mnuPopup->setAccessibleName(lsvBrowser->accessibleName());
}

void tabFileList::BuildAddedMenu() {
  const auto add = [this](const QString& name, Text text, void (tabFileList::*command)()) {
    QAction* item = AddItem(*mnuPopup, *this, name, text);
    connect(item, &QAction::triggered, this,
            Guarded(services_.dialogs, [this, command] { (this->*command)(); }));
    return item;
  };
  mnuPopup->addSeparator();
  add(u"mnuAddScan"_s, Text::AddScan, &tabFileList::AddScan);
  mnuShowScan_ = add(u"mnuShowScan"_s, Text::ShowScan, &tabFileList::ShowScan);
  add(u"mnuRelative"_s, Text::MakeSourcesRelative, &tabFileList::MakeSourcesRelative);
  mnuPopup->addSeparator();
  AddUndoItems(*mnuPopup, *this, document_->Steps());
  AddSortMenu(*mnuPopup, *lsvBrowser);
  QAction* filter = AddItem(*mnuPopup, *this, u"mnuFilter"_s, Text::FilterEntries, u"Strg+F"_s,
                            {Qt::CTRL | Qt::Key_F});
  filter->setShortcutContext(Qt::WindowShortcut);  // from the tree too, while the page is shown
  connect(filter, &QAction::triggered, filter_, &FileFilter::Start);
}

}  // namespace pages
