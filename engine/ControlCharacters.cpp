#include "engine/ControlCharacters.h"

#include <string_view>

#include "tools/Text.h"

namespace engine {

namespace {

class Finder {
 public:
  Finder(const model::ModProject& project, std::int32_t version,
         const std::function<void(const std::string&, const Place&)>& report)
      : project_(project), version_(version), report_(report) {}

  void LookAtProduct() {
    for (const char* key : {"Title", "Author"}) {
      LookAt(project_.ReadProductSetting("Product", key, ""), project_.ProductPath(), "Product",
             key, {});
    }
    if (Tessel("Key").empty()) return;  // the script registers nothing then
    for (const char* key : {"Key", "Title", "Type"}) {
      LookAt(Tessel(key), project_.VersionFilePath(version_), "Tessel", key, {});
    }
  }

  void LookAtComponent(const SurveyedComponent& component) {
    const std::string path = project_.ComponentFilePath(version_, component.slot);
    LookAt(component.title, path, "Component", "Title", {component.slot, component.title, 0});
    for (const SurveyedEntry& entry : component.entries) {
      const model::ICFile& file = entry.file;
      const std::string section = model::FileEntrySection(entry.number);
      const auto look = [&](const char* key, const std::string& value) {
        LookAt(value, path, section, key, component.PlaceOf(entry));
      };
      look("ID", file.ID);
      look("SourcePath", file.SourcePath);
      look("SourceName", file.SourceName);
      look("TargetSubFolder", file.TargetSubFolder);
      look("TargetName", file.TargetName);
    }
  }

 private:
  [[nodiscard]] std::string Tessel(std::string_view key) const {
    return project_.ReadVersionSetting(version_, "Tessel", key, "");
  }

  void LookAt(const std::string& value, const std::string& path, std::string_view section,
              std::string_view key, const Place& place) {
    if (!tools::HasControlCharacter(value)) return;
    std::string text = "Ein Wert enthält ein Steuerzeichen: " + path + " ([";
    report_(text.append(section).append("] ").append(key).append(")"), place);
  }

  const model::ModProject& project_;
  std::int32_t version_;
  const std::function<void(const std::string&, const Place&)>& report_;
};

}  // namespace

void FindControlCharacters(
    const model::ModProject& project, std::int32_t version, const Survey& survey,
    const std::function<void(const std::string& text, const Place& place)>& report) {
  Finder finder(project, version, report);
  finder.LookAtProduct();
  for (const SurveyedComponent& component : survey.components) finder.LookAtComponent(component);
}

}  // namespace engine
