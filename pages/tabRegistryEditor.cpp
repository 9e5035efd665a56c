#include "pages/tabRegistryEditor.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSplitter>
#include <QStringListModel>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/ListViewStyle.h"

namespace pages {

using namespace Qt::StringLiterals;
using grid::EditReaction;
using model::LoadText;
using tools::Guarded;
using tools::ToQString;
using tools::ToUtf8;

namespace {

// Texts that also decide what an entry of the lists does: the lists hold nothing but texts, and a
// key of the machine that bears one of them cannot be entered.
constexpr Text kTopLevel = Text::TopLevel;
constexpr Text kToTopLevel = Text::ToTopLevel;
constexpr Text kLevelUp = Text::LevelUp;
constexpr Text kNewKey = Text::NewKeyEntry;
constexpr Text kRemoveAllValues = Text::RemoveAllValues;
constexpr Text kNotSet = Text::ValueNotSet;

constexpr std::string_view kDefaultValue = "@";

}  // namespace

tabRegistryEditor::tabRegistryEditor(const PageServices& services, QWidget* parent)
    : EditorPage(parent),
      project_(services.project),
      dialogs_(services.dialogs),
      registry_(services.registry),
      keys_([this](auto section, auto key,
                   auto defaultValue) { return Host()->Read(section, key, defaultValue); },
            [this](auto section, auto key, auto value) { Host()->Save(section, key, value); },
            {.path = [this] { return FilePath(); },
             .text = [this] { return project_.Settings().Load(FilePath())->Render(); }}),
      subkeys_(new QStringListModel(this)) {
  setFont(tools::FormFont());
  auto* path = BuildPath();
  BuildSubkeys();
  BuildValues();
  auto* halves = new QSplitter(Qt::Horizontal);
  halves->setChildrenCollapsible(false);
  halves->addWidget(fraSubkeys);
  halves->addWidget(fraValues);
  halves->setStretchFactor(0, 2);
  halves->setStretchFactor(1, 3);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(path);
  layout->addWidget(halves, 1);
  setFocusProxy(cmbRegPath);
  ConnectEvents();
}

QWidget* tabRegistryEditor::BuildPath() {
  lblRegPath = new QLabel(Caption(Text::RegistryPath));
  lblRegPath->setObjectName(u"lblRegPath"_s);
  cmbRegPath = new QComboBox;
  cmbRegPath->setObjectName(u"cmbRegPath"_s);
  cmbRegPath->setEditable(true);
  tools::NameEditableBox(*cmbRegPath, lblRegPath->text());
  tools::IgnoreWheelWithoutFocus(*cmbRegPath);
  cmbRegPath->setInsertPolicy(QComboBox::NoInsert);
  // Enter takes the text as it was typed: no completion, and no search for it in the list.
  cmbRegPath->setCompleter(nullptr);
  cmbRegPath->setDuplicatesEnabled(true);
  cmbRegPath->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  tools::PrepareTextBox(*cmbRegPath->lineEdit());
  lblRegPath->setBuddy(cmbRegPath);
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lblRegPath);
  layout->addWidget(cmbRegPath, 1);
  return row;
}

void tabRegistryEditor::BuildSubkeys() {
  fraSubkeys = new QGroupBox(Caption(Text::Subkeys));
  fraSubkeys->setObjectName(u"fraSubkeys"_s);
  lstSubkeys = new QListView;
  lstSubkeys->setObjectName(u"lstSubkeys"_s);
  lstSubkeys->setAccessibleName(fraSubkeys->title());
  lstSubkeys->setModel(subkeys_);
  tools::SelectCurrentRow(*lstSubkeys);
  lstSubkeys->setItemDelegate(new tools::ListItemDelegate(lstSubkeys));
  lstSubkeys->setUniformItemSizes(true);
  lstSubkeys->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lstSubkeys->installEventFilter(this);
  auto* layout = new QVBoxLayout(fraSubkeys);
  layout->addWidget(lstSubkeys);
}

