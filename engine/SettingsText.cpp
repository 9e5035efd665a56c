#include "engine/SettingsText.h"

#include <algorithm>
#include <cstdint>

#include "tools/Error.h"
#include "tools/Text.h"

namespace engine {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Takes the first line, without its end, off the text.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// Calls `visit(name, isSection)` for each section's name and each key, in order.
template <typename Visit>
void ForEachName(std::string_view text, Visit visit) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  while (!text.empty()) {
    const std::string_view line = tools::TrimBlanks(TakeLine(text));
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      if (line.size() >= 2 && line.back() == ']') {
        visit(tools::TrimBlanks(line.substr(1, line.size() - 2)), true);
      }
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    const std::string_view key = tools::TrimBlanks(line.substr(0, equals));
    if (!key.empty()) visit(key, false);
  }
}

/// Names of a text, kept as small as they can be: a file may hold nothing but tiny names.
class NameList {
 public:
  explicit NameList(std::string_view text) : text_(text) {}

  void Add(std::string_view name) {
    places_.push_back({static_cast<std::uint32_t>(name.data() - text_.data()),
                       static_cast<std::uint32_t>(name.size())});
  }

  /// Calls `visit(name)` for each name that is there already, and forgets all of them.
  template <typename Visit>
  void TakeDuplicates(Visit visit) {
    std::sort(places_.begin(), places_.end(), [this](const Place& a, const Place& b) {
      const int order = Compare(NameAt(a), NameAt(b));
      return order < 0 || (order == 0 && a.begin < b.begin);
    });
    for (std::size_t i = 1; i < places_.size(); ++i) {
      if (Compare(NameAt(places_[i - 1]), NameAt(places_[i])) == 0) visit(NameAt(places_[i]));
    }
    places_.clear();
  }

 private:
  struct Place {
    std::uint32_t begin;  ///< in the text, and
    std::uint32_t size;   ///< bytes there
  };

  [[nodiscard]] std::string_view NameAt(const Place& place) const {
    return text_.substr(place.begin, place.size);
  }

  static int Compare(std::string_view a, std::string_view b) {
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i) {
      const char left = tools::LowerAscii(a[i]);
      const char right = tools::LowerAscii(b[i]);
      if (left != right) return left < right ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
  }

  std::string_view text_;
  std::vector<Place> places_;
};

void Note(Duplicates& found, std::string_view text, std::string_view section,
          std::string_view key) {
  constexpr std::size_t kMostNames = 10;
  if (++found.count > kMostNames) return;
  const char* const place = key.empty() ? section.data() : key.data();
  const auto line = static_cast<std::size_t>(std::count(text.data(), place, '\n')) + 1;
  found.names.push_back({section, key, line});
}

}  // namespace

tools::PathKind LookAt(const std::string& path) {
  std::error_code failure;
  const tools::PathKind kind = tools::KindOf(path, failure);
  if (failure) throw tools::PathError("Die Datei kann nicht gelesen werden", path, failure);
  return kind;
}

void ForEachSection(std::string_view text,
                    const std::function<void(std::string_view name)>& visit) {
  ForEachName(text, [&](std::string_view name, bool isSection) {
    if (isSection) visit(name);
  });
}

bool HasSections(std::string_view text) {
  bool found = false;
  ForEachSection(text, [&](std::string_view) { found = true; });
  return found;
}

Duplicates FindDuplicates(std::string_view text) {
  Duplicates found;
  NameList sections(text);
  NameList keys(text);
  std::string_view section;
  const auto endSection = [&] {
    keys.TakeDuplicates([&](std::string_view key) { Note(found, text, section, key); });
  };
  ForEachName(text, [&](std::string_view name, bool isSection) {
    if (isSection) {
      endSection();
      section = name;
      sections.Add(name);
    } else if (section.data() != nullptr) {  // before the first section nothing counts anyway
      keys.Add(name);
    }
  });
  endSection();
  sections.TakeDuplicates([&](std::string_view name) { Note(found, text, name, {}); });
  return found;
}

std::size_t ConflictLine(std::string_view text) {
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::string_view line = TakeLine(text);
    if (line == "=======" || line.starts_with("<<<<<<<") || line.starts_with(">>>>>>>")) {
      return number;
    }
  }
  return 0;
}

}  // namespace engine
