#include "pages/FileListDocument.h"

#include <QUndoCommand>
#include <algorithm>
#include <utility>

#include "pages/PageText.h"

namespace pages {

namespace {

constexpr std::string_view kType = "Type";

const model::FileEntryField* FieldOf(std::string_view name) {
  const auto& fields = model::FileEntryFields();
  const auto found = std::find_if(fields.begin(), fields.end(),
                                  [name](const auto& field) { return field.name == name; });
  return found == fields.end() ? nullptr : &*found;
}

}  // namespace

std::vector<std::string> IdsOf(const std::vector<FieldEdit>& edits) {
  std::vector<std::string> ids;
  ids.reserve(edits.size());
  for (const FieldEdit& edit : edits) ids.push_back(edit.id);
  return ids;
}

/// Adds entries or removes them. Made after the fact: an undo stack is no place for errors.
class FileListDocument::Presence : public QUndoCommand {
 public:
  Presence(FileListDocument& document, Text name, std::vector<std::string> ids,
           std::vector<model::TakenFileEntry> taken)
      : QUndoCommand(Caption(name)),
        document_(document),
        ids_(std::move(ids)),
        taken_(std::move(taken)) {}

  static std::vector<model::TakenFileEntry> Take(FileListDocument& document,
                                                 const std::vector<std::string>& ids) {
    std::vector<model::TakenFileEntry> taken;
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
      taken.push_back(document.entries_.Take(*id));
    }
    return taken;
  }

  void undo() override { Toggle(By::Undo); }
  void redo() override {
    if (!std::exchange(isNew_, false)) Toggle(By::Redo);
  }

 private:
  void Toggle(By by) {
    if (taken_.empty()) {
      taken_ = Take(document_, ids_);
    } else {
      while (!taken_.empty()) {
        document_.entries_.PutBack(taken_.back());
        taken_.pop_back();
      }
    }
    Q_EMIT document_.Changed(ids_, by);
  }

  FileListDocument& document_;
  std::vector<std::string> ids_;              ///< in the collection's order
  std::vector<model::TakenFileEntry> taken_;  ///< empty while they are in the collection
  bool isNew_ = true;
};

class FileListDocument::Fields : public QUndoCommand {
 public:
  Fields(FileListDocument& document, const std::vector<FieldEdit>& edits)
      : QUndoCommand(Caption(Text::EditStep)), document_(document), edits_(edits) {
    for (const FieldEdit& edit : edits_) {
      const model::ICFile* entry = document_.entries_.Find(edit.id);
      const model::FileEntryField* field = FieldOf(edit.field);
      before_.push_back({edit.id, edit.field, model::FileEntryFieldText(*entry, *field)});
      if (edit.field == kType && document_.untyped_.contains(edit.id)) untyped_.push_back(edit.id);
    }
  }

  void undo() override {
    Apply(before_);
    document_.untyped_.insert(untyped_.begin(), untyped_.end());
    Tell(By::Undo);
  }
  void redo() override {
    Apply(edits_);
    for (const std::string& id : untyped_) document_.untyped_.erase(id);
    if (!std::exchange(isNew_, false)) Tell(By::Redo);
  }

 private:
  void Apply(const std::vector<FieldEdit>& edits) {
    for (const FieldEdit& edit : edits) {
      document_.entries_.SetField(edit.id, edit.field, edit.text);
    }
  }
  void Tell(By by) { Q_EMIT document_.Changed(IdsOf(edits_), by); }

  FileListDocument& document_;
  std::vector<FieldEdit> edits_;
  std::vector<FieldEdit> before_;
  std::vector<std::string> untyped_;  ///< IDs of the entries that get a type by this
  bool isNew_ = true;
};

FileListDocument::FileListDocument(QObject* parent) : QObject(parent) {}

// The stack tells of its clearing once more, when the page that listens is half gone.
FileListDocument::~FileListDocument() { steps_.disconnect(); }

std::vector<const model::ICFile*> FileListDocument::Find(
    const std::vector<std::string>& ids) const {
  std::vector<const model::ICFile*> found;
  found.reserve(ids.size());
  for (const std::string& id : ids) {
    if (const model::ICFile* entry = entries_.Find(id)) found.push_back(entry);
  }
  return found;
}

void FileListDocument::Read(PageHost& host, const std::string& path) {
  std::vector<bool> typed;  // of the sections read so far
  model::FileEntries entries = model::ReadFileEntries(
      [&](auto section, auto key, auto defaultValue) {
        if (key == kType) typed.push_back(IsTypeStored(host, section));
        return host.Read(section, key, defaultValue);
      },
      path);
  steps_.clear();  // its steps hold entries of the old collection
  entries_ = std::move(entries);
  untyped_.clear();
  typedSections_ = std::move(typed);
  auto hasType = typedSections_.begin();
  for (const model::ICFile& entry : entries_) {
    if (!*hasType++) untyped_.insert(entry.ID);
  }
  Q_EMIT Replaced();
}

bool FileListDocument::IsTypeStored(PageHost& host, std::string_view section) {
  return !host.Read(section, kType, "").empty() ||
         host.Read(section, kType, model::kBuildDefaultType).empty();
}

void FileListDocument::Write(PageHost& host) {
  // What is read through the host counts as seen: reading here would hide what another program has
  // written meanwhile.
  auto entry = entries_.begin();  // the one whose type is written next
  std::size_t position = 0;
  model::WriteFileEntries(
      [&](auto section, auto key, auto value) {
        if (key != kType) return host.Save(section, key, value);
        const bool untyped = untyped_.contains((entry++)->ID);
        const bool stored = position < typedSections_.size() && typedSections_[position];
        ++position;
        if (!untyped) return host.Save(section, key, value);
        // Builds read a missing type as a single file: it must not become the 0 that is shown.
        if (stored) host.Save(section, key, model::kBuildDefaultType);
      },
      entries_);
}

void FileListDocument::Written() {
  std::size_t position = 0;
  for (const model::ICFile& entry : entries_) {
    if (position == typedSections_.size()) typedSections_.push_back(false);
    if (!untyped_.contains(entry.ID)) typedSections_[position] = true;
    ++position;
  }
  steps_.clear();
}

std::vector<std::string> FileListDocument::Add(std::vector<model::ICFile> entries) {
  std::vector<std::string> ids;
  ids.reserve(entries.size());
  for (model::ICFile& entry : entries) {
    entry.ID = guids_.NewText();
    ids.push_back(entry.ID);
    entries_.Add(std::move(entry));
  }
  steps_.push(new Presence(*this, Text::AddStep, ids, {}));
  Q_EMIT Changed(ids, By::Step);
  return ids;
}

void FileListDocument::Remove(const std::vector<std::string>& ids) {
  const std::unordered_set<std::string_view> wanted(ids.begin(), ids.end());
  std::vector<std::string> ordered;
  for (const model::ICFile& entry : entries_) {
    if (wanted.contains(entry.ID)) ordered.push_back(entry.ID);
  }
  if (ordered.empty()) return;
  steps_.push(new Presence(*this, Text::RemoveStep, ordered, Presence::Take(*this, ordered)));
  Q_EMIT Changed(ordered, By::Step);
}

void FileListDocument::Set(const std::vector<FieldEdit>& edits) {
  // Tried on copies: a number that does not fit must leave every entry as it is.
  for (const FieldEdit& edit : edits) {
    model::ICFile tried;
    model::SetFileEntryField(tried, edit.field, edit.text);
  }
  if (edits.empty()) return;
  steps_.push(new Fields(*this, edits));
  Q_EMIT Changed(IdsOf(edits), By::Step);
}

}  // namespace pages
