#include "tests/support/ScriptedDialogs.h"

#include "tests/support/ReportFailure.h"

namespace tests {

using tools::MessageAnswer;
using tools::MessageButtons;

namespace {

bool Offers(MessageButtons buttons, MessageAnswer answer) {
  const bool yesOrNo = answer == MessageAnswer::Yes || answer == MessageAnswer::No;
  return yesOrNo == (buttons == MessageButtons::YesNo);
}

}  // namespace

ScriptedDialogs::~ScriptedDialogs() {
  for (const Expectation& left : expected_) {
    ReportFailure("nobody asked for the " + left.kind + " \"" + left.part + "\"");
  }
}

void ScriptedDialogs::ExpectQuestion(const std::string& textPart, MessageAnswer answer) {
  expected_.push_back({"question", textPart, answer, ""});
}

void ScriptedDialogs::ExpectInputBox(const std::string& promptPart, const std::string& answer) {
  expected_.push_back({"input box", promptPart, MessageAnswer::Ok, answer});
}

void ScriptedDialogs::ExpectOpenFile(const std::string& titlePart, const std::string& path) {
  expected_.push_back({"open-file dialog", titlePart, MessageAnswer::Ok, path});
}

void ScriptedDialogs::ExpectBrowseFolder(const std::string& titlePart, const std::string& path) {
  expected_.push_back({"browse-folder dialog", titlePart, MessageAnswer::Ok, path});
}

bool ScriptedDialogs::Take(const std::string& kind, const std::string& shown, Expectation& taken) {
  if (expected_.empty() || expected_.front().kind != kind ||
      shown.find(expected_.front().part) == std::string::npos) {
    ReportFailure("unexpected " + kind + " \"" + shown + "\"");
    return false;
  }
  taken = std::move(expected_.front());
  expected_.pop_front();
  return true;
}

MessageAnswer ScriptedDialogs::ShowMessage(const tools::Message& message) {
  messages_.push_back(message);
  if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
  Expectation taken;
  if (Take("question", message.text, taken)) {
    if (Offers(message.buttons, taken.answer)) return taken.answer;
    ReportFailure("no button gives the answer to \"" + message.text + "\"");
  }
  return message.buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

std::string ScriptedDialogs::TextAnswer(const std::string& kind, const std::string& shown) {
  Expectation taken;
  return Take(kind, shown, taken) ? taken.text : std::string();
}

std::string ScriptedDialogs::InputBox(const std::string& prompt, const std::string& /*title*/,
                                      const std::string& defaultText) {
  lastDefaultText_ = defaultText;
  return TextAnswer("input box", prompt);
}

std::string ScriptedDialogs::OpenFile(const tools::OpenFileRequest& request) {
  return TextAnswer("open-file dialog", request.title);
}

std::string ScriptedDialogs::BrowseFolder(const std::string& title, int /*flags*/) {
  return TextAnswer("browse-folder dialog", title);
}

int ScriptedDialogs::ShowBusyNotice(const std::string& text) {
  notices_.push_back(text);
  const int token = static_cast<int>(notices_.size());
  openNotices_.insert(token);
  return token;
}

void ScriptedDialogs::UpdateBusyNotice(int token, const tools::Progress& progress) {
  if (openNotices_.count(token) == 0) ReportFailure("progress for a notice that is not shown");
  progress_.push_back(progress);
}

void ScriptedDialogs::WithdrawBusyNotice(int token) { openNotices_.erase(token); }

}  // namespace tests
