#include "model/ModProjectOperations.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "model/DeletedVersions.h"
#include "model/TextTable.h"
#include "model/UnfinishedCopy.h"
#include "tools/Error.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"
#include "tools/Versions.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

namespace {

void Write(tools::SettingsFile& file, const SettingName& name, std::string_view value) {
  file.Write(name.section, name.key, value);
}

std::string NumberedKey(std::string_view word, std::int32_t number) {
  return std::string(word).append(std::to_string(number));
}

/// The lowest slot, from 1, that is not among `used` (ascending).
template <typename Slot>
Slot FirstFreeSlot(const std::vector<Slot>& used) {
  Slot slot = 1;
  for (const Slot taken : used) {
    if (taken != slot) break;
    ++slot;
  }
  return slot;
}

std::string Trimmed(const std::string& text) { return std::string(tools::TrimBlanks(text)); }

}  // namespace

ModProjectOperations::ModProjectOperations(ModProject& project, tools::Disk& disk,
                                           tools::Dialogs& dialogs, const tools::Clock& clock,
                                           const Desktop& desktop)
    : project_(project), disk_(disk), dialogs_(dialogs), clock_(clock), desktop_(desktop) {}

bool ModProjectOperations::NewProduct() {
  if (!CloseProductAfterWarning()) return false;
  const std::optional<model::NewProduct> product = desktop_.newProductForm.Ask();
  return product && CreateProduct(*product);
}

bool ModProjectOperations::CreateProduct(const model::NewProduct& product) {
  const std::string folder = tools::FolderOf(product.fileName);
  const std::string name = tools::FileNamePart(product.fileName);
  if (name.empty()) throw tools::Error("Der Dateiname fehlt: " + product.fileName);
  const std::string path = folder.empty() ? name : tools::JoinPath(folder, name);
  if (tools::FileExists(path) &&
      Ask(LoadText(Text::ProductFileExists), LoadText(Text::OverwriteWarning),
          tools::MessageButtons::YesNo, tools::MessageAnswer::No) != tools::MessageAnswer::Yes) {
    return false;
  }
  tools::SettingsFile file;
  Write(file, setting::kFormat, ModProject::kFormatVersion);
  Write(file, setting::kProductTitle, Trimmed(product.title));
  Write(file, setting::kProductAuthor, Trimmed(product.author));
  Change([&](Undo& undo) {
    if (!folder.empty()) {
      for (const std::string& made : disk_.MakeFolder(folder)) {
        undo.Add([this, made] { disk_.DiscardFolder(made); });
      }
    }
    // One replacement: an older product file of that name stays until the new one is whole.
    project_.Settings().ReplaceFile(path, file);
  });
  return OpenProduct(path);
}

bool ModProjectOperations::OpenProduct(const std::string& path) {
  if (!CloseProductAfterWarning()) return false;
  const std::string chosen = path.empty() ? AskForProductFile() : path;
  if (chosen.empty()) return false;
  const std::string caption = tools::StandardText(tools::kTextError);
  if (!tools::FileExists(chosen)) {
    Refuse(LoadText(Text::ProductFileNotFound) + "\r\n" + chosen, caption);
    return false;
  }
  if (!project_.HasKnownFormat(chosen)) {
    Refuse(LoadText(Text::UnknownProductFormat), caption);
    return false;
  }
  project_.SetProductPath(chosen);
  desktop_.view.UpdateProjectState();
  return true;
}

std::string ModProjectOperations::AskForProductFile() {
  const std::string extension(ModProject::kProductExtension);
  return dialogs_.OpenFile(
      {.title = LoadText(Text::OpenProject),
       .initialFolder = tools::JoinPath(tools::SpecialFolder(tools::kDocumentsFolder),
                                        LoadText(Text::ProductsFolder)),
       .filter = LoadText(Text::Products) + " (*." + extension + ")|*." + extension,
       .defaultExtension = extension});
}

void ModProjectOperations::CloseProduct() {
  if (!project_.IsOpen()) return;
  desktop_.pages.Reset(true);
  project_.SetProductPath({});
  desktop_.view.UpdateProjectState();
}

bool ModProjectOperations::CloseProductAfterWarning() {
  if (IsDirty() && !MayDropChanges()) return false;
  CloseProduct();
  return true;
}

