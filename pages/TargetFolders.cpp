#include "pages/TargetFolders.h"

#include "model/FolderTable.h"
#include "pages/PageText.h"

namespace pages {

using namespace Qt::StringLiterals;

namespace {

constexpr std::int32_t kLastShellFolder = 100;
constexpr std::int32_t kFirstOwnFolder = 2000;
constexpr std::int32_t kLastOwnFolder = 2020;

bool IsKnown(std::int32_t number) { return !model::FolderMacro(number).empty(); }

}  // namespace

std::vector<std::int32_t> TargetFolderNumbers() {
  std::vector<std::int32_t> numbers;
  for (std::int32_t number = 1; number <= kLastOwnFolder; ++number) {
    const bool isListed = number <= kLastShellFolder || number >= kFirstOwnFolder;
    if (isListed && IsKnown(number)) numbers.push_back(number);
  }
  return numbers;
}

QString TargetFolderCaption(std::int32_t number) {
  if (!IsKnown(number)) {
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
}

}  // namespace pages
