#include "wizards/LastBuilds.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "model/Preferences.h"

namespace wizards {

namespace {

// A value of the registry holds "name=value" for each option, joined by "|". Paths may hold any
// character; those that a name or value of the registry cannot take are written as "%" and two
// hexadecimal digits.
std::string Escaped(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && std::string_view("%|=;[]\"").find(c) == std::string_view::npos) {
      escaped += c;
    } else {
      escaped += {'%', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return escaped;
}

std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned byte = 0;
    const char* digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      plain += static_cast<char>(byte);
      i += 2;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

}  // namespace

LastBuilds::LastBuilds(tools::Registry& registry, const model::ModProject& project)
    : registry_(registry), project_(project) {}

std::string LastBuilds::NameOf(model::VersionSlot version) const {
  return Escaped(project_.ProductPath()) + '|' + Escaped(project_.VersionString(version));
}

tools::WizardDataStore LastBuilds::Of(model::VersionSlot version) const {
  tools::WizardDataStore values;
  const std::string stored =
      registry_.Read(tools::RegistryRoot::CurrentUser, model::kLastBuildsKey, NameOf(version), "");
  std::string_view rest = stored;
  while (!rest.empty()) {
    const std::string_view option = rest.substr(0, rest.find('|'));
    rest.remove_prefix(std::min(option.size() + 1, rest.size()));
    const std::size_t sign = option.find('=');
    if (sign == std::string_view::npos) continue;
    values.emplace(option.substr(0, sign), Unescaped(option.substr(sign + 1)));
  }
  const auto compression = compressions_.find(NameOf(version));
  if (!values.empty() && compression != compressions_.end()) {
    values["compression"] = compression->second;
  }
  return values;
}

void LastBuilds::Remember(model::VersionSlot version, const tools::WizardDataStore& values) {
  const auto compression = values.find("compression");
  compressions_[NameOf(version)] = compression == values.end() ? "" : compression->second;
  std::string text;
  for (const auto& [name, value] : values) {
    if (name == "compression") continue;
    if (!text.empty()) text += '|';
    text.append(name).append("=").append(Escaped(value));
  }
  registry_.Write(tools::RegistryRoot::CurrentUser, model::kLastBuildsKey, NameOf(version), text);
}

}  // namespace wizards
