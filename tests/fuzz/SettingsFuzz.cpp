// Feeds damaged settings files to the parser:
//
//   settings_fuzz [INPUTS] [SEED]
//
// Each input is a small settings file with random damage, kept byte for byte; then some random
// writes are made. What is read must be what a search from the beginning of the text finds, and a
// write may change nothing but its own value.
#include <algorithm>
#include <sstream>

#include "tests/fuzz/Fuzzer.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/settings/SettingsFile.h"

namespace {

using tests::OneOf;
using tests::Random;

/// What a settings file has for a key, found in the simplest way.
std::string Search(const std::string& content, const std::string& section, const std::string& key) {
  std::istringstream lines(content.substr(content.starts_with("\xEF\xBB\xBF") ? 3 : 0));
  bool inSection = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with('\r')) line.pop_back();
    const std::string_view text = tools::TrimBlanks(line);
    if (text.size() > 1 && text.front() == '[' && text.back() == ']') {
      if (inSection) break;
      const std::string_view name = tools::TrimBlanks(text.substr(1, text.size() - 2));
      inSection = tools::EqualIgnoringAsciiCase(name, section);
      continue;
    }
    const std::size_t equals = text.find('=');
    if (!inSection || equals == 0 || equals == std::string_view::npos) continue;
    if (text.front() == ';' || text.front() == '[') continue;
    if (!tools::EqualIgnoringAsciiCase(tools::TrimBlanks(text.substr(0, equals)), key)) continue;
    const std::string_view value = tools::TrimBlanks(text.substr(equals + 1));
    const bool quoted = value.size() > 1 && value.front() == '"' && value.back() == '"';
    return std::string(quoted ? value.substr(1, value.size() - 2) : value);
  }
  return "default";
}

std::string Piece(Random& random) {
  static const std::vector<std::string> kPieces{
      "[A]", "[a]",  "[B]\n",    "\n", "\r\n", "\r",           "=",    "k=v\n", "K = w ", "\"",
      "; c", " ",    "\t",       "[",  "]",    "\xEF\xBB\xBF", "\xFF", "ü",     "k",      "=\"x\"",
      "[]",  "x=\"", "k2=1\r\n", "==", "漢"};
  if (random() % 10 == 0) return std::string(1, static_cast<char>(random()));
  return OneOf(kPieces, random);
}

std::string Name(Random& random) {
  if (random() % 4 == 0) return "n" + std::to_string(random() % 60);
  return OneOf({"A", "b", "k", "K2", "x", "Neu", "", " a", "=", "[", "ü"}, random);
}

std::string Input(Random& random) {
  std::string input;
  for (std::uint64_t pieces = random() % 40; pieces > 0; --pieces) input += Piece(random);
  if (random() % 8 == 0) {
    // A section that is large enough to be searched by an index.
    input += "\n[b]\n";
    for (int i = 0; i < 60; ++i) input += Name(random) + "=" + std::string(40, 'v') + "\n";
    input += Piece(random);
  }
  for (std::uint64_t damage = random() % 4; damage > 0 && !input.empty(); --damage) {
    input[random() % input.size()] = static_cast<char>(random());
  }
  return input;
}

/// True when nothing or a part of one line became something else: a value, or a section, a key and
/// an empty line between them.
bool IsOneChange(const std::string& before, const std::string& after) {
  const auto [begin, newBegin] =
      std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto [end, newEnd] = std::mismatch(before.rbegin(), std::make_reverse_iterator(begin),
                                           after.rbegin(), std::make_reverse_iterator(newBegin));
  return std::count(begin, end.base(), '\n') == 0 && std::count(newBegin, newEnd.base(), '\n') <= 3;
}

/// Makes a random write. Returns the name of the rule that it breaks, or an empty text.
std::string Write(tools::SettingsFile& file, Random& random) {
  const std::string section = Name(random);
  const std::string key = Name(random);
  const std::string value = Piece(random) + Piece(random);
  const std::string before = file.Render();
  try {
    file.Write(section, key, value);
  } catch (const tools::Error&) {
    return file.Render() == before ? "" : "a refused write changes nothing";
  }
  const std::string after = file.Render();
  if (file.Read(section, key, "default") != value) return "a write is visible at once";
  if (Search(after, section, key) != value) return "a write is stored where it is found";
  if (!IsOneChange(before, after)) return "a write changes one place";
  if (after != before && Search(before, section, key) == value) return "equal values are left";
  for (int reads = 0; reads < 8; ++reads) {
    const std::string otherSection = Name(random), otherKey = Name(random);
    if (tools::EqualIgnoringAsciiCase(otherSection + "/" + otherKey, section + "/" + key)) continue;
    if (Search(before, otherSection, otherKey) != Search(after, otherSection, otherKey)) {
      return "a write leaves other values";
    }
  }
  return {};
}

/// The name of the rule that this input breaks; empty when it keeps them all.
std::string BrokenRule(const std::string& input, Random& random) {
  tools::SettingsFile file(input);
  tools::SettingsFile replayed(input);
  if (!file.Render().starts_with(input)) return "content is kept";
  const std::string added = file.Render().substr(input.size());
  if (!added.empty() && added != "\n" && added != "\r\n") return "only a line end is added";
  for (std::uint64_t writes = random() % 8; writes > 0; --writes) {
    const std::string rule = Write(file, random);
    if (!rule.empty()) return rule;
    if (random() % 8 > 0) continue;
    file.ReplayWrites(replayed);
    file.ForgetWrites();
  }
  const std::string rendered = file.Render();
  const tools::SettingsFile again(rendered);
  for (int reads = 0; reads < 8; ++reads) {
    const std::string section = Name(random), key = Name(random);
    const std::string value = Search(rendered, section, key);
    if (file.Read(section, key, "default") != value) return "a file reads like its text";
    if (again.Read(section, key, "default") != value) return "what was rendered reads the same";
  }
  if (again.Render() != rendered) return "what was rendered is kept";
  file.ReplayWrites(replayed);
  if (replayed.Render() != rendered) return "writes are repeated";
  const auto clone = file.Clone();
  const std::string rule = Write(*clone, random);
  if (file.Render() != rendered) return "a copy is separate";
  return rule;
}

}  // namespace

int main(int argc, char** argv) {
  return tests::RunFuzzer(argc, argv, [](Random& random) {
    const std::string input = Input(random);
    return tests::FuzzedInput{input, BrokenRule(input, random)};
  });
}
