#include "tools/SettingsFile.h"

#include <utility>

#include "tools/SettingsDocument.h"

namespace tools {

SettingsFile::SettingsFile() : SettingsFile(std::string()) {}

SettingsFile::SettingsFile(std::string content)
    : document_(std::make_unique<Document>(std::move(content))) {}

SettingsFile::~SettingsFile() = default;

std::optional<std::string_view> SettingsFile::Find(std::string_view section,
                                                   std::string_view key) const {
  return document_->Find(section, key);
}

std::string SettingsFile::Read(std::string_view section, std::string_view key,
                               std::string_view defaultValue) const {
  return std::string(Find(section, key).value_or(defaultValue));
}

bool SettingsFile::Write(std::string_view section, std::string_view key, std::string_view value) {
  return document_->Write(section, key, value);
}

void SettingsFile::Render(const Sink& sink) const { document_->Render(sink); }

std::string SettingsFile::Render() const {
  std::string content;
  content.reserve(document_->Size());
  Render([&content](std::string_view part) { content.append(part); });
  return content;
}

std::shared_ptr<SettingsFile> SettingsFile::Clone() const {
  auto clone = std::make_shared<SettingsFile>(Render());
  clone->document_->TakeWritesOf(*document_);
  return clone;
}

void SettingsFile::ReplayWrites(SettingsFile& other) const { document_->ReplayWrites(other); }

void SettingsFile::ForgetWrites() { document_->ForgetWrites(); }

}  // namespace tools
