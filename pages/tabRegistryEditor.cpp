#include "pages/tabRegistryEditor.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QStringListModel>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <set>

#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/ListItemDelegate.h"

namespace pages {

using namespace Qt::StringLiterals;
using grid::EditReaction;
using model::LoadText;
using tools::Guarded;
using tools::ToQString;
using tools::ToUtf8;

namespace {

// Texts that also decide what an entry of the lists does.
constexpr std::int32_t kTopLevel = 384;
constexpr std::int32_t kToTopLevel = 385;
constexpr std::int32_t kLevelUp = 382;
constexpr std::int32_t kNewKey = 383;
constexpr std::int32_t kRemoveAllValues = 396;
constexpr std::int32_t kNotSet = 389;

constexpr std::string_view kDefaultValue = "@";

bool IsSame(std::string_view a, std::string_view b) {
  return tools::EqualIgnoringCase(tools::TrimBlanks(a), tools::TrimBlanks(b));
}

}  // namespace

tabRegistryEditor::tabRegistryEditor(const PageServices& services, QWidget* parent)
    : EditorPage(parent),
      dialogs_(services.dialogs),
      registry_(services.registry),
      keys_([this](auto section, auto key,
                   auto defaultValue) { return Host()->Read(section, key, defaultValue); },
            [this](auto section, auto key, auto value) { Host()->Save(section, key, value); },
            [this, &project = services.project] {
              return project.Settings()
                  .Load(project.ComponentFilePath(Host()->VersionIndex(), Host()->ComponentIndex()))
                  ->Render();
            }),
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
  lblRegPath = new QLabel(Text(376));
  lblRegPath->setObjectName(u"lblRegPath"_s);
  cmbRegPath = new QComboBox;
  cmbRegPath->setObjectName(u"cmbRegPath"_s);
  cmbRegPath->setAccessibleName(lblRegPath->text());
  cmbRegPath->setEditable(true);
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
  fraSubkeys = new QGroupBox(Text(377));
  fraSubkeys->setObjectName(u"fraSubkeys"_s);
  lstSubkeys = new QListView;
  lstSubkeys->setObjectName(u"lstSubkeys"_s);
  lstSubkeys->setAccessibleName(fraSubkeys->title());
  lstSubkeys->setModel(subkeys_);
  lstSubkeys->setItemDelegate(new tools::ListItemDelegate(lstSubkeys));
  lstSubkeys->setUniformItemSizes(true);
  lstSubkeys->setEditTriggers(QAbstractItemView::NoEditTriggers);
  lstSubkeys->installEventFilter(this);
  auto* layout = new QVBoxLayout(fraSubkeys);
  layout->addWidget(lstSubkeys);
}

void tabRegistryEditor::BuildValues() {
  fraValues = new QGroupBox(Text(378));
  fraValues->setObjectName(u"fraValues"_s);
  propRegValues = MakeGrid(dialogs_);
  propRegValues->setObjectName(u"propRegValues"_s);
  propRegValues->setAccessibleName(fraValues->title());
  propRegValues->SetShowTooltips(true);
  cmdAddValue = new QPushButton(Text(379));
  cmdAddValue->setObjectName(u"cmdAddValue"_s);
  cmdRemoveValue = new QPushButton(Text(380));
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
  const auto goToTyped = Guarded(dialogs_, [this] {
    if (!loading_) Navigate(ToUtf8(cmbRegPath->currentText()));
  });
  connect(cmbRegPath, &QComboBox::activated, this, goToTyped);
  connect(cmbRegPath->lineEdit(), &QLineEdit::returnPressed, this, goToTyped);
  connect(lstSubkeys, &QListView::doubleClicked, this,
          Guarded(dialogs_, [this](const QModelIndex& index) {
            OpenEntry(ToUtf8(index.data().toString()));
          }));
  connect(cmdAddValue, &QPushButton::clicked, this, Guarded(dialogs_, [this] { AddValue(); }));
  connect(cmdRemoveValue, &QPushButton::clicked, this,
          Guarded(dialogs_, [this] { RemoveValue(); }));
  propRegValues->OnEditProperty([](const QString& key, QString& value, EditReaction&) {
    if (ToUtf8(key) == kDefaultValue && value == Text(kNotSet)) value.clear();
  });
}

std::string tabRegistryEditor::Title() const { return LoadText(235); }

void tabRegistryEditor::ReadSettings() {
  const QScopedValueRollback loading(loading_, true);
  cmbRegPath->clear();
  for (const std::string& path : keys_.Paths()) cmbRegPath->addItem(ToQString(path));
  shownKey_.clear();
  Show(std::string(tools::RegistryRootName(tools::RegistryRoot::LocalMachine)));
}

void tabRegistryEditor::WriteSettings() { SaveShownValues(); }

void tabRegistryEditor::SettingsWritten() { Show({}); }

void tabRegistryEditor::Navigate(const std::string& path) {
  SaveShownValues();
  Show(path);
}

void tabRegistryEditor::SaveShownValues() {
  if (shownKey_.empty()) return;
  std::vector<model::RegistryValue> values;
  for (std::string& name : NamesToStore()) {
    const std::string setting = ToUtf8(propRegValues->GetProperty(ToQString(name)));
    values.push_back({std::move(name), setting});
  }
  if (values.empty()) return;
  bool slotTaken = false;
  Host()->InOneWrite([&] { slotTaken = keys_.Store(shownKey_, values); });
  if (slotTaken) cmbRegPath->addItem(ToQString(shownKey_));
}

