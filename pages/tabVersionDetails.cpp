#include "pages/tabVersionDetails.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "pages/PageGrid.h"
#include "pages/PageText.h"
#include "tools/Versions.h"

namespace pages {

namespace {

constexpr int kNumberColumns = 10;  ///< characters of a part of the number that are seen at once

QLineEdit* AddPart(QHBoxLayout& layout, QLabel*& label, const char* labelName, Text text,
                   const char* name) {
  label = new QLabel(Caption(text));
  label->setObjectName(QString::fromLatin1(labelName));
  auto* box = new QLineEdit;
  box->setObjectName(QString::fromLatin1(name));
  box->setAccessibleName(label->text());
  box->setMaximumWidth(box->fontMetrics().averageCharWidth() * kNumberColumns);
  label->setBuddy(box);
  layout.addWidget(label);
  layout.addWidget(box);
  return box;
}

}  // namespace

tabVersionDetails::tabVersionDetails(const PageServices& services, QWidget* parent)
    : EditorPage(parent), project_(services.project) {
  auto* number = new QHBoxLayout;
  BuildNumber(*number);
  BuildProperties(services.dialogs);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(number);
  layout->addWidget(fraProperties, 1);
}

void tabVersionDetails::BuildNumber(QHBoxLayout& layout) {
  txtVersionMaj =
      AddPart(layout, lblVersionMaj, "lblVersionMaj", Text::MajorVersion, "txtVersionMaj");
  txtVersionMin =
      AddPart(layout, lblVersionMin, "lblVersionMin", Text::MinorVersion, "txtVersionMin");
  txtVersionRev = AddPart(layout, lblVersionRev, "lblVersionRev", Text::Revision, "txtVersionRev");
  layout.addStretch(1);
}

void tabVersionDetails::BuildProperties(tools::Dialogs& dialogs) {
  fraProperties = new QGroupBox(Caption(Text::FurtherProperties));
  fraProperties->setObjectName(QStringLiteral("fraProperties"));
  propsVersion = MakeGrid(dialogs, fraProperties);
  propsVersion->setObjectName(QStringLiteral("propsVersion"));
  propsVersion->setAccessibleName(Caption(Text::FurtherProperties));
  auto* layout = new QVBoxLayout(fraProperties);
  layout->addWidget(propsVersion);
  propsVersion->OnPropertyChanged([this](const QString&, const QString&) { SetDirty(true); });
}

std::string tabVersionDetails::Title() const { return model::LoadText(Text::VersionPage); }

void tabVersionDetails::ReadSettings() {
  const tools::Version version =
      tools::SplitVersion(project_.VersionString(Host()->VersionIndex()));
  txtVersionMaj->setText(QString::number(version.major));
  txtVersionMin->setText(QString::number(version.minor));
  txtVersionRev->setText(QString::number(version.revision));
}

}  // namespace pages
