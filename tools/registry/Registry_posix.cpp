#include <algorithm>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"
#include "tools/registry/Registry.h"
#include "tools/registry/WineRegistry.h"
#include "tools/settings/SettingsStore.h"

namespace tools {

namespace {

/// True for a character that has a meaning of its own in a section or key of a settings file.
bool IsReserved(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F ||
         std::string_view("%=;[]@").find(c) != std::string_view::npos;
}

/// A name as a section or key can hold it: reserved characters, and spaces at its ends, become "%"
/// and two hexadecimal digits. Settings ignore the case of ASCII letters, which are kept; names
/// with others are folded.
std::string EncodeName(std::string_view name) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const bool ascii = std::all_of(name.begin(), name.end(), [](char c) { return (c & 0x80) == 0; });
  const std::string text = ascii ? std::string(name) : FoldCase(name);
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool atEnd = i == 0 || i + 1 == text.size();
    if (IsReserved(text[i]) || (atEnd && text[i] == ' ')) {
      result += '%';
      result += kDigits[static_cast<unsigned char>(text[i]) >> 4];
      result += kDigits[text[i] & 0x0F];
    } else {
      result += text[i];
    }
  }
  return result;
}

class PosixRegistry : public Registry {
 public:
  explicit PosixRegistry(Disk& disk)
      : folder_(JoinPath(SpecialFolder(kUserDataFolder), "packwright")),
        path_(JoinPath(folder_, "registry.conf")),
        values_(disk),
        names_(JoinPath(SpecialFolder(kProfileFolder), ".wine")) {}

  std::string Read(RegistryRoot root, std::string_view keyPath, std::string_view valueName,
                   std::string_view defaultValue) override {
    try {
      return values_.Read(path_, Section(root, keyPath), Key(valueName), defaultValue);
    } catch (const Error&) {
      // As on Windows: a preference that cannot be read must not keep the program from starting.
      // Writing one raises the error.
      return std::string(defaultValue);
    }
  }

  void Write(RegistryRoot root, std::string_view keyPath, std::string_view valueName,
             std::string_view value) override {
    MakeFolder(folder_);
    values_.Write(path_, Section(root, keyPath), Key(valueName), value);
  }

  std::vector<std::string> SubkeyNames(RegistryRoot root, std::string_view keyPath) override {
    return names_.SubkeyNames(root, keyPath);
  }

  std::vector<std::string> ValueNames(RegistryRoot root, std::string_view keyPath) override {
    return names_.ValueNames(root, keyPath);
  }

 private:
  static std::string Section(RegistryRoot root, std::string_view keyPath) {
    return std::string(RegistryRootName(root)) + "\\" + EncodeName(TrimKeyPath(keyPath));
  }
  static std::string Key(std::string_view valueName) {
    return valueName.empty() ? "@" : EncodeName(valueName);
  }

  std::string folder_;
  std::string path_;
  SettingsStore values_;
  WineRegistry names_;
};

}  // namespace

std::unique_ptr<Registry> OpenSystemRegistry(Disk& disk) {
  return std::make_unique<PosixRegistry>(disk);
}

}  // namespace tools
