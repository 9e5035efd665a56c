#include "model/ComponentOperations.h"

#include <algorithm>
#include <limits>
#include <map>
#include <set>

#include "model/ICFile.h"
#include "model/StoredNumbers.h"
#include "model/UnfinishedCopy.h"
#include "tools/Error.h"
#include "tools/Guid.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

namespace {

constexpr SettingName kTitle = setting::kComponentTitle;

/// The titles of a version, with those that are given to copies.
class Titles {
 public:
  explicit Titles(const std::vector<std::string>& taken) : taken_(taken.begin(), taken.end()) {}

  /// Takes `title`, or one as that of a copy when it is taken.
  std::string Take(const std::string& title) {
    // Of a thousand equal titles each is not to try the numbers of all before it.
    int& number = tried_[title];
    std::string candidate = number == 0 ? title : OfCopy(title, number);
    while (!taken_.insert(candidate).second) candidate = OfCopy(title, ++number);
    return candidate;
  }

 private:
  static std::string OfCopy(const std::string& title, int number) {
    const Text text = number == 1 ? Text::CopyOf : Text::CopyWithNumber;
    const std::string copy = tools::ReplaceAll(LoadText(text), "%number%", std::to_string(number));
    return tools::ReplaceAll(copy, "%title%", title);
  }

  std::set<std::string> taken_;
  std::map<std::string, int> tried_;  ///< the number of the last copy
};

void GiveNewGuids(tools::SettingsFile& file) {
  constexpr std::int32_t kAnyEntry = std::numeric_limits<std::int32_t>::max();
  tools::GuidSource guids;
  for (const std::int32_t entry : SlotsNamedIn(file.Render(), "File", kAnyEntry)) {
    const std::string section = FileEntrySection(entry);
    if (file.Find(section, "ID")) file.Write(section, "ID", guids.NewText());
  }
}

}  // namespace

ComponentOperations::ComponentOperations(ModProject& project, tools::Disk& disk,
                                         tools::Dialogs& dialogs, MainView& view)
    : project_(project), disk_(disk), dialogs_(dialogs), view_(view) {}

std::vector<ShownComponent> ComponentOperations::ComponentsOf(VersionSlot version) const {
  std::vector<ShownComponent> components;
  for (const ComponentSlot slot : project_.ComponentSlots(version)) {
    components.push_back(
        {version, slot, project_.VersionString(version), project_.ComponentTitle(version, slot)});
  }
  return components;
}

void ComponentOperations::Copy(const std::vector<ShownComponent>& components,
                               VersionSlot toVersion) {
  if (components.empty()) return;
  project_.RequireProduct();
  Lock lock(project_.Settings(), project_.ProductPath());
  project_.RequireVersion(toVersion);
  Titles taken(TitlesIn(toVersion));
  std::vector<std::string> titles;
  std::vector<File> files;
  for (const ShownComponent& component : components) {
    if (IsOutdated(component, Text::Paste, lock)) return;
    const auto file = CopyOf(component);
    titles.push_back(taken.Take(component.shownTitle));
    file->Write(kTitle.section, kTitle.key, titles.back());
    files.push_back(file);
  }
  if (files.size() == 1) {
    AddOne(toVersion, *files.front());
  } else {
    AddSeveral(toVersion, files);
  }
  lock.Release();
  view_.UpdateTree();
  view_.ShowStatusText(WhereText(titles, toVersion));
}

std::shared_ptr<tools::SettingsFile> ComponentOperations::CopyOf(
    const ShownComponent& component) const {
  const std::string path = project_.ComponentFilePath(component.version, component.component);
  auto file = project_.Settings().Load(path)->Clone();
  if (file->Render().find('\0') != std::string::npos) {
    throw tools::PathError("Die Datei der Komponente ist beschädigt", path, {});
  }
  GiveNewGuids(*file);
  return file;
}

std::vector<std::string> ComponentOperations::TitlesIn(VersionSlot version) const {
  std::vector<std::string> titles;
  for (const ComponentSlot slot : project_.ComponentSlots(version)) {
    titles.push_back(project_.ComponentTitle(version, slot));
  }
  return titles;
}

std::vector<ComponentSlot> ComponentOperations::FreeSlots(VersionSlot version, ComponentSlot first,
                                                          std::size_t count) const {
  const std::vector<ComponentSlot> used = project_.ComponentSlots(version);
  std::vector<ComponentSlot> slots;
  const std::int32_t highest = project_.ComponentCount(version);
  for (ComponentSlot slot = first; slots.size() < count; ++slot) {
    if (std::binary_search(used.begin(), used.end(), slot)) continue;
    // A component beyond a damaged count is the author's: neither overwritten nor shown unasked.
    if (slot > highest && !project_.ComponentTitle(version, slot).empty()) {
      throw tools::PathError("Die Komponentendatei liegt jenseits der Anzahl der Komponenten (" +
                                 std::to_string(highest) + ") und würde mit angezeigt",
                             project_.ComponentFilePath(version, slot), {});
    }
    slots.push_back(slot);
  }
  return slots;
}

// The count comes first, as when a component is added: one more free slot is shown nowhere.
void ComponentOperations::AddOne(VersionSlot version, const tools::SettingsFile& file) {
  RemoveUnfinishedCopy(project_, disk_, version);
  const ComponentSlot slot = FreeSlots(version, 1, 1).front();
  Change([&](Undo& undo) {
    if (project_.ComponentCount(version) < slot) WriteCount(version, slot, undo);
    project_.Settings().ReplaceFile(project_.ComponentFilePath(version, slot), file);
  });
}

