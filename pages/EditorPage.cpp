#include "pages/EditorPage.h"

namespace pages {

void EditorPage::ApplyChanges() {
  if (host_ == nullptr) return;
  try {
    host_->InOneWrite(*this, [this] { WriteSettings(); });
  } catch (...) {
    Q_EMIT SaveFailed();
    throw;
  }
  SettingsWritten();
  SetDirty(false);
  Q_EMIT Saved();
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
