// What the product model needs of the main window.
#pragma once

namespace model {

class MainView {
 public:
  virtual ~MainView() = default;
  MainView() = default;
  MainView(const MainView&) = delete;
  MainView& operator=(const MainView&) = delete;

  /// A product was opened or closed: caption, enabled state, tree and editor follow.
  virtual void UpdateProjectState() = 0;
  /// Versions or components were added or deleted: the tree follows, the editor stays.
  virtual void UpdateTree() = 0;
  /// Shows the hourglass pointer and lets pending window messages run once, or restores the
  /// pointer.
  virtual void ShowHourglass(bool shown) = 0;
};

}  // namespace model
