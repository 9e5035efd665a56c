#include "pages/FileListModel.h"

#include <algorithm>

#include "model/FolderTable.h"
#include "pages/PageText.h"
#include "tools/files/Path.h"

namespace pages {

namespace {

std::string TargetText(const model::ICFile& entry) {
  if (entry.TargetFolder == model::kCustomFolder) return entry.TargetSubFolder;
  return model::FolderMacro(entry.TargetFolder) + "\\" + entry.TargetSubFolder;
}

}  // namespace

void FileListModel::Show(const model::FileEntries& entries, std::int32_t targetFolder) {
  beginResetModel();
  shown_.clear();
  for (const model::ICFile& entry : entries) {
    if (entry.TargetFolder == targetFolder) shown_.push_back(&entry);
  }
  endResetModel();
}

const model::ICFile& FileListModel::EntryAt(int row) const {
  return *shown_.at(static_cast<std::size_t>(row));
}

int FileListModel::RowOf(std::string_view id) const {
  const auto found = std::find_if(shown_.begin(), shown_.end(),
                                  [id](const model::ICFile* entry) { return entry->ID == id; });
  return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

int FileListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int FileListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
  // A long path does not fit its column: the tooltip shows all of it.
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const model::ICFile& entry = EntryAt(index.row());
  return tools::ToQString(index.column() == kFileName
                              ? tools::JoinPath(entry.SourcePath, entry.SourceName)
                              : TargetText(entry));
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return Caption(section == kFileName ? Text::FileNameColumn : Text::TargetColumn);
}

}  // namespace pages
