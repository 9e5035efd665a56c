#include "engine/SurveyedEntry.h"

#include <utility>

namespace engine {

namespace {

// One that fits exactly: a string that grew would keep its spare room.
std::unique_ptr<char[]> Joined(const model::ICFile& file, const std::vector<std::string>& paths) {
  const std::string* const values[] = {&file.ID, &file.TargetSubFolder, &file.TargetName};
  std::size_t bytes = 1;
  for (const std::string* const value : values) bytes += value->size() + 1;
  for (const std::string& path : paths) bytes += path.size() + 1;
  auto texts = std::make_unique_for_overwrite<char[]>(bytes);
  char* at = texts.get();
  const auto add = [&at](const std::string& text) {
    at += text.copy(at, text.size());
    *at++ = '\0';
  };
  for (const std::string* const value : values) add(*value);
  for (const std::string& path : paths) add(path);
  *at = '\0';
  return texts;
}

std::string_view Behind(std::string_view text) { return text.data() + text.size() + 1; }

}  // namespace

SurveyedEntry::SurveyedEntry(std::int32_t number, const model::ICFile& file, SourceList sources)
    : texts_(Joined(file, sources.paths)),
      number_(number),
      last_(number),
      targetFolder_(file.TargetFolder),
      type_(file.Type),
      selfRegister_(file.SelfRegisterDLL),
      overwrite_(file.Overwrite),
      registerPath_(file.RegisterPath),
      vital_(file.Vital) {
  if (sources.problems.empty()) return;
  problems_ = std::make_unique<const std::vector<SurveyProblem>>(std::move(sources.problems));
}

void SurveyedEntry::StandForMissing(std::int32_t last) {
  last_ = last;
  hasSection_ = false;
}

model::ICFile SurveyedEntry::File() const {
  model::ICFile file;
  const std::string_view subFolder = Behind(ID());
  file.ID = ID();
  file.Type = type_;
  file.TargetFolder = targetFolder_;
  file.TargetSubFolder = subFolder;
  file.TargetName = Behind(subFolder);
  file.SelfRegisterDLL = selfRegister_;
  file.Overwrite = overwrite_;
  file.RegisterPath = registerPath_;
  file.Vital = vital_;
  return file;
}

SourcePaths SurveyedEntry::Sources() const {
  return SourcePaths(Behind(Behind(Behind(ID()))).data());
}

std::span<const SurveyProblem> SurveyedEntry::Problems() const {
  if (!problems_) return {};
  return *problems_;
}

}  // namespace engine
