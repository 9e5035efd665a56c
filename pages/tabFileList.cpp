#include "pages/tabFileList.h"

#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "pages/AddedFiles.h"
#include "pages/EmptyFileHint.h"
#include "pages/FileFilter.h"
#include "pages/FileListMenu.h"
#include "pages/FileProperties.h"
#include "pages/ListPopup.h"
#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "pages/RelativeSources.h"
#include "pages/ScanEntries.h"
#include "pages/SourceMarks.h"
#include "pages/TargetFolders.h"
#include "pages/UnknownTargets.h"
#include "pages/frmFolderScan.h"
#include "tools/Error.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/WaitCursor.h"

namespace pages {

using namespace Qt::StringLiterals;
using grid::EditReaction;
using tools::Guarded;

tabFileList::tabFileList(const PageServices& services, QWidget* parent)
    : EditorPage(parent),
      services_(services),
      document_(new FileListDocument(this)),
      shownEntries_(new FileListModel(this)) {
  setFont(tools::FormFont());
  BuildBrowser();
  BuildProperties();
  BuildMenu();
  auto* halves = new QSplitter(Qt::Vertical);
  halves->setChildrenCollapsible(false);
  halves->addWidget(fraBrowser);
  halves->addWidget(fraFileProps);
  halves->setStretchFactor(0, 3);  // the list shares its part with other controls
  halves->setStretchFactor(1, 2);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(halves);
  setFocusProxy(cmbDestinationFolder);
  ConnectEvents();
}

// The list view outlives the entries, and is laid out once more while it is taken down.
tabFileList::~tabFileList() { shownEntries_->Show({}, 0); }

void tabFileList::ConnectEvents() {
  tools::Dialogs& dialogs = services_.dialogs;
  connect(cmbDestinationFolder, &QComboBox::currentIndexChanged, this,
          &tabFileList::ShowChosenFolder);
  connect(document_, &FileListDocument::Changed, this, &tabFileList::ShowChange);
  connect(&document_->Steps(), &QUndoStack::indexChanged, this, [this] {
    if (document_->Steps().isClean()) {
      MatchesStored();
    } else {
      SetDirty(true);
    }
  });
  new ListPopup(*lsvBrowser, *mnuPopup);
  connect(mnuPopup, &QMenu::aboutToShow, this, &tabFileList::EnableMenuItems);
  connect(new FileDrop(*this), &FileDrop::Dropped, this,
          Guarded(dialogs, [this](const DroppedPaths& dropped) { AddDropped(dropped); }));
  marks_ = new SourceMarks(*this, *document_, *shownEntries_, services_.project, dialogs);
  // A reset deselects without a signal: rows of no entry would take edits that nobody keeps.
  connect(shownEntries_, &FileListModel::modelReset, this, [this] {
    propsFile->Clear();
    emptyHint_->Update(shownEntries_->FolderCounts(),
                       shownEntries_->HasFilter() && shownEntries_->CountInFolder() > 0);
  });
  connect(emptyHint_, &EmptyFileHint::FilterUnwanted, filter_, &FileFilter::Clear);
  connect(emptyHint_, &EmptyFileHint::FolderWanted, this, [this](std::int32_t number) {
    cmbDestinationFolder->setCurrentIndex(cmbDestinationFolder->findData(number));
    lsvBrowser->setFocus(Qt::TabFocusReason);
  });
  connect(emptyHint_, &EmptyFileHint::UnknownFoldersWanted, this,
          Guarded(dialogs, [this] { MendUnknownTargets(); }));
  connect(mnuAddFile, &QAction::triggered, this, Guarded(dialogs, [this] { AddFiles(); }));
  connect(cmdAddFile, &QPushButton::clicked, mnuAddFile, &QAction::trigger);
  connect(mnuAddDirectory[0], &QAction::triggered, this,
          Guarded(dialogs, [this] { AddFolder(tools::Subfolders::Skip); }));
  connect(mnuAddDirectory[1], &QAction::triggered, this,
          Guarded(dialogs, [this] { AddFolder(tools::Subfolders::Search); }));
  connect(cmdRemoveFile, &QPushButton::clicked, this,
          Guarded(dialogs, [this] { RemoveSelected(); }));
  connect(lsvBrowser->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          Guarded(dialogs, [this] { ShowSelectedEntries(); }));
  // Its source may have come or changed meanwhile.
  connect(lsvBrowser, &QTreeView::clicked, this,
          Guarded(dialogs, [this] { ShowSelectedEntries(); }));
  propsFile->OnValueHelp([this, &dialogs](const QString& name) {
    return FileFieldHelp(name, services_.project, dialogs);
  });
  propsFile->OnEditProperty([](const QString& name, QString&, EditReaction& reaction) {
    if (!IsFilePropertyEditable(name)) reaction = EditReaction::NotEditable;
  });
  propsFile->OnPropertyChanged(
      [this](const QString& name, const QString& text) { ChangeProperty(name, text); });
}

std::string tabFileList::Title() const { return model::LoadText(Text::FilesPage); }

void tabFileList::ReadSettings() {
  const std::string path =
      services_.project.ComponentFilePath(Host()->VersionIndex(), Host()->ComponentIndex());
  emptyHint_->SetHasFile(services_.project.Settings().Exists(path));
  document_->Read(*Host(), path);
  RefreshFileList();
}

bool tabFileList::ShowEntry(std::int32_t entry, const std::string& id) {
  const model::FileEntries& entries = document_->Entries();
  const model::ICFile* wanted = nullptr;
  if (!id.empty()) {
    wanted = entries.Find(id);
  } else if (entry >= 1 && static_cast<std::size_t>(entry) <= entries.Count()) {
    wanted = &*std::next(entries.begin(), entry - 1);
  }
  if (wanted == nullptr) return false;
  if (!IsTargetFolder(wanted->TargetFolder)) {
    // No list shows it. Whoever finds this page hidden asks once more when it is not.
    if (isVisible()) MendUnknownTargets(wanted);
    return true;
  }
  ChooseFolderOf({wanted});
  if (shownEntries_->RowsOf({wanted}).empty()) filter_->Clear();
  SelectRows(*lsvBrowser, shownEntries_->RowsOf({wanted}));
  lsvBrowser->setFocus();
  marks_->Update();  // what leads here may know more of its source
  return true;
}

void tabFileList::WriteSettings() { document_->Write(*Host()); }

void tabFileList::SettingsWritten() { document_->Written(); }

void tabFileList::ShowChosenFolder() {
  shownEntries_->ShowFolder(ChosenFolder());
  filter_->ShowCount(document_->Entries().Count());
}

void tabFileList::RefreshFileList() { ShowEntries({}); }

void tabFileList::ShowEntries(const std::vector<const model::ICFile*>& changed) {
  shownEntries_->Show(document_->Entries(), ChosenFolder(), changed);
  filter_->ShowCount(document_->Entries().Count());
  ShowFolderCounts(*cmbDestinationFolder, shownEntries_->FolderCounts());
  propsFile->Clear();
}

void tabFileList::AddFileEntry(const std::string& path) { AddFileEntries({path}); }

void tabFileList::AddFileEntries(const std::vector<std::string>& paths) {
  NewEntries added = EntriesFor(paths, ChosenFolder());
  // What was told before is not about these.
  StatusTextChanged(paths.empty() ? AddedText({}, 0) : std::string());
  if (!added.entries.empty()) {
    OfferRelativeSources(added.entries, services_.project, services_.dialogs);
    const std::size_t listed =
        CountListed(document_->Entries(), added.entries, services_.project.ProductFolder());
    filter_->Clear();  // it could hide what is added
    const std::string told = AddedText(added.entries, listed);
    document_->Add(std::move(added.entries));
    StatusTextChanged(told);
  }
  if (!added.refused.empty()) throw tools::Error(RefusalOf(added.refused));
}

void tabFileList::AddFiles() {
  const std::vector<std::string> paths = AskForFiles(services_.dialogs);
  if (!paths.empty()) AddFileEntries(paths);
}

void tabFileList::AddFolder(tools::Subfolders subfolders) {
  const tools::WaitCursor wait;
  const auto paths = AskForFolder(services_.dialogs, subfolders);
  if (paths) AddFileEntries(*paths);
}

void tabFileList::AddDropped(const DroppedPaths& dropped) {
  const tools::WaitCursor wait;
  AddFileEntries(FilesIn(services_.dialogs, dropped));
  lsvBrowser->setFocus(Qt::MouseFocusReason);  // the next keys are about what was dropped
}

void tabFileList::AddScan() {
  frmFolderScan dialog({}, services_.project, services_.dialogs, window());
  if (dialog.exec() != QDialog::Accepted) return;
  filter_->Clear();  // it could hide what is added
  const model::ICFile entry = EntryFor(dialog.Scan(), ChosenFolder(), services_);
  document_->Add({entry});
  StatusTextChanged(ToldOfScan(entry));
}

void tabFileList::ShowScan() {
  const model::ICFile& entry = *SelectedEntries().front();
  frmFolderScan dialog(ScanOf(entry), services_.project, services_.dialogs, window());
  if (dialog.exec() != QDialog::Accepted) return;
  const std::vector<std::string> ids{entry.ID};
  document_->Set(EditsToScan(entry, dialog.Scan(), services_));
  TellOfChange({}, ids);
}

void tabFileList::MakeSourcesRelative() {
  const std::vector<FieldEdit> edits =
      EditsToRelativeSources(document_->Entries(), services_.project.ProductFolder());
  document_->Set(edits);
  StatusTextChanged(Counted(Text::SourcesAreRelative, edits.size()));
}

void tabFileList::MendUnknownTargets(const model::ICFile* wanted) {
  const std::vector<FieldEdit> edits = AskForTargets(document_->Entries(), wanted, window());
  if (edits.empty()) return;
  document_->Set(edits);
  const std::vector<std::string> ids = IdsOf(edits);
  TellOfChange(u"TargetFolder"_s, ids);
  const std::vector<const model::ICFile*> entries = document_->Find(ids);
  ChooseFolderOf(entries);
  SelectRows(*lsvBrowser, shownEntries_->RowsOf(entries));
  lsvBrowser->setFocus(Qt::TabFocusReason);  // the link that led here is gone
}

void tabFileList::RemoveSelected() {
  const std::vector<std::string> ids = SelectedIds();
  if (ids.empty()) return;
  document_->Remove(ids);
  StatusTextChanged(Counted(Text::RemovedEntries, ids.size()));
}

std::vector<const model::ICFile*> tabFileList::SelectedEntries() const {
  std::vector<const model::ICFile*> entries;
  for (const int row : SelectedRows(*lsvBrowser)) entries.push_back(&shownEntries_->EntryAt(row));
  return entries;
}

std::vector<std::string> tabFileList::SelectedIds() const {
  std::vector<std::string> ids;
  for (const model::ICFile* entry : SelectedEntries()) ids.push_back(entry->ID);
  return ids;
}

void tabFileList::ShowSelectedEntries() {
  // Rows that belong to no entry would take edits that nobody keeps.
  const std::vector<const model::ICFile*> entries = SelectedEntries();
  ShowFileProperties(*propsFile, entries, services_.project.ProductFolder());
  if (entries.empty()) return;
  propsFile->setEnabled(true);
  cmdRemoveFile->setEnabled(true);
  cmdMoveFile->setEnabled(true);
}

void tabFileList::ChangeProperty(const QString& name, const QString& text) {
  const std::vector<std::string> ids = SelectedIds();
  if (ids.empty()) return;
  SetDirty(true);
  std::vector<FieldEdit> edits;
  edits.reserve(ids.size());
  for (const std::string& id : ids) edits.push_back({id, tools::ToUtf8(name), tools::ToUtf8(text)});
  try {
    document_->Set(edits);
  } catch (...) {
    // The grid shows the refused text already.
    ShowSelectedEntries();
    propsFile->SelectProperty(name);
    throw;
  }
  propsFile->SelectProperty(name);
  TellOfChange(name, ids);
}

void tabFileList::TellOfChange(const QString& name, const std::vector<std::string>& ids) {
  const model::ICFile& entry = *document_->Entries().Find(ids.front());
  QString told = ToldOfChange(name, entry, ids.size());
  if (told.isEmpty() && shownEntries_->HasFilter()) {
    told = ToldOfHidden(ids.size() - shownEntries_->RowsOf(document_->Find(ids)).size());
  }
  if (!told.isEmpty()) StatusTextChanged(tools::ToUtf8(told));
}

void tabFileList::ShowChange(const std::vector<std::string>& ids, FileListDocument::By by) {
  const QString property = propsFile->SelectedProperty();
  const std::vector<int> selected = SelectedRows(*lsvBrowser);
  const std::vector<const model::ICFile*> entries = document_->Find(ids);
  ShowEntries(entries);
  if (by != FileListDocument::By::Step) {
    ChooseFolderOf(entries);
    // What a step brought back is to be seen.
    if (!entries.empty() && shownEntries_->RowsOf(entries).empty()) filter_->Clear();
    StatusTextChanged(ToldOfRepetition(document_->Steps(), by));
  }
  std::vector<int> rows = shownEntries_->RowsOf(entries);
  const int last = shownEntries_->rowCount() - 1;
  if (entries.empty() && !selected.empty() && last >= 0) rows = {std::min(selected.front(), last)};
  SelectRows(*lsvBrowser, rows);
  propsFile->SelectProperty(property);
}

void tabFileList::ChooseFolderOf(const std::vector<const model::ICFile*>& entries) {
  const bool isShown = std::any_of(entries.begin(), entries.end(), [this](const auto* entry) {
    return entry->TargetFolder == ChosenFolder();
  });
  if (isShown || entries.empty()) return;
  const int position = cmbDestinationFolder->findData(entries.front()->TargetFolder);
  if (position >= 0) cmbDestinationFolder->setCurrentIndex(position);
}

std::int32_t tabFileList::ChosenFolder() const {
  return cmbDestinationFolder->currentData().toInt();
}

void tabFileList::EnableMenuItems() {
  const std::vector<const model::ICFile*> selected = SelectedEntries();
  mnuRemoveFile->setEnabled(!selected.empty());
  mnuMoveFile->setEnabled(!selected.empty());
  mnuShowScan_->setEnabled(selected.size() == 1 &&
                           selected.front()->Type == model::ICFile::kFolderScan);
}

}  // namespace pages