void tabRegistryEditor::BuildValues() {
  fraValues = new QGroupBox(Caption(Text::Values));
  fraValues->setObjectName(u"fraValues"_s);
  propRegValues = MakeGrid(dialogs_);
  propRegValues->setObjectName(u"propRegValues"_s);
  propRegValues->setAccessibleName(fraValues->title());
  propRegValues->SetShowTooltips(true);
  cmdAddValue = new QPushButton(Caption(Text::NewValueButton));
  cmdAddValue->setObjectName(u"cmdAddValue"_s);
  cmdRemoveValue = new QPushButton(Caption(Text::RemoveValueButton));
  cmdRemoveValue->setObjectName(u"cmdRemoveValue"_s);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdAddValue);
  buttons->addWidget(cmdRemoveValue);
  buttons->addStretch(1);
  auto* layout = new QVBoxLayout(fraValues);
  layout->addWidget(propRegValues, 1);
  layout->addLayout(buttons);
}

void tabRegistryEditor::ConnectEvents() {
  const auto goToTyped = Guarded(dialogs_, [this] { Navigate(ToUtf8(cmbRegPath->currentText())); });
  // Qt's combo box takes the end of typing, leaving the box too, for choosing the entry that reads
  // like the text.
  disconnect(cmbRegPath->lineEdit(), &QLineEdit::editingFinished, cmbRegPath, nullptr);
  connect(cmbRegPath, &QComboBox::activated, this, goToTyped);
  connect(cmbRegPath->lineEdit(), &QLineEdit::returnPressed, this, goToTyped);
  connect(lstSubkeys, &QListView::doubleClicked, this,
          Guarded(dialogs_, [this](const QModelIndex& index) {
            if (index.isValid()) OpenEntry(ToUtf8(index.data().toString()));
          }));
  connect(cmdAddValue, &QPushButton::clicked, this, Guarded(dialogs_, [this] { AddValue(); }));
  connect(cmdRemoveValue, &QPushButton::clicked, this,
          Guarded(dialogs_, [this] { RemoveValue(); }));
  // "(not set)" is what the page shows, not a text to begin with.
  propRegValues->OnEditProperty([](const QString& key, QString& value, EditReaction&) {
    if (ToUtf8(key) == kDefaultValue && value == Caption(kNotSet)) value.clear();
  });
}

std::string tabRegistryEditor::Title() const { return LoadText(Text::RegistryPage); }

void tabRegistryEditor::ReadSettings() {
  Show(std::string(tools::RegistryRootName(tools::RegistryRoot::LocalMachine)));
}

std::string tabRegistryEditor::FilePath() const {
  return project_.ComponentFilePath(Host()->VersionIndex(), Host()->ComponentIndex());
}

void tabRegistryEditor::WriteSettings() {
  if (currentPath_.empty()) return;
  const std::vector<model::RegistryValue> values = ValuesInGrid();
  // A key whose last value was removed keeps what is stored: only RemoveAllValues frees it. What
  // nobody edited is not written again.
  if (values.empty() || values == shownValues_) return;
  keys_.Store(currentPath_, values);
}

void tabRegistryEditor::SettingsWritten() { Show({}); }

void tabRegistryEditor::Navigate(const std::string& path) {
  try {
    Host()->InOneWrite(*this, [this] { WriteSettings(); });
    if (!IsDirty()) MatchesStored();
    Show(path);
  } catch (...) {
    // The box holds the path that was typed or chosen, the grid still the values of another.
    ShowCurrentPath();
    throw;
  }
}

std::vector<model::RegistryValue> tabRegistryEditor::ValuesInGrid() const {
  std::vector<model::RegistryValue> values;
  for (const std::string& name : NamesToStore()) {
    model::RegistryValue value{name, ToUtf8(propRegValues->GetProperty(ToQString(name)))};
    const auto stored = storedValues_.find(name);
    if (stored != storedValues_.end()) {
      value.name = stored->second.name;
      if (value.setting == AsShown(stored->second.setting)) value.setting = stored->second.setting;
    }
    values.push_back(std::move(value));
  }
  // A key's values are stored as one list: without these the save would drop them.
  if (!values.empty()) values.insert(values.end(), hiddenValues_.begin(), hiddenValues_.end());
  return values;
}