std::vector<std::string> tabRegistryEditor::NamesToStore() const {
  std::vector<std::string> names =
      tools::SplitList(ToUtf8(propRegValues->ListPropertyNames()), ';', '"');
  for (std::string& name : names) name = std::string(tools::TrimBlanks(name));
  if (propRegValues->GetProperty(ToQString(kDefaultValue)) == Text(kNotSet)) {
    const auto unset = std::find(names.begin(), names.end(), kDefaultValue);
    if (unset != names.end()) names.erase(unset);
  }
  return names;
}

void tabRegistryEditor::Show(const std::string& path) {
  const std::string topLevel = LoadText(kTopLevel);
  const model::RegistryPath parts = model::ParseRegistryPath(path, topLevel);
  propRegValues->setEnabled(!parts.path.empty() && parts.path != topLevel);
  currentPath_ = parts.path;
  propRegValues->Clear();
  const auto root = tools::FindRegistryRoot(parts.hive);
  if (root) {
    ShowKey(*root, parts.subkey);
  } else {
    ShowTopLevel();
  }
  shownKey_ = currentPath_;
}

void tabRegistryEditor::ShowTopLevel() {
  cmbRegPath->setEditText(Text(kTopLevel));
  QStringList hives;
  for (const auto& [root, name] : tools::kRegistryRoots) hives.append(ToQString(name));
  subkeys_->setStringList(hives);
}

void tabRegistryEditor::ShowKey(tools::RegistryRoot root, const std::string& subkey) {
  cmbRegPath->setEditText(ToQString(currentPath_));
  propRegValues->AddProperty(ToQString(kDefaultValue), Text(381), Text(kNotSet));
  QStringList entries{Text(kToTopLevel), Text(kLevelUp)};
  for (const std::string& name : registry_.SubkeyNames(root, subkey)) {
    entries.append(ToQString(name));
  }
  AddStoredValues();
  entries.append({Text(kNewKey), Text(kRemoveAllValues)});
  subkeys_->setStringList(entries);
}

void tabRegistryEditor::AddStoredValues() {
  std::set<std::string, std::less<>> names;
  for (const auto& [name, setting] : keys_.ValuesOf(currentPath_)) {
    if (name == kDefaultValue) {
      propRegValues->SetProperty(ToQString(name), ToQString(setting));
    } else if (names.insert(name).second) {
      // Of two equal names the first is the one that a save writes again.
      propRegValues->AddProperty(ToQString(name), ToQString(name), ToQString(setting));
    }
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
  const std::string name = dialogs_.InputBox(LoadText(387), LoadText(386), "NewSubkey");
  for (const QString& entry : subkeys_->stringList()) {
    if (IsSame(ToUtf8(entry), name)) Warn(388, 386);
  }
  Navigate(model::JoinRegistryPath(currentPath_, name));
}

void tabRegistryEditor::RemoveAllValues() {
  const std::string question = tools::ReplaceAll(LoadText(397), "%key%", currentPath_);
  if (dialogs_.ShowMessage({.text = question,
                            .caption = tools::StandardText(tools::kTextWarning),
                            .icon = tools::MessageIcon::Exclamation,
                            .buttons = tools::MessageButtons::OkCancel,
                            .defaultAnswer = tools::MessageAnswer::Cancel}) !=
      tools::MessageAnswer::Ok) {
    return;
  }
  Host()->InOneWrite([this] { keys_.Free(currentPath_); });
  Show(currentPath_);
}

void tabRegistryEditor::AddValue() {
  const QString name = ToQString(dialogs_.InputBox(LoadText(393), LoadText(394), {}));
  if (tools::TrimBlanks(ToUtf8(name)).empty()) return;
  if (!propRegValues->GetProperty(name).isEmpty()) {
    Warn(395, 394);
    return;
  }
  propRegValues->AddProperty(name, name, {});
  propRegValues->SelectProperty(name);
  SetDirty(true);
  propRegValues->EditProperty(name);
}

void tabRegistryEditor::RemoveValue() {
  const QString selected = propRegValues->SelectedProperty();
  if (ToUtf8(selected) == kDefaultValue) {
    propRegValues->SetProperty(selected, Text(kNotSet));
  } else {
    propRegValues->RemoveProperty(selected);
  }
  SetDirty(true);
}

void tabRegistryEditor::Warn(std::int32_t text, std::int32_t caption) {
  dialogs_.ShowMessage({.text = LoadText(text),
                        .caption = LoadText(caption),
                        .icon = tools::MessageIcon::Exclamation,
                        .buttons = tools::MessageButtons::Ok,
                        .defaultAnswer = tools::MessageAnswer::Ok});
}

bool tabRegistryEditor::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lstSubkeys && event->type() == QEvent::KeyPress) {
    const int key = static_cast<const QKeyEvent&>(*event).key();
    const QModelIndex current = lstSubkeys->currentIndex();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && current.isValid()) {
      Q_EMIT lstSubkeys->doubleClicked(current);
      return true;
    }
  }
  return EditorPage::eventFilter(watched, event);
}

}  // namespace pages
