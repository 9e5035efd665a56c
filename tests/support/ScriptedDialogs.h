// Dialogs that a test answers in advance.
#pragma once

#include <algorithm>
#include <deque>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "model/TextTable.h"
#include "tests/support/ReportFailure.h"
#include "tools/Dialogs.h"

namespace tests {

/// What a dialog must show: a part of its text, or a text of the table, in place of whose "%name%"
/// may stand anything (or just `name`).
struct TextPart {
  TextPart(const char* part) : words(part) {}
  TextPart(model::Text text) : words(model::LoadText(text)) {
    words.resize(std::min(words.find('%'), words.size()));
  }
  TextPart(model::Text text, const std::string& name) : words(model::LoadText(text)) {
    const std::size_t begin = words.find('%');
    words.replace(begin, words.find('%', begin + 1) + 1 - begin, name);
  }

  std::string words;
};

/// Questions must come in the order in which the test expects them. A question that is not the
/// next one expected fails the test and is answered by No, Cancel or empty text; so does an answer
/// left over when this object ends. Messages with nothing but an OK button need no expectation:
/// the test looks them up in Messages.
class ScriptedDialogs : public tools::Dialogs {
 public:
  ~ScriptedDialogs() override {
    for (const Expectation& left : expected_) {
      ReportFailure("nobody asked for the " + left.kind + " \"" + left.part + "\"");
    }
  }

  /// Expects a message box with several buttons.
  void ExpectQuestion(const TextPart& text, tools::MessageAnswer answer) {
    expected_.push_back({"question", text.words, answer, ""});
  }
  /// Expects an input box by its prompt.
  void ExpectInputBox(const TextPart& prompt, const std::string& answer) {
    expected_.push_back({"input box", prompt.words, {}, answer});
  }
  /// Expects an open-file or browse-folder dialog by its title. The paths of several files are
  /// separated by line breaks.
  void ExpectOpenFile(const TextPart& title, const std::string& path) {
    expected_.push_back({"open-file dialog", title.words, {}, path});
  }
  void ExpectBrowseFolder(const TextPart& title, const std::string& path) {
    expected_.push_back({"browse-folder dialog", title.words, {}, path});
  }

  /// Every message box shown so far, questions included, in their order.
  [[nodiscard]] const std::vector<tools::Message>& Messages() const { return messages_; }
  /// Caption and text of the message box shown last, joined by "|"; empty when there was none.
  [[nodiscard]] std::string LastMessage() const {
    return messages_.empty() ? "" : messages_.back().caption + "|" + messages_.back().text;
  }
  /// Icon and default button of the message box shown last, as in "!Ok" or "?Yes".
  [[nodiscard]] std::string LastStyle() const {
    static constexpr const char* kAnswers[] = {"Ok", "Cancel", "Yes", "No"};
    const tools::Message& last = messages_.back();
    return "!?iX"[static_cast<int>(last.icon)] +
           std::string(kAnswers[static_cast<int>(last.defaultAnswer)]);
  }
  /// The default text of the input box shown last.
  [[nodiscard]] const std::string& LastDefaultText() const { return lastDefaultText_; }
  /// The open-file dialog shown last.
  [[nodiscard]] const tools::OpenFileRequest& LastOpenFile() const { return lastOpenFile_; }
  /// The texts of every busy notice shown so far.
  [[nodiscard]] const std::vector<std::string>& Notices() const { return notices_; }
  /// How many busy notices have not been withdrawn.
  [[nodiscard]] std::size_t OpenNotices() const { return openNotices_.size(); }

  tools::MessageAnswer ShowMessage(const tools::Message& message) override {
    using tools::MessageAnswer;
    messages_.push_back(message);
    if (message.buttons == tools::MessageButtons::Ok) return MessageAnswer::Ok;
    const bool yesNo = message.buttons == tools::MessageButtons::YesNo;
    const MessageAnswer refusal = yesNo ? MessageAnswer::No : MessageAnswer::Cancel;
    const MessageAnswer answer = Take("question", message.text, refusal).answer;
    if (yesNo == (answer == MessageAnswer::Yes || answer == MessageAnswer::No)) return answer;
    ReportFailure("no button gives the answer to \"" + message.text + "\"");
    return refusal;
  }

  std::string InputBox(const std::string& prompt, const std::string& /*title*/,
                       const std::string& defaultText) override {
    lastDefaultText_ = defaultText;
    return Take("input box", prompt).text;
  }
  std::string OpenFile(const tools::OpenFileRequest& request) override {
    lastOpenFile_ = request;
    return Take("open-file dialog", request.title).text;
  }
  std::vector<std::string> OpenFiles(const tools::OpenFileRequest& request) override {
    std::vector<std::string> paths;
    std::istringstream lines(OpenFile(request));
    for (std::string path; std::getline(lines, path);) paths.push_back(path);
    return paths;
  }
  std::string BrowseFolder(const std::string& title, int /*flags*/) override {
    return Take("browse-folder dialog", title).text;
  }

  int ShowBusyNotice(const std::string& text, const std::string& /*stopQuestion*/) override {
    notices_.push_back(text);
    return *openNotices_.insert(static_cast<int>(notices_.size())).first;
  }
  void UpdateBusyNotice(int token, const tools::Progress& /*progress*/) override {
    if (!openNotices_.contains(token)) ReportFailure("progress for a notice that is not shown");
  }
  bool IsStopWanted(int /*token*/) override { return stopWanted_; }
  /// From now on the author stops what goes on.
  void StopWork() { stopWanted_ = true; }
  void WithdrawBusyNotice(int token) override { openNotices_.erase(token); }

 private:
  struct Expectation {
    std::string kind;  ///< "question", "input box", ...
    std::string part;
    tools::MessageAnswer answer{};  ///< of a question
    std::string text;               ///< what every other dialog gives
  };

  /// Takes the next expectation if it is this one; else fails the test and gives a refusal.
  Expectation Take(const std::string& kind, const std::string& shown,
                   tools::MessageAnswer refusal = {}) {
    if (expected_.empty() || expected_.front().kind != kind ||
        shown.find(expected_.front().part) == std::string::npos) {
      ReportFailure("unexpected " + kind + " \"" + shown + "\"");
      return {kind, shown, refusal, ""};
    }
    Expectation taken = expected_.front();
    expected_.pop_front();
    return taken;
  }

  std::deque<Expectation> expected_;
  std::vector<tools::Message> messages_;
  std::string lastDefaultText_;
  tools::OpenFileRequest lastOpenFile_;
  std::vector<std::string> notices_;
  std::set<int> openNotices_;
  bool stopWanted_ = false;
};

}  // namespace tests
