#include "pages/tabFileList.h"

#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>
#include <utility>

#include "model/FolderTable.h"
#include "pages/AddedFiles.h"
#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "tools/Error.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/ListViewStyle.h"
#include "tools/desktop/WaitCursor.h"
#include "tools/files/FileInformation.h"
#include "tools/files/Path.h"

namespace pages {

using namespace Qt::StringLiterals;
using grid::EditReaction;
using tools::Guarded;

namespace {

constexpr std::string_view kType = "Type";
constexpr const char* kExisting = "Existing";
constexpr const char* kVersion = "Version";
constexpr const char* kFileDateTime = "FileDateTime";

QString FromLatin1(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

template <typename Widget>
Widget* Named(Widget* widget, const QString& name) {
  widget->setObjectName(name);
  return widget;
}

}  // namespace

tabFileList::tabFileList(const PageServices& services, QWidget* parent)
    : EditorPage(parent), services_(services), shownEntries_(new FileListModel(this)) {
  setFont(tools::FormFont());
  BuildBrowser();
  BuildProperties();
  BuildMenu();
  auto* halves = new QSplitter(Qt::Vertical);
  halves->setChildrenCollapsible(false);
  halves->addWidget(fraBrowser);
  halves->addWidget(fraFileProps);
  halves->setStretchFactor(0, 1);
  halves->setStretchFactor(1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(halves);
  setFocusProxy(cmbDestinationFolder);
  ConnectEvents();
  FillDestinationFolders();
}

// The list view outlives the entries, and is laid out once more while it is taken down.
tabFileList::~tabFileList() { shownEntries_->Show({}, 0); }

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

  lsvBrowser = Named(new QTreeView, u"lsvBrowser"_s);
  lsvBrowser->setAccessibleName(fraBrowser->title());
  lsvBrowser->setModel(shownEntries_);
  tools::ApplyListViewStyle(*lsvBrowser);
  lsvBrowser->setTextElideMode(Qt::ElideMiddle);
  lsvBrowser->header()->setSectionResizeMode(FileListModel::kFileName, QHeaderView::Stretch);
  lsvBrowser->header()->resizeSection(
      FileListModel::kTarget, fontMetrics().horizontalAdvance(u"%CommonProgramsDir%\\"_s) * 5 / 4);
  lsvBrowser->installEventFilter(this);
  lsvBrowser->viewport()->installEventFilter(this);

  cmdAddFile = Named(new QPushButton(Caption(Text::AddFileButton)), u"cmdAddFile"_s);
  cmdRemoveFile = Named(new QPushButton(Caption(Text::RemoveFileButton)), u"cmdRemoveFile"_s);
  cmdMoveFile = Named(new QPushButton(Caption(Text::MoveFileButton)), u"cmdMoveFile"_s);
  cmdRemoveFile->setEnabled(false);
  cmdMoveFile->setEnabled(false);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {cmdAddFile, cmdRemoveFile, cmdMoveFile}) buttons->addWidget(button);
  buttons->addStretch(1);

