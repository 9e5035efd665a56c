// What a build leaves out although it is there: its log and the check before it say so.
#include <sys/stat.h>

#include "engine/BuildCheck.h"
#include "tests/support/BuildFixture.h"

namespace engine {

using tests::TestProduct;

class PassedOverTest : public tests::BuildFixture {
 protected:
  std::string CheckText() {
    std::string text;
    for (const BuildMessage& found : CheckBuild(project_, options_, 1, "")) {
      text += found.text + "\n";
    }
    return text;
  }
  void Link(const std::string& target, const std::string& name) {
    std::filesystem::create_symlink(target, folder_.Path(name));
  }
};

TEST_F(PassedOverTest, AComponentFileInAnotherLetterCase) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  const std::string version = folder_.Path("Produkt/Version 1.0.0/");
  std::filesystem::rename(version + "component1.component", version + "Component1.COMPONENT");
  const std::string found = version + "Component1.COMPONENT";
  EXPECT_EQ(CheckText(),
            "Die Komponentendatei heißt nicht genau 'component1.component': " + found + "\n");
  Run();
  EXPECT_EQ(LogLines(),
            "ERROR: File is left out, it is not named 'component1.component': " + found + "\r\n");
  options_.folder = folder_.Path("quelle");
  Run();
  EXPECT_EQ(summary_->outcome, BuildOutcome::InvalidOutputFolder) << "sources of it lie there";
}

TEST_F(PassedOverTest, WhatIsNoFileInAScan) {
  folder_.Write("baum/a.txt", "a");
  folder_.Write("anderswo/b.txt", "b");
  Link(folder_.Path("anderswo"), "baum/ordner");
  Link("/dev/zero", "baum/null.txt");
  Link(folder_.Path("aus"), "baum/ausgabe");
  folder_.MakeFolder("aus");
  ASSERT_EQ(::mkfifo(folder_.Path("baum/pipe").c_str(), 0600), 0);
  product_.AddComponent("A", {TestProduct::Scan(folder_.Path("baum"), "*.*"),
                              TestProduct::File(folder_.Path("baum/n*.txt"), "Type=2\n")});
  EXPECT_EQ(
      CheckText(),
      "Die Verknüpfung zu einem Ordner wird nicht verfolgt: " + folder_.Path("baum/ordner") +
          "\nDas ist keine gewöhnliche Datei und bleibt weg: " + folder_.Path("baum/null.txt") +
          "\nDas ist keine gewöhnliche Datei und bleibt weg: " + folder_.Path("baum/pipe") +
          "\nDas ist keine gewöhnliche Datei und bleibt weg: " + folder_.Path("baum/null.txt") +
          "\nKeine Datei im Ordner '" + folder_.Path("baum") + "' passt zu 'n*.txt'\n");
  Run();
  EXPECT_EQ(summary_->stored.files, 1U);
  EXPECT_EQ(LogLines(),
            "Warning: Link to a folder is left out '" + folder_.Path("baum/ordner") +
                "'\r\nWarning: No regular file, left out '" + folder_.Path("baum/null.txt") +
                "'\r\nWarning: No regular file, left out '" + folder_.Path("baum/pipe") +
                "'\r\nWarning: No regular file, left out '" + folder_.Path("baum/null.txt") +
                "'\r\nWarning: No files found in '" + folder_.Path("baum") +
                "' matching 'n*.txt'\r\n");
}

TEST_F(PassedOverTest, FilesWhoseNamesNoScriptCanHold) {
  folder_.Write("baum/a.txt", "a");
  folder_.Write("baum/Zeile 1\nERROR: 2.txt", "b");
  folder_.Write("baum/..\\..\\c.txt", "c");
  folder_.Write("baum/\xFC.txt", "d");
  product_.AddComponent("A", {TestProduct::Scan(folder_.Path("baum"), "*.*")});
  const std::string shown = folder_.Path("baum/Zeile 1\\u000AERROR: 2.txt");
  const std::string path = folder_.Path("baum/..\\..\\c.txt");
  EXPECT_EQ(CheckText(), "Der Dateiname enthält einen Rückstrich: " + path +
                             "\nDer Dateiname enthält ein Steuerzeichen: " + shown +
                             "\nDer Dateiname ist nicht in UTF-8 geschrieben: " +
                             folder_.Path("baum/\xFC.txt\n"));
  Run();
  EXPECT_EQ(LogLines(),
            "ERROR: File name holds a backslash: " + path +
                "\r\nERROR: File name holds a control character: " + shown +
                "\r\nERROR: File name is not UTF-8: " + folder_.Path("baum/\xFC.txt\r\n"));
  EXPECT_EQ(summary_->stored.files, 1U);
}

TEST_F(PassedOverTest, ADeadLinkInPlaceOfASettingsFileIsAnError) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  for (const char* name :
       {"Version 1.0.0/component1.component", "Version 1.0.0/product.version", "Probe.product"}) {
    const std::string path = folder_.Path(std::string("Produkt/") + name);
    std::filesystem::remove(path);
    std::filesystem::create_symlink("nirgends", path);
    EXPECT_THAT(ErrorOf([&] {
                  for (const model::VersionSlot slot : project_.VersionSlots()) {
                    (void)project_.ComponentSlots(slot);
                  }
                }),
                EndsWith(": " + path + " (Datei oder Ordner nicht gefunden)"));
  }
}

}  // namespace engine
