#include "model/NodeSettings.h"

#include <algorithm>
#include <utility>

#include "model/ICFile.h"
#include "model/StoredNumbers.h"
#include "tools/Error.h"
#include "tools/files/Files.h"

namespace model {

namespace {

std::string NoteKey(std::string_view section, std::string_view key) {
  return std::string(section).append("\n").append(key);
}

/// The lines of the sections that pages show.
std::string ShownLines(const tools::SettingsFile& file) {
  const std::string text = file.Render();
  std::string lines;
  bool isShown = true;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string_view line = std::string_view(text).substr(begin, end - begin);
    if (line.starts_with('[')) {
      const std::string_view name = line.substr(1, line.find(']') - 1);
      isShown = name != setting::kCreated.section && name != setting::kVersionCount.section &&
                name != setting::kComponentCount.section &&
                name != setting::kComponentTitle.section;
    }
    if (isShown) lines.append(line).append(1, '\n');
    begin = end + 1;
  }
  return lines;
}

}  // namespace

bool NodeSettings::HasChangedOutside() const {
  if (IsOtherVersion()) return true;
  const auto now = project_.Settings().Load(FilePath());
  return now != seen_ && ShownLines(*now) != ShownLines(*seen_);
}

void NodeSettings::Select(VersionSlot version, ComponentSlot component) {
  version_ = version;
  component_ = component;
  noted_.clear();
  numbers_.clear();
  readLater_ = false;
  isReadable_ = false;
  versionText_.clear();
  try {
    if (version_ != 0) versionText_ = project_.VersionString(version_);
    seen_ = project_.Settings().Load(FilePath());
    isReadable_ = project_.IsOpen();
  } catch (const tools::Error&) {
    // Each page that needs the file meets this error itself.
    seen_ = std::make_shared<tools::SettingsFile>();
  }
}

std::string NodeSettings::FilePath() const {
  if (version_ != 0 && component_ != 0) return project_.ComponentFilePath(version_, component_);
  return version_ != 0 ? project_.VersionFilePath(version_) : project_.ProductPath();
}

void NodeSettings::RequireNode() const {
  project_.RequireProduct();
  if (version_ != 0) project_.RequireVersion(version_);
  RequireSameVersion();
  if (component_ != 0) project_.RequireComponent(version_, component_);
}

// Slots are used again: what was typed for a version that is gone must not become another one's.
bool NodeSettings::IsOtherVersion() const {
  const std::string text = project_.VersionString(version_);
  return !versionText_.empty() && !text.empty() && text != versionText_;
}

void NodeSettings::RequireSameVersion() const {
  if (!IsOtherVersion()) return;
  throw tools::PathError("Die Version ist nicht mehr vorhanden",
                         project_.VersionFolder(versionText_), {});
}

void NodeSettings::InOneRead(const std::function<void()>& reads) {
  struct End {
    bool& isInOneRead;
    ~End() { isInOneRead = false; }
  };
  // A file that could not be read is tried again by each Read, which tells why.
  isInOneRead_ = isReadable_;
  const End end{isInOneRead_};
  reads();
}

std::string NodeSettings::Read(std::string_view section, std::string_view key,
                               std::string_view defaultValue) {
  const auto stored = seen_->Find(section, key);
  if (isInOneRead_) {
    std::string value(stored.value_or(defaultValue));
    NoteRead(section, key, defaultValue, value, stored);
    return value;
  }
  std::string value =
      version_ != 0 && component_ != 0
          ? project_.ReadComponentSetting(version_, component_, section, key, defaultValue)
      : version_ != 0 ? project_.ReadVersionSetting(version_, section, key, defaultValue)
                      : project_.ReadProductSetting(section, key, defaultValue);
  NoteRead(section, key, defaultValue, value, stored);
  return value;
}

void NodeSettings::NoteRead(std::string_view section, std::string_view key,
                            std::string_view defaultValue, std::string_view value,
                            std::optional<std::string_view> stored) {
  const bool number = defaultValue == "0" || defaultValue == "1";
  if (number && !numbers_.contains(key)) numbers_.emplace(key);
  // No note is needed for the 0 of a number without a text: Save counts it as unedited anyway.
  const bool isUnsetZero = !stored && value == "0" && defaultValue == "0";
  if (value == stored.value_or("") || isUnsetZero) {
    if (readLater_) noted_.erase(NoteKey(section, key));
    return;
  }
  noted_.insert_or_assign(NoteKey(section, key), value);
  if (stored || value != defaultValue) readLater_ = true;
}

NodeSettings::Seen NodeSettings::SeenOf(std::string_view section, std::string_view key) const {
  const auto stored = seen_->Find(section, key);
  if (!noted_.empty() && (readLater_ || !stored)) {
    const auto note = noted_.find(NoteKey(section, key));
    if (note != noted_.end()) {
      return {.text = note->second, .stored = stored.has_value(), .noted = true};
    }
  }
  return {.text = stored.value_or(""), .stored = stored.has_value()};
}

void NodeSettings::InOneWrite(const std::function<void()>& writes,
                              const AllowOverwriting& allowOverwriting) {
  if (!project_.IsOpen()) return;
  file_ = FilePath();
  mode_ = Mode::Edits;
  if (EditsMeetOtherChanges(writes)) {
    allowOverwriting(file_);
    mode_ = Mode::All;
  }
  tools::SettingsStore::Batch batch(project_.Settings());
  current_ = project_.Settings().Load(file_);
  writtenNotes_.clear();
  agreed_ = nullptr;
  writes();
  Commit(batch);
}

