#include "model/ModProject.h"

#include <filesystem>
#include <limits>
#include <utility>

#include "model/StoredNumbers.h"
#include "model/TextTable.h"
#include "tools/Error.h"
#include "tools/Numbers.h"
#include "tools/Text.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"

namespace model {

namespace {

constexpr std::string_view kVersionKey = "Ver";
constexpr std::string_view kComponentWord = "component";
constexpr std::string_view kComponentEnding = ".component";

std::string ComponentFileName(ComponentSlot component) {
  return std::string(kComponentWord).append(std::to_string(component)).append(kComponentEnding);
}

std::vector<std::int32_t> SlotsUpTo(std::int32_t count) {
  std::vector<std::int32_t> slots;
  for (std::int32_t slot = 1; slot <= count; ++slot) slots.push_back(slot);
  return slots;
}

// The component slots that have a file in a version's folder, or something in its place, which
// reading it tells of.
std::vector<ComponentSlot> ComponentFiles(const std::string& versionFolder, std::int32_t count,
                                          const tools::ListingStep& step) {
  std::error_code failure;
  std::vector<ComponentSlot> slots;
  for (const tools::FolderItem& item : tools::ListFolder(versionFolder, failure, step)) {
    if (item.name.size() <= kComponentEnding.size()) continue;
    const std::size_t length = item.name.size() - kComponentEnding.size();
    if (tools::EqualIgnoringAsciiCase(item.name.substr(length), kComponentEnding)) {
      slots.emplace_back(SlotNumberOf(item.name.substr(0, length), kComponentWord));
    }
  }
  if (failure && failure != std::errc::no_such_file_or_directory &&
      failure != std::errc::not_a_directory) {
    throw tools::PathError("Der Ordner kann nicht gelesen werden", versionFolder, failure);
  }
  return OrderedSlots(std::move(slots), count);
}

}  // namespace

ModProject::ModProject(tools::SettingsStore& settings) : settings_(settings) {}

void ModProject::SetProductPath(std::string path) {
  if (!path.empty() && !tools::IsAbsolutePath(path)) {
    // Without "." in it: the path tells a product from others, in what is remembered of it.
    std::filesystem::path whole;
    for (const auto& part : std::filesystem::absolute(tools::ToPath(path))) {
      if (part != ".") whole /= part;
    }
    path = tools::FromPath(whole);
  }
  productPath_ = std::move(path);
}

std::string ModProject::ProductFolder() const { return tools::FolderOf(productPath_); }

bool ModProject::HasKnownFormat(const std::string& productPath) const {
  return settings_.Read(productPath, setting::kFormat.section, setting::kFormat.key, "") ==
         kFormatVersion;
}

std::string ModProject::ReadProductSetting(std::string_view section, std::string_view key,
                                           std::string_view defaultValue) const {
  if (!IsOpen()) return std::string(defaultValue);
  return settings_.Read(productPath_, section, key, defaultValue);
}

void ModProject::WriteProductSetting(std::string_view section, std::string_view key,
                                     std::string_view value) {
  if (!IsOpen()) return;
  tools::SettingsStore::Batch batch(settings_);
  RequireProduct();
  settings_.Write(productPath_, section, key, value);
  batch.Commit();
}

std::string ModProject::ReadVersionSetting(VersionSlot version, std::string_view section,
                                           std::string_view key,
                                           std::string_view defaultValue) const {
  if (!IsOpen()) return std::string(defaultValue);
  return settings_.Read(VersionFilePath(version), section, key, defaultValue);
}

void ModProject::WriteVersionSetting(VersionSlot version, std::string_view section,
                                     std::string_view key, std::string_view value) {
  if (!IsOpen()) return;
  const std::string path = VersionFilePath(version);
  // A batch looks at a file once: what vanishes after that look fails the commit.
  tools::SettingsStore::Batch batch(settings_);
  if (!settings_.IsBeingWritten(path)) RequireVersion(version);
  settings_.Write(path, section, key, value);
  batch.Commit();
}

std::string ModProject::ReadComponentSetting(VersionSlot version, ComponentSlot component,
                                             std::string_view section, std::string_view key,
                                             std::string_view defaultValue) const {
  if (!IsOpen()) return std::string(defaultValue);
  return settings_.Read(ComponentFilePath(version, component), section, key, defaultValue);
}

void ModProject::WriteComponentSetting(VersionSlot version, ComponentSlot component,
                                       std::string_view section, std::string_view key,
                                       std::string_view value) {
  if (!IsOpen()) return;
  const std::string path = ComponentFilePath(version, component);
  tools::SettingsStore::Batch batch(settings_);
  if (!settings_.IsBeingWritten(path)) RequireComponent(version, component);
  settings_.Write(path, section, key, value);
  batch.Commit();
}

void ModProject::RequireProduct() const {
  if (settings_.Exists(productPath_)) return;
  throw tools::PathError("Die Projektdatei ist nicht mehr vorhanden", productPath_, {});
}

void ModProject::RequireVersion(VersionSlot version) const {
  const std::string path = VersionFilePath(version);
  if (!VersionString(version).empty() && settings_.Exists(path)) return;
  throw tools::PathError("Die Version ist nicht mehr vorhanden", path, {});
}

void ModProject::RequireComponent(VersionSlot version, ComponentSlot component) const {
  RequireVersion(version);
  if (!ComponentTitle(version, component).empty()) return;
  throw tools::PathError("Die Komponente ist nicht mehr vorhanden",
                         ComponentFilePath(version, component), {});
}

void ModProject::RequireSoundVersionFile(VersionSlot version) const {
  const std::string path = VersionFilePath(version);
  if (!settings_.Exists(path)) throw tools::Error("Die Datei der Version fehlt: " + path);
  const auto file = settings_.Load(path);
  if (!file->HasSections() || file->Render().find('\0') != std::string::npos) {
    throw tools::Error("Die Datei der Version ist leer oder beschädigt: " + path);
  }
}

std::string ModProject::VersionFilePath(VersionSlot version) const {
  if (!IsOpen()) return {};
  return tools::JoinPath(VersionFolder(VersionString(version)), kVersionFileName);
}

std::string ModProject::VersionFolder(std::string_view versionText) const {
  if (!tools::IsSafeNamePart(versionText)) {
    throw tools::Error(std::string("Die Versionsnummer kann kein Teil eines Ordnernamens sein: ")
                           .append(versionText));
  }
  return tools::JoinPath(ProductFolder(), std::string("Version ").append(versionText));
}

std::string ModProject::ComponentFilePath(VersionSlot version, ComponentSlot component) const {
  if (!IsOpen()) return {};
  return tools::JoinPath(VersionFolder(VersionString(version)), ComponentFileName(component));
}

std::string ModProject::ProductTitle() const { return ReadProductSetting(setting::kProductTitle); }

std::string ModProject::ProductAuthor() const {
  return ReadProductSetting(setting::kProductAuthor);
}

void ModProject::SetProductTitle(std::string_view title) {
  WriteProductSetting(setting::kProductTitle, title);
}

std::int32_t ModProject::VersionCount() const {
  return StoredCount(ReadProductSetting(setting::kVersionCount),
                     {productPath_, setting::kVersionCount});
}

std::string ModProject::VersionString(VersionSlot version) const {
  std::string key(kVersionKey);
  key.append(std::to_string(version));
  return ReadProductSetting(setting::kVersionCount.section, key, "");
}

std::vector<VersionSlot> ModProject::VersionSlots() const {
  const std::int32_t count = VersionCount();
  const std::vector<std::int32_t> numbers =
      count <= kCheapSlotCount
          ? SlotsUpTo(count)
          : SlotsNamedIn(settings_.Load(productPath_)->Render(), kVersionKey, count);
  std::vector<VersionSlot> slots(numbers.begin(), numbers.end());
  std::erase_if(slots, [this](VersionSlot slot) { return VersionString(slot).empty(); });
  return slots;
}

std::int32_t ModProject::ComponentCount(VersionSlot version) const {
  return StoredCount(ReadVersionSetting(version, setting::kComponentCount),
                     {VersionFilePath(version), setting::kComponentCount});
}

std::string ModProject::ComponentTitle(VersionSlot version, ComponentSlot component) const {
  constexpr SettingName kTitle = setting::kComponentTitle;
  return ReadComponentSetting(version, component, kTitle.section, kTitle.key, "");
}

// Counts are only text: 10,000 versions of 10,000 slots must not make 100 million looks at files.
std::vector<ComponentSlot> ModProject::PossibleComponentSlots(
    VersionSlot version, const tools::ListingStep& step) const {
  const std::int32_t count = ComponentCount(version);
  if (count == 0) return {};
  return ComponentFiles(tools::FolderOf(VersionFilePath(version)), count, step);
}

std::vector<ComponentSlot> ModProject::ComponentSlots(VersionSlot version) const {
  std::vector<ComponentSlot> slots = PossibleComponentSlots(version);
  std::erase_if(
      slots, [this, version](ComponentSlot slot) { return ComponentTitle(version, slot).empty(); });
  return slots;
}

std::vector<std::string> ModProject::StoredVersionTexts() const {
  if (!IsOpen()) return {};
  std::vector<std::string> texts;
  constexpr std::int32_t kAnySlot = std::numeric_limits<std::int32_t>::max();
  for (const std::int32_t slot :
       SlotsNamedIn(settings_.Load(productPath_)->Render(), kVersionKey, kAnySlot)) {
    texts.push_back(VersionString(slot));
  }
  std::erase(texts, std::string());
  return texts;
}

std::string ModProject::DefaultOutputFolder(std::int32_t configuration) const {
  std::string name;
  if (configuration == 1) name = LoadText(Text::Debug);
  if (configuration == 2) name = LoadText(Text::Release);
  return tools::JoinPath(tools::JoinPath(ProductFolder(), LoadText(Text::OutputFolderName)), name);
}

}  // namespace model