  auto* layout = new QVBoxLayout(fraBrowser);
  layout->addLayout(folder);
  layout->addWidget(lsvBrowser, 1);
  layout->addLayout(buttons);
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
}

void tabFileList::ConnectEvents() {
  tools::Dialogs& dialogs = services_.dialogs;
  connect(cmbDestinationFolder, &QComboBox::currentIndexChanged, this, [this] {
    if (!filling_) RefreshFileList();
  });
  connect(mnuAddFile, &QAction::triggered, this, Guarded(dialogs, [this] { AddFile(); }));
  connect(cmdAddFile, &QPushButton::clicked, mnuAddFile, &QAction::trigger);
  connect(mnuAddDirectory[0], &QAction::triggered, this,
          Guarded(dialogs, [this] { AddFolder(false); }));
  connect(mnuAddDirectory[1], &QAction::triggered, this,
          Guarded(dialogs, [this] { AddFolder(true); }));
  connect(cmdRemoveFile, &QPushButton::clicked, this, Guarded(dialogs, [this] { RemoveFile(); }));
  connect(lsvBrowser->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          Guarded(dialogs, [this] { ShowSelectedEntry(); }));
  // Its source may have come or changed meanwhile.
  connect(lsvBrowser, &QTreeView::clicked, this, Guarded(dialogs, [this] { ShowSelectedEntry(); }));
  propsFile->OnEditProperty([](const QString& name, QString&, EditReaction& reaction) {
    for (const char* fixed : {kVersion, kFileDateTime, "ID", kExisting}) {
      if (name == QLatin1StringView(fixed)) reaction = EditReaction::NotEditable;
    }
  });
  propsFile->OnPropertyChanged(
      [this](const QString& name, const QString& text) { ChangeProperty(name, text); });
}

void tabFileList::FillDestinationFolders() {
  filling_ = true;
  for (std::int32_t folder = 1; folder <= 100; ++folder) {
    if (model::FolderMacro(folder).empty()) continue;
    const std::string name = model::FolderDisplayName(folder);
    cmbDestinationFolder->addItem(
        tools::ToQString(tools::ReplaceAll(model::LoadText(Text::NamedFolder), "%name%", name)),
        folder);
  }
  for (std::int32_t folder = 2000; folder <= 2020; ++folder) {
    if (model::FolderMacro(folder).empty()) continue;
    cmbDestinationFolder->addItem(tools::ToQString(model::FolderDisplayName(folder)), folder);
  }
  cmbDestinationFolder->setCurrentIndex(0);
  filling_ = false;
}

std::string tabFileList::Title() const { return model::LoadText(Text::FilesPage); }

void tabFileList::ReadSettings() {
  std::vector<bool> typed;  // of the sections read so far
  model::FileEntries entries = model::ReadFileEntries(
      [&](auto section, auto key, auto defaultValue) {
        if (key == kType) typed.push_back(IsTypeStored(section));
        return Host()->Read(section, key, defaultValue);
      },
      services_.project.ComponentFilePath(Host()->VersionIndex(), Host()->ComponentIndex()));
  entries_ = std::move(entries);
  untyped_.clear();
  typedSections_ = std::move(typed);
  auto hasType = typedSections_.begin();
  for (const model::ICFile& entry : entries_) {
    if (!*hasType++) untyped_.insert(entry.ID);
  }
  RefreshFileList();
}

bool tabFileList::IsTypeStored(std::string_view section) const {
  return !Host()->Read(section, kType, "").empty() ||
         Host()->Read(section, kType, model::kBuildDefaultType).empty();
}

void tabFileList::WriteSettings() {
  // What is read through the host counts as seen: reading here would hide what another program has
  // written meanwhile.
  auto entry = entries_.begin();  // the one whose type is written next
  std::size_t position = 0;
  model::WriteFileEntries(
      [&](auto section, auto key, auto value) {
        if (key != kType) return Host()->Save(section, key, value);
        const bool untyped = untyped_.contains((entry++)->ID);
        const bool stored = position < typedSections_.size() && typedSections_[position];
        ++position;
        if (!untyped) return Host()->Save(section, key, value);
        // Builds read a missing type as a single file: it must not become the 0 that is shown.
        if (stored) Host()->Save(section, key, model::kBuildDefaultType);
      },
      entries_);
}

void tabFileList::SettingsWritten() {
  std::size_t position = 0;
  for (const model::ICFile& entry : entries_) {
    if (position == typedSections_.size()) typedSections_.push_back(false);
    if (!untyped_.contains(entry.ID)) typedSections_[position] = true;
    ++position;
  }
}

void tabFileList::RefreshFileList() {
  shownEntries_->Show(entries_, ChosenFolder());
  propsFile->Clear();
}

void tabFileList::AddFileEntry(const std::string& path) { AddFileEntries({path}); }

void tabFileList::AddFileEntries(const std::vector<std::string>& paths) {
  std::vector<std::string> refused;
  for (const std::string& path : paths) {
    if (CanBeStored(path)) {
      AppendEntry(path);
    } else {
      refused.push_back(path);
    }
  }
  if (refused.size() < paths.size()) RefreshFileList();
  if (!refused.empty()) throw tools::Error(RefusalOf(refused));
}

void tabFileList::AppendEntry(const std::string& path) {
  model::ICFile entry = EntryFor(path, ChosenFolder());
  entry.ID = guids_.NewText();
  entries_.Add(std::move(entry));
  SetDirty(true);
}

void tabFileList::AddFile() {
  const std::string path = AskForFile(services_.dialogs);
  if (!path.empty()) AddFileEntry(path);
}

void tabFileList::AddFolder(bool withSubfolders) {
  const tools::WaitCursor wait;
  AddFileEntries(AskForFolder(services_.dialogs, withSubfolders));
}

void tabFileList::RemoveFile() {
  const model::ICFile* entry = SelectedEntry();
  if (entry == nullptr) return;
  entries_.Remove(std::string(entry->ID));
  SetDirty(true);
  RefreshFileList();
}

const model::ICFile* tabFileList::SelectedEntry() const {
  const QModelIndexList selected = lsvBrowser->selectionModel()->selectedRows();
  return selected.isEmpty() ? nullptr : &shownEntries_->EntryAt(selected.front().row());
}

void tabFileList::ShowSelectedEntry() {
  const model::ICFile* entry = SelectedEntry();
  if (entry == nullptr) {
    // Rows that belong to no entry would take edits that nobody keeps.
    propsFile->Clear();
    return;
  }
  propsFile->setEnabled(true);
  cmdRemoveFile->setEnabled(true);
  cmdMoveFile->setEnabled(true);
  propsFile->Clear();
  for (const model::FileEntryField& field : model::FileEntryFields()) {
    propsFile->AddProperty(FromLatin1(field.name), Caption(field.title),
                           tools::ToQString(model::FileEntryFieldText(*entry, field)), 1,
                           field.access == model::FileEntryField::Access::ReadOnly);
  }
  if (entry->Type == model::ICFile::kSingleFile) ShowSourceFile(*entry);
}

void tabFileList::ShowSourceFile(const model::ICFile& entry) {
  const std::string folder =
      tools::ResolvePath(entry.SourcePath, services_.project.ProductFolder());
  const tools::FileInformation file =
      tools::InformationOf(tools::JoinPath(folder, entry.SourceName));
  const auto add = [this](const char* name, Text title, const std::string& value) {
    propsFile->AddProperty(FromLatin1(name), Caption(title), tools::ToQString(value), 1, true);
  };
  add(kExisting, Text::SourceExists,
      tools::StandardText(file.exists ? tools::kTextExisting : tools::kTextMissing));
  add(kVersion, Text::SourceVersion, file.version);
  add(kFileDateTime, Text::SourceDate, file.dateTime);
}

void tabFileList::ChangeProperty(const QString& name, const QString& text) {
  const model::ICFile* entry = SelectedEntry();
  if (entry == nullptr) return;
  SetDirty(true);
  const std::string id = entry->ID;
  try {
    entries_.SetField(id, tools::ToUtf8(name), tools::ToUtf8(text));
    if (name == FromLatin1(kType)) untyped_.erase(id);
  } catch (...) {
    // The grid shows the refused text already.
    ShowSelectedEntry();
    propsFile->SelectProperty(name);
    throw;
  }
  RefreshFileList();
  SelectEntry(id);
  propsFile->SelectProperty(name);
}

void tabFileList::SelectEntry(const std::string& id) {
  const int row = shownEntries_->RowOf(id);
  if (row >= 0) lsvBrowser->setCurrentIndex(shownEntries_->index(row, 0));
}

std::int32_t tabFileList::ChosenFolder() const {
  return cmbDestinationFolder->currentData().toInt();
}

bool tabFileList::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lsvBrowser->viewport() && event->type() == QEvent::MouseButtonPress) {
    const auto& press = static_cast<const QMouseEvent&>(*event);
    if (press.button() == Qt::RightButton) {
      // The list selects the row under the mouse first.
      QMetaObject::invokeMethod(
          this, [this, at = press.globalPosition().toPoint()] { ShowPopup(at); },
          Qt::QueuedConnection);
    }
  }
  if (event->type() == QEvent::ContextMenu) {
    const auto& request = static_cast<const QContextMenuEvent&>(*event);
    if (request.reason() != QContextMenuEvent::Mouse) ShowPopup(request.globalPos());
    return true;
  }
  return EditorPage::eventFilter(watched, event);
}

void tabFileList::ShowPopup(const QPoint& globalPosition) {
  const bool selected = SelectedEntry() != nullptr;
  mnuRemoveFile->setEnabled(selected);
  mnuMoveFile->setEnabled(selected);
  mnuPopup->popup(globalPosition);
}

}  // namespace pages
