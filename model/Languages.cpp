#include "model/Languages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "model/TextTable.h"
#include "tools/Text.h"

namespace model {

namespace {

constexpr std::array<Language, 41> kLanguages{{
    {0, "Sprachneutral"},
    {1025, "Arabisch (Saudi-Arabien)"},
    {1026, "Bulgarisch"},
    {1028, "Chinesisch (Taiwan)"},
    {2052, "Chinesisch (Volksrepublik China)"},
    {1030, "Dänisch"},
    {1031, "Deutsch (Deutschland)"},
    {5127, "Deutsch (Liechtenstein)"},
    {4103, "Deutsch (Luxemburg)"},
    {3079, "Deutsch (Österreich)"},
    {2055, "Deutsch (Schweiz)"},
    {2057, "Englisch (Großbritannien)"},
    {1033, "Englisch (USA)"},
    {1035, "Finnisch"},
    {1036, "Französisch (Frankreich)"},
    {4108, "Französisch (Schweiz)"},
    {1032, "Griechisch"},
    {1037, "Hebräisch"},
    {1057, "Indonesisch"},
    {1040, "Italienisch (Italien)"},
    {2064, "Italienisch (Schweiz)"},
    {1041, "Japanisch"},
    {1042, "Koreanisch"},
    {1050, "Kroatisch"},
    {2067, "Niederländisch (Belgien)"},
    {1043, "Niederländisch (Niederlande)"},
    {1044, "Norwegisch (Bokmål)"},
    {1045, "Polnisch"},
    {1046, "Portugiesisch (Brasilien)"},
    {2070, "Portugiesisch (Portugal)"},
    {1048, "Rumänisch"},
    {1049, "Russisch"},
    {1053, "Schwedisch"},
    {1051, "Slowakisch"},
    {1060, "Slowenisch"},
    {3082, "Spanisch (Spanien)"},
    {1054, "Thailändisch"},
    {1029, "Tschechisch"},
    {1055, "Türkisch"},
    {1058, "Ukrainisch"},
    {1038, "Ungarisch"},
}};

}  // namespace

std::span<const Language> CommonLanguages() { return kLanguages; }

std::string LanguageText(const std::string& language) {
  const auto* known = std::find_if(kLanguages.begin(), kLanguages.end(), [&](const Language& one) {
    return std::to_string(one.lcid) == language;
  });
  return known == kLanguages.end() ? language : language + " – " + known->name;
}

std::string ConfiguredLanguageText(const std::string& language) {
  if (language.empty()) return {};
  return tools::ReplaceAll(LoadText(Text::AsConfigured), "%language%", LanguageText(language));
}

std::string LanguageNumber(const std::string& typed) {
  const std::string_view text = tools::TrimBlanks(typed);
  std::int32_t number = 0;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = parsed.ptr == text.data() + text.size();
  if (parsed.ec == std::errc() && isWhole && number >= 0) return std::to_string(number);
  for (const Language& language : kLanguages) {
    std::string known = std::to_string(language.lcid);
    if (tools::EqualIgnoringCase(text, language.name) ||
        tools::EqualIgnoringCase(text, LanguageText(known))) {
      return known;
    }
  }
  return {};
}

}  // namespace model
