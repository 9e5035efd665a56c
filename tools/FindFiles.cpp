#include <algorithm>
#include <utility>

#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/FolderListing.h"
#include "tools/Path.h"
#include "tools/Text.h"

namespace tools {

namespace {

// Windows rewrites a search pattern before it matches: these stand for its three rewritten
// wildcards.
constexpr char kStarBeforeDot = '\x01';  // "*" followed by ".": does not pass the name's last dot
constexpr char kOptionalCharacter = '\x02';  // "?": one character, or none before a dot or the end
constexpr char kOptionalDot = '\x03';        // "." before a wildcard: a dot, or the name's end

std::string CompilePattern(std::string_view pattern) {
  if (pattern == "*.*") return "*";
  std::string compiled = FoldCase(pattern);
  for (std::size_t i = 0; i < compiled.size(); ++i) {
    const bool hasNext = i + 1 < compiled.size();
    if (compiled[i] == '?') {
      compiled[i] = kOptionalCharacter;
    } else if (compiled[i] == '.' && hasNext &&
               (compiled[i + 1] == '?' || compiled[i + 1] == '*')) {
      compiled[i] = kOptionalDot;
    } else if (compiled[i] == '*' && hasNext && compiled[i + 1] == '.') {
      compiled[i] = kStarBeforeDot;
    }
  }
  // "name*." asks for names without an extension.
  if (compiled.size() >= 2 && compiled.back() == '.' &&
      compiled[compiled.size() - 2] == kStarBeforeDot) {
    compiled.pop_back();
  }
  return compiled;
}

std::size_t CharacterLength(std::string_view text, std::size_t position) {
  std::size_t length = 1;
  while (position + length < text.size() &&
         (static_cast<unsigned char>(text[position + length]) & 0xC0U) == 0x80U) {
    ++length;
  }
  return length;
}

/// Matches a folded name against a compiled pattern. The set of pattern positions reached so far is
/// carried along the name, so that the time stays proportional to both lengths.
class PatternMatcher {
 public:
  PatternMatcher(std::string_view name, std::string_view pattern)
      : name_(name), pattern_(pattern), lastDot_(name.rfind('.')) {}

  bool Matches() {
    std::vector<bool> reached(pattern_.size() + 1, false);
    reached[0] = true;
    for (std::size_t i = 0; i < name_.size(); i += CharacterLength(name_, i)) {
      Skip(reached, name_[i] == '.', false);
      reached = Advance(reached, i);
    }
    Skip(reached, false, true);
    return reached[pattern_.size()];
  }

 private:
  /// Passes the wildcards that may stand for nothing at this place of the name.
  void Skip(std::vector<bool>& reached, bool atDot, bool atEnd) const {
    for (std::size_t p = 0; p < pattern_.size(); ++p) {
      if (!reached[p]) continue;
      const char c = pattern_[p];
      if (c == '*' || c == kStarBeforeDot || (c == kOptionalCharacter && (atDot || atEnd)) ||
          (c == kOptionalDot && atEnd)) {
        reached[p + 1] = true;
      }
    }
  }

  [[nodiscard]] std::vector<bool> Advance(const std::vector<bool>& reached, std::size_t i) const {
    const std::size_t length = CharacterLength(name_, i);
    std::vector<bool> next(pattern_.size() + 1, false);
    for (std::size_t p = 0; p < pattern_.size(); ++p) {
      if (!reached[p]) continue;
      switch (pattern_[p]) {
        case '*':
          next[p] = true;
          break;
        case kStarBeforeDot:
          if (i != lastDot_) next[p] = true;
          break;
        case kOptionalCharacter:
          next[p + 1] = true;
          break;
        case kOptionalDot:
          if (name_[i] == '.') next[p + 1] = true;
          break;
        default:
          if (pattern_.substr(p, length) == name_.substr(i, length)) next[p + length] = true;
      }
    }
    return next;
  }

  std::string_view name_;
  std::string_view pattern_;
  std::size_t lastDot_;
};

bool MatchesCompiled(std::string_view name, std::string_view compiled) {
  if (compiled == "*") return true;
  const std::string folded = FoldCase(name);
  return PatternMatcher(folded, compiled).Matches();
}

void CollectFiles(const std::string& folder, std::string_view compiled, bool includeSubfolders,
                  std::vector<std::string>& files, std::vector<std::string>* links) {
  std::error_code failure;
  std::vector<FolderItem> items = ListFolder(folder, failure);
  if (failure) throw PathError("Der Ordner kann nicht gelesen werden", folder, failure);
  std::sort(items.begin(), items.end(),
            [](const FolderItem& a, const FolderItem& b) { return a.name < b.name; });
  const std::string prefix = EnsureTrailingSeparator(folder);
  for (const FolderItem& item : items) {
    if (item.kind == FolderItem::Kind::File && MatchesCompiled(item.name, compiled)) {
      files.push_back(prefix + item.name);
      if (links != nullptr && item.mayBeLink) links->push_back(files.back());
    }
  }
  if (!includeSubfolders) return;
  for (const FolderItem& item : items) {
    if (item.kind == FolderItem::Kind::Folder) {
      CollectFiles(prefix + item.name, compiled, true, files, links);
    }
  }
}

}  // namespace

std::vector<std::string> FindFiles(std::string_view folder, std::string_view pattern,
                                   bool includeSubfolders, std::vector<std::string>* links) {
  std::vector<std::string> files;
  if (!FolderExists(folder)) return files;
  CollectFiles(std::string(folder), CompilePattern(pattern), includeSubfolders, files, links);
  return files;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  return MatchesCompiled(name, CompilePattern(pattern));
}

}  // namespace tools
