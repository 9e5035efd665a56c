// The product of the tests, on a disk that can fail: one version "1.0.0" in slot 1.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/ModProject.h"
#include "tests/support/FaultyDisk.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/files/Path.h"

namespace tests {

class TestProduct {
 public:
  // Below the folder that the product was made in.
  static constexpr const char* kFile = "Produkt/Probe.product";
  static constexpr const char* kVersionFile = "Produkt/Version 1.0.0/product.version";
  static constexpr const char* kComponentFile = "Produkt/Version 1.0.0/component1.component";

  /// The product lies in the subfolder "Produkt" of `folder`, with the title "Probe".
  explicit TestProduct(const TemporaryFolder& folder) : folder_(folder) {
    folder.Write(kVersionFile, "[Components]\nCount=0\n");
    WriteVersions("Count=1\nVer1=1.0.0\n");
    project_.SetProductPath(folder.Path(kFile));
  }

  [[nodiscard]] model::ModProject& Project() { return project_; }
  [[nodiscard]] FaultyDisk& Disk() { return disk_; }

  /// Writes the product's file anew, with this section of versions.
  void WriteVersions(const std::string& versions) {
    folder_.Write(kFile,
                  "[General]\nVersion=1.0\n[Product]\nTitle=Probe\nAuthor=Änne Müller\n"
                  "[Versions]\n" +
                      versions);
  }

  /// Adds a component behind the last one. Each entry is the text of its section.
  void AddComponent(const std::string& title, const std::vector<std::string>& entries) {
    const std::string slot = std::to_string(project_.ComponentCount(1) + 1);
    project_.WriteVersionSetting(1, "Components", "Count", slot);
    std::string text = "[Component]\nTitle=" + title + "\n[Files]\nCount=";
    text.append(std::to_string(entries.size())).append("\n");
    for (std::size_t i = 0; i < entries.size(); ++i) {
      text.append("[File").append(std::to_string(i + 1)).append("]\n").append(entries[i]);
    }
    folder_.Write("Produkt/Version 1.0.0/component" + slot + ".component", text);
  }

  /// An entry for one file, installed into the installation folder; `settings` ("Key=Value\n" each)
  /// replace those given here.
  static std::string File(const std::string& path, const std::string& settings = {}) {
    std::string entry = settings;
    for (const std::string& line :
         {"ID={" + path + "}\n", std::string("Type=1\n"),
          "SourcePath=" + tools::FolderOf(path) + "\n",
          "SourceName=" + tools::FileNamePart(path) + "\n", std::string("TargetFolder=2001\n")}) {
      const std::string key = line.substr(0, line.find('=') + 1);
      if (("\n" + settings).find("\n" + key) == std::string::npos) entry += line;
    }
    return entry;
  }

  /// An entry for the files of a folder and its subfolders.
  static std::string Scan(const std::string& folder, const std::string& pattern) {
    return File(tools::JoinPath(folder, pattern), "Type=2\nIncludeChildren=1\n");
  }

 private:
  const TemporaryFolder& folder_;
  FaultyDisk disk_;
  tools::SettingsStore store_{disk_};
  model::ModProject project_{store_};
};

}  // namespace tests
