#include "console/ProductVersion.h"

#include "tools/Text.h"
#include "tools/files/Files.h"

namespace console {

void OpenProduct(model::ModProject& project, const std::string& path) {
  project.SetProductPath(path);
  if (!tools::FileExists(path)) throw BadCall{"Die Produktdatei wurde nicht gefunden: " + path};
  if (!project.HasKnownFormat(path)) {
    throw BadCall{"Die Produktdatei ist nicht lesbar oder besitzt ein ungültiges Format: " + path};
  }
}

std::int32_t FindVersion(const model::ModProject& project, const std::string& wanted) {
  std::string known;
  for (const std::int32_t version : project.VersionSlots()) {
    const std::string text = project.VersionString(version);
    if (tools::EqualIgnoringCase(tools::TrimBlanks(text), tools::TrimBlanks(wanted))) {
      return version;
    }
    known += (known.empty() ? "" : ", ") + text;
  }
  throw BadCall{
      "Das Produkt hat keine Version " + wanted +
      (known.empty() ? std::string(" (keine vorhanden)") : " (vorhanden: " + known + ")")};
}

}  // namespace console
