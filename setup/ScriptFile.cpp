// Feeds a script file to the reader, piece by piece: scripts of large products have many megabytes.
#include <algorithm>
#include <array>

#include "setup/ScriptReader.h"
#include "tools/Error.h"
#include "tools/files/InputFile.h"

namespace setup {

namespace {

class ScriptLines {
 public:
  explicit ScriptLines(const std::string& path) : path_(path), reader_(path) {}

  void Add(std::string_view bytes) {
    while (!bytes.empty()) {
      const std::size_t end = bytes.find('\n');
      line_.append(bytes.substr(0, end));
      if (line_.size() > kLongestScriptLine) {
        throw tools::Error("Eine Zeile des Skripts ist zu lang: " + path_);
      }
      if (end == std::string_view::npos) return;
      bytes.remove_prefix(end + 1);
      EndLine();
    }
  }

  ScriptReading Finish() {
    if (!line_.empty()) EndLine();
    if (first_) RaiseForeign();
    return reader_.Finish();
  }

 private:
  void EndLine() {
    if (line_.ends_with('\r')) line_.pop_back();
    if (first_ && !ScriptReader::IsFirstLine(line_)) RaiseForeign();
    first_ = false;
    reader_.Line(line_);
    line_.clear();
  }
  [[noreturn]] void RaiseForeign() const {
    throw tools::Error("Das ist kein Installationsskript von Packwright: " + path_);
  }

  const std::string& path_;
  ScriptReader reader_;
  std::string line_;
  bool first_ = true;
};

}  // namespace

ScriptReading ReadScript(const std::string& path) {
  const tools::InputFile file(path);
  ScriptLines lines(path);
  std::array<char, 64 * 1024> buffer;
  std::uint64_t offset = 0;
  while (const std::size_t count = file.ReadAt(offset, buffer)) {
    lines.Add(std::string_view(buffer.data(), count));
    offset += count;
    if (offset > kLargestScript) throw tools::Error("Das Skript ist zu groß: " + path);
  }
  return lines.Finish();
}

}  // namespace setup
