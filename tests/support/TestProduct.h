// A product on disk for tests: one version "1.0.0" in slot 1, filled through ModProject.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/ICFile.h"
#include "model/ModProject.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/Disk.h"
#include "tools/Path.h"
#include "tools/SettingsStore.h"

namespace tests {

class TestProduct {
 public:
  /// The product lies in the folder's subfolder "Produkt", with the title "Probe".
  explicit TestProduct(const TemporaryFolder& folder) : store_(disk_), project_(store_) {
    folder.MakeFolder("Produkt/Version 1.0.0");
    project_.SetProductPath(folder.Path("Produkt/Probe.product"));
    tools::SettingsStore::Batch batch(store_);
    project_.WriteProductSetting("General", "Version", "1.0");
    project_.SetProductTitle("Probe");
    project_.WriteProductSetting("Product", "Author", "Änne Müller");
    project_.WriteProductSetting("Versions", "Count", "1");
    project_.WriteProductSetting("Versions", "Ver1", "1.0.0");
    batch.Commit();
  }

  [[nodiscard]] model::ModProject& Project() { return project_; }
  [[nodiscard]] tools::SettingsStore& Store() { return store_; }

  /// Adds a component behind the last one and returns its slot.
  std::int32_t AddComponent(const std::string& title, const std::vector<model::ICFile>& entries) {
    const std::int32_t slot = project_.ComponentCount(1) + 1;
    tools::SettingsStore::Batch batch(store_);
    project_.WriteVersionSetting(1, "Components", "Count", std::to_string(slot));
    project_.WriteComponentSetting(1, slot, "Component", "Title", title);
    const model::SettingWriter write = [&](auto section, auto key, auto value) {
      project_.WriteComponentSetting(1, slot, section, key, value);
    };
    model::WriteFileCount(write, static_cast<std::int32_t>(entries.size()));
    for (std::size_t i = 0; i < entries.size(); ++i) {
      model::WriteFileEntry(write, static_cast<std::int32_t>(i + 1), entries[i]);
    }
    batch.Commit();
    return slot;
  }

  /// An entry for one file, installed into the installation folder.
  static model::ICFile File(const std::string& path) {
    model::ICFile entry;
    entry.ID = "{" + path + "}";
    entry.Type = model::ICFile::kSingleFile;
    entry.SourcePath = tools::FolderOf(path);
    entry.SourceName = tools::FileNamePart(path);
    entry.TargetFolder = 2001;
    return entry;
  }

  /// An entry for the files of a folder and its subfolders.
  static model::ICFile Scan(const std::string& folder, const std::string& pattern) {
    model::ICFile entry = File(tools::JoinPath(folder, pattern));
    entry.Type = model::ICFile::kFolderScan;
    entry.IncludeChildren = 1;
    return entry;
  }

 private:
  tools::SystemDisk disk_;
  tools::SettingsStore store_;
  model::ModProject project_;
};

}  // namespace tests
