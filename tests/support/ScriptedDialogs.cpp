#include "tests/support/ScriptedDialogs.h"

namespace tests {

using tools::MessageAnswer;
using tools::MessageButtons;

ScriptedDialogs::Expectation ScriptedDialogs::Take(const std::string& kind,
                                                   const std::string& shown) {
  if (expected_.empty() || expected_.front().kind != kind ||
      shown.find(expected_.front().part) == std::string::npos) {
    ReportFailure("unexpected " + kind + " \"" + shown + "\"");
    return {};
  }
  const Expectation taken = expected_.front();
  expected_.pop_front();
  return taken;
}

MessageAnswer ScriptedDialogs::ShowMessage(const tools::Message& message) {
  messages_.push_back(message);
  if (message.buttons == MessageButtons::Ok) return MessageAnswer::Ok;
  const bool yesNo = message.buttons == MessageButtons::YesNo;
  const Expectation taken = Take("question", message.text);
  const bool offered =
      yesNo == (taken.answer == MessageAnswer::Yes || taken.answer == MessageAnswer::No);
  if (!taken.kind.empty() && offered) return taken.answer;
  if (!offered) ReportFailure("no button gives the answer to \"" + message.text + "\"");
  return yesNo ? MessageAnswer::No : MessageAnswer::Cancel;
}

}  // namespace tests
