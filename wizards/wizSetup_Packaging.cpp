#include "wizards/wizSetup_Packaging.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include "model/TextTable.h"
#include "tools/desktop/QtText.h"
#include "wizards/BuildSetup.h"

namespace wizards {

using model::Text;

using namespace Qt::StringLiterals;
using model::LoadText;

wizSetup_Packaging::wizSetup_Packaging(tools::WizardDataStore& DataStore, QWidget* parent)
    : WizardOptionPage(DataStore, parent) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  chkMakeZip_ = AddOption(u"chkMakeZip"_s, LoadText(Text::PackFiles), "makezip");
  chkIncludeExe_ = AddOption(u"chkIncludeExe"_s, LoadText(Text::IncludeSetupProgram), "includeexe");
  chkIncludeTessel_ =
      AddOption(u"chkIncludeTessel"_s, LoadText(Text::IncludeRuntimeInstaller), "includetessel");
  layout->addStretch();
}

QCheckBox* wizSetup_Packaging::AddOption(const QString& name, const std::string& text,
                                         const char* value) {
  auto* box = new QCheckBox(tools::ToQString(text), this);
  box->setObjectName(name);
  layout()->addWidget(box);
  connect(box, &QCheckBox::clicked, this,
          [this, value](bool checked) { SetValue(value, checked ? "1" : "0"); });
  return box;
}

void wizSetup_Packaging::ShowValues() {
  const engine::BuildOptions options =
      ReadBuildOptions({{"makezip", Value("makezip")},
                        {"includeexe", Value("includeexe")},
                        {"includetessel", Value("includetessel")}});
  chkMakeZip_->setChecked(options.packaged);
  chkIncludeExe_->setChecked(options.includeWrapper);
  chkIncludeTessel_->setChecked(options.includeRuntime);
}

}  // namespace wizards
