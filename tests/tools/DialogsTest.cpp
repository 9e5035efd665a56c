#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/ScriptedDialogs.h"
#include "tools/ConsoleDialogs.h"
#include "tools/Dialogs.h"

namespace tools {
namespace {

const Message kOverwrite{"Es sind Dateien da.\r\n\r\nFortfahren?", "Warnung",
                         MessageIcon::Exclamation, MessageButtons::YesNo, MessageAnswer::No};
const Message kDelete{"Löschen?", "Warnung", MessageIcon::Exclamation, MessageButtons::OkCancel,
                      MessageAnswer::Cancel};

TEST(DialogsTest, ConsoleAnswersByItsPolicy) {
  std::ostringstream output;
  ConsoleDialogs refusing(output, ConsoleDialogs::Policy::Refuse);
  EXPECT_EQ(refusing.ShowMessage(kOverwrite), MessageAnswer::No);
  EXPECT_EQ(refusing.ShowMessage(kDelete), MessageAnswer::Cancel);
  EXPECT_EQ(refusing.ShowMessage({.text = "Fertig.", .caption = ""}), MessageAnswer::Ok);
  EXPECT_EQ(output.str(),
            "Warnung: Es sind Dateien da.\n\nFortfahren? [Nein]\n"
            "Warnung: Löschen? [Abbrechen]\n"
            "Fertig.\n");
  ConsoleDialogs agreeing(output, ConsoleDialogs::Policy::Agree);
  EXPECT_EQ(agreeing.ShowMessage(kOverwrite), MessageAnswer::Yes);
  EXPECT_EQ(agreeing.ShowMessage(kDelete), MessageAnswer::Ok);
}

TEST(DialogsTest, ScriptAnswersInItsOrder) {
  tests::ScriptedDialogs dialogs;
  dialogs.ExpectQuestion("Fortfahren", MessageAnswer::Yes);
  dialogs.ExpectInputBox("Name", "Demo");
  EXPECT_EQ(dialogs.ShowMessage({.text = "Hinweis", .caption = ""}), MessageAnswer::Ok);
  EXPECT_EQ(dialogs.ShowMessage(kOverwrite), MessageAnswer::Yes);
  EXPECT_EQ(dialogs.InputBox("Name:", "", ""), "Demo");
  ASSERT_EQ(dialogs.Messages().size(), 2U);
  EXPECT_EQ(dialogs.Messages()[0].text, "Hinweis");
}

TEST(DialogsTest, ScriptFailsOnQuestionsAndAnswersNobodyExpected) {
  tests::ScriptedDialogs dialogs;
  MessageAnswer answer = MessageAnswer::Ok;
  EXPECT_NONFATAL_FAILURE(answer = dialogs.ShowMessage(kDelete), "unexpected question \"Löschen");
  EXPECT_EQ(answer, MessageAnswer::Cancel);
  dialogs.ExpectQuestion("Löschen", MessageAnswer::Yes);
  EXPECT_NONFATAL_FAILURE(dialogs.ShowMessage(kDelete), "no button gives");
  EXPECT_NONFATAL_FAILURE(
      {
        tests::ScriptedDialogs leftover;
        leftover.ExpectOpenFile("Projekt", "/a");
      },
      "nobody asked for the open-file dialog");
}

TEST(DialogsTest, ScriptKnowsWhichNoticesAreShown) {
  tests::ScriptedDialogs dialogs;
  const int token = dialogs.ShowBusyNotice("Bitte warten");
  dialogs.UpdateBusyNotice(token, {.filesDone = 1});
  EXPECT_EQ(dialogs.OpenNotices(), 1U);
  dialogs.WithdrawBusyNotice(token);
  EXPECT_EQ(dialogs.OpenNotices(), 0U);
  EXPECT_NONFATAL_FAILURE(dialogs.UpdateBusyNotice(token, {}), "not shown");
}

}  // namespace
}  // namespace tools
