#include "wizards/wizSetup_Output.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QTextDocument>
#include <utility>

#include "engine/OutputFolder.h"
#include "engine/Survey.h"
#include "model/Languages.h"
#include "model/StoredOptions.h"
#include "model/TextTable.h"
#include "tools/Numbers.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "wizards/WarningText.h"

namespace wizards {

using model::Text;

using namespace Qt::StringLiterals;
using model::LoadText;
using tools::ToQString;

namespace {

constexpr int kFolderBrowserFlags = 17;

std::string ConfigurationName(const std::string& value) {
  const std::int32_t configuration = tools::ToInt32(value);
  if (configuration == 1) return LoadText(Text::Debug);
  return configuration == 2 ? LoadText(Text::Release) : std::string();
}

}  // namespace

wizSetup_Output::wizSetup_Output(const model::ModProject& project, model::VersionSlot versionIndex,
                                 std::string programFolder, tools::Dialogs& dialogs,
                                 tools::WizardDataStore& DataStore, QWidget* parent)
    : WizardOptionPage(DataStore, parent),
      project_(project),
      versionIndex_(versionIndex),
      programFolder_(std::move(programFolder)),
      dialogs_(dialogs) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(MakeFolderRow());
  layout->addWidget(MakeOverview());
  layout->addStretch();
}

QWidget* wizSetup_Output::MakeFolderRow() {
  auto* row = new QWidget(this);
  txtFolder_ = new QLineEdit(row);
  txtFolder_->setObjectName(u"txtFolder"_s);
  tools::PrepareTextBox(*txtFolder_);
  auto* lblFolder = new QLabel(ToQString(LoadText(Text::OutputFolderLabel)), row);
  lblFolder->setBuddy(txtFolder_);
  txtFolder_->setAccessibleName(ToQString(LoadText(Text::OutputFolder)));
  auto* cmdBrowse = new QPushButton(ToQString(LoadText(Text::Browse)), row);
  cmdBrowse->setObjectName(u"cmdBrowse"_s);
  cmdBrowse->setAutoDefault(false);

  fraFolderWarning_ = new QWidget(row);
  auto* icon = new QLabel(fraFolderWarning_);
  const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize));
  lblFolderWarning_ = new WarningText(fraFolderWarning_);
  lblFolderWarning_->setObjectName(u"lblFolderWarning"_s);
  auto* warning = new QHBoxLayout(fraFolderWarning_);
  warning->setContentsMargins(0, 0, 0, 0);
  warning->addWidget(icon, 0, Qt::AlignTop);
  warning->addWidget(lblFolderWarning_, 1);
  // Its room is kept: a warning that comes and goes moves nothing.
  QSizePolicy policy = fraFolderWarning_->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  fraFolderWarning_->setSizePolicy(policy);

  auto* layout = new QGridLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lblFolder, 0, 0);
  layout->addWidget(txtFolder_, 1, 0);
  layout->addWidget(cmdBrowse, 1, 1);
  layout->addWidget(fraFolderWarning_, 2, 0, 1, 2);
  connect(cmdBrowse, &QPushButton::clicked, this,
          tools::Guarded(dialogs_, [this] { BrowseForFolder(); }));
  connect(txtFolder_, &QLineEdit::textChanged, this,
          tools::Guarded(dialogs_, [this] { TakeFolder(); }));
  return row;
}

QWidget* wizSetup_Output::MakeOverview() {
  auto* overview = new QGroupBox(ToQString(LoadText(Text::CheckOutputOptions)), this);
  overview->setObjectName(u"fraOverview"_s);
  auto* rows = new QFormLayout(overview);
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  txtOverviewProduct_ =
      AddOverviewRow(*rows, ToQString(LoadText(Text::ProductTitle)), u"txtOverviewProduct"_s);
  txtOverviewVersion_ =
      AddOverviewRow(*rows, ToQString(LoadText(Text::Version)) + u':', u"txtOverviewVersion"_s);
  txtOverviewConfiguration_ = AddOverviewRow(*rows, ToQString(LoadText(Text::ConfigurationLabel)),
                                             u"txtOverviewConfiguration"_s);
  txtOverviewLanguage_ =
      AddOverviewRow(*rows, ToQString(LoadText(Text::LanguageLabel)), u"txtOverviewLanguage"_s);
  txtOverviewFolder_ =
      AddOverviewRow(*rows, ToQString(LoadText(Text::OutputFolderLabel)), u"txtOverviewFolder"_s);
  return overview;
}

// A text box can be scrolled through and copied from, however long the path is.
QLineEdit* wizSetup_Output::AddOverviewRow(QFormLayout& rows, const QString& title,
                                           const QString& name) {
  auto* place = new QLineEdit(this);
  place->setObjectName(name);
  place->setReadOnly(true);
  place->setFrame(false);
  QPalette flat = place->palette();
  flat.setColor(QPalette::Base, Qt::transparent);
  place->setPalette(flat);
  tools::PrepareTextBox(*place);
  QString accessible = title;
  place->setAccessibleName(accessible.remove(u':'));
  rows.addRow(title, place);
  return place;
}

void wizSetup_Output::ShowValues() {
  Show(*txtOverviewProduct_, project_.ProductTitle());
  Show(*txtOverviewVersion_, project_.VersionString(versionIndex_));
  Show(*txtOverviewConfiguration_, ConfigurationName(Value("config")));
  Show(*txtOverviewLanguage_, Language());
  // Once, not with every key: that reads every component.
  places_.emplace(project_, versionIndex_, engine::SourceFoldersOf(project_, versionIndex_),
                  programFolder_);
  const QSignalBlocker quiet(txtFolder_);
  txtFolder_->setText(ToQString(Value("folder")));
  ShowFolder();
}

std::string wizSetup_Output::Language() const {
  const std::string chosen = Value("language");
  if (!chosen.empty()) return model::LanguageText(chosen);
  const model::StoredOptions stored(project_, versionIndex_);
  return model::ConfiguredLanguageText(stored.Of(tools::ToInt32(Value("config"))).language);
}

void wizSetup_Output::BrowseForFolder() {
  const std::string chosen =
      dialogs_.BrowseFolder(LoadText(Text::ChooseFolder), kFolderBrowserFlags);
  if (!chosen.empty()) txtFolder_->setText(ToQString(chosen));
}

void wizSetup_Output::TakeFolder() {
  SetValue("folder", tools::ToUtf8(txtFolder_->text()));
  ShowFolder();
}

void wizSetup_Output::ShowFolder() {
  if (!places_) return;  // the product could not be read, and the user was told
  engine::OutputFolder folder = engine::AcceptOutputFolder(Value("folder"), project_, *places_);
  const bool holdsFiles = folder.IsAccepted() && engine::HoldsFiles(folder.path);
  folder = engine::AcceptTop(folder, holdsFiles, *places_);
  Show(*txtOverviewFolder_, folder.path);
  if (!folder.IsAccepted()) {
    Warn(LoadText(Text::InvalidOutputFolder) + ' ' + folder.reason);
  } else {
    Warn(holdsFiles ? LoadText(Text::OutputFolderHoldsFiles) : std::string());
  }
}

void wizSetup_Output::Warn(const std::string& text) {
  lblFolderWarning_->setText(ToQString(text));
  lblFolderWarning_->setToolTip(Qt::convertFromPlainText(lblFolderWarning_->text()));
  fraFolderWarning_->setVisible(!text.empty());
}

void wizSetup_Output::Show(QLineEdit& place, const std::string& value) {
  place.setText(ToQString(value.empty() ? LoadText(Text::NotAvailable) : value));
  place.setCursorPosition(0);
}

}  // namespace wizards
