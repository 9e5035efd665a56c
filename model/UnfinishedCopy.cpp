#include "model/UnfinishedCopy.h"

#include "tools/Error.h"
#include "tools/Numbers.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

namespace {

constexpr SettingName kSlots{"Copy", "Slots", ""};
constexpr char kSeparator = ',';

std::string NotePath(const ModProject& project, VersionSlot version) {
  return tools::JoinPath(tools::FolderOf(project.VersionFilePath(version)), "components.copying");
}

}  // namespace

std::string NoteCopy(ModProject& project, tools::Disk& disk, VersionSlot version,
                     const std::vector<ComponentSlot>& slots, Undo& undo) {
  std::string text;
  for (const ComponentSlot slot : slots) text.append(std::to_string(slot)).append(1, kSeparator);
  tools::SettingsFile note;
  note.Write(kSlots.section, kSlots.key, text);
  std::string path = NotePath(project, version);
  project.Settings().ReplaceFile(path, note);
  undo.Add([&disk, path] {
    if (tools::FileExists(path)) disk.DeleteFile(path);
  });
  return path;
}

void RemoveUnfinishedCopy(const ModProject& project, tools::Disk& disk, VersionSlot version) {
  const std::string note = NotePath(project, version);
  if (!tools::FileExists(note)) return;
  if (!tools::IsOwnerGone(note)) {
    throw tools::PathError("Ein anderes Programm kopiert gerade Komponenten in die Version",
                           tools::FolderOf(note), {});
  }
  const std::string slots =
      project.Settings().Load(note)->Read(kSlots.section, kSlots.key, kSlots.standard);
  const std::int32_t count = project.ComponentCount(version);
  for (const std::string& text : tools::SplitList(slots, kSeparator, '\0')) {
    // What the count shows, the author has seen: the program was killed after its last step.
    const ComponentSlot slot = tools::ToInt32(text);
    const std::string path = project.ComponentFilePath(version, slot);
    if (slot > count && tools::FileExists(path)) disk.DeleteFile(path);
  }
  disk.SyncFolder(tools::FolderOf(note));
  disk.DeleteFile(note);
}

}  // namespace model