// The count comes last and shows all of them at once. In a version without components it first goes
// to 0, so that the slots below it can be used.
void ComponentOperations::AddSeveral(VersionSlot version, const std::vector<File>& files) {
  RemoveUnfinishedCopy(project_, disk_, version);
  const std::int32_t count = project_.ComponentCount(version);
  const bool isEmpty = project_.ComponentSlots(version).empty();
  constexpr std::int32_t kMostSlots = std::numeric_limits<std::int32_t>::max() / 2;
  if (!isEmpty && count > kMostSlots) {
    throw tools::Error("Die Anzahl der Komponenten ist zu groß: " +
                       project_.VersionFilePath(version));
  }
  const std::vector<ComponentSlot> slots =
      FreeSlots(version, isEmpty ? 1 : count + 1, files.size());
  Change([&](Undo& undo) {
    const std::string note = NoteCopy(project_, disk_, version, slots, files, undo);
    auto hold = std::make_unique<tools::TemporaryHold>(note);
    if (hold->IsLost()) {
      throw tools::Error("Ein anderes Programm hat die Version gerade geändert: " + note);
    }
    if (isEmpty && count > 0) WriteCount(version, 0, undo);
    for (std::size_t i = 0; i < files.size(); ++i) {
      WriteComponent(project_.ComponentFilePath(version, slots[i]), *files[i], undo);
    }
    WriteCount(version, std::max<std::int32_t>(count, slots.back()), undo);
    hold.reset();
    disk_.DeleteFile(note);
    disk_.SyncFolder(tools::FolderOf(note));
  });
}

void ComponentOperations::WriteCount(VersionSlot version, std::int32_t count, Undo& undo) {
  const std::string path = project_.VersionFilePath(version);
  const File before = project_.Settings().Load(path);
  project_.WriteVersionSetting(version, setting::kComponentCount, std::to_string(count));
  undo.Add([=, this] { project_.Settings().ReplaceFile(path, *before); });
}

void ComponentOperations::WriteComponent(const std::string& path, const tools::SettingsFile& file,
                                         Undo& undo) {
  const File before = tools::FileExists(path) ? project_.Settings().Load(path) : nullptr;
  project_.Settings().ReplaceFile(path, file);
  undo.Add([=, this] {
    if (before) {
      project_.Settings().ReplaceFile(path, *before);
    } else {
      disk_.DeleteFile(path);
    }
  });
}

// One rename moves the component: at no time is it in both versions or in none.
ComponentSlot ComponentOperations::Move(const ShownComponent& component, VersionSlot toVersion) {
  if (component.version == toVersion) return 0;
  project_.RequireProduct();
  Lock lock(project_.Settings(), project_.ProductPath());
  if (IsOutdated(component, Text::Paste, lock)) return 0;
  project_.RequireVersion(toVersion);
  const std::string from = project_.ComponentFilePath(component.version, component.component);
  RemoveUnfinishedCopy(project_, disk_, toVersion);
  const ComponentSlot slot = FreeSlots(toVersion, 1, 1).front();
  const std::string to = project_.ComponentFilePath(toVersion, slot);
  Change([&](Undo& undo) {
    if (project_.ComponentCount(toVersion) < slot) WriteCount(toVersion, slot, undo);
    disk_.Replace(from, to);
  });
  disk_.SyncFolder(tools::FolderOf(to));
  disk_.SyncFolder(tools::FolderOf(from));
  lock.Release();
  view_.UpdateTree();
  return slot;
}

bool ComponentOperations::Rename(const ShownComponent& component) {
  const std::string title(
      tools::TrimBlanks(dialogs_.InputBox(LoadText(Text::EnterOtherComponentTitle),
                                          LoadText(Text::RenameComponent), component.shownTitle)));
  if (title.empty() || title == component.shownTitle) return false;
  project_.RequireProduct();
  Lock lock(project_.Settings(), project_.ProductPath());
  if (IsOutdated(component, Text::RenameComponent, lock)) return false;
  project_.WriteComponentSetting(component.version, component.component, kTitle.section, kTitle.key,
                                 title);
  lock.Release();
  view_.UpdateTree();
  return true;
}

bool ComponentOperations::IsOutdated(const ShownComponent& component, Text caption, Lock& lock) {
  if (project_.VersionString(component.version) == component.shownVersion &&
      project_.ComponentTitle(component.version, component.component) == component.shownTitle) {
    return false;
  }
  lock.Release();
  dialogs_.ShowMessage(
      {.text = LoadText(Text::ProjectChangedElsewhere), .caption = LoadText(caption)});
  view_.UpdateTree();
  return true;
}

void ComponentOperations::Change(const std::function<void(Undo&)>& steps) {
  RunOrTakeBack(steps, [this] { view_.UpdateTree(); });
}

std::string ComponentOperations::WhereText(const std::vector<std::string>& titles,
                                           VersionSlot version) const {
  std::string text =
      tools::ReplaceAll(LoadText(Text::NowInVersion), "%version%", project_.VersionString(version));
  for (std::size_t i = 0; i < titles.size(); ++i) text += (i == 0 ? " " : ", ") + titles[i];
  return text;
}

}  // namespace model