bool ModProjectOperations::MayDropChanges() {
  return !HasUnsaved() ||
         Ask(LoadText(Text::UnsavedChangesAreLost), tools::StandardText(tools::kTextWarning),
             tools::MessageButtons::OkCancel, tools::MessageAnswer::Ok) == tools::MessageAnswer::Ok;
}

void ModProjectOperations::SaveAllPages() {
  if (!project_.IsOpen()) return;
  const std::unique_ptr<Hourglass> hourglass = desktop_.view.ShowHourglass();
  for (std::int32_t i = 1; i <= desktop_.pages.Count(); ++i) {
    OpenPage& page = desktop_.pages.Item(i);
    try {
      page.ApplyChanges();
    } catch (const std::exception& error) {
      Refuse(error.what(), tools::StandardText(tools::kTextError));
    }
    page.SetDirty(false);
  }
}

bool ModProjectOperations::IsDirty() const { return AnyPage(&OpenPage::IsDirty); }

bool ModProjectOperations::HasUnsaved() const { return AnyPage(&OpenPage::IsUnsaved); }

bool ModProjectOperations::AnyPage(bool (OpenPage::*is)() const) const {
  if (!project_.IsOpen()) return false;
  for (std::int32_t i = 1; i <= desktop_.pages.Count(); ++i) {
    if ((desktop_.pages.Item(i).*is)()) return true;
  }
  return false;
}

VersionSlot ModProjectOperations::LatestVersion() const {
  VersionSlot latest = 0;
  std::string latestText;
  for (const VersionSlot slot : project_.VersionSlots()) {
    const std::string text = project_.VersionString(slot);
    if (latest == 0 || tools::CompareVersions(latestText, text) == 1) {
      latest = slot;
      latestText = text;
    }
  }
  return latest;
}

void ModProjectOperations::AddVersion() {
  const std::string title = LoadText(Text::AddVersion);
  const std::string version = Trimmed(
      dialogs_.InputBox(LoadText(Text::EnterVersion), title, NextVersionText(LatestVersion())));
  if (version.empty() && !VersionExists(version)) return;
  project_.RequireProduct();
  Lock lock(project_.Settings(), project_.ProductPath());
  if (VersionExists(version)) {
    lock.Release();
    Refuse(LoadText(Text::VersionExists), title);
    return;
  }
  CreateVersion(version, lock);
}

std::string ModProjectOperations::NextVersionText(VersionSlot latest) const {
  if (latest == 0) return "1.0.0";
  tools::Version version = tools::SplitVersion(project_.VersionString(latest));
  if (version.revision < std::numeric_limits<std::int32_t>::max()) ++version.revision;
  return tools::FormatVersion(version);
}

bool ModProjectOperations::VersionExists(const std::string& version) const {
  // A free slot's text is empty, and an empty answer is compared like any other.
  if (version.empty()) return FirstFreeSlot(project_.VersionSlots()) <= project_.VersionCount();
  const std::vector<std::string> stored = project_.StoredVersionTexts();
  const std::string wanted = tools::LowerCase(version);
  return std::any_of(stored.begin(), stored.end(), [&](const std::string& text) {
    return Trimmed(tools::LowerCase(text)) == wanted || HaveOneFolder(text, version);
  });
}

// File systems have their own ideas of which names are one.
bool ModProjectOperations::HaveOneFolder(const std::string& stored,
                                         const std::string& version) const {
  return tools::IsSafeNamePart(stored) && tools::IsSafeNamePart(version) &&
         AreOneFolder(project_.VersionFolder(stored), project_.VersionFolder(version));
}

std::shared_ptr<tools::SettingsFile> ModProjectOperations::NewVersionFile(
    VersionSlot latest) const {
  auto file = std::make_shared<tools::SettingsFile>();
  if (latest != 0) {
    project_.RequireSoundVersionFile(latest);
    file = project_.Settings().Load(project_.VersionFilePath(latest))->Clone();
  }
  file->Write(setting::kCreated.section, setting::kCreated.key, clock_.DateTimeText());
  return file;
}

