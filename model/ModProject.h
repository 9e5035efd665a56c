// The open product: where its files lie, and the settings in them.
//
//   <folder>/<name>.product                          the product
//   <folder>/Version <version>/product.version       a version
//   <folder>/Version <version>/component<k>.component  a component of it
//
// Versions and components are known by 1-based slot numbers that are never renumbered; "Count" is
// the highest slot ever used, and empty slots in between are free.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/SettingNames.h"
#include "model/Slots.h"
#include "tools/files/FindFiles.h"
#include "tools/settings/SettingsStore.h"

namespace model {

class ModProject {
 public:
  /// The file extension of products, without the dot, and the file format that this program reads.
  static constexpr std::string_view kProductExtension = "product";
  static constexpr std::string_view kFormatVersion = "1.0";
  /// The name of a version's file in its folder.
  static constexpr std::string_view kVersionFileName = "product.version";

  /// `settings` must outlive this object. No product is open.
  explicit ModProject(tools::SettingsStore& settings);

  /// The full path of the open product file; empty while none is open.
  [[nodiscard]] const std::string& ProductPath() const { return productPath_; }
  /// Takes a relative path from the current folder, without any "."; an empty one closes the
  /// product.
  void SetProductPath(std::string path);
  [[nodiscard]] bool IsOpen() const { return !productPath_.empty(); }
  /// The folder that the product file lies in.
  [[nodiscard]] std::string ProductFolder() const;

  /// True when the file says that it has the format this program reads.
  [[nodiscard]] bool HasKnownFormat(const std::string& productPath) const;

  // What is absent reads as the default; a file that is there but cannot be read raises
  // tools::Error, as does an unsafe version text (see tools::IsSafeNamePart). Writes do nothing
  // while no product is open and raise tools::Error when the store cannot write.
  [[nodiscard]] std::string ReadProductSetting(std::string_view section, std::string_view key,
                                               std::string_view defaultValue) const;
  [[nodiscard]] std::string ReadProductSetting(const SettingName& name) const {
    return ReadProductSetting(name.section, name.key, name.standard);
  }
  void WriteProductSetting(std::string_view section, std::string_view key, std::string_view value);
  void WriteProductSetting(const SettingName& name, std::string_view value) {
    WriteProductSetting(name.section, name.key, value);
  }
  [[nodiscard]] std::string ReadVersionSetting(VersionSlot version, std::string_view section,
                                               std::string_view key,
                                               std::string_view defaultValue) const;
  [[nodiscard]] std::string ReadVersionSetting(VersionSlot version, const SettingName& name) const {
    return ReadVersionSetting(version, name.section, name.key, name.standard);
  }
  void WriteVersionSetting(VersionSlot version, std::string_view section, std::string_view key,
                           std::string_view value);
  void WriteVersionSetting(VersionSlot version, const SettingName& name, std::string_view value) {
    WriteVersionSetting(version, name.section, name.key, value);
  }
  [[nodiscard]] std::string ReadComponentSetting(VersionSlot version, ComponentSlot component,
                                                 std::string_view section, std::string_view key,
                                                 std::string_view defaultValue) const;
  void WriteComponentSetting(VersionSlot version, ComponentSlot component, std::string_view section,
                             std::string_view key, std::string_view value);

  /// Raise tools::Error naming the file when the open product, a version (its slot or its file) or
  /// a component (its title) is gone.
  void RequireProduct() const;
  void RequireVersion(VersionSlot version) const;
  void RequireComponent(VersionSlot version, ComponentSlot component) const;
  /// Raises tools::Error naming the file of the version when it is missing, cannot be read or holds
  /// no settings (zero bytes, for example, or NULs after a loss of power).
  void RequireSoundVersionFile(VersionSlot version) const;

  /// Paths of the files that hold the settings of a version and of a component; empty while no
  /// product is open. Raises tools::Error when the stored version text could lead out of the
  /// product's folder (see tools::IsSafeNamePart).
  [[nodiscard]] std::string VersionFilePath(VersionSlot version) const;
  [[nodiscard]] std::string ComponentFilePath(VersionSlot version, ComponentSlot component) const;

  /// The folder of a version with this text.
  [[nodiscard]] std::string VersionFolder(std::string_view versionText) const;

  [[nodiscard]] std::string ProductTitle() const;
  [[nodiscard]] std::string ProductAuthor() const;
  void SetProductTitle(std::string_view title);
  /// The highest version slot ever used; 0 when there is none. Raises tools::Error as StoredCount
  /// does.
  [[nodiscard]] std::int32_t VersionCount() const;
  /// The version's text, empty for a free slot.
  [[nodiscard]] std::string VersionString(VersionSlot version) const;
  /// The slots of the versions there are, ascending. Its cost does not depend on the stored count.
  [[nodiscard]] std::vector<VersionSlot> VersionSlots() const;
  /// The texts of all versions that the product file holds, those beyond a damaged count too.
  [[nodiscard]] std::vector<std::string> StoredVersionTexts() const;
  /// The highest component slot ever used in a version; 0 and errors as above.
  [[nodiscard]] std::int32_t ComponentCount(VersionSlot version) const;
  /// The component's title, empty for a free slot.
  [[nodiscard]] std::string ComponentTitle(VersionSlot version, ComponentSlot component) const;
  /// The slots up to the version's count whose component files are there, ascending: one look at
  /// the version's folder and none at each file. Raises tools::Error when the folder cannot be
  /// listed, and what `step` raises, which is called for each entry of the folder.
  [[nodiscard]] std::vector<ComponentSlot> PossibleComponentSlots(
      VersionSlot version, const tools::ListingStep& step = {}) const;
  /// The slots of the components there are in a version, ascending; the cost as above.
  /// Raises tools::Error when the version's folder cannot be searched.
  [[nodiscard]] std::vector<ComponentSlot> ComponentSlots(VersionSlot version) const;

  /// The output folder proposed for a build configuration (1 debug, 2 release).
  [[nodiscard]] std::string DefaultOutputFolder(std::int32_t configuration) const;

  /// The store behind the settings, for batches and snapshots.
  [[nodiscard]] tools::SettingsStore& Settings() const { return settings_; }

 private:
  tools::SettingsStore& settings_;
  std::string productPath_;
};

}  // namespace model
