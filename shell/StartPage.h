// What stands in the editor area while it has no pages: where to begin without a product, and what
// to do next with one.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace shell {

/// All links are buttons, reached by Tab and the arrow keys.
class StartPage : public QWidget {
  Q_OBJECT

 public:
  explicit StartPage(QWidget* parent);

  /// Offers a new product, opening one, and these product files. Those that are not there turn grey
  /// a moment later, and can be removed.
  void ShowStart(const std::vector<std::string>& recentProducts);
  /// Gives the keyboard to the product opened last, or to the first link.
  void TakeFocus();
  [[nodiscard]] bool IsStart() const { return isStart_; }
  /// Says that a node should be selected.
  void ShowNothingSelected();

 Q_SIGNALS:
  void NewWanted();
  void OpenWanted();
  void ProductWanted(const std::string& path);
  void RemovalWanted(const std::string& path);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Clear();
  void AddTitle(const QString& text);
  void AddHint(const QString& text);
  void AddCommand(const char* name, const QString& text, void (StartPage::*wanted)());
  void AddProduct(const std::string& path, int number);
  void ShowMissing(const std::vector<std::string>& missing);

  QVBoxLayout* rows_;
  QWidget* content_ = nullptr;
  bool isStart_ = false;
};

}  // namespace shell
