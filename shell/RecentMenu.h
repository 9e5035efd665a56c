// The arrow beside the toolbar's button "open", with the products opened last.
#pragma once

#include <QMenu>
#include <functional>
#include <string>
#include <vector>

class QToolButton;

namespace shell {

/// The arrow opens it; from the keyboard Down or Alt+Down on the button does.
class RecentMenu : public QMenu {
  Q_OBJECT

 public:
  /// `paths` tells the products when the menu opens. Both must outlive the menu.
  RecentMenu(QToolButton& button, std::function<std::vector<std::string>()> paths);

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void ProductWanted(const std::string& path);
  void RemovalWanted(const std::string& path);

 private:
  void Fill();
  /// Greys the entries of these products, and offers to remove them.
  void ShowMissing(const std::vector<std::string>& missing);

  QToolButton& button_;
  std::function<std::vector<std::string>()> paths_;
  QObject* filling_ = nullptr;  ///< receives which of the products shown now are missing
};

}  // namespace shell
