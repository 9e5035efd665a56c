#include "pages/FileFilter.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "pages/PageText.h"
#include "tools/desktop/FormStyle.h"

namespace pages {

using namespace Qt::StringLiterals;

FileFilter::FileFilter(FileListModel& model, QTreeView& list)
    : model_(model), list_(list), txtFilter(new QLineEdit), lblShown(new QLabel) {
  txtFilter->setObjectName(u"txtFilter"_s);
  txtFilter->setPlaceholderText(Caption(Text::FilterFiles));
  txtFilter->setAccessibleName(Caption(Text::FilterFiles));
  txtFilter->setToolTip(Caption(Text::FilterFilesTip));
  txtFilter->setClearButtonEnabled(true);
  tools::PrepareTextBox(*txtFilter);
  txtFilter->installEventFilter(this);
  lblShown->setObjectName(u"lblShown"_s);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(txtFilter, 1);
  layout->addWidget(lblShown);
  connect(txtFilter, &QLineEdit::textChanged, this, &FileFilter::Apply);
}

void FileFilter::Start() {
  txtFilter->setFocus(Qt::ShortcutFocusReason);
  txtFilter->selectAll();
}

void FileFilter::Clear() { txtFilter->clear(); }

void FileFilter::Apply(const QString& text) {
  std::vector<const model::ICFile*> selected;
  for (const int row : SelectedRows(list_)) selected.push_back(&model_.EntryAt(row));
  model_.SetFilter(text);
  SelectRows(list_, model_.RowsOf(std::move(selected)));
  ShowCount(all_);
}

void FileFilter::ShowCount(std::size_t all) {
  all_ = all;
  const auto filled = [&](Text text) {
    return Caption(text)
        .replace(u"%shown%"_s, GermanNumber(model_.rowCount()))
        .replace(u"%folder%"_s, GermanNumber(model_.CountInFolder()))
        .replace(u"%all%"_s, GermanNumber(static_cast<qlonglong>(all_)));
  };
  lblShown->setText(filled(Text::ShownOfAll));
  lblShown->setToolTip(filled(Text::ShownOfAllTip));
  lblShown->setAccessibleName(lblShown->toolTip());
}

bool FileFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<const QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape && !txtFilter->text().isEmpty()) {
      Clear();
      return true;
    }
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
      list_.setFocus(Qt::TabFocusReason);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

std::vector<int> SelectedRows(const QTreeView& list) {
  std::vector<int> rows;
  const QItemSelection selection = list.selectionModel()->selection();
  for (const QItemSelectionRange& range : selection) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void SelectRows(QTreeView& list, const std::vector<int>& rows) {
  const QAbstractItemModel& model = *list.model();
  const int lastColumn = model.columnCount() - 1;
  QItemSelection selection;
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t behind = first + 1;
    while (behind < rows.size() && rows[behind] == rows[behind - 1] + 1) ++behind;
    selection.append({model.index(rows[first], 0), model.index(rows[behind - 1], lastColumn)});
    first = behind;
  }
  const QModelIndex current = rows.empty() ? QModelIndex() : model.index(rows.front(), 0);
  list.selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  list.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  if (current.isValid()) list.scrollTo(current);
}

}  // namespace pages
