// The contract between the editor pages and their host.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "model/MainView.h"
#include "model/Slots.h"

namespace pages {

class EditorPage;

/// What a page sees of its host: the settings of the node being edited, and the status bar.
class PageHost {
 public:
  virtual ~PageHost() = default;
  PageHost() = default;
  PageHost(const PageHost&) = delete;
  PageHost& operator=(const PageHost&) = delete;

  /// A setting of the selected product, version or component; the default when it is absent.
  /// Raises tools::Error for a file that is there but cannot be read.
  [[nodiscard]] virtual std::string Read(std::string_view section, std::string_view key,
                                         std::string_view defaultValue) = 0;
  /// Sets a setting of the selected node, within InOneWrite only: a value that the page shows as it
  /// read it keeps its stored text. Raises tools::Error.
  virtual void Save(std::string_view section, std::string_view key, std::string_view value) = 0;
  /// Runs `writes`, whose Save calls become one replacement of the file; it may run twice. Asks the
  /// author first where `page` would overwrite what another program has changed. Raises
  /// tools::Error when the author refuses and when writing fails: nothing is written then. Does
  /// nothing while no product is open.
  virtual void InOneWrite(const EditorPage& page, const std::function<void()>& writes) = 0;

  /// A hint for the status bar.
  virtual void StatusTextChanged(const std::string& text) = 0;

  /// The slots of the selected version and component, 0 where none is selected.
  [[nodiscard]] virtual model::VersionSlot VersionIndex() const = 0;
  [[nodiscard]] virtual model::ComponentSlot ComponentIndex() const = 0;
};

/// A page shows and edits one aspect of the selected node. Its controls hold what was typed until
/// ApplyChanges, unless a page says that it writes some of it sooner. It reads
/// and writes its settings through its host; what else it shows comes from the PageServices.
class EditorPage : public QWidget, public model::OpenPage {
  Q_OBJECT

 public:
  explicit EditorPage(QWidget* parent) : QWidget(parent) {}

  /// The page's capability of that number; no page has any.
  [[nodiscard]] virtual int GetCaps(int /*capability*/) const { return 0; }
  /// Loads the controls from the settings. Raises tools::Error when they cannot be read.
  virtual void ReadSettings() = 0;
  /// Selects the entry with that ID, or of that number where the ID is empty; false on a page that
  /// has no such entry.
  virtual bool ShowEntry(std::int32_t /*entry*/, const std::string& /*id*/) { return false; }
  /// Shows the page's help; no page has any.
  virtual void DisplayHelp() {}

  /// The host must outlive the page.
  void SetHost(PageHost* host) { host_ = host; }

  /// Writes what the page has changed in one replacement of the settings file, then counts as
  /// unchanged.
  void ApplyChanges() final;
  [[nodiscard]] bool IsDirty() const override { return dirty_; }
  void SetDirty(bool dirty) override;
  [[nodiscard]] bool IsUnsaved() const override { return IsDirty() || hasFailed_; }

 Q_SIGNALS:
  /// IsDirty or IsUnsaved may have changed.
  void DirtyChanged();
  /// ApplyChanges has ended, the second by an error, which its caller reports.
  void Saved();
  void SaveFailed();

 protected:
  /// Hands the page's state to the host's Save, all of it, whether it was changed or not; may be
  /// called twice. Raises tools::Error.
  virtual void WriteSettings() = 0;
  /// What WriteSettings wrote is in the file. The page changes its controls here, not while
  /// writing: a write that fails must leave what the user typed.
  virtual void SettingsWritten() {}

  /// True when the page also holds edits that do not make it dirty: when they cannot be saved, they
  /// count as unsaved.
  [[nodiscard]] virtual bool HoldsQuietEdits() const { return false; }

  /// The page shows what is stored, again: IsUnsaved ends.
  void MatchesStored();

  [[nodiscard]] PageHost* Host() const { return host_; }
  /// Passes a hint to the host, if there is one.
  void StatusTextChanged(const std::string& text);

 private:
  PageHost* host_ = nullptr;
  bool dirty_ = false;
  bool hasFailed_ = false;  ///< changes could not be saved
};

}  // namespace pages
