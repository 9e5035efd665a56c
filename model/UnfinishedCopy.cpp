#include "model/UnfinishedCopy.h"

#include <charconv>
#include <functional>
#include <optional>
#include <set>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

namespace {

constexpr SettingName kCopies{"Copy", "Slots", ""};
constexpr char kSeparator = ',';

std::string NotePath(const ModProject& project, VersionSlot version) {
  return tools::JoinPath(tools::FolderOf(project.VersionFilePath(version)), "components.copying");
}

// "4:" and a sum of the file in slot 4. Another library may have other sums: then the file stays.
std::string NoteOf(ComponentSlot slot, const std::string& content) {
  return std::to_string(slot) + ':' + std::to_string(std::hash<std::string>()(content));
}

std::optional<ComponentSlot> SlotIn(const std::string& noted) {
  const std::size_t colon = noted.find(':');
  if (colon == std::string::npos) return {};
  std::int32_t slot = 0;
  const char* const end = noted.data() + colon;
  if (std::from_chars(noted.data(), end, slot).ptr != end) return {};
  return slot;
}

// True for a file that is still what was copied there.
bool IsCopy(const std::string& path, ComponentSlot slot, const std::string& noted) {
  constexpr std::size_t kLargest = std::size_t{128} << 20U;  // as of all settings files
  if (!tools::FileExists(path)) return false;
  const tools::InputFile file(path);
  const tools::FileStamp stamp = file.Stamp();
  const auto content = tools::ReadToEnd(file, static_cast<std::size_t>(stamp.size), kLargest);
  return content && NoteOf(slot, *content) == noted;
}

}  // namespace

std::string NoteCopy(ModProject& project, tools::Disk& disk, VersionSlot version,
                     const std::vector<ComponentSlot>& slots,
                     const std::vector<std::shared_ptr<const tools::SettingsFile>>& copies,
                     Undo& undo) {
  std::string text;
  for (std::size_t i = 0; i < slots.size(); ++i) {
    text.append(NoteOf(slots[i], copies[i]->Render())).append(1, kSeparator);
  }
  tools::SettingsFile note;
  note.Write(kCopies.section, kCopies.key, text);
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
  // Else another program could clear up too, and then use the slots that are deleted here.
  const tools::SettingsStore::Lock lock(project.Settings(), note);
  if (!tools::IsOwnerGone(note)) {
    throw tools::PathError("Ein anderes Programm kopiert gerade Komponenten in die Version",
                           tools::FolderOf(note), {});
  }
  const std::string copies =
      project.Settings().Load(note)->Read(kCopies.section, kCopies.key, kCopies.standard);
  const std::int32_t count = project.ComponentCount(version);
  std::set<ComponentSlot> seen;  // a made-up note must not have one file read a million times
  for (const std::string& noted : tools::SplitList(copies, kSeparator, '\0')) {
    // What the count shows, the author has seen: the program was killed after its last step.
    const std::optional<ComponentSlot> slot = SlotIn(noted);
    if (!slot || *slot <= count || !seen.insert(*slot).second) continue;
    const std::string path = project.ComponentFilePath(version, *slot);
    if (IsCopy(path, *slot, noted)) disk.DeleteFile(path);
  }
  disk.SyncFolder(tools::FolderOf(note));
  disk.DeleteFile(note);
}

}  // namespace model
