#include "engine/WriteInstallScript.h"

#include <utility>

namespace engine {

namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

class ScriptFile {
 public:
  ScriptFile(tools::Disk& disk, const std::string& path) : replacement_(disk, path) {}

  void Append(std::string_view text) {
    buffer_.append(text);
    if (buffer_.size() >= kBufferSize) Flush();
  }

  void Commit() {
    Flush();
    replacement_.Commit(tools::ReplacementFile::Durability::Cached);
  }

 private:
  void Flush() {
    replacement_.File().Write(buffer_);
    buffer_.clear();
  }

  tools::ReplacementFile replacement_;
  std::string buffer_;
};

void WriteComponent(InstallScript& script, const SurveyedComponent& component,
                    const StoredNameMap& names) {
  script.BeginComponent(component.title);
  for (const SurveyedEntry& surveyed : component.entries) {
    for (const std::string& path : surveyed.sources) {
      const std::string_view stored = names.Find(surveyed.file.ID, path);
      if (!stored.empty()) script.AddFile(surveyed.file, path, stored);
    }
  }
  script.EndComponent();
}

}  // namespace

void WriteInstallScript(tools::Disk& disk, const std::string& path, ScriptHead head, bool packaged,
                        const Survey& survey, const StoredNameMap& names) {
  ScriptFile file(disk, path);
  InstallScript script([&file](std::string_view text) { file.Append(text); }, std::move(head),
                       packaged);
  script.Begin();
  for (const SurveyedComponent& component : survey.components) {
    if (component.isInstalled) WriteComponent(script, component, names);
  }
  script.End();
  file.Commit();
}

}  // namespace engine