bool NodeSettings::EditsMeetOtherChanges(const std::function<void()>& writes) {
  const tools::SettingsStore::Session session(project_.Settings());
  current_ = project_.Settings().Load(file_);
  // Writing to a node that is gone fails, there is nothing to ask about.
  if (current_ == seen_ || !tools::FileExists(file_) || IsOtherVersion()) return false;
  mode_ = Mode::Compare;
  edits_ = false;
  otherChanges_ = false;
  offered_.clear();
  writes();
  mode_ = Mode::Edits;
  return edits_ && (otherChanges_ || HaveLaterSectionsChanged());
}

void NodeSettings::NoteOffer(std::string_view section, std::string_view key) {
  if (section == setting::kFileCount.section && key == setting::kFileCount.key) NoteFileList();
  const std::size_t digits = section.find_last_not_of("0123456789") + 1;
  if (digits == 0 || digits == section.size()) return;
  auto found = offered_.find(section.substr(0, digits));
  if (found == offered_.end()) {
    found = offered_.emplace(section.substr(0, digits), NumberedSections{}).first;
  }
  const std::int32_t number = SlotNumberOf(section, section.substr(0, digits));
  found->second.last = std::max(found->second.last, number);
  if (!found->second.keys.contains(key)) found->second.keys.emplace(key);
}

// A list that has become empty offers none of its sections.
void NodeSettings::NoteFileList() {
  NumberedSections& files = offered_[std::string(kFileSection)];
  for (const FileEntryField& field : FileEntryFields()) files.keys.emplace(field.name);
}

bool NodeSettings::HaveLaterSectionsChanged() const {
  for (const auto& [name, offered] : offered_) {
    bool isStored = true;
    for (std::int32_t number = offered.last + 1; isStored; ++number) {
      const std::string section = name + std::to_string(number);
      isStored = false;
      for (const std::string& key : offered.keys) {
        const auto seen = seen_->Find(section, key);
        if (seen != current_->Find(section, key)) return true;
        isStored = isStored || seen.has_value();
      }
    }
  }
  return false;
}

void NodeSettings::Save(std::string_view section, std::string_view key, std::string_view value) {
  const auto current = current_->Find(section, key);
  const Seen seen = SeenOf(section, key);
  // A number that was never stored, or as an empty text, is shown and written as 0.
  const bool fills =
      !seen.stored && !current && (value == seen.text || (seen.text.empty() && value == "0"));
  const bool unsetNumber = seen.text.empty() && value == "0" && numbers_.contains(key);
  const bool edited = !fills && !unsetNumber && value != seen.text &&
                      (seen.text.empty() || value != asShown_(seen.text));
  switch (mode_) {
    case Mode::Compare:
      NoteOffer(section, key);
      if (edited && current != value) edits_ = true;
      if (current != value && current.value_or(seen.noted ? seen.text : "") != seen.text) {
        otherChanges_ = true;
      }
      break;
    case Mode::Edits:
      if (fills || (edited && current != value)) {
        Write(section, key, value);
      } else if (edited) {
        NoteAgreed(section, key, value);
      }
      break;
    case Mode::All: {
      const bool ownText = fills || edited || (unsetNumber && !seen.stored);
      const std::string_view text = ownText ? value : seen.text;
      if (current != text) {
        Write(section, key, text);
      } else if (edited) {
        NoteAgreed(section, key, value);
      }
      break;
    }
  }
}

// The author and another program made the same of it. To go back to what was seen before is an edit
// like any other then.
void NodeSettings::NoteAgreed(std::string_view section, std::string_view key,
                              std::string_view value) {
  if (!noted_.empty()) writtenNotes_.push_back(NoteKey(section, key));
  if (agreed_ == nullptr) {
    RequireSameVersion();
    agreed_ = seen_->Clone();
  }
  agreed_->Write(section, key, value);
}

void NodeSettings::Write(std::string_view section, std::string_view key, std::string_view value) {
  if (!noted_.empty()) writtenNotes_.push_back(NoteKey(section, key));
  // The first write of all has made sure that the node is there, and each more looks for its file.
  if (project_.Settings().IsBeingWritten(file_)) {
    project_.Settings().Write(file_, section, key, value);
    return;
  }
  RequireSameVersion();
  if (version_ != 0 && component_ != 0) {
    project_.WriteComponentSetting(version_, component_, section, key, value);
  } else if (version_ != 0) {
    project_.WriteVersionSetting(version_, section, key, value);
  } else {
    project_.WriteProductSetting(section, key, value);
  }
}

void NodeSettings::Commit(tools::SettingsStore::Batch& batch) {
  const auto written = project_.Settings().Load(file_);
  if (written == current_ && agreed_ == nullptr) return;  // nothing was
  // Made before the commit: afterwards the store no longer tells what was written. What another
  // program stores in between is not in it, and so still counts as a change from outside.
  auto seen = std::exchange(current_, nullptr) == seen_ ? written : SeenWithWritesOf(*written);
  batch.Commit();
  seen_ = std::move(seen);
  for (const std::string& note : writtenNotes_) noted_.erase(note);
}

std::shared_ptr<const tools::SettingsFile> NodeSettings::SeenWithWritesOf(
    const tools::SettingsFile& written) const {
  auto seen = agreed_ != nullptr ? agreed_ : seen_->Clone();
  written.ReplayWrites(*seen);
  seen->ForgetWrites();
  return seen;
}

}  // namespace model
