#include "pages/FileListModel.h"

#include <QApplication>
#include <QCollator>
#include <QHash>
#include <QStyle>
#include <algorithm>
#include <functional>
#include <utility>

#include "model/FolderTable.h"
#include "pages/PageText.h"
#include "tools/desktop/ListViewStyle.h"
#include "tools/files/Path.h"

namespace pages {

namespace {

constexpr std::size_t kFewEntries = 16;  ///< that are looked for one by one
constexpr std::int16_t kLeftOut = 1;     ///< the value of Exclude that builds heed

std::string TargetText(const model::ICFile& entry) {
  if (entry.TargetFolder == model::kCustomFolder) return entry.TargetSubFolder;
  return model::FolderMacro(entry.TargetFolder) + "\\" + entry.TargetSubFolder;
}

QString TextOf(const model::ICFile& entry, int column) {
  return tools::ToQString(column == FileListModel::kFileName
                              ? tools::JoinPath(entry.SourcePath, entry.SourceName)
                              : TargetText(entry));
}

}  // namespace

void FileListModel::Show(const model::FileEntries& entries, std::int32_t targetFolder,
                         const std::vector<const model::ICFile*>& changed) {
  beginResetModel();
  if (!AreGrouped(changed, entries.Count())) Group(entries);
  folder_ = targetFolder;
  Arrange();
  endResetModel();
}

// Going through all entries costs most of an edit of one among many.
bool FileListModel::AreGrouped(const Rows& entries, std::size_t count) const {
  if (entries.empty() || entries.size() > kFewEntries) return false;
  std::size_t grouped = 0;
  for (const auto& [folder, rows] : byFolder_) grouped += rows.size();
  return grouped == count && std::all_of(entries.begin(), entries.end(), [this](const auto* entry) {
           const auto rows = byFolder_.find(entry->TargetFolder);
           return rows != byFolder_.end() &&
                  std::find(rows->second.begin(), rows->second.end(), entry) != rows->second.end();
         });
}

void FileListModel::Group(const model::FileEntries& entries) {
  byFolder_.clear();
  Rows* rows = nullptr;  // of the entry before: mostly the next one's too
  std::int32_t folder = 0;
  for (const model::ICFile& entry : entries) {
    if (rows == nullptr || entry.TargetFolder != folder) {
      folder = entry.TargetFolder;
      rows = &byFolder_[folder];
    }
    rows->push_back(&entry);
  }
}

void FileListModel::ShowFolder(std::int32_t targetFolder) {
  beginResetModel();
  folder_ = targetFolder;
  Arrange();
  endResetModel();
}

int FileListModel::CountInFolder() const {
  const auto rows = byFolder_.find(folder_);
  return rows == byFolder_.end() ? 0 : static_cast<int>(rows->second.size());
}

std::map<std::int32_t, int> FileListModel::FolderCounts() const {
  std::map<std::int32_t, int> counts;
  for (const auto& [folder, rows] : byFolder_) counts[folder] = static_cast<int>(rows.size());
  return counts;
}

void FileListModel::SetFilter(const QString& text) {
  beginResetModel();
  words_ = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  Arrange();
  endResetModel();
}

void FileListModel::Arrange() {
  const auto rows = byFolder_.find(folder_);
  shown_ = rows == byFolder_.end() ? Rows() : rows->second;
  if (HasFilter()) {
    std::erase_if(shown_, [this](const auto* entry) { return !PassesFilter(*entry); });
  }
  if (sortColumn_ >= 0) SortRows();
}

bool FileListModel::PassesFilter(const model::ICFile& entry) const {
  const QString path = TextOf(entry, kFileName);
  return std::all_of(words_.begin(), words_.end(), [&path](const QString& word) {
    return path.contains(word, Qt::CaseInsensitive);
  });
}

void FileListModel::SortRows() {
  QCollator german(tools::GermanLocale());
  german.setNumericMode(true);
  german.setCaseSensitivity(Qt::CaseInsensitive);
  std::vector<std::pair<QCollatorSortKey, const model::ICFile*>> rows;
  rows.reserve(shown_.size());
  for (const model::ICFile* entry : shown_) {
    rows.emplace_back(german.sortKey(TextOf(*entry, sortColumn_)), entry);
  }
  const bool ascending = sortOrder_ == Qt::AscendingOrder;
  std::stable_sort(rows.begin(), rows.end(), [ascending](const auto& a, const auto& b) {
    return ascending ? a.first < b.first : b.first < a.first;
  });
  std::transform(rows.begin(), rows.end(), shown_.begin(),
                 [](const auto& row) { return row.second; });
}

void FileListModel::sort(int column, Qt::SortOrder order) {
  sortColumn_ = column;
  sortOrder_ = order;
  // The selected rows stay selected, wherever they go.
  Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
  const std::vector<const model::ICFile*> before = shown_;
  Arrange();
  QHash<const model::ICFile*, int> rowOf;
  for (int row = 0; row < rowCount(); ++row) rowOf.insert(&EntryAt(row), row);
  const QModelIndexList from = persistentIndexList();
  QModelIndexList to;
  for (const QModelIndex& old : from) {
    to.append(index(rowOf.value(before[static_cast<std::size_t>(old.row())]), old.column()));
  }
  changePersistentIndexList(from, to);
  Q_EMIT layoutChanged({}, VerticalSortHint);
}

const model::ICFile& FileListModel::EntryAt(int row) const {
  return *shown_.at(static_cast<std::size_t>(row));
}

std::vector<int> FileListModel::RowsOf(std::vector<const model::ICFile*> entries) const {
  constexpr std::less<> kBefore;  // by address: the entries of a large list need not be looked at
  std::sort(entries.begin(), entries.end(), kBefore);
  std::vector<int> rows;
  for (int row = 0; row < rowCount(); ++row) {
    if (std::binary_search(entries.begin(), entries.end(), &EntryAt(row), kBefore)) {
      rows.push_back(row);
    }
  }
  return rows;
}

int FileListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int FileListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const model::ICFile& entry = EntryAt(index.row());
  if (role == Qt::DisplayRole) return TextOf(entry, index.column());
  if (role == Qt::ForegroundRole && entry.Exclude == kLeftOut) {
    return tools::GreyedTextColor(QGuiApplication::palette());
  }
  if (index.column() == kFileName) return FileNameData(entry, role);
  return role == Qt::ToolTipRole ? TextOf(entry, index.column()) : QVariant();
}

