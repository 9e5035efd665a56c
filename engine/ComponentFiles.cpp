#include "engine/ComponentFiles.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

#include "model/StoredNumbers.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

// On some disks names that differ in case lead to one file.
bool IsSameFile(const std::string& path, const std::string& other) {
  const tools::FileStamp stamp = tools::StampOf(path);
  const tools::FileStamp otherStamp = tools::StampOf(other);
  return stamp.exists && stamp.device == otherStamp.device && stamp.identity == otherStamp.identity;
}

}  // namespace

ComponentFiles ListComponentFiles(const model::ModProject& project, model::VersionSlot version,
                                  const tools::ListingStep& step) {
  constexpr std::string_view kEnding = ".component";
  const std::string folder = tools::FolderOf(project.VersionFilePath(version));
  std::error_code failure;
  const std::vector<tools::FolderItem> items = tools::ListFolder(folder, failure, step);
  if (failure) throw tools::PathError("Der Ordner kann nicht gelesen werden", folder, failure);
  ComponentFiles files;
  for (const tools::FolderItem& item : items) {
    if (item.name.size() <= kEnding.size() ||
        !tools::EqualIgnoringAsciiCase(item.name.substr(item.name.size() - kEnding.size()),
                                       kEnding)) {
      continue;
    }
    const std::string_view name(item.name.data(), item.name.size() - kEnding.size());
    const model::ComponentSlot slot = model::SlotNumberOf(name, "component");
    if (slot == 0) continue;
    const std::string path = project.ComponentFilePath(version, slot);
    std::string found = tools::JoinPath(folder, item.name);
    if (found == path || IsSameFile(found, path)) {
      files.slots.push_back(slot);
    } else {
      files.misnamed.push_back({slot, std::move(found)});
    }
  }
  files.slots =
      model::OrderedSlots(std::move(files.slots), std::numeric_limits<std::int32_t>::max());
  std::sort(files.misnamed.begin(), files.misnamed.end(),
            [](const MisnamedFile& a, const MisnamedFile& b) {
              return std::tie(a.slot, a.path) < std::tie(b.slot, b.path);
            });
  return files;
}

}  // namespace engine
