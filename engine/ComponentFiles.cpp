#include "engine/ComponentFiles.h"

#include <limits>
#include <utility>

#include "engine/SettingsText.h"
#include "model/SlotNumbers.h"
#include "tools/Error.h"
#include "tools/files/FolderListing.h"
#include "tools/files/Path.h"

namespace engine {

void RequireVersionFile(const model::ModProject& project, std::int32_t version) {
  const std::string path = project.VersionFilePath(version);
  const tools::PathKind kind = LookAt(path);
  if (kind == tools::PathKind::Absent) throw tools::Error("Die Datei der Version fehlt: " + path);
  if (kind == tools::PathKind::Folder) {
    throw tools::PathError("Die Datei der Version kann nicht gelesen werden", path,
                           std::make_error_code(std::errc::is_a_directory));
  }
  const std::string text = project.Settings().Load(path)->Render();
  if (SectionNames(text).empty() || text.find('\0') != std::string::npos) {
    throw tools::Error("Die Datei der Version ist leer oder beschädigt: " + path);
  }
}

std::vector<std::int32_t> ComponentFileSlots(const model::ModProject& project,
                                             std::int32_t version) {
  constexpr std::string_view kEnding = ".component";
  const std::string folder = tools::FolderOf(project.VersionFilePath(version));
  std::error_code failure;
  const std::vector<tools::FolderItem> items = tools::ListFolder(folder, failure);
  if (failure) throw tools::PathError("Der Ordner kann nicht gelesen werden", folder, failure);
  std::vector<std::int32_t> slots;
  for (const tools::FolderItem& item : items) {
    if (item.name.size() <= kEnding.size()) continue;
    const std::string_view name(item.name.data(), item.name.size() - kEnding.size());
    const std::int32_t slot = model::SlotNumberOf(name, "component");
    // The name that the program itself would give counts, by the machine's rules for case.
    if (slot != 0 &&
        (item.kind == tools::FolderItem::Kind::Dead ||
         LookAt(project.ComponentFilePath(version, slot)) != tools::PathKind::Absent)) {
      slots.push_back(slot);
    }
  }
  return model::OrderedSlots(std::move(slots), std::numeric_limits<std::int32_t>::max());
}

}  // namespace engine
