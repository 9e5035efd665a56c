// Dialogs for a program without a window.
#pragma once

#include <iosfwd>

#include "tools/Dialogs.h"

namespace tools {

/// Writes each message as a line "CAPTION: TEXT" and answers every question the same way, so that
/// a build without a person never waits. A question's line ends in the answer it got.
class ConsoleDialogs : public Dialogs {
 public:
  /// The answer of a Yes/No question; an OK/Cancel question gets the corresponding one.
  enum class Policy { Agree, Refuse };

  /// `output` must outlive this object.
  ConsoleDialogs(std::ostream& output, Policy policy);

  MessageAnswer ShowMessage(const Message& message) override;

  /// The dialogs that need a person are all cancelled: they give empty text.
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  std::string OpenFile(const OpenFileRequest& request) override;
  std::string BrowseFolder(const std::string& title, int flags) override;

  /// Notices are not shown.
  int ShowBusyNotice(const std::string& text) override;
  void UpdateBusyNotice(int token, const Progress& progress) override;
  void WithdrawBusyNotice(int token) override;

 private:
  std::ostream& output_;
  Policy policy_;
  int lastToken_ = 0;
};

}  // namespace tools
