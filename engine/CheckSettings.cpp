#include "engine/CheckSettings.h"

#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/SettingsText.h"
#include "model/ICFile.h"
#include "model/SettingNames.h"
#include "model/StoredNumbers.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/settings/SettingsFile.h"

namespace engine {

namespace setting = model::setting;

namespace {

std::string Again(const DuplicateName& name) {
  std::string text;
  if (name.key.empty()) {
    text.append("Der Abschnitt [").append(name.section).append("] steht mehrfach in der Datei");
  } else {
    text.append("Der Schlüssel ").append(name.key).append(" steht mehrfach im Abschnitt [");
    text.append(name.section).append("]");
  }
  return text.append("; es gilt der erste: ");
}

// Of two equal names the first counts, and the author may have meant the second.
void CheckDuplicates(std::string_view text, const std::string& path, const Place& place,
                     Findings& findings) {
  const Duplicates found = FindDuplicates(text);
  for (const DuplicateName& name : found.names) {
    findings.Report(Again(name) + path + " (Zeile " + std::to_string(name.line) + ")", place,
                    Severity::Warning);
  }
  if (found.count == found.names.size()) return;
  findings.Report(std::to_string(found.count - found.names.size()) +
                      " weitere Abschnitte oder Schlüssel stehen mehrfach in der Datei: " + path,
                  place, Severity::Warning);
}

void CheckText(std::string_view text, const std::string& path, const Place& place,
               Findings& findings) {
  if (text.find('\0') != std::string_view::npos) {
    findings.Report("Die Datei ist beschädigt (sie enthält Nullzeichen): " + path, place);
  } else if (!tools::IsValidUtf8(text)) {
    findings.Report("Die Datei ist nicht in UTF-8 geschrieben: " + path, place);
  }
  if (const std::size_t line = ConflictLine(text); line != 0) {
    findings.Report("Die Datei enthält Konfliktmarken einer Zusammenführung: " + path + " (Zeile " +
                        std::to_string(line) + ")",
                    place);
  }
  CheckDuplicates(text, path, place, findings);
}

void CheckFile(const model::ModProject& project, const std::string& path, Findings& findings) {
  findings.Try({}, [&] {
    if (LookAt(path) == tools::PathKind::File) {
      CheckText(project.Settings().Load(path)->Render(), path, {}, findings);
    }
  });
}

class ComponentCheck {
 public:
  ComponentCheck(const tools::SettingsFile& settings, const std::string& path, const Place& place,
                 Findings& findings)
      : settings_(settings), path_(path), place_(place), findings_(findings) {}

  void Run() {
    const std::string text = settings_.Render();
    CheckText(text, path_, place_, findings_);
    CheckRegistryCount();
    std::int32_t count = 0;
    try {
      count = model::ReadFileCount(read_, path_);
    } catch (const tools::Error&) {
      return;  // the survey of the version finds that too
    }
    CheckSections(text, count);
    for (const std::int32_t number : model::SlotsNamedIn(text, "File", count)) CheckEntry(number);
  }

 private:
  void CheckRegistryCount() {
    findings_.Try(place_, [&] {
      constexpr model::SettingName kCount = setting::kRegistryKeyCount;
      (void)model::StoredCount(settings_.Read(kCount.section, kCount.key, kCount.standard),
                               {path_, kCount});
    });
  }

  // Sections above the count mean nothing, and may be entries that a merge or an editor cut off.
  void CheckSections(std::string_view text, std::int32_t count) {
    constexpr std::size_t kMostNames = 10;
    std::string beyond;
    std::size_t found = 0;
    ForEachSection(text, [&](std::string_view name) {
      if (model::SlotNumberOf(name, "File") <= count || ++found > kMostNames) return;
      beyond.append(beyond.empty() ? "" : ", ").append(name);
    });
    if (found == 0) return;
    if (found > kMostNames) {
      beyond.append(" und ").append(std::to_string(found - kMostNames)).append(" weitere");
    }
    findings_.Report(
        "Abschnitte jenseits der Anzahl der Dateien (" + std::to_string(count) + "): " + beyond,
        place_, Severity::Warning);
  }

