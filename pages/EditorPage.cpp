#include "pages/EditorPage.h"

namespace pages {

void EditorPage::ApplyChanges() {
  if (host_ == nullptr) return;
  try {
    host_->InOneWrite(*this, [this] { WriteSettings(); });
  } catch (...) {
    hasFailed_ = IsUnsaved() || HoldsQuietEdits();
    Q_EMIT SaveFailed();
    throw;
  }
  SettingsWritten();
  MatchesStored();
  Q_EMIT Saved();
}

void EditorPage::MatchesStored() {
  dirty_ = false;
  hasFailed_ = false;
  Q_EMIT DirtyChanged();
}

void EditorPage::SetDirty(bool dirty) {
  if (dirty == dirty_) return;
  dirty_ = dirty;
  Q_EMIT DirtyChanged();
}

void EditorPage::StatusTextChanged(const std::string& text) {
  if (host_ != nullptr) host_->StatusTextChanged(text);
}

}  // namespace pages
