#include "pages/UnknownTargets.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "model/FolderTable.h"
#include "pages/PageText.h"
#include "pages/TargetFolders.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/ListViewStyle.h"
#include "tools/files/Path.h"

namespace pages {

using namespace Qt::StringLiterals;

namespace {

constexpr std::int32_t kInstallationFolder = 2001;
constexpr QSize kFirstSize(560, 360);  ///< pixels, at first

}  // namespace

UnknownTargets::UnknownTargets(const model::FileEntries& entries, const model::ICFile* wanted,
                               QWidget* parent)
    : QDialog(parent), lsvEntries(new QTreeWidget), cmbTarget(new QComboBox) {
  setObjectName(u"unknownTargets"_s);
  setWindowTitle(Caption(Text::UnknownFoldersCaption));
  setFont(tools::FormFont());
  ListEntries(entries, wanted);
  auto* label = new QLabel(Caption(Text::NewTargetFolder));
  cmbTarget->setObjectName(u"cmbTarget"_s);
  cmbTarget->setAccessibleName(label->text());
  FillTargetFolders(*cmbTarget);
  cmbTarget->setCurrentIndex(cmbTarget->findData(kInstallationFolder));
  label->setBuddy(cmbTarget);
  QDialogButtonBox* buttons = tools::MakeOkCancelButtons(this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
  connect(lsvEntries, &QTreeWidget::itemSelectionChanged, ok,
          [this, ok] { ok->setEnabled(!lsvEntries->selectedItems().isEmpty()); });

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lsvEntries, 1);
  layout->addWidget(label);
  layout->addWidget(cmbTarget);
  layout->addSpacing(layout->spacing());
  layout->addWidget(buttons);
  lsvEntries->setFocus();
  resize(kFirstSize);
}

void UnknownTargets::ListEntries(const model::FileEntries& entries, const model::ICFile* wanted) {
  lsvEntries->setObjectName(u"lsvEntries"_s);
  lsvEntries->setAccessibleName(windowTitle());
  lsvEntries->setHeaderLabels({Caption(Text::FileNameColumn), Caption(Text::FolderNumberColumn)});
  tools::ApplyListViewStyle(*lsvEntries);
  lsvEntries->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lsvEntries->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  lsvEntries->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
  for (const model::ICFile& entry : entries) {
    if (IsTargetFolder(entry.TargetFolder)) continue;
    const std::string source = tools::JoinPath(entry.SourcePath, entry.SourceName);
    lsvEntries->addTopLevelItem(
        new QTreeWidgetItem({tools::ToQString(source), QString::number(entry.TargetFolder)}));
    ids_.push_back(entry.ID);
    if (&entry == wanted)
      lsvEntries->setCurrentItem(lsvEntries->topLevelItem(lsvEntries->topLevelItemCount() - 1));
  }
  if (wanted == nullptr) lsvEntries->selectAll();
}

std::vector<FieldEdit> UnknownTargets::Edits() const {
  const std::string target = std::to_string(cmbTarget->currentData().toInt());
  std::vector<FieldEdit> edits;
  const QModelIndexList rows = lsvEntries->selectionModel()->selectedRows();
  for (const QModelIndex& row : rows) {
    edits.push_back({ids_.at(static_cast<std::size_t>(row.row())), "TargetFolder", target});
  }
  return edits;
}

std::vector<FieldEdit> AskForTargets(const model::FileEntries& entries, const model::ICFile* wanted,
                                     QWidget* parent) {
  UnknownTargets dialog(entries, wanted, parent);
  return dialog.exec() == QDialog::Accepted ? dialog.Edits() : std::vector<FieldEdit>();
}

}  // namespace pages
