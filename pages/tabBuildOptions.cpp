#include "pages/tabBuildOptions.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <cmath>

#include "model/SettingNames.h"
#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "tools/Numbers.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"

namespace pages {

using namespace Qt::StringLiterals;
namespace setting = model::setting;
using grid::EditReaction;
using tools::Guarded;
using tools::ToQString;
using tools::ToUtf8;

namespace {

constexpr std::string_view kCommon = setting::kActiveConfiguration.section;
constexpr std::string_view kInstallerType = setting::kInstallerType.key;
constexpr std::string_view kActiveConfig = setting::kActiveConfiguration.key;

// Rows of the grid. The language is stored under another name.
constexpr auto kNameRow = "ConfigName"_L1;
constexpr auto kFolderRow = "OutputFolder"_L1;
constexpr auto kLanguageRow = "Language"_L1;

constexpr int kDescriptionLines = 3;

}  // namespace

tabBuildOptions::tabBuildOptions(const PageServices& services, QWidget* parent)
    : EditorPage(parent), services_(services) {
  setFont(tools::FormFont());
  BuildInstallerType();
  BuildConfiguration();
  auto* form = new QFormLayout;
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  form->addRow(lblInstallerType, cmbInstallerType);
  form->addRow(lblInstallerTypeDesc, txtInstallerTypeDesc);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(form);
  layout->addWidget(fraConfiguration, 1);
  setFocusProxy(cmbInstallerType);
  ConnectEvents();
}

void tabBuildOptions::BuildInstallerType() {
  lblInstallerType = new QLabel(Caption(Text::InstallerType));
  lblInstallerType->setObjectName(u"lblInstallerType"_s);
  cmbInstallerType = new QComboBox;
  tools::IgnoreWheelWithoutFocus(*cmbInstallerType);
  cmbInstallerType->setObjectName(u"cmbInstallerType"_s);
  cmbInstallerType->setAccessibleName(lblInstallerType->text());
  cmbInstallerType->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  cmbInstallerType->addItem(Caption(Text::TesselInstaller));
  lblInstallerType->setBuddy(cmbInstallerType);

  lblInstallerTypeDesc = new QLabel(Caption(Text::InstallerDescription));
  lblInstallerTypeDesc->setObjectName(u"lblInstallerTypeDesc"_s);
  txtInstallerTypeDesc = new QPlainTextEdit;
  txtInstallerTypeDesc->setObjectName(u"txtInstallerTypeDesc"_s);
  txtInstallerTypeDesc->setAccessibleName(lblInstallerTypeDesc->text());
  txtInstallerTypeDesc->setReadOnly(true);
  txtInstallerTypeDesc->setTabChangesFocus(true);
  txtInstallerTypeDesc->setFixedHeight(fontMetrics().lineSpacing() * (kDescriptionLines + 1));
  lblInstallerTypeDesc->setBuddy(txtInstallerTypeDesc);
}

void tabBuildOptions::BuildConfiguration() {
  fraConfiguration = new QGroupBox(Caption(Text::Configuration));
  fraConfiguration->setObjectName(u"fraConfiguration"_s);
  lblConfiguration = new QLabel(Caption(Text::ActiveConfiguration));
  lblConfiguration->setObjectName(u"lblConfiguration"_s);
  cmbConfiguration = new QComboBox;
  tools::IgnoreWheelWithoutFocus(*cmbConfiguration);
  cmbConfiguration->setObjectName(u"cmbConfiguration"_s);
  cmbConfiguration->setAccessibleName(lblConfiguration->text());
  cmbConfiguration->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  cmbConfiguration->addItems({Caption(Text::Debug), Caption(Text::Release)});
  lblConfiguration->setBuddy(cmbConfiguration);
  propsConfig = MakeGrid(services_.dialogs);
  propsConfig->setObjectName(u"propsConfig"_s);
  propsConfig->setAccessibleName(fraConfiguration->title());
  propsConfig->SetShowTooltips(true);

  auto* active = new QHBoxLayout;
  active->addWidget(lblConfiguration);
  active->addWidget(cmbConfiguration, 1);
  auto* layout = new QVBoxLayout(fraConfiguration);
  layout->addLayout(active);
  layout->addWidget(propsConfig, 1);
}

void tabBuildOptions::ConnectEvents() {
  connect(cmbInstallerType, &QComboBox::currentIndexChanged, this,
          [this] { ChangeInstallerType(); });
  connect(cmbConfiguration, &QComboBox::activated, this,
          Guarded(services_.dialogs, [this] { ChangeConfiguration(); }));
  propsConfig->OnEditProperty([this](const QString& key, QString&, EditReaction& reaction) {
    // What is edited while no configuration is shown would be stored nowhere.
    if (key == kNameRow || shownPosition_ < 0) reaction = EditReaction::NotEditable;
  });
  propsConfig->OnValueHelp([&dialogs = services_.dialogs](const QString& key) {
    if (key == kLanguageRow) return LanguageHelp();
    return key == kFolderRow ? FolderHelp(dialogs) : grid::ValueHelp();
  });
  propsConfig->OnPropertyChanged([this](const QString&, const QString&) { SetDirty(true); });
}

std::string tabBuildOptions::Title() const { return model::LoadText(Text::BuildOptionsPage); }

void tabBuildOptions::ReadSettings() {
  const QScopedValueRollback loading(loading_, true);
  cmbInstallerType->setCurrentIndex(StoredPosition(kInstallerType, cmbInstallerType->count()));
  ChangeInstallerType();
  ShowConfiguration(StoredPosition(kActiveConfig, cmbConfiguration->count()));
}

void tabBuildOptions::WriteSettings() {
  if (cmbInstallerType->currentIndex() >= 0) {
    Host()->Save(kCommon, kInstallerType, std::to_string(cmbInstallerType->currentIndex() + 1));
  }
  if (shownPosition_ < 0) return;
  Host()->Save(kCommon, kActiveConfig, std::to_string(shownPosition_ + 1));
  const std::string section = setting::BuildSection(shownPosition_ + 1);
  Host()->Save(section, setting::kOutputFolder, ToUtf8(propsConfig->GetProperty(kFolderRow)));
  Host()->Save(section, setting::kLanguage, ToUtf8(propsConfig->GetProperty(kLanguageRow)));
}

void tabBuildOptions::ChangeInstallerType() {
  txtInstallerTypeDesc->setPlainText(cmbInstallerType->currentIndex() == 0
                                         ? Caption(Text::TesselInstallerDescription)
                                         : QString());
  if (!loading_) SetDirty(true);
}

void tabBuildOptions::ChangeConfiguration() {
  if (loading_) return;
  const QScopedValueRollback loading(loading_, true);
  const int chosen = cmbConfiguration->currentIndex();
  if (chosen == shownPosition_) return;
  // Until the change is stored, the list shows what is: an error on the way leaves it so.
  cmbConfiguration->setCurrentIndex(shownPosition_);
  if (IsUnsaved() && !SaveBeforeChange()) return;
  Host()->InOneWrite(*this,
                     [&] { Host()->Save(kCommon, kActiveConfig, std::to_string(chosen + 1)); });
  ShowConfiguration(chosen);
}

bool tabBuildOptions::SaveBeforeChange() {
  if (services_.dialogs.ShowMessage({.text = model::LoadText(Text::SaveBeforeConfigurationChange),
                                     .caption = model::LoadText(Text::ChangeActiveConfiguration),
                                     .icon = tools::MessageIcon::Question,
                                     .buttons = tools::MessageButtons::YesNo,
                                     .defaultAnswer = tools::MessageAnswer::Yes}) !=
      tools::MessageAnswer::Yes) {
    return false;
  }
  ApplyChanges();
  return true;
}

void tabBuildOptions::ShowConfiguration(int position) {
  const std::int32_t configuration = position + 1;
  const std::string section = setting::BuildSection(configuration);
  cmbConfiguration->setCurrentIndex(position);
  shownPosition_ = position;
  propsConfig->Clear();
  propsConfig->AddProperty(kNameRow, Caption(Text::Configuration), cmbConfiguration->currentText(),
                           1, true);
  propsConfig->AddProperty(
      kFolderRow, Caption(Text::OutputFolder),
      ToQString(Host()->Read(section, setting::kOutputFolder,
                             services_.project.DefaultOutputFolder(configuration))));
  propsConfig->AddProperty(kLanguageRow, Caption(Text::Language),
                           ToQString(Host()->Read(section, setting::kLanguage, "0")));
}

int tabBuildOptions::StoredPosition(std::string_view key, int count) const {
  const double number = std::nearbyint(tools::LeadingNumber(Host()->Read(kCommon, key, "1")));
  return number >= 1 && number <= count ? static_cast<int>(number) - 1 : -1;
}

}  // namespace pages
