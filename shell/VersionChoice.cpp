#include "shell/VersionChoice.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "model/TextTable.h"
#include "tools/Text.h"
#include "tools/Versions.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/ListViewStyle.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::LoadText;
using model::Text;
using tools::ToQString;

namespace {

/// "Version 1.1.0 (2): Kern, Handbuch"
QString Line(const std::string& version, const std::vector<model::ShownComponent>& components) {
  QStringList titles;
  for (const model::ShownComponent& each : components) titles += ToQString(each.shownTitle);
  return ToQString(LoadText(Text::Version) + " " + version) +
         QStringLiteral(" (%1): ").arg(components.size()) + titles.join(QStringLiteral(", "));
}

void AddVersions(QListWidget& list, const model::ModProject& project,
                 const model::ComponentOperations& components, model::VersionSlot forVersion) {
  std::vector<model::VersionSlot> versions = project.VersionSlots();
  std::stable_sort(
      versions.begin(), versions.end(), [&](model::VersionSlot a, model::VersionSlot b) {
        return tools::CompareVersions(project.VersionString(b), project.VersionString(a)) == 1;
      });
  for (const model::VersionSlot slot : versions) {
    if (slot == forVersion) continue;
    const auto held = components.ComponentsOf(slot);
    if (held.empty()) continue;
    auto* item = new QListWidgetItem(Line(project.VersionString(slot), held), &list);
    item->setToolTip(item->text());
    item->setData(Qt::UserRole, std::int32_t{slot});
  }
}

}  // namespace

model::VersionSlot ChooseVersion(const model::ModProject& project,
                                 const model::ComponentOperations& components,
                                 model::VersionSlot forVersion, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("versionChoice"));
  dialog.setWindowTitle(
      ToQString(LoadText(Text::TakeOverComponents)).remove(QStringLiteral("...")));
  dialog.setFont(tools::FormFont());
  auto* label = new QLabel(ToQString(LoadText(Text::ChooseSourceVersion)));
  auto* list = new QListWidget;
  list->setObjectName(QStringLiteral("lstVersions"));
  list->setAccessibleName(label->text());
  list->setItemDelegate(new tools::ListItemDelegate(list));
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // the tooltip has the whole line
  list->setMinimumWidth(dialog.fontMetrics().averageCharWidth() * 60);
  tools::SelectCurrentRow(*list);
  AddVersions(*list, project, components, forVersion);
  if (list->count() == 0) label->setText(ToQString(LoadText(Text::NoSourceVersion)));
  list->setCurrentRow(0);
  QDialogButtonBox* buttons = tools::MakeOkCancelButtons(&dialog);
  buttons->findChild<QPushButton*>(QStringLiteral("cmdOK"))->setEnabled(list->count() > 0);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(label);
  layout->addWidget(list, 1);
  layout->addWidget(buttons);
  list->setFocus();
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
  if (dialog.exec() != QDialog::Accepted || list->currentItem() == nullptr) return 0;
  return list->currentItem()->data(Qt::UserRole).toInt();
}

}  // namespace shell
