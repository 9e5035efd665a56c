// Dialogs that a test answers in advance.
#pragma once

#include <deque>
#include <set>
#include <string>
#include <vector>

#include "tools/Dialogs.h"

namespace tests {

/// Questions must come in the order in which the test expects them. A question that is not the
/// next one expected fails the test and is answered by No, Cancel or empty text; so does an answer
/// left over when this object ends. Messages with nothing but an OK button need no expectation:
/// the test looks them up in Messages.
class ScriptedDialogs : public tools::Dialogs {
 public:
  ScriptedDialogs() = default;
  ~ScriptedDialogs() override;

  /// Expects a message box with several buttons, whose text holds `textPart`.
  void ExpectQuestion(const std::string& textPart, tools::MessageAnswer answer);
  /// Expects an input box by a part of its prompt.
  void ExpectInputBox(const std::string& promptPart, const std::string& answer);
  /// Expects an open-file dialog by a part of its title.
  void ExpectOpenFile(const std::string& titlePart, const std::string& path);
  /// Expects a browse-folder dialog by a part of its title.
  void ExpectBrowseFolder(const std::string& titlePart, const std::string& path);

  /// Every message box shown so far, questions included, in their order.
  [[nodiscard]] const std::vector<tools::Message>& Messages() const { return messages_; }
  /// The default text of the input box shown last.
  [[nodiscard]] const std::string& LastDefaultText() const { return lastDefaultText_; }
  /// The texts of every busy notice shown so far.
  [[nodiscard]] const std::vector<std::string>& Notices() const { return notices_; }
  /// How many busy notices have not been withdrawn.
  [[nodiscard]] std::size_t OpenNotices() const { return openNotices_.size(); }
  /// Everything reported to busy notices.
  [[nodiscard]] const std::vector<tools::Progress>& ProgressReports() const { return progress_; }

  tools::MessageAnswer ShowMessage(const tools::Message& message) override;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultText) override;
  std::string OpenFile(const tools::OpenFileRequest& request) override;
  std::string BrowseFolder(const std::string& title, int flags) override;
  int ShowBusyNotice(const std::string& text) override;
  void UpdateBusyNotice(int token, const tools::Progress& progress) override;
  void WithdrawBusyNotice(int token) override;

 private:
  struct Expectation {
    std::string kind;  ///< "question", "input box", ...
    std::string part;
    tools::MessageAnswer answer = tools::MessageAnswer::Ok;  ///< of a question
    std::string text;                                        ///< what every other dialog gives
  };

  /// Takes the next expectation if it is this one; else fails the test and returns false.
  bool Take(const std::string& kind, const std::string& shown, Expectation& taken);
  std::string TextAnswer(const std::string& kind, const std::string& shown);

  std::deque<Expectation> expected_;
  std::vector<tools::Message> messages_;
  std::string lastDefaultText_;
  std::vector<std::string> notices_;
  std::vector<tools::Progress> progress_;
  std::set<int> openNotices_;
};

}  // namespace tests
