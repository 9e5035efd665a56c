#include "wizards/wizSetup_Config.h"

#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>

#include "model/Languages.h"
#include "model/TextTable.h"
#include "tools/Numbers.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"

namespace wizards {

using model::Text;

using namespace Qt::StringLiterals;
using model::LoadText;
using tools::ToQString;

namespace {

void PrepareLanguages(QComboBox& box) {
  box.setObjectName(u"cmbLanguage"_s);
  box.setEditable(true);
  box.setInsertPolicy(QComboBox::NoInsert);
  for (const model::Language& language : model::CommonLanguages()) {
    box.addItem(ToQString(model::LanguageText(std::to_string(language.lcid))));
  }
  box.completer()->setFilterMode(Qt::MatchContains);
  box.completer()->setCompletionMode(QCompleter::PopupCompletion);
}

}  // namespace

wizSetup_Config::wizSetup_Config(const model::ModProject& project, model::VersionSlot versionIndex,
                                 tools::Dialogs& dialogs, UnsavedPages& unsaved,
                                 tools::WizardDataStore& DataStore, QWidget* parent)
    : WizardOptionPage(DataStore, parent),
      stored_(project, versionIndex),
      unsaved_(unsaved),
      cmbConfiguration_(new QComboBox(this)),
      cmbLanguage_(new QComboBox(this)),
      lblLanguageNote_(new QLabel(u"Geben Sie eine Sprachkennung (LCID) als Zahl ein oder wählen "
                                  u"Sie eine Sprache aus der Liste."_s,
                                  this)) {
  cmbConfiguration_->setObjectName(u"cmbConfiguration"_s);
  cmbConfiguration_->addItems(
      {ToQString(LoadText(Text::Debug)), ToQString(LoadText(Text::Release))});
  PrepareLanguages(*cmbLanguage_);
  for (QComboBox* box : {cmbConfiguration_, cmbLanguage_}) tools::IgnoreWheelWithoutFocus(*box);
  lblLanguageNote_->setObjectName(u"lblLanguageNote"_s);
  lblLanguageNote_->setWordWrap(true);

  auto* options = new QFormLayout;
  options->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  options->addRow(ToQString(LoadText(Text::ConfigurationLabel)), cmbConfiguration_);
  options->addRow(ToQString(LoadText(Text::LanguageLabel)), cmbLanguage_);
  options->addRow(QString(), lblLanguageNote_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(options);
  layout->addSpacing(fontMetrics().height());
  layout->addWidget(MakeUnsavedRow(dialogs));
  layout->addStretch();
  cmbConfiguration_->setAccessibleName(ToQString(LoadText(Text::Configuration)));
  tools::NameEditableBox(*cmbLanguage_, ToQString(LoadText(Text::Language)));

  connect(cmbConfiguration_, &QComboBox::activated, this,
          tools::Guarded(dialogs, [this](int index) { ChooseConfiguration(index + 1); }));
  connect(cmbLanguage_, &QComboBox::editTextChanged, this,
          tools::Guarded(dialogs, [this] { TakeLanguage(); }));
}

QWidget* wizSetup_Config::MakeUnsavedRow(tools::Dialogs& dialogs) {
  fraUnsavedPages_ = new QWidget(this);
  auto* icon = new QLabel(fraUnsavedPages_);
  const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize));
  lblUnsavedPages_ = new QLabel(fraUnsavedPages_);
  lblUnsavedPages_->setObjectName(u"lblUnsavedPages"_s);
  lblUnsavedPages_->setTextFormat(Qt::PlainText);
  lblUnsavedPages_->setWordWrap(true);
  auto* cmdSavePages = new QPushButton(ToQString(LoadText(Text::SaveNow)), fraUnsavedPages_);
  cmdSavePages->setObjectName(u"cmdSavePages"_s);
  cmdSavePages->setAutoDefault(false);
  auto* row = new QGridLayout(fraUnsavedPages_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setColumnStretch(1, 1);
  row->addWidget(icon, 0, 0, Qt::AlignTop);
  row->addWidget(lblUnsavedPages_, 0, 1);
  row->addWidget(cmdSavePages, 1, 1, Qt::AlignLeft);
  connect(cmdSavePages, &QPushButton::clicked, this,
          tools::Guarded(dialogs, [this] { SavePages(); }));
  return fraUnsavedPages_;
}

void wizSetup_Config::ShowUnsavedPages() {
  QString text = ToQString(LoadText(Text::UnsavedPages));
  const std::vector<std::string> titles = unsaved_.Titles();
  for (const std::string& title : titles) text += u"\n\u2022 "_s + ToQString(title);
  lblUnsavedPages_->setText(text);
  fraUnsavedPages_->setVisible(!titles.empty());
}

void wizSetup_Config::SavePages() {
  const std::int32_t configuration = Configuration();
  const bool wasActive = configuration == stored_.ActiveConfiguration();
  const Proposal before = ProposalOf(configuration);
  unsaved_.Save();
  // The button that has the focus will hide; else the frame's next button would get it.
  cmbConfiguration_->setFocus();
  SetValue("installertype", stored_.InstallerType());
  Follow(before, wasActive ? stored_.ActiveConfiguration() : configuration);
  ShowValues();
}

void wizSetup_Config::ShowValues() {
  ShowUnsavedPages();
  const QSignalBlocker quiet(cmbConfiguration_);
  const std::int32_t configuration = Configuration();
  const bool known = configuration >= 1 && configuration <= cmbConfiguration_->count();
  cmbConfiguration_->setCurrentIndex(known ? configuration - 1 : -1);
  ShowLanguage();
}

void wizSetup_Config::ChooseConfiguration(std::int32_t configuration) {
  Follow(ProposalOf(Configuration()), configuration);
  ShowLanguage();
}

wizSetup_Config::Proposal wizSetup_Config::ProposalOf(std::int32_t configuration) const {
  Proposal proposal = stored_.Of(configuration);
  std::string number = model::LanguageNumber(proposal.language);
  if (!number.empty()) proposal.language = std::move(number);
  return proposal;
}

std::int32_t wizSetup_Config::Configuration() const { return tools::ToInt32(Value("config")); }

void wizSetup_Config::Follow(const Proposal& before, std::int32_t configuration) {
  const Proposal now = ProposalOf(configuration);
  const std::string language = Value("language");
  if (Value("folder") == before.folder) SetValue("folder", now.folder);
  if (language.empty() || language == before.language) SetValue("language", now.language);
  SetValue("config", std::to_string(configuration));
}

void wizSetup_Config::TakeLanguage() {
  const std::string typed = tools::ToUtf8(cmbLanguage_->currentText());
  const std::string number = model::LanguageNumber(typed);
  // What is stored stays even when it names no language.
  const bool isStored = typed == ProposalOf(Configuration()).language;
  SetValue("language", isStored ? typed : number);
  lblLanguageNote_->setVisible(number.empty() && !isStored && !typed.empty());
}

void wizSetup_Config::ShowLanguage() {
  const QSignalBlocker quiet(cmbLanguage_);
  const QString text = ToQString(model::LanguageText(Value("language")));
  cmbLanguage_->lineEdit()->setPlaceholderText(
      ToQString(model::ConfiguredLanguageText(ProposalOf(Configuration()).language)));
  cmbLanguage_->setCurrentIndex(cmbLanguage_->findText(text));
  cmbLanguage_->setEditText(text);
  lblLanguageNote_->hide();
}

}  // namespace wizards
