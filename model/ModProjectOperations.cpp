#include "model/ModProjectOperations.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "model/TextTable.h"
#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/Path.h"
#include "tools/SpecialFolders.h"
#include "tools/StandardTexts.h"
#include "tools/TemporaryName.h"
#include "tools/Text.h"
#include "tools/Versions.h"

namespace model {

namespace {

constexpr std::string_view kVersions = "Versions";
constexpr std::string_view kComponents = "Components";
constexpr std::string_view kCount = "Count";

std::string NumberedKey(std::string_view word, std::int32_t number) {
  return std::string(word).append(std::to_string(number));
}

/// The lowest slot, from 1, that is not among `used` (ascending).
std::int32_t FirstFreeSlot(const std::vector<std::int32_t>& used) {
  std::int32_t slot = 1;
  for (const std::int32_t taken : used) {
    if (taken != slot) break;
    ++slot;
  }
  return slot;
}

std::string Trimmed(const std::string& text) { return std::string(tools::TrimBlanks(text)); }

}  // namespace

ModProjectOperations::ModProjectOperations(ModProject& project, tools::Dialogs& dialogs,
                                           const tools::Clock& clock,
                                           NewProductForm& newProductForm)
    : project_(project), dialogs_(dialogs), clock_(clock), newProductForm_(newProductForm) {}

void ModProjectOperations::Connect(MainView& view, OpenPages& pages) {
  view_ = &view;
  pages_ = &pages;
}

bool ModProjectOperations::NewProduct() {
  if (!CloseProduct(true)) return false;
  const std::optional<model::NewProduct> product = newProductForm_.Ask();
  return product && CreateProduct(*product);
}

bool ModProjectOperations::CreateProduct(const model::NewProduct& product) {
  const std::string folder = tools::FolderOf(product.fileName);
  const std::string name = tools::FileNamePart(product.fileName);
  if (name.empty()) throw tools::Error("Der Dateiname fehlt: " + product.fileName);
  const std::string path = folder.empty() ? name : tools::JoinPath(folder, name);
  if (tools::FileExists(path) && Ask(LoadText(214), LoadText(215), tools::MessageButtons::YesNo,
                                     tools::MessageAnswer::No) != tools::MessageAnswer::Yes) {
    return false;
  }
  if (!folder.empty()) tools::MakeFolder(folder);
  // One replacement: an older product file of that name stays until the new one is whole.
  tools::SettingsFile file;
  file.Write("General", "Version", ModProject::kFormatVersion);
  file.Write("Product", "Title", Trimmed(product.title));
  file.Write("Product", "Author", Trimmed(product.author));
  project_.Settings().ReplaceFile(path, file);
  return OpenProduct(path);
}

bool ModProjectOperations::OpenProduct(const std::string& path) {
  if (!CloseProduct(true)) return false;
  const std::string chosen = path.empty() ? AskForProductFile() : path;
  if (chosen.empty()) return false;
  const std::string caption = tools::StandardText(tools::kTextError);
  if (!tools::FileExists(chosen)) {
    Refuse(LoadText(216) + "\r\n" + chosen, caption);
    return false;
  }
  if (!project_.HasKnownFormat(chosen)) {
    Refuse(LoadText(217), caption);
    return false;
  }
  project_.SetProductPath(chosen);
  view_->UpdateProjectState();
  return true;
}

std::string ModProjectOperations::AskForProductFile() {
  const std::string extension(ModProject::kProductExtension);
  return dialogs_.OpenFile({.title = LoadText(205),
                            .initialFolder = tools::JoinPath(
                                tools::SpecialFolder(tools::kDocumentsFolder), LoadText(213)),
                            .filter = LoadText(310) + " (*." + extension + ")|*." + extension,
                            .defaultExtension = extension});
}

bool ModProjectOperations::CloseProduct(bool ask) {
  if (!project_.IsOpen()) return true;
  if (ask && IsDirty() &&
      Ask(LoadText(206), tools::StandardText(tools::kTextWarning), tools::MessageButtons::OkCancel,
          tools::MessageAnswer::Ok) != tools::MessageAnswer::Ok) {
    return false;
  }
  pages_->Reset(true);
  project_.SetProductPath({});
  view_->UpdateProjectState();
  return true;
}

void ModProjectOperations::SaveAllPages() {
  if (!project_.IsOpen()) return;
  view_->ShowHourglass(true);
  for (std::int32_t i = 1; i <= pages_->Count(); ++i) {
    OpenPage& page = pages_->Item(i);
    try {
      page.ApplyChanges();
    } catch (const std::exception& error) {
      Refuse(error.what(), tools::StandardText(tools::kTextError));
    }
    page.SetDirty(false);
  }
  view_->ShowHourglass(false);
}

bool ModProjectOperations::IsDirty() const {
  if (!project_.IsOpen()) return false;
  for (std::int32_t i = 1; i <= pages_->Count(); ++i) {
    if (pages_->Item(i).IsDirty()) return true;
  }
  return false;
}

std::int32_t ModProjectOperations::LatestVersion() const {
  std::int32_t latest = 0;
  std::string latestText;
  for (const std::int32_t slot : project_.VersionSlots()) {
    const std::string text = project_.VersionString(slot);
    if (latest == 0 || tools::CompareVersions(latestText, text) == 1) {
      latest = slot;
      latestText = text;
    }
  }
  return latest;
}

void ModProjectOperations::AddVersion() {
  const std::int32_t latest = LatestVersion();
  const std::string title = LoadText(222);
  const std::string version =
      Trimmed(dialogs_.InputBox(LoadText(221), title, NextVersionText(latest)));
  if (VersionExists(version)) {
    Refuse(LoadText(227), title);
    return;
  }
  if (version.empty()) return;
  CreateVersion(version, latest);
  view_->UpdateTree();
}

std::string ModProjectOperations::NextVersionText(std::int32_t latest) const {
  if (latest == 0) return "1.0.0";
  tools::Version version = tools::SplitVersion(project_.VersionString(latest));
  if (version.revision < std::numeric_limits<std::int32_t>::max()) ++version.revision;
  return tools::FormatVersion(version);
}

bool ModProjectOperations::VersionExists(const std::string& version) const {
  const std::vector<std::int32_t> used = project_.VersionSlots();
  // A free slot's text is empty, and an empty answer is compared like any other.
  if (version.empty()) return FirstFreeSlot(used) <= project_.VersionCount();
  const std::string wanted = tools::LowerCase(version);
  return std::any_of(used.begin(), used.end(), [&](std::int32_t slot) {
    return Trimmed(tools::LowerCase(project_.VersionString(slot))) == wanted;
  });
}

// The folder comes first and is taken back when the settings cannot be written, so that a version
// that is listed always has its folder.
void ModProjectOperations::CreateVersion(const std::string& version, std::int32_t latest) {
  RequireProductFile();
  const std::string folder = project_.VersionFolder(version);
  const std::string file = tools::JoinPath(folder, ModProject::kVersionFileName);
  const std::string inherited = latest == 0 ? std::string() : project_.VersionFilePath(latest);
  std::int32_t slot = FirstFreeSlot(project_.VersionSlots());
  // A damaged count must not make a slot beyond it look free.
  while (!project_.VersionString(slot).empty()) ++slot;
  tools::RemoveFolderTree(folder);
  tools::MakeFolder(folder);
  try {
    if (tools::FileExists(inherited)) {
      const tools::CopyResult copy = tools::CopyFile(inherited, file);
      if (!copy.Succeeded()) {
        throw tools::PathError("Die Version kann nicht kopiert werden", inherited, copy.cause);
      }
    }
    tools::SettingsStore::Batch batch(project_.Settings());
    if (project_.VersionCount() < slot) {
      project_.WriteProductSetting(kVersions, kCount, std::to_string(slot));
    }
    project_.WriteProductSetting(kVersions, NumberedKey("Ver", slot), version);
    project_.WriteVersionSetting(slot, "General", "Created", clock_.DateTimeText());
    batch.Commit();
  } catch (...) {
    if (project_.VersionString(slot) != version) tools::RemoveFolderTree(folder);
    throw;
  }
}

// Writing to a product that is gone would leave a file that holds next to nothing in its place.
void ModProjectOperations::RequireProductFile() const {
  if (!tools::FileExists(project_.ProductPath())) {
    throw tools::PathError("Die Projektdatei ist nicht mehr vorhanden", project_.ProductPath(), {});
  }
}

// The folder is first renamed, which happens wholly or not at all: an error leaves the version
// either as it was or deleted.
void ModProjectOperations::DeleteVersion(std::int32_t version) {
  if (!ConfirmDeletion()) return;
  RequireProductFile();
  const std::string folder = tools::FolderOf(project_.VersionFilePath(version));
  const std::string removed = tools::TemporaryNameBeside(folder);
  const bool exists = tools::FolderExists(folder);
  if (exists) tools::MoveFolder(folder, removed);
  try {
    project_.WriteProductSetting(kVersions, NumberedKey("Ver", version), "");
  } catch (...) {
    if (exists) tools::MoveFolder(removed, folder);
    throw;
  }
  view_->UpdateTree();
  tools::RemoveFolderTree(removed);
}

void ModProjectOperations::AddComponent(std::int32_t version) {
  const std::string title = Trimmed(dialogs_.InputBox(LoadText(228), LoadText(223), LoadText(229)));
  if (title.empty()) return;
  std::int32_t slot = FirstFreeSlot(project_.ComponentSlots(version));
  // A damaged count must not make a slot beyond it look free.
  while (!project_.ComponentTitle(version, slot).empty()) ++slot;
  tools::SettingsStore::Batch batch(project_.Settings());
  if (project_.ComponentCount(version) < slot) {
    project_.WriteVersionSetting(version, kComponents, kCount, std::to_string(slot));
  }
  project_.WriteComponentSetting(version, slot, "Component", "Title", title);
  batch.Commit();
  view_->UpdateTree();
}

void ModProjectOperations::DeleteComponent(std::int32_t version, std::int32_t component) {
  if (!ConfirmDeletion()) return;
  tools::DeleteFile(project_.ComponentFilePath(version, component));
  view_->UpdateTree();
}

bool ModProjectOperations::ConfirmDeletion() {
  return Ask(LoadText(226), LoadText(224), tools::MessageButtons::YesNo,
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