QVariant FileListModel::FileNameData(const model::ICFile& entry, int role) const {
  const bool isMissing = missing_.contains(entry.ID);
  if (role == Qt::DecorationRole && isMissing) return missingIcon_;
  if (role != Qt::ToolTipRole && role != Qt::AccessibleTextRole) return {};
  // A long path does not fit its column: the tooltip shows all of it.
  QStringList lines(TextOf(entry, kFileName));
  if (isMissing) lines += Caption(Text::SourceIsMissing);
  if (entry.Exclude == kLeftOut) lines += Caption(Text::EntryIsLeftOut);
  return lines.join(role == Qt::ToolTipRole ? QLatin1Char('\n') : QLatin1Char(' '));
}

void FileListModel::Mark(const std::vector<SourceState>& states) {
  if (missingIcon_.isNull()) {
    missingIcon_ = QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
  }
  bool isChanged = false;
  for (const SourceState& state : states) {
    isChanged |= state.missing ? missing_.insert(state.id).second : missing_.erase(state.id) > 0;
  }
  if (!isChanged || shown_.empty()) return;
  Q_EMIT dataChanged(index(0, kFileName), index(rowCount() - 1, kFileName));
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return Caption(section == kFileName ? Text::FileNameColumn : Text::TargetColumn);
}

}  // namespace pages
