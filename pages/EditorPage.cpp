#include "pages/EditorPage.h"

namespace pages {

void EditorPage::ApplyChanges() {
  if (host_ == nullptr) return;
  host_->InOneWrite(*this, [this] { WriteSettings(); });
  SettingsWritten();
  dirty_ = false;
}

void EditorPage::StatusTextChanged(const std::string& text) {
  if (host_ != nullptr) host_->StatusTextChanged(text);
}

}  // namespace pages
