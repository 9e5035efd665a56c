#include "tools/files/FindFiles.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

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
      Skip(reached, name_[i] == '.' ? Place::Dot : Place::Character);
      reached = Advance(reached, i);
    }
    Skip(reached, Place::End);
    return reached[pattern_.size()];
  }

 private:
  enum class Place { Character, Dot, End };

  /// Passes the wildcards that may stand for nothing at this place of the name.
  void Skip(std::vector<bool>& reached, Place place) const {
    for (std::size_t p = 0; p < pattern_.size(); ++p) {
      if (!reached[p]) continue;
      const char c = pattern_[p];
      if (c == '*' || c == kStarBeforeDot ||
          (c == kOptionalCharacter && place != Place::Character) ||
          (c == kOptionalDot && place == Place::End)) {
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
  // Windows finds nothing by a pattern of more than 255 characters; in UTF-8 one has 4 bytes at
  // most.
  constexpr std::size_t kLongestPattern = std::size_t{255} * 4;
  if (compiled == "*") return true;
  if (compiled.size() > kLongestPattern) return false;
  const std::string folded = FoldCase(name);
  return PatternMatcher(folded, compiled).Matches();
}

class Searcher {
 public:
  Searcher(std::string_view pattern, const FileSearch& search)
      : compiled_(CompilePattern(pattern)), search_(search) {
    if (!search.leaveOut.empty()) leaveOut_ = StampOf(search.leaveOut);
  }

  FoundFiles Run(const std::string& folder) {
    Visit(folder, WhenAbsent::FindNothing);
    return std::move(found_);
  }

 private:
  enum class WhenAbsent { FindNothing, NoteUnread };

  void Visit(const std::string& folder, WhenAbsent whenAbsent) {
    if (IsLeftOut(folder)) return;
    std::error_code failure;
    std::vector<FolderItem> items = ListFolder(folder, failure, [this] {
      if (search_.listed) search_.listed();
      if (search_.step) search_.step();
    });
    if (failure && !(IsAbsent(failure) && whenAbsent == WhenAbsent::FindNothing)) {
      found_.unreadFolders.push_back({folder, failure});
    }
    if (search_.skipTemporary) {
      std::erase_if(items, [](const FolderItem& item) { return IsTemporaryName(item.name); });
    }
    Sort(items);
    const std::string prefix = EnsureTrailingSeparator(folder);
    for (const FolderItem& item : items) {
      if (search_.step) search_.step();
      if (!IsEnough()) Take(prefix, item);
    }
    if (!search_.includeSubfolders) return;
    for (const FolderItem& item : items) {
      if (IsEnough()) break;
      if (item.kind == FolderItem::Kind::Folder) {
        Visit(prefix + item.name, WhenAbsent::NoteUnread);
      }
      if (item.kind == FolderItem::Kind::FolderLink && !IsLeftOut(prefix + item.name)) {
        found_.folderLinks.push_back(prefix + item.name);
      }
    }
  }

  // A search of a folder of millions can be ended here too.
  void Sort(std::vector<FolderItem>& items) const {
    constexpr std::uint32_t kComparisonsPerStep = 1024;
    std::uint32_t comparisons = 0;
    std::sort(items.begin(), items.end(), [&](const FolderItem& a, const FolderItem& b) {
      if (search_.step && ++comparisons % kComparisonsPerStep == 0) search_.step();
      return a.name < b.name;
    });
  }

  void Take(const std::string& prefix, const FolderItem& item) {
    using Kind = FolderItem::Kind;
    if (item.kind == Kind::Folder || item.kind == Kind::FolderLink) return;
    if (!MatchesCompiled(item.name, compiled_)) return;
    std::string path = prefix + item.name;
    if (item.kind == Kind::Dead) {
      found_.deadLinks.push_back({std::move(path), item.cause});
    } else if (item.kind == Kind::Special) {
      found_.specialFiles.push_back(std::move(path));
    } else {
      if (item.mayBeLink) found_.links.push_back(path);
      found_.paths.push_back(std::move(path));
    }
  }

  [[nodiscard]] bool IsEnough() const { return found_.paths.size() >= search_.atMost; }

  // One folder has many spellings (case, links above it), but one place on its volume.
  [[nodiscard]] bool IsLeftOut(const std::string& folder) const {
    if (!leaveOut_.exists) return false;
    try {
      const FileStamp stamp = StampOf(folder);
      return stamp.exists && stamp.device == leaveOut_.device &&
             stamp.identity == leaveOut_.identity;
    } catch (const Error&) {
      return false;  // it cannot be listed either, which says why
    }
  }

  static bool IsAbsent(std::error_code failure) {
    return failure == std::errc::no_such_file_or_directory || failure == std::errc::not_a_directory;
  }

  std::string compiled_;
  const FileSearch& search_;
  FileStamp leaveOut_;
  FoundFiles found_;
};

}  // namespace

FoundFiles SearchFiles(std::string_view folder, std::string_view pattern,
                       const FileSearch& search) {
  return Searcher(pattern, search).Run(std::string(folder));
}

void RequireAllRead(const FoundFiles& found) {
  if (found.unreadFolders.empty()) return;
  const UnseenPath& unread = found.unreadFolders.front();
  throw PathError("Der Ordner kann nicht gelesen werden", unread.path, unread.cause);
}

std::vector<std::string> FindFiles(std::string_view folder, std::string_view pattern,
                                   Subfolders subfolders) {
  FoundFiles found =
      SearchFiles(folder, pattern, {.includeSubfolders = subfolders == Subfolders::Search});
  RequireAllRead(found);
  return std::move(found.paths);
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  return MatchesCompiled(name, CompilePattern(pattern));
}

}  // namespace tools
