#include "tools/ConsoleDialogs.h"

#include <ostream>

#include "tools/Text.h"

namespace tools {

ConsoleDialogs::ConsoleDialogs(std::ostream& output, Policy policy)
    : output_(output), policy_(policy) {}

MessageAnswer ConsoleDialogs::ShowMessage(const Message& message) {
  if (!message.caption.empty()) output_ << message.caption << ": ";
  output_ << ReplaceAll(message.text, "\r\n", "\n");
  const bool agree = policy_ == Policy::Agree;
  MessageAnswer answer = MessageAnswer::Ok;
  if (message.buttons == MessageButtons::OkCancel) {
    answer = agree ? MessageAnswer::Ok : MessageAnswer::Cancel;
    output_ << (agree ? " [OK]" : " [Abbrechen]");
  } else if (message.buttons == MessageButtons::YesNo) {
    answer = agree ? MessageAnswer::Yes : MessageAnswer::No;
    output_ << (agree ? " [Ja]" : " [Nein]");
  }
  output_ << std::endl;
  return answer;
}

std::string ConsoleDialogs::InputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                                     const std::string& /*defaultText*/) {
  return {};
}

std::string ConsoleDialogs::OpenFile(const OpenFileRequest& /*request*/) { return {}; }

std::string ConsoleDialogs::BrowseFolder(const std::string& /*title*/, int /*flags*/) { return {}; }

int ConsoleDialogs::ShowBusyNotice(const std::string& /*text*/) { return ++lastToken_; }

void ConsoleDialogs::UpdateBusyNotice(int /*token*/, const Progress& /*progress*/) {}

void ConsoleDialogs::WithdrawBusyNotice(int /*token*/) {}

}  // namespace tools
