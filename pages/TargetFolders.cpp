#include "pages/TargetFolders.h"

#include <QFont>

#include "model/FolderTable.h"
#include "pages/PageText.h"
#include "tools/desktop/ListViewStyle.h"

namespace pages {

using namespace Qt::StringLiterals;

namespace {

constexpr std::int32_t kLastShellFolder = 100;
constexpr std::int32_t kFirstOwnFolder = 2000;
constexpr std::int32_t kLastOwnFolder = 2020;

constexpr int kCountRole = Qt::UserRole + 1;

/// Draws the count at the right end of a folder's line.
class CountDelegate : public tools::ListItemDelegate {
 public:
  using ListItemDelegate::ListItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    ListItemDelegate::paint(painter, option, index);
    const int count = index.data(kCountRole).toInt();
    if (count == 0) return;
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const int gap = item.fontMetrics.averageCharWidth();
    tools::DrawGreyedText(*painter, item, item.rect.adjusted(0, 0, -gap, 0),
                          Qt::AlignRight | Qt::AlignVCenter, GermanNumber(count));
  }
};

}  // namespace

bool IsTargetFolder(std::int32_t number) { return !model::FolderMacro(number).empty(); }

std::vector<std::int32_t> TargetFolderNumbers() {
  std::vector<std::int32_t> numbers;
  for (std::int32_t number = 1; number <= kLastOwnFolder; ++number) {
    const bool isListed = number <= kLastShellFolder || number >= kFirstOwnFolder;
    if (isListed && IsTargetFolder(number)) numbers.push_back(number);
  }
  return numbers;
}

QString TargetFolderCaption(std::int32_t number) {
  if (!IsTargetFolder(number)) {
    return Caption(Text::UnknownTargetFolder).replace(u"%number%"_s, QString::number(number));
  }
  const QString name = tools::ToQString(model::FolderDisplayName(number));
  return number <= kLastShellFolder ? Caption(Text::NamedFolder).replace(u"%name%"_s, name) : name;
}

void FillTargetFolders(QComboBox& box) {
  for (const std::int32_t number : TargetFolderNumbers()) {
    box.addItem(TargetFolderCaption(number), number);
  }
  box.setCurrentIndex(0);
  box.setItemDelegate(new CountDelegate(&box));
}

void ShowFolderCounts(QComboBox& box, const std::map<std::int32_t, int>& counts) {
  for (int i = 0; i < box.count(); ++i) {
    const auto found = counts.find(box.itemData(i).toInt());
    const int count = found == counts.end() ? 0 : found->second;
    if (box.itemData(i, kCountRole).toInt() == count) continue;
    QFont font = box.font();
    font.setBold(count > 0);
    box.setItemData(i, count, kCountRole);
    box.setItemData(i, font, Qt::FontRole);
    box.setItemData(i, count == 0 ? QVariant() : box.itemText(i) + u", "_s + GermanNumber(count),
                    Qt::AccessibleTextRole);
  }
}

}  // namespace pages
