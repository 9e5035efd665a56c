// Feeds damaged settings files to the parser:
//
//   settings_fuzz [INPUTS] [SEED]
//
// Each input is a small settings file with random damage, kept byte for byte; then some random
// writes are made. After each write the file must hold what a simple model of it holds: a list of
// lines that is gone through from its beginning for every question. The same numbers give the same
// inputs; a broken rule prints the input and ends with 1.
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/fuzz/Fuzzer.h"
#include "tools/Error.h"
#include "tools/settings/SettingsFile.h"

namespace {

using tests::Random;

/// What a settings file is to be, done in the simplest way.
class Model {
 public:
  explicit Model(std::string content) {
    const std::size_t firstEnd = content.find('\n');
    if (firstEnd != std::string::npos && firstEnd > 0 && content[firstEnd - 1] == '\r') {
      lineEnd_ = "\r\n";
    }
    if (!content.empty() && content.back() != '\n') content += lineEnd_;
    if (content.starts_with("\xEF\xBB\xBF")) mark_ = content.substr(0, 3);
    for (std::size_t i = mark_.size(); i < content.size();) {
      const std::size_t end = content.find('\n', i) + 1;
      lines_.push_back(content.substr(i, end - i));
      i = end;
    }
  }

  [[nodiscard]] std::string Render() const {
    std::string content = mark_;
    for (const std::string& line : lines_) content += line;
    return content;
  }

  [[nodiscard]] std::string Read(const std::string& section, const std::string& key) const {
    const std::size_t line = KeyLine(SectionBegin(section), key);
    return line == lines_.size() ? "default" : Value(lines_[line]);
  }

  /// Takes what SettingsFile::Write does not refuse.
  void Write(const std::string& section, const std::string& key, const std::string& value) {
    if (SectionBegin(section) == lines_.size()) {
      if (!lines_.empty() && !Strip(lines_.back()).empty()) lines_.push_back(lineEnd_);
      lines_.push_back("[" + section + "]" + lineEnd_);
    }
    const std::size_t begin = SectionBegin(section);
    const std::size_t line = KeyLine(begin, key);
    const std::string ends = value.empty() ? "" : std::string{value.front(), value.back()};
    const bool quoted = ends.find_first_of(" \t\"") != std::string::npos;
    const std::string written = quoted ? '"' + value + '"' : value;
    if (line == lines_.size()) {
      std::size_t end = SectionEnd(begin);
      while (Strip(lines_[end - 1]).empty()) --end;
      lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(end),
                    key + "=" + written + lineEnd_);
    } else if (Value(lines_[line]) != value) {
      lines_[line] = Key(lines_[line]) + "=" + written + lineEnd_;
    }
  }

 private:
  /// Without blanks around it, and without a line end.
  static std::string Strip(std::string text) {
    if (text.ends_with('\n')) text.pop_back();
    if (text.ends_with('\r')) text.pop_back();
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == std::string::npos) return "";
    return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
  }

  static std::string Lower(std::string text) {
    for (char& c : text) {
      if (static_cast<unsigned char>(c) < 128) c = static_cast<char>(std::tolower(c));
    }
    return text;
  }

  static bool IsHeader(const std::string& line) {
    const std::string text = Strip(line);
    return text.size() > 1 && text.front() == '[' && text.back() == ']';
  }

  static std::string Key(const std::string& line) {
    const std::string text = Strip(line);
    if (text.empty() || text[0] == ';' || text[0] == '[') return "";
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) return "";
    const std::string key = line.substr(0, equals);
    const std::size_t begin = key.find_first_not_of(" \t");
    return begin == std::string::npos ? ""
                                      : key.substr(begin, key.find_last_not_of(" \t") + 1 - begin);
  }

  static std::string Value(const std::string& line) {
    const std::string value = Strip(line.substr(line.find('=') + 1));
    const bool quoted = value.size() > 1 && value.front() == '"' && value.back() == '"';
    return quoted ? value.substr(1, value.size() - 2) : value;
  }

  [[nodiscard]] std::size_t SectionBegin(const std::string& section) const {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      if (!IsHeader(lines_[i])) continue;
      const std::string header = Strip(lines_[i]);
      if (Lower(Strip(header.substr(1, header.size() - 2) + "\r\n")) == Lower(section)) return i;
    }
    return lines_.size();
  }

  [[nodiscard]] std::size_t SectionEnd(std::size_t begin) const {
    for (std::size_t i = begin + 1; i < lines_.size(); ++i) {
      if (IsHeader(lines_[i])) return i;
    }
    return lines_.size();
  }

  [[nodiscard]] std::size_t KeyLine(std::size_t sectionBegin, const std::string& key) const {
    if (sectionBegin == lines_.size()) return lines_.size();
    for (std::size_t i = sectionBegin + 1; i < SectionEnd(sectionBegin); ++i) {
      if (Lower(Key(lines_[i])) == Lower(key)) return i;
    }
    return lines_.size();
  }

  std::string mark_;
  std::string lineEnd_ = "\n";
  std::vector<std::string> lines_;
};