std::vector<std::string> tabRegistryEditor::NamesToStore() const {
  std::vector<std::string> names =
      tools::SplitList(ToUtf8(propRegValues->ListPropertyNames()), ';', '"');
  for (std::string& name : names) name = std::string(tools::TrimBlanks(name));
  if (propRegValues->GetProperty(ToQString(kDefaultValue)) == Caption(kNotSet)) {
    const auto unset = std::find(names.begin(), names.end(), kDefaultValue);
    if (unset != names.end()) names.erase(unset);
  }
  return names;
}

void tabRegistryEditor::Show(const std::string& path) {
  const model::RegistryPath parts = model::ParseRegistryPath(path, LoadText(kTopLevel));
  const auto root = tools::FindRegistryRoot(parts.hive);
  const std::string shown = root ? parts.path : std::string();
  // Whatever can fail comes first: the page must not show one key's values under another's name.
  const std::vector<std::string> paths = keys_.Paths();
  const std::vector<model::RegistryValue> values =
      root ? keys_.ValuesOf(shown) : std::vector<model::RegistryValue>();
  const QStringList entries = root ? EntriesOf(*root, parts.subkey) : Hives();
  currentPath_ = shown;
  propRegValues->setEnabled(root.has_value());
  cmdAddValue->setEnabled(root.has_value());
  cmdRemoveValue->setEnabled(root.has_value());
  subkeys_->setStringList(entries);
  lstSubkeys->setCurrentIndex(subkeys_->index(0));
  ShowPath(paths);
  ShowValues(values);
}

void tabRegistryEditor::ShowPath(const std::vector<std::string>& paths) {
  cmbRegPath->clear();
  for (const std::string& path : paths) cmbRegPath->addItem(ToQString(path));
  ShowCurrentPath();
}

void tabRegistryEditor::ShowCurrentPath() {
  // Up and Down go on from the key that is shown.
  const int count = cmbRegPath->count();
  int shown = 0;
  while (shown < count && !model::IsSameKey(ToUtf8(cmbRegPath->itemText(shown)), currentPath_))
    ++shown;
  cmbRegPath->setCurrentIndex(shown < count ? shown : -1);
  cmbRegPath->setEditText(currentPath_.empty() ? Caption(kTopLevel) : ToQString(currentPath_));
}

QStringList tabRegistryEditor::Hives() {
  QStringList hives;
  for (const auto& [root, name] : tools::kRegistryRoots) hives.append(ToQString(name));
  return hives;
}

QStringList tabRegistryEditor::EntriesOf(tools::RegistryRoot root,
                                         const std::string& subkey) const {
  QStringList entries{Caption(kToTopLevel), Caption(kLevelUp)};
  for (const std::string& name : registry_.SubkeyNames(root, subkey)) {
    entries.append(ToQString(name));
  }
  entries.append({Caption(kNewKey), Caption(kRemoveAllValues)});
  return entries;
}

void tabRegistryEditor::ShowValues(const std::vector<model::RegistryValue>& values) {
  propRegValues->Clear();
  storedValues_.clear();
  hiddenValues_.clear();
  if (!currentPath_.empty()) {
    propRegValues->AddProperty(ToQString(kDefaultValue), Caption(Text::DefaultValue),
                               Caption(kNotSet));
  }
  for (const model::RegistryValue& value : values) ShowValue(value);
  shownValues_ = ValuesInGrid();
}

