#include "wizards/wizSetup_Config.h"

#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

#include "model/TextTable.h"
#include "tools/Numbers.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "wizards/Languages.h"

namespace wizards {

using namespace Qt::StringLiterals;
using model::LoadText;
using tools::ToQString;

namespace {

void PrepareLanguages(QComboBox& box) {
  box.setObjectName(u"cmbLanguage"_s);
  box.setEditable(true);
  box.setInsertPolicy(QComboBox::NoInsert);
  for (const Language& language : CommonLanguages()) {
    box.addItem(ToQString(LanguageText(language.lcid)));
  }
  box.completer()->setFilterMode(Qt::MatchContains);
  box.completer()->setCompletionMode(QCompleter::PopupCompletion);
}

}  // namespace

wizSetup_Config::wizSetup_Config(const model::ModProject& project, std::int32_t versionIndex,
                                 tools::Dialogs& dialogs, tools::WizardDataStore& DataStore,
                                 QWidget* parent)
    : WizardOptionPage(DataStore, parent),
      project_(project),
      versionIndex_(versionIndex),
      cmbConfiguration_(new QComboBox(this)),
      cmbLanguage_(new QComboBox(this)),
      lblLanguageNote_(new QLabel(u"Geben Sie eine Sprachkennung (LCID) als Zahl ein oder wählen "
                                  u"Sie eine Sprache aus der Liste."_s,
                                  this)) {
  cmbConfiguration_->setObjectName(u"cmbConfiguration"_s);
  cmbConfiguration_->addItems({ToQString(LoadText(339)), ToQString(LoadText(340))});
  PrepareLanguages(*cmbLanguage_);
  lblLanguageNote_->setObjectName(u"lblLanguageNote"_s);
  lblLanguageNote_->setWordWrap(true);

  auto* layout = new QFormLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  layout->addRow(ToQString(LoadText(360)), cmbConfiguration_);
  layout->addRow(ToQString(LoadText(359)), cmbLanguage_);
  layout->addRow(QString(), lblLanguageNote_);
  cmbConfiguration_->setAccessibleName(ToQString(LoadText(335)));
  cmbLanguage_->setAccessibleName(ToQString(LoadText(345)));

  connect(cmbConfiguration_, &QComboBox::activated, this,
          tools::Guarded(dialogs, [this](int index) { ChooseConfiguration(index + 1); }));
  connect(cmbLanguage_, &QComboBox::editTextChanged, this,
          tools::Guarded(dialogs, [this] { TakeLanguage(); }));
}

void wizSetup_Config::ShowValues() {
  const QSignalBlocker quiet(cmbConfiguration_);
  const std::int32_t configuration = tools::ToInt32(Value("config"));
  const bool known = configuration >= 1 && configuration <= cmbConfiguration_->count();
  cmbConfiguration_->setCurrentIndex(known ? configuration - 1 : -1);
  ShowLanguage();
}

void wizSetup_Config::ChooseConfiguration(std::int32_t configuration) {
  const std::int32_t before = tools::ToInt32(Value("config"));
  Propose("folder", StoredFolder(before), StoredFolder(configuration));
  const std::string language = StoredLanguage(configuration);
  if (Value("language").empty()) {
    SetValue("language", language);
  } else {
    Propose("language", StoredLanguage(before), language);
  }
  SetValue("config", std::to_string(configuration));
  ShowLanguage();
}

void wizSetup_Config::Propose(const char* name, const std::string& before, const std::string& now) {
  if (Value(name) == before) SetValue(name, now);
}

std::string wizSetup_Config::StoredFolder(std::int32_t configuration) const {
  return project_.ReadVersionSetting(versionIndex_, "Build" + std::to_string(configuration),
                                     "OutputFolder", project_.DefaultOutputFolder(configuration));
}

std::string wizSetup_Config::StoredLanguage(std::int32_t configuration) const {
  return LanguageNumber(project_.ReadVersionSetting(
      versionIndex_, "Build" + std::to_string(configuration), "Locale", ""));
}

void wizSetup_Config::TakeLanguage() {
  const std::string typed = tools::ToUtf8(cmbLanguage_->currentText());
  const std::string number = LanguageNumber(typed);
  SetValue("language", number);
  lblLanguageNote_->setVisible(number.empty() && !typed.empty());
}

void wizSetup_Config::ShowLanguage() {
  const QSignalBlocker quiet(cmbLanguage_);
  const std::string language = Value("language");
  const QString text =
      language.empty() ? QString() : ToQString(LanguageText(tools::ToInt32(language)));
  cmbLanguage_->setCurrentIndex(cmbLanguage_->findText(text));
  cmbLanguage_->setEditText(text);
  lblLanguageNote_->hide();
}

}  // namespace wizards
