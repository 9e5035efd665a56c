#include <sstream>

#include "tests/support/Testing.h"
#include "tools/ConsoleDialogs.h"

namespace tools {

TEST(DialogsTest, ConsoleAnswersByItsPolicy) {
  const Message overwrite{"Es sind Dateien da.\r\n\r\nFortfahren?", "Warnung",
                          MessageIcon::Exclamation, MessageButtons::YesNo};
  const Message remove{"Löschen?", "Warnung", MessageIcon::Exclamation, MessageButtons::OkCancel};
  std::ostringstream output;
  ConsoleDialogs refusing(output, ConsoleDialogs::Policy::Refuse);
  EXPECT_EQ(refusing.ShowMessage(overwrite), MessageAnswer::No);
  EXPECT_EQ(refusing.ShowMessage(remove), MessageAnswer::Cancel);
  EXPECT_EQ(refusing.ShowMessage({.text = "Fertig.", .caption = ""}), MessageAnswer::Ok);
  EXPECT_EQ(output.str(),
            "Warnung: Es sind Dateien da.\n\nFortfahren? [Nein]\n"
            "Warnung: Löschen? [Abbrechen]\nFertig.\n");
  ConsoleDialogs agreeing(output, ConsoleDialogs::Policy::Agree);
  EXPECT_EQ(agreeing.ShowMessage(overwrite), MessageAnswer::Yes);
  EXPECT_EQ(agreeing.ShowMessage(remove), MessageAnswer::Ok);
}

}  // namespace tools
