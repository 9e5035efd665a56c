#include "pages/PageGrid.h"

#include <QKeyEvent>
#include <algorithm>
#include <iterator>

#include "model/FolderTable.h"
#include "model/Languages.h"
#include "pages/PageText.h"
#include "pages/RelativeSources.h"
#include "pages/TargetFolders.h"
#include "tools/desktop/Guard.h"

namespace pages {

using namespace Qt::StringLiterals;

namespace {

grid::GridTexts Texts() {
  return {.accessibleName = Caption(Text::Properties),
          .notEditable = Caption(Text::ValueNotEditable),
          .editCaption = Caption(Text::ChangeProperty),
          .prompt = Caption(Text::EnterPropertyValue),
          .oldValue = Caption(Text::OldValue),
          .newValue = Caption(Text::NewValueLabel),
          .reset = Caption(Text::ResetToDefault),
          .browse = Caption(Text::Browse),
          .knownValues = Caption(Text::KnownValues),
          .mixed = Caption(Text::MixedValues),
          .mixedEdit = Caption(Text::MixedValuesEdit)};
}

bool StartsEdit(const QKeyEvent& event) {
  const int key = event.key();
  return !event.isAutoRepeat() &&
         (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2);
}

/// Watches the keys of the grid's list, and belongs to the grid.
class EditKeys : public QObject {
 public:
  EditKeys(grid::ctlPropertyEditor& grid, tools::Dialogs& dialogs)
      : QObject(&grid), grid_(grid), dialogs_(dialogs) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && !editing_ &&
        StartsEdit(static_cast<const QKeyEvent&>(*event))) {
      editing_ = true;
      // Queued, so that the dialog does not open while the list still handles the key.
      QMetaObject::invokeMethod(this, &EditKeys::Edit, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  void Edit() {
    tools::Guard(dialogs_, [this] { grid_.EditProperty(grid_.SelectedProperty()); });
    editing_ = false;
  }

  grid::ctlPropertyEditor& grid_;
  tools::Dialogs& dialogs_;
  bool editing_ = false;  ///< from the key until the edit has ended
};

}  // namespace

grid::ctlPropertyEditor* MakeGrid(tools::Dialogs& dialogs, QWidget* parent) {
  auto* grid = new grid::ctlPropertyEditor(dialogs, Texts(), parent);
  grid->focusProxy()->installEventFilter(new EditKeys(*grid, dialogs));
  return grid;
}

namespace {

constexpr int kFileSystemFoldersWithEditBox = 17;  ///< flags of the shell's folder browser

bool IsFlag(const QString& field) {
  const char* const flags[] = {"Exclude",      "IncludeChildren", "Overwrite", "Permanent",
                               "RegisterPath", "SelfRegisterDLL", "Vital"};
  return std::any_of(std::begin(flags), std::end(flags),
                     [&field](const char* flag) { return field == QLatin1StringView(flag); });
}

grid::ValueHelp TargetFolderHelp() {
  grid::ValueHelp help;
  for (const std::int32_t number : TargetFolderNumbers()) {
    help.values.push_back(
        {QString::number(number), tools::ToQString(model::FolderDisplayName(number))});
  }
  return help;
}

grid::ValueHelp SourceFolderHelp(model::ModProject& project, tools::Dialogs& dialogs) {
  return {.browse = [&project, &dialogs] {
    const QString folder = FolderHelp(dialogs).browse();
    std::string stored = tools::ToUtf8(folder);
    tools::Guard(dialogs, [&] { stored = OfferRelativeFolder(stored, project, dialogs); });
    return tools::ToQString(stored);
  }};
}

}  // namespace

grid::ValueHelp FileFieldHelp(const QString& field, model::ModProject& project,
                              tools::Dialogs& dialogs) {
  if (field == "Type"_L1) {
    return {.values = {{u"1"_s, Caption(Text::TypeSingleFile)},
                       {u"2"_s, Caption(Text::TypeFolderScan)}}};
  }
  if (IsFlag(field)) {
    return {.values = {{u"0"_s, Caption(Text::FlagNo)}, {u"1"_s, Caption(Text::FlagYes)}}};
  }
  if (field == "TargetFolder"_L1) return TargetFolderHelp();
  if (field == "SourcePath"_L1) return SourceFolderHelp(project, dialogs);
  return {};
}

grid::ValueHelp LanguageHelp() {
  grid::ValueHelp help;
  for (const model::Language& language : model::CommonLanguages()) {
    help.values.push_back({QString::number(language.lcid), QString::fromUtf8(language.name)});
  }
  return help;
}

grid::ValueHelp FolderHelp(tools::Dialogs& dialogs) {
  return {.browse = [&dialogs] {
    std::string folder;
    tools::Guard(dialogs, [&] {
      folder =
          dialogs.BrowseFolder(model::LoadText(Text::ChooseFolder), kFileSystemFoldersWithEditBox);
    });
    return tools::ToQString(folder);
  }};
}

}  // namespace pages