  void CheckEntry(std::int32_t number) {
    Place place = place_;
    place.entry = number;
    place.entryId = settings_.Find(model::FileEntrySection(number), "ID").value_or("");
    findings_.Try(place, [&] {
      const model::ICFile entry = model::ReadFileEntry(read_, path_, number, model::EntryUse::Edit);
      if (entry.Exclude != 1) model::RequireShortTexts(entry, path_, number);
    });
  }

  const tools::SettingsFile& settings_;
  const std::string& path_;
  Place place_;
  Findings& findings_;
  const model::SettingReader read_ = [this](std::string_view section, std::string_view key,
                                            std::string_view value) {
    return settings_.Read(section, key, value);
  };
};

}  // namespace

void CheckProductSettings(const model::ModProject& project, model::VersionSlot version,
                          Findings& findings) {
  CheckFile(project, project.ProductPath(), findings);
  findings.Try({}, [&] { CheckFile(project, project.VersionFilePath(version), findings); });
  findings.Try({}, [&] { (void)project.VersionSlots(); });
  findings.Try({}, [&] { (void)project.ComponentCount(version); });
  namespace setting = model::setting;
  const auto checkNumber = [&](const model::SettingName& name) {
    findings.Try({}, [&] {
      (void)model::StoredInt32(project.ReadVersionSetting(version, name),
                               {project.VersionFilePath(version), name});
    });
  };
  checkNumber(setting::kActiveConfiguration);
  checkNumber(setting::kInstallerType);
  for (const std::int32_t configuration : {1, 2}) {
    checkNumber({setting::BuildSection(configuration), setting::kLanguage});
  }
}

void CheckComponentSettings(const model::ModProject& project, model::VersionSlot version,
                            model::ComponentSlot slot, Findings& findings) {
  findings.Try({slot, {}, 0}, [&] {
    const std::string path = project.ComponentFilePath(version, slot);
    if (LookAt(path) != tools::PathKind::File) return;
    const std::shared_ptr<const tools::SettingsFile> settings = project.Settings().Load(path);
    std::string title = settings->Read(model::setting::kComponentTitle.section,
                                       model::setting::kComponentTitle.key, "");
    if (title.size() > model::kLongestText) title.clear();  // the survey finds that
    ComponentCheck(*settings, path, {slot, title, 0}, findings).Run();
  });
}

namespace {

class Finder {
 public:
  Finder(const model::ModProject& project, model::VersionSlot version,
         const std::function<void(const std::string&, const Place&)>& report)
      : project_(project), version_(version), report_(report) {}

  void LookAtProduct() {
    for (const model::SettingName& name : {setting::kProductTitle, setting::kProductAuthor}) {
      LookAt(project_.ReadProductSetting(name), project_.ProductPath(), name, {});
    }
    using setting::kCatalogueKey;
    if (project_.ReadVersionSetting(version_, kCatalogueKey).empty()) return;  // not registered
    for (const auto& name : {kCatalogueKey, setting::kCatalogueTitle, setting::kCatalogueType}) {
      LookAt(project_.ReadVersionSetting(version_, name), project_.VersionFilePath(version_), name,
             {});
    }
  }

  void LookAtComponent(const SurveyedComponent& component) {
    const std::string path = project_.ComponentFilePath(version_, component.slot);
    LookAt(component.title, path, setting::kComponentTitle, {component.slot, component.title, 0});
    for (const UnfitValue& value : component.unfitValues) {
      Report(path, model::FileEntrySection(value.entry), value.key,
             {component.slot, component.title, value.entry, value.entryId});
    }
  }

 private:
  void LookAt(const std::string& value, const std::string& path, const model::SettingName& name,
              const Place& place) {
    if (tools::HasControlCharacter(value)) Report(path, name.section, name.key, place);
  }

  void Report(const std::string& path, std::string_view section, std::string_view key,
              const Place& place) {
    std::string text = "Ein Wert enthält ein Steuerzeichen: " + path + " ([";
    report_(text.append(section).append("] ").append(key).append(")"), place);
  }

  const model::ModProject& project_;
  model::VersionSlot version_;
  const std::function<void(const std::string&, const Place&)>& report_;
};

}  // namespace

void FindControlCharacters(
    const model::ModProject& project, model::VersionSlot version, const Survey& survey,
    const std::function<void(const std::string& text, const Place& place)>& report) {
  Finder finder(project, version, report);
  finder.LookAtProduct();
  for (const SurveyedComponent& component : survey.components) finder.LookAtComponent(component);
}

}  // namespace engine
