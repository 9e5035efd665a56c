// The questions and notices of the desktop program, as real windows.
#pragma once

#include <QFileDialog>
#include <QPointer>
#include <map>

#include "tools/Dialogs.h"

class QWidget;

namespace tools {

class BusyNotice;

/// Every window belongs to the modal dialog that is open, else to the parent window. Button texts
/// are German whatever the desktop's language. Escape and the close box give Cancel, or OK where it
/// is the only button; a Yes/No question can only be answered. While a question is open, the normal
/// pointer is shown.
class DesktopDialogs : public Dialogs {
 public:
  /// `parent` is the main window; without one the dialogs stand on their own.
  explicit DesktopDialogs(QWidget* parent = nullptr);
  ~DesktopDialogs() override;

  MessageAnswer ShowMessage(const Message& message) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  /// An initial folder that does not exist is replaced by the nearest one above it.
  std::string OpenFile(const OpenFileRequest& request) override;
  std::vector<std::string> OpenFiles(const OpenFileRequest& request) override;
  std::string BrowseFolder(const std::string& title, int flags) override;
  int ShowBusyNotice(const std::string& text, const std::string& stopQuestion) override;
  void UpdateBusyNotice(int token, const Progress& progress) override;
  bool IsStopWanted(int token) override;
  void WithdrawBusyNotice(int token) override;

 private:
  struct Notice {
    QPointer<BusyNotice> window;  ///< null: gone with its owner
    std::string stopQuestion;
    bool isStopped = false;
  };

  [[nodiscard]] QWidget* Owner() const;
  [[nodiscard]] std::vector<std::string> RunOpenDialog(const OpenFileRequest& request,
                                                       QFileDialog::FileMode mode) const;
  /// The paths that the user chose, in the machine's separators; none when cancelled.
  [[nodiscard]] static std::vector<std::string> RunFileDialog(QFileDialog& dialog);

  QPointer<QWidget> parent_;
  std::map<int, Notice> notices_;  ///< by token
  int lastToken_ = 0;
};

}  // namespace tools
