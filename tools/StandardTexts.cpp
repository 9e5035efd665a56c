#include "tools/StandardTexts.h"

namespace tools {

std::string StandardText(std::int32_t number) {
  switch (number) {
    case kTextError:
      return "Fehler";
    case kTextExisting:
      return "Vorhanden";
    case kTextMissing:
      return "Nicht vorhanden";
    case kTextOk:
      return "OK";
    case kTextCancel:
      return "Abbrechen";
    case kTextWarning:
      return "Warnung";
    case kTextQuestion:
      return "Frage";
    default:
      return {};
  }
}

}  // namespace tools
