// The file entries of the component that is being edited: as they were read, and what its author
// has done to them since, which can be undone.
#pragma once

#include <QObject>
#include <QUndoStack>
#include <string>
#include <unordered_set>
#include <vector>

#include "model/FileEntries.h"
#include "pages/EditorPage.h"
#include "tools/Guid.h"

namespace pages {

/// One field of one entry, to be set to a text.
struct FieldEdit {
  std::string id;     ///< of the entry
  std::string field;  ///< a name of model::FileEntryFields
  std::string text;
};

/// The entries' IDs, one for each edit.
[[nodiscard]] std::vector<std::string> IdsOf(const std::vector<FieldEdit>& edits);

/// Each edit is one step of the undo stack, which is empty again after reading and after a write
/// that succeeded. An entry that is stored without a type shows 0, which is not written unless the
/// author sets it.
class FileListDocument : public QObject {
  Q_OBJECT

 public:
  /// What an entry was changed by: a step of the author, or undoing or repeating one, which is
  /// still the next one to be undone or repeated then.
  enum class By { Step, Undo, Redo };

  explicit FileListDocument(QObject* parent);
  ~FileListDocument() override;

  [[nodiscard]] const model::FileEntries& Entries() const { return entries_; }
  /// Those of the entries with these IDs that there are, in the order of the IDs.
  [[nodiscard]] std::vector<const model::ICFile*> Find(const std::vector<std::string>& ids) const;
  [[nodiscard]] QUndoStack& Steps() { return steps_; }

  /// Replaces the entries by those stored; `path` names the component's file in errors. Raises
  /// tools::Error when they cannot be read; the entries stay then.
  void Read(PageHost& host, const std::string& path);
  /// Hands all entries to the host's Save.
  void Write(PageHost& host);
  /// What Write handed over is in the file.
  void Written();

  /// Appends entries, each with a new ID; returns their IDs.
  std::vector<std::string> Add(std::vector<model::ICFile> entries);
  void Remove(const std::vector<std::string>& ids);
  /// Raises tools::Error when a number does not fit its field; nothing is changed then.
  void Set(const std::vector<FieldEdit>& edits);

 Q_SIGNALS:
  /// Read has replaced all entries.
  void Replaced();
  /// Entries with these IDs were added, removed or edited.
  void Changed(const std::vector<std::string>& ids, By by);

 private:
  class Presence;
  class Fields;

  /// True when that section has the key "Type", be it empty. Not while writing.
  [[nodiscard]] static bool IsTypeStored(PageHost& host, std::string_view section);

  tools::GuidSource guids_;
  model::FileEntries entries_;
  std::unordered_set<std::string> untyped_;  ///< IDs of entries that were stored without a type
  std::vector<bool> typedSections_;  ///< which of the sections "File1", "File2" ... store a type
  QUndoStack steps_;
};

}  // namespace pages
