#include "engine/OutputContent.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "tools/Error.h"
#include "tools/SetupNames.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace engine {

namespace {

constexpr std::string_view kSourceMacro = "\"%SrcPath%\\";

/// Gets each path below the folder. A folder that cannot be read is given twice, as a folder and
/// then as Other. Returns false to end the visit.
using Visitor = std::function<bool(const std::string& relative, tools::FolderEntry::Kind kind)>;

class Walk {
 public:
  Walk(std::string root, const Visitor& visit) : root_(std::move(root)), visit_(visit) {}

  /// Returns false when the visitor ended it.
  bool Run() { return Enter({}); }

 private:
  bool Enter(const std::string& relative) {
    std::error_code failure;
    const std::string folder = relative.empty() ? root_ : tools::JoinPath(root_, relative);
    std::vector<tools::FolderEntry> entries = tools::ListEntries(folder, failure);
    if (failure) {
      if (relative.empty()) {
        throw tools::PathError("Der Ordner kann nicht gelesen werden", folder, failure);
      }
      if (!visit_(relative, tools::FolderEntry::Kind::Other)) return false;
    }
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return a.name < b.name; });
    for (const tools::FolderEntry& entry : entries) {
      if (relative.empty() && tools::IsTemporaryName(entry.name)) continue;
      const std::string path =
          relative.empty() ? entry.name : tools::JoinPath(relative, entry.name);
      if (!visit_(path, entry.kind)) return false;
      if (entry.kind == tools::FolderEntry::Kind::Folder && !Enter(path)) return false;
    }
    return true;
  }

  std::string root_;
  const Visitor& visit_;
};

/// Returns false when the visitor ended it.
bool Visit(const std::string& folder, const Visitor& visit) { return Walk(folder, visit).Run(); }

/// The same key for all spellings of one place in the tree of a setup: neither case counts, nor
/// dots and blanks at the end of a part (see TreePlaces).
std::string KeyOf(const std::string& path, char separator) {
  std::vector<std::string_view> parts;
  for (std::string_view rest = path; !rest.empty();) {
    const std::string_view part = rest.substr(0, rest.find(separator));
    rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    if (part.empty() || part == ".") continue;
    if (part != "..") {
      parts.push_back(part);
    } else if (!parts.empty()) {
      parts.pop_back();
    }
  }
  std::string key;
  for (const std::string_view part : parts) {
    const std::size_t last = part.find_last_not_of(". ");
    key.append("\\").append(
        tools::LowerCase(last == std::string_view::npos ? part : part.substr(0, last + 1)));
  }
  return key;
}

/// True for a file that begins in this way. The rest is not read: nobody knows whose it is.
bool BeginsWith(const tools::InputFile& file, std::string_view begin) {
  std::string head(begin.size(), '\0');
  return file.ReadAt(0, head) == head.size() && head == begin;
}

bool IsLog(const std::string& path) {
  try {
    return BeginsWith(tools::InputFile(path), tools::kLogHead);
  } catch (const tools::Error&) {
    return false;  // then it counts as no setup's
  }
}

/// The text of an installation script; none for any other file.
std::optional<std::string> ScriptAt(const std::string& path) {
  constexpr std::size_t kLargestScript = std::size_t{512} << 20U;
  try {
    if (!BeginsWith(tools::InputFile(path), tools::kScriptHead)) return std::nullopt;
    auto script = tools::ReadFileUpTo(path, kLargestScript);
    if (!script) return std::nullopt;
    return std::move(script->bytes);
  } catch (const tools::Error&) {
    return std::nullopt;  // then it counts as no setup's
  }
}

/// The names in the top of the folder that belong to a setup, and those below that its script
/// installs.
class SetupNames {
 public:
  explicit SetupNames(const std::string& folder) {
    if (!IsLog(tools::JoinPath(folder, tools::kLogName))) return;
    std::error_code failure;
    for (const tools::FolderEntry& entry : tools::ListEntries(folder, failure)) {
      if (entry.kind == tools::FolderEntry::Kind::File &&
          entry.name.ends_with(tools::kScriptEnding)) {
        AddScript(folder, entry.name);
      }
    }
    if (keys_.empty()) return;
    for (const char* own : tools::kFixedSetupNames) Add(own);
  }

  [[nodiscard]] bool Has(const std::string& relative) const {
    return keys_.contains(KeyOf(relative, tools::kPathSeparator));
  }

 private:
  void Add(const std::string& name) { keys_.insert(KeyOf(name, tools::kPathSeparator)); }

  void AddScript(const std::string& folder, const std::string& name) {
    const auto script = ScriptAt(tools::JoinPath(folder, name));
    if (!script) return;
    Add(name);
    Add(name.substr(0, name.size() - std::string_view(tools::kScriptEnding).size()) +
        tools::kArchiveEnding);
    AddInstalled(*script);
  }

  void AddInstalled(const std::string& script) {
    for (std::size_t at = script.find(kSourceMacro); at != std::string::npos;
         at = script.find(kSourceMacro, at)) {
      at += kSourceMacro.size();
      const std::size_t end = script.find('"', at);
      if (end == std::string::npos) return;
      // No file lies at a longer path; the parts of one take many times its room.
      if (end - at <= tools::kLongestPath) keys_.insert(KeyOf(script.substr(at, end - at), '\\'));
      at = end;
    }
  }

  std::set<std::string> keys_;
};

}  // namespace

std::vector<std::string> OwnNamesInTree(const BuildOptions& options, const std::string& title) {
  std::vector<std::string> names(std::begin(tools::kFixedSetupNames),
                                 std::end(tools::kFixedSetupNames));
  if (!options.includeWrapper) std::erase(names, tools::kWrapperName);
  if (!options.includeRuntime) std::erase(names, tools::kRuntimeName);
  names.push_back(title + tools::kScriptEnding);
  return names;
}

OutputContent ContentOf(const std::string& folder, const std::function<void()>& step) {
  OutputContent content;
  if (!tools::FolderExists(folder)) return content;
  Visit(folder, [&](const std::string& path, tools::FolderEntry::Kind kind) {
    step();
    auto& list = kind == tools::FolderEntry::Kind::Folder ? content.folders : content.files;
    list.push_back(path);
    return true;
  });
  return content;
}

bool HoldsFiles(const std::string& folder) {
  try {
    return tools::FolderExists(folder) &&
           !Visit(folder, [](const std::string&, tools::FolderEntry::Kind kind) {
             return kind == tools::FolderEntry::Kind::Folder;
           });
  } catch (const tools::Error&) {
    return true;
  }
}

std::string FirstOtherFile(const std::string& folder) {
  if (!HoldsFiles(folder)) return {};
  const SetupNames names(folder);
  std::string other;
  try {
    Visit(folder, [&](const std::string& path, tools::FolderEntry::Kind kind) {
      const bool fits = kind == tools::FolderEntry::Kind::Folder ||
                        (kind == tools::FolderEntry::Kind::File && names.Has(path));
      if (!fits) other = tools::JoinPath(folder, path);
      return fits;
    });
  } catch (const tools::Error&) {
    other = folder;
  }
  return other;
}

}  // namespace engine