std::string Piece(Random& random) {
  static constexpr const char* kPieces[] = {
      "[A]", "[a]",  "[B]\n",    "\n", "\r\n", "\r",           "=",    "k=v\n", "K = w ", "\"",
      "; c", " ",    "\t",       "[",  "]",    "\xEF\xBB\xBF", "\xFF", "ü",     "k",      "=\"x\"",
      "[]",  "x=\"", "k2=1\r\n", "==", "漢"};
  if (random() % 10 == 0) return std::string(1, static_cast<char>(random()));
  return kPieces[random() % std::size(kPieces)];
}

std::string Name(Random& random) {
  static constexpr const char* kNames[] = {"A", "b",  "k", "K2", "x", "Neu",
                                           "",  " a", "=", "[",  "ü"};
  if (random() % 4 == 0) return "n" + std::to_string(random() % 60);
  return kNames[random() % std::size(kNames)];
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

/// Makes a random write to both. Returns the name of the rule that it breaks, or an empty text.
std::string Write(tools::SettingsFile& file, Model& model, Random& random) {
  const std::string section = Name(random);
  const std::string key = Name(random);
  const std::string value = Piece(random) + Piece(random);
  try {
    file.Write(section, key, value);
  } catch (const tools::Error&) {
    return file.Render() == model.Render() ? "" : "a refused write changes nothing";
  }
  model.Write(section, key, value);
  if (file.Read(section, key, "default") != value) return "a write is visible at once";
  return file.Render() == model.Render() ? "" : "a write is made like the model's";
}

/// The name of the rule that this input breaks; empty when it keeps them all.
std::string BrokenRule(const std::string& input, Random& random) {
  tools::SettingsFile file(input);
  tools::SettingsFile replayed(input);
  Model model(input);
  if (!file.Render().starts_with(input)) return "content is kept";
  if (file.Render() != model.Render()) return "only a line end is added";
  for (std::uint64_t writes = random() % 8; writes > 0; --writes) {
    const std::string rule = Write(file, model, random);
    if (!rule.empty()) return rule;
    if (random() % 8 > 0) continue;
    file.ReplayWrites(replayed);
    file.ForgetWrites();
  }
  const std::string rendered = file.Render();
  const tools::SettingsFile again(rendered);
  for (int reads = 0; reads < 8; ++reads) {
    const std::string section = Name(random), key = Name(random);
    const std::string value = key.empty() ? "default" : model.Read(section, key);
    if (file.Read(section, key, "default") != value) return "a file reads like the model";
    if (again.Read(section, key, "default") != value) return "what was rendered reads the same";
  }
  if (again.Render() != rendered) return "what was rendered is kept";
  file.ReplayWrites(replayed);
  if (replayed.Render() != rendered) return "writes are repeated";
  const auto clone = file.Clone();
  const std::string rule = Write(*clone, model, random);
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