// The folder is made whole under another name. A folder that has the version's name already goes
// when the version is there, so that an error leaves it too as it was. The product file, which
// makes the version visible, comes last.
void ModProjectOperations::CreateVersion(const std::string& version, Lock& lock) {
  RemoveDeletedVersions(disk_, project_);
  const std::string folder = project_.VersionFolder(version);
  const std::shared_ptr<tools::SettingsFile> file = NewVersionFile(LatestVersion());
  VersionSlot slot = FirstFreeSlot(project_.VersionSlots());
  // A damaged count must not make a slot beyond it look free.
  while (!project_.VersionString(slot).empty()) ++slot;
  const std::string old = tools::TemporaryNameBeside(folder);
  Change([&](Undo& undo) {
    const std::string fresh = WriteVersionFolder(folder, *file, undo);
    if (tools::FolderExists(folder)) {
      disk_.MoveFolder(folder, old);
      const auto held = std::make_shared<tools::HeldTemporary>(old);
      undo.Add([&, held] { disk_.MoveFolder(old, folder); });
    }
    disk_.MoveFolder(fresh, folder);
    undo.Add([=, this] { disk_.MoveFolder(folder, fresh); });
    // A loss of power must not leave the version listed and its folder under the other name.
    disk_.SyncFolder(tools::FolderOf(folder));
    ListVersion(slot, version);
  });
  lock.Release();
  RemoveAndShow(old);
  ShowWhere(LoadText(Text::VersionIsNowInTree), version);
}

void ModProjectOperations::ShowWhere(const std::string& text, const std::string& version) {
  desktop_.view.ShowStatusText(tools::ReplaceAll(text, "%version%", version));
}

std::string ModProjectOperations::WriteVersionFolder(const std::string& folder,
                                                     const tools::SettingsFile& file, Undo& undo) {
  try {
    const auto held = std::make_shared<tools::HeldTemporary>(
        folder, [this](const std::string& path) { disk_.MakeFolder(path); });
    undo.Add([this, held] { RemoveIfThere(held->Path()); });
    tools::WriteTextFile(disk_, tools::JoinPath(held->Path(), ModProject::kVersionFileName),
                         file.Render(), tools::ReplacementFile::Durability::Flushed);
    return held->Path();
  } catch (const tools::Error& error) {
    throw tools::PathError("Die Version kann nicht angelegt werden", folder, error.Cause());
  }
}

void ModProjectOperations::ListVersion(VersionSlot slot, const std::string& version) {
  tools::SettingsStore::Batch batch(project_.Settings());
  if (project_.VersionCount() < slot) {
    project_.WriteProductSetting(setting::kVersionCount, std::to_string(slot));
  }
  project_.WriteProductSetting(setting::kVersionCount.section, NumberedKey("Ver", slot), version);
  batch.Commit();
}

// The version first leaves the product file. Its folder is then renamed, which happens wholly or
// not at all: an error leaves the version either as it was or deleted.
void ModProjectOperations::DeleteVersion(VersionSlot version, const std::string& shownText) {
  if (!ConfirmDeletion()) return;
  project_.RequireProduct();
  Lock lock(project_.Settings(), project_.ProductPath());
  RemoveDeletedVersions(disk_, project_);
  if (IsOutdated(project_.VersionString(version), shownText, lock)) return;
  const std::string folder = tools::FolderOf(project_.VersionFilePath(version));
  const std::string removed = tools::TemporaryNameBeside(folder);
  const std::string key = NumberedKey("Ver", version);
  // After a careless merge another slot may hold the same version.
  const std::vector<std::string> stored = project_.StoredVersionTexts();
  const bool isShared = std::count_if(stored.begin(), stored.end(), [&](const std::string& text) {
                          return HaveOneFolder(text, shownText);
                        }) > 1;
  const bool hasFolder = !isShared && tools::FolderExists(folder);
  Change([&](Undo& undo) {
    if (hasFolder) MarkAsDeleted(disk_, folder, undo);
    project_.WriteProductSetting(setting::kVersionCount.section, key, "");
    undo.Add([&] { project_.WriteProductSetting(setting::kVersionCount.section, key, shownText); });
    if (hasFolder) MoveDeleted(disk_, folder, removed);
  });
  disk_.SyncFolder(tools::FolderOf(folder));
  lock.Release();
  RemoveAndShow(removed);
}

