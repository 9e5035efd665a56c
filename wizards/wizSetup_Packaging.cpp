#include "wizards/wizSetup_Packaging.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "findings/FindingsList.h"
#include "model/TextTable.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"
#include "wizards/LastBuilds.h"

namespace wizards {

using namespace Qt::StringLiterals;
using model::LoadText;
using model::Text;
using tools::ToQString;

namespace {

constexpr int kLeastFindings = 3;  ///< that are seen at once

}  // namespace

wizSetup_Packaging::wizSetup_Packaging(const BuildServices& services,
                                       model::VersionSlot versionIndex,
                                       findings::ChosenPlace& chosen,
                                       tools::WizardDataStore& DataStore, QWidget* parent)
    : WizardOptionPage(DataStore, parent),
      services_(services),
      versionIndex_(versionIndex),
      chosen_(chosen) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  options_[0] = AddOption(u"chkMakeZip"_s, LoadText(Text::PackFiles), "makezip");
  layout->addLayout(MakeCompressionLine());
  options_[1] = AddOption(u"chkIncludeExe"_s, LoadText(Text::IncludeSetupProgram), "includeexe");
  options_[2] =
      AddOption(u"chkIncludeTessel"_s, LoadText(Text::IncludeRuntimeInstaller), "includetessel");
  cmdAsLastTime_ = new QPushButton(ToQString(LoadText(Text::AsLastTime)), this);
  cmdAsLastTime_->setObjectName(u"cmdAsLastTime"_s);
  cmdAsLastTime_->setAutoDefault(false);
  layout->addWidget(cmdAsLastTime_, 0, Qt::AlignLeft);
  layout->addSpacing(fontMetrics().height() / 2);
  AddFindings();
  connect(cmdAsLastTime_, &QPushButton::clicked, this,
          tools::Guarded(services_.dialogs, [this] { SetAsLastTime(); }));
}

wizSetup_Packaging::Option wizSetup_Packaging::AddOption(const QString& name,
                                                         const std::string& text,
                                                         const char* value) {
  auto* box = new QCheckBox(ToQString(text), this);
  box->setObjectName(name);
  layout()->addWidget(box);
  connect(box, &QCheckBox::clicked, this, [this, value](bool checked) {
    SetValue(value, checked ? "1" : "0");
    StartCheck();
  });
  return {box, value};
}

QLayout* wizSetup_Packaging::MakeCompressionLine() {
  auto* const label = new QLabel(ToQString(LoadText(Text::CompressionChoice)), this);
  cboCompression_ = new QComboBox(this);
  cboCompression_->setObjectName(u"cboCompression"_s);
  cboCompression_->addItem(ToQString(LoadText(Text::CompressionFast)), u"fast"_s);
  cboCompression_->addItem(ToQString(LoadText(Text::CompressionNormal)), u"normal"_s);
  cboCompression_->addItem(ToQString(LoadText(Text::CompressionSmall)), u"small"_s);
  label->setBuddy(cboCompression_);
  tools::IgnoreWheelWithoutFocus(*cboCompression_);
  connect(cboCompression_, &QComboBox::activated, this, [this](int index) {
    SetValue("compression", tools::ToUtf8(cboCompression_->itemData(index).toString()));
  });
  for (QWidget* const widget :
       {static_cast<QWidget*>(label), static_cast<QWidget*>(cboCompression_)}) {
    widget->setEnabled(false);
    connect(options_[0].box, &QCheckBox::toggled, widget, &QWidget::setEnabled);
  }
  auto* const line = new QHBoxLayout;
  // Under the text of the check box that it belongs to.
  line->addSpacing(style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                   style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
  line->addWidget(label);
  line->addWidget(cboCompression_);
  line->addStretch();
  return line;
}

void wizSetup_Packaging::AddFindings() {
  lblCheck_ = new QLabel(this);
  lblCheck_->setObjectName(u"lblCheck"_s);
  lsvFindings_ = new findings::FindingsList(this);
  lsvFindings_->setAccessibleName(ToQString(LoadText(Text::Check)));
  lsvFindings_->setMinimumHeight(lsvFindings_->HeightOf(kLeastFindings));
  lblCheck_->setBuddy(lsvFindings_);
  layout()->addWidget(lblCheck_);
  layout()->addWidget(lsvFindings_);
  connect(&check_, &findings::CheckRun::Finished, this, &wizSetup_Packaging::ShowFindings);
  connect(lsvFindings_, &findings::FindingsList::PlaceChosen, this,
          &wizSetup_Packaging::ChoosePlace);
}

void wizSetup_Packaging::ShowValues() {
  lastTime_ = services_.lastBuilds.Of(versionIndex_);
  cmdAsLastTime_->setEnabled(!lastTime_.empty());
  ShowOptions();
  StartCheck();
}

void wizSetup_Packaging::ShowOptions() {
  const engine::BuildOptions options =
      ReadBuildOptions({{"makezip", Value("makezip")},
                        {"compression", Value("compression")},
                        {"includeexe", Value("includeexe")},
                        {"includetessel", Value("includetessel")}});
  options_[0].box->setChecked(options.packaged);
  cboCompression_->setCurrentIndex(static_cast<int>(options.compression));
  options_[1].box->setChecked(options.includeWrapper);
  options_[2].box->setChecked(options.includeRuntime);
}

void wizSetup_Packaging::SetAsLastTime() {
  for (const Option& option : options_) SetValue(option.value, lastTime_[option.value]);
  ShowOptions();
  StartCheck();
}

void wizSetup_Packaging::StartCheck() {
  lblCheck_->setText(ToQString(LoadText(Text::CheckIsRunning)));
  check_.Start({.productPath = services_.project.ProductPath(),
                .version = versionIndex_,
                .options = ReadBuildOptions({{"folder", Value("folder")},
                                             {"makezip", Value("makezip")},
                                             {"includeexe", Value("includeexe")},
                                             {"includetessel", Value("includetessel")}}),
                .programFolder = services_.programFolder});
}

void wizSetup_Packaging::ShowFindings(const std::vector<engine::BuildMessage>& messages) {
  lblCheck_->setText(ToQString(LoadText(Text::Check)) + u": "_s +
                     findings::FindingsList::Summary(messages));
  lsvFindings_->Show(messages);
}

void wizSetup_Packaging::ChoosePlace(const findings::ChosenPlace& place) {
  chosen_ = place;
  window()->close();
}

// The build, or another page, is next.
void wizSetup_Packaging::hideEvent(QHideEvent* event) {
  if (!event->spontaneous()) check_.Stop();
  WizardOptionPage::hideEvent(event);
}

}  // namespace wizards