void tabRegistryEditor::ShowValue(const model::RegistryValue& value) {
  const QString name = ToQString(value.name);
  const auto [stored, isNew] = storedValues_.try_emplace(ToUtf8(name), value);
  if (value.name == kDefaultValue) {
    stored->second = value;
    propRegValues->SetProperty(name, ToQString(value.setting));
  } else if (isNew && !name.isEmpty()) {
    propRegValues->AddProperty(name, name, ToQString(value.setting));
  } else if (name.isEmpty() || stored->second.name != value.name) {
    // The grid cannot show it. Of two equal names the first is the one that a save writes again.
    hiddenValues_.push_back(value);
  }
}

void tabRegistryEditor::OpenEntry(const std::string& text) {
  if (text == LoadText(kToTopLevel)) {
    Navigate({});
  } else if (text == LoadText(kLevelUp)) {
    Navigate(model::ParentRegistryPath(currentPath_));
  } else if (text == LoadText(kNewKey)) {
    OpenNewKey();
  } else if (text == LoadText(kRemoveAllValues)) {
    RemoveAllValues();
  } else {
    Navigate(model::JoinRegistryPath(currentPath_, text));
  }
}

void tabRegistryEditor::OpenNewKey() {
  const std::string name =
      dialogs_.InputBox(LoadText(Text::EnterKeyName), LoadText(Text::NewKey), "NewSubkey");
  if (tools::TrimBlanks(name).empty()) return;
  for (const QString& entry : subkeys_->stringList()) {
    if (model::IsSameKey(ToUtf8(entry), name)) Warn(Text::KeyExists, Text::NewKey);
  }
  Navigate(model::JoinRegistryPath(currentPath_, name));
}

void tabRegistryEditor::RemoveAllValues() {
  const std::string question =
      tools::ReplaceAll(LoadText(Text::AllValuesAreRemoved), "%key%", currentPath_);
  if (dialogs_.ShowMessage({.text = question,
                            .caption = tools::StandardText(tools::kTextWarning),
                            .icon = tools::MessageIcon::Exclamation,
                            .buttons = tools::MessageButtons::OkCancel,
                            .defaultAnswer = tools::MessageAnswer::Cancel}) !=
      tools::MessageAnswer::Ok) {
    return;
  }
  Host()->InOneWrite(*this, [this] { keys_.Free(currentPath_); });
  Show(currentPath_);
}

void tabRegistryEditor::AddValue() {
  const QString name =
      ToQString(dialogs_.InputBox(LoadText(Text::EnterValueName), LoadText(Text::NewValue), {}));
  if (tools::TrimBlanks(ToUtf8(name)).empty()) return;
  if (!propRegValues->GetProperty(name).isEmpty()) {
    Warn(Text::ValueExists, Text::NewValue);
    return;
  }
  propRegValues->AddProperty(name, name, {});
  propRegValues->SelectProperty(name);
  SetDirty(true);
  propRegValues->EditProperty(name);
}

void tabRegistryEditor::RemoveValue() {
  const QString selected = propRegValues->SelectedProperty();
  // Every key has its default value; it can only be unset.
  if (ToUtf8(selected) == kDefaultValue) {
    propRegValues->SetProperty(selected, Caption(kNotSet));
  } else {
    propRegValues->RemoveProperty(selected);
  }
  SetDirty(true);
}

void tabRegistryEditor::Warn(Text text, Text caption) {
  dialogs_.ShowMessage({.text = LoadText(text),
                        .caption = LoadText(caption),
                        .icon = tools::MessageIcon::Exclamation,
                        .buttons = tools::MessageButtons::Ok,
                        .defaultAnswer = tools::MessageAnswer::Ok});
}

bool tabRegistryEditor::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lstSubkeys && event->type() == QEvent::KeyPress) {
    const auto& press = static_cast<const QKeyEvent&>(*event);
    const QModelIndex current = lstSubkeys->currentIndex();
    if ((press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter) && current.isValid()) {
      // A key held down would go on through the first entry of each list.
      if (!press.isAutoRepeat()) Q_EMIT lstSubkeys->doubleClicked(current);
      return true;
    }
  }
  return EditorPage::eventFilter(watched, event);
}

}  // namespace pages