// The count comes first: one more free slot is shown nowhere. The component's file makes it visible
// and comes last. It is made anew, so that nothing of a file left in the slot is inherited.
void ModProjectOperations::AddComponent(VersionSlot version) {
  const std::string title =
      Trimmed(dialogs_.InputBox(LoadText(Text::EnterComponentTitle), LoadText(Text::AddComponent),
                                LoadText(Text::NewComponentTitle)));
  if (title.empty()) return;
  project_.RequireProduct();
  Lock lock(project_.Settings(), project_.ProductPath());
  project_.RequireVersion(version);
  RemoveUnfinishedCopy(project_, disk_, version);
  ComponentSlot slot = FirstFreeSlot(project_.ComponentSlots(version));
  // A damaged count must not make a slot beyond it look free.
  while (!project_.ComponentTitle(version, slot).empty()) ++slot;
  tools::SettingsFile file;
  Write(file, setting::kComponentTitle, title);
  Change([&](Undo& undo) {
    if (project_.ComponentCount(version) < slot) {
      const std::string versionFile = project_.VersionFilePath(version);
      const auto before = project_.Settings().Load(versionFile);
      project_.WriteVersionSetting(version, setting::kComponentCount, std::to_string(slot));
      undo.Add([=, this] { project_.Settings().ReplaceFile(versionFile, *before); });
    }
    project_.Settings().ReplaceFile(project_.ComponentFilePath(version, slot), file);
  });
  lock.Release();
  desktop_.view.UpdateTree();
  ShowWhere(LoadText(Text::NowInVersion) + " " + title, project_.VersionString(version));
}

void ModProjectOperations::DeleteComponent(VersionSlot version, ComponentSlot component,
                                           const std::string& shownVersion,
                                           const std::string& shownTitle) {
  if (!ConfirmDeletion()) return;
  project_.RequireProduct();
  Lock lock(project_.Settings(), project_.ProductPath());
  if (IsOutdated(project_.VersionString(version), shownVersion, lock) ||
      IsOutdated(project_.ComponentTitle(version, component), shownTitle, lock)) {
    return;
  }
  const std::string path = project_.ComponentFilePath(version, component);
  disk_.DeleteFile(path);
  disk_.SyncFolder(tools::FolderOf(path));
  lock.Release();
  desktop_.view.UpdateTree();
}

bool ModProjectOperations::IsOutdated(const std::string& stored, const std::string& shown,
                                      Lock& lock) {
  if (stored == shown) return false;
  lock.Release();
  Refuse(LoadText(Text::ProjectChangedElsewhere), LoadText(Text::Delete));
  desktop_.view.UpdateTree();
  return true;
}

void ModProjectOperations::Change(const std::function<void(Undo&)>& steps) {
  RunOrTakeBack(steps, [this] { desktop_.view.UpdateTree(); });
}

void ModProjectOperations::RemoveIfThere(const std::string& folder) {
  if (tools::FolderExists(folder)) disk_.RemoveFolderTree(folder);
}

// A removal that fails leaves the operation done, and the tree shows it all the same.
void ModProjectOperations::RemoveAndShow(const std::string& folder) {
  try {
    const tools::HeldTemporary held(folder);
    RemoveIfThere(folder);
  } catch (...) {
    desktop_.view.UpdateTree();
    throw;
  }
  desktop_.view.UpdateTree();
}

bool ModProjectOperations::ConfirmDeletion() {
  return Ask(LoadText(Text::ConfirmDeletion), LoadText(Text::Delete), tools::MessageButtons::YesNo,
             tools::MessageAnswer::No) == tools::MessageAnswer::Yes;
}

tools::MessageAnswer ModProjectOperations::Ask(const std::string& text, const std::string& caption,
                                               tools::MessageButtons buttons,
                                               tools::MessageAnswer defaultAnswer) {
  return dialogs_.ShowMessage({.text = text,
                               .caption = caption,
                               .icon = tools::MessageIcon::Exclamation,
                               .buttons = buttons,
                               .defaultAnswer = defaultAnswer});
}

void ModProjectOperations::Refuse(const std::string& text, const std::string& caption) {
  (void)Ask(text, caption, tools::MessageButtons::Ok, tools::MessageAnswer::Ok);
}

}  // namespace model
