#include <gtest/gtest-spi.h>

#include <sstream>

#include "tests/support/ScriptedDialogs.h"
#include "tests/support/Testing.h"
#include "tools/ConsoleDialogs.h"

namespace tools {

static const Message kOverwrite{"Es sind Dateien da.\r\n\r\nFortfahren?", "Warnung",
                                MessageIcon::Exclamation, MessageButtons::YesNo};
static const Message kDelete{"Löschen?", "Warnung", MessageIcon::Exclamation,
                             MessageButtons::OkCancel};

TEST(DialogsTest, ConsoleAnswersByItsPolicy) {
  std::ostringstream output;
  ConsoleDialogs refusing(output, ConsoleDialogs::Policy::Refuse);
  EXPECT_EQ(refusing.ShowMessage(kOverwrite), MessageAnswer::No);
  EXPECT_EQ(refusing.ShowMessage(kDelete), MessageAnswer::Cancel);
  EXPECT_EQ(refusing.ShowMessage({.text = "Fertig.", .caption = ""}), MessageAnswer::Ok);
  EXPECT_EQ(output.str(),
            "Warnung: Es sind Dateien da.\n\nFortfahren? [Nein]\n"
            "Warnung: Löschen? [Abbrechen]\nFertig.\n");
  ConsoleDialogs agreeing(output, ConsoleDialogs::Policy::Agree);
  EXPECT_EQ(agreeing.ShowMessage(kOverwrite), MessageAnswer::Yes);
  EXPECT_EQ(agreeing.ShowMessage(kDelete), MessageAnswer::Ok);
}

TEST(DialogsTest, AScriptFailsOnQuestionsAndAnswersNobodyExpected) {
  tests::ScriptedDialogs dialogs;
  MessageAnswer answer = MessageAnswer::Ok;
  EXPECT_NONFATAL_FAILURE(answer = dialogs.ShowMessage(kDelete), "unexpected question \"Löschen");
  EXPECT_EQ(answer, MessageAnswer::Cancel);
  dialogs.ExpectQuestion("Löschen", MessageAnswer::Yes);
  EXPECT_NONFATAL_FAILURE(dialogs.ShowMessage(kDelete), "no button gives");
  EXPECT_NONFATAL_FAILURE(tests::ScriptedDialogs().ExpectOpenFile("Projekt", "/a"),
                          "nobody asked for the open-file dialog");
  EXPECT_NONFATAL_FAILURE(dialogs.UpdateBusyNotice(1, {}), "not shown");
}

}  // namespace tools
