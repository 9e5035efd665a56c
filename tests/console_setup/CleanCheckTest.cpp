// What the check promises: a version that it finds nothing wrong with builds without a message, and
// the setup is proven, however it is packed.
#include <random>

#include "console/ProductProof.h"
#include "engine/BuildCheck.h"
#include "setup/Comparison.h"
#include "tests/support/BuildFixture.h"

namespace console {

using tests::TestProduct;

class CleanCheckTest : public tests::BuildFixture {
 protected:
  CleanCheckTest() { folder_.Write("programm/Wrapper.exe", "W"); }

  std::size_t Below(std::size_t limit) { return (std::size_t{random_()} >> 8U) % limit; }
  bool Seldom() { return Below(40) == 0; }
  template <std::size_t Size>
  std::string OneOf(const char* const (&texts)[Size]) {
    return texts[Below(Size)];
  }

  std::string RandomSettings() {
    std::string settings;
    for (const char* key : {"Overwrite=", "SelfRegisterDLL=", "RegisterPath=", "Vital="}) {
      settings += key + OneOf({"0", "1", "1", "2", "-1"}) + "\n";
    }
    if (Seldom()) settings += "Permanent=" + OneOf({"1", "40000", "x"}) + "\n";
    if (Seldom()) settings = "Vital=" + OneOf({"-40000", ""}) + "\n";
    if (Seldom()) settings += "Type=" + OneOf({"", "0", "1", "3", "70000"}) + "\n";
    if (Seldom()) settings += "TargetFolder=" + OneOf({"2004", "38", "29", "5e9", "0"}) + "\n";
    if (Seldom()) settings += "TargetName=" + OneOf({"a.txt", "Neu.dll", "\"q\"", "a\x1B"}) + "\n";
    if (Seldom()) settings += "Exclude=" + OneOf({"1", "2", "99999"}) + "\n";
    if (Seldom()) {
      settings += "TargetSubFolder=" +
                  OneOf({"a.txt", "..", "..\\..", "x/Y", "X\\y", "x", "..\\Probe.INSTALL", "con"}) +
                  (Seldom() ? std::string(300, 'l') : std::string()) + "\n";
    }
    return settings;
  }

  std::string RandomEntry() {
    const std::string folder = OneOf({"1", "2", "3/4"});
    if (Below(8) == 0) {
      const std::string pattern = Seldom() ? OneOf({"*.txt", "a*"}) : "*";
      return RandomSettings() + TestProduct::Scan(folder_.Path("quelle/" + folder), pattern);
    }
    const std::string name = folder + "/" + OneOf({"a", "A", "b", "c", "build"}) +
                             (Seldom() ? std::string() : std::to_string(Below(40))) +
                             OneOf({".txt", ".dll", ".EXE", ".ocx", ".log", ".ü", ""});
    std::string entry = Source(name, std::string(Below(3000), 'x') + name, RandomSettings());
    if (Seldom()) std::filesystem::remove(tools::ToPath(folder_.Path("quelle/" + name)));
    if (Seldom()) entry = tools::ReplaceAll(entry, "ID={", "ID={gleich}\nSpur={");
    return entry;
  }

  /// Makes the product anew, with few or many faults.
  void MakeProduct(unsigned seed) {
    random_.seed(seed);
    for (const char* folder : {"quelle", "Produkt/Version 1.0.0"}) {
      std::filesystem::remove_all(tools::ToPath(folder_.Path(folder)));
    }
    const int components = static_cast<int>(Below(3)) + 1;
    for (int slot = 1; slot <= components; ++slot) WriteComponent(slot);
    folder_.Write("Produkt/Version 1.0.0/product.version",
                  "[Components]\nCount=" + std::to_string(components) +
                      "\n[Tessel]\nKey=" + (Seldom() ? OneOf({"?", "k\""}) : "probe") + "\n");
    folder_.Write("Produkt/Probe.product",
                  "[General]\nVersion=1.0\n[Product]\nTitle=" +
                      (Seldom() ? OneOf({"a/b", "nul", "\"P", "build"}) : "Probe") +
                      "\n[Versions]\nCount=1\nVer1=1.0.0\n");
    options_.includeWrapper = Below(4) == 0;
    options_.includeRuntime = Seldom();
    options_.folder = folder_.Path(Seldom() ? "Produkt" : "aus");
  }

  void WriteComponent(int slot) {
    const std::size_t count = Below(5);
    std::string text = "[Component]\nTitle=K" + std::to_string(slot) +
                       "\n[Files]\nCount=" + std::to_string(count) + "\n";
    for (unsigned i = 1; i <= count; ++i) {
      text += "[File" + std::to_string(i) + "]\n" + RandomEntry();
    }
    const std::string damaged[] = {"",
                                   std::string(40, '\0'),
                                   "Title=ohne Abschnitt\n",
                                   tools::ReplaceAll(text, "Count=", "Count=9"),
                                   tools::ReplaceAll(text, "Title=K", "Title="),
                                   "[Component]\n",
                                   "=======\n" + text,
                                   text + "[File9]\n",
                                   text + "\xFF\n"};
    folder_.Write("Produkt/Version 1.0.0/component" + std::to_string(slot) + ".component",
                  Seldom() ? damaged[Below(std::size(damaged))] : text);
  }

  std::minstd_rand random_;
};

TEST_F(CleanCheckTest, WhatChecksCleanBuildsWithoutAMessageToAProvenSetup) {
  const auto silent = [](const tools::Progress&) {};
  int proven = 0;
  int found = 0;
  for (unsigned seed = 1; seed <= 240; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    MakeProduct(seed);
    std::vector<setup::SetupContents> contents;
    for (const bool packaged : {false, true}) {
      options_.packaged = packaged;
      if (!engine::CheckBuild(project_, options_, 1, folder_.Path("programm")).empty()) continue;
      tools::RemoveFolderTree(folder_.Path("aus"));
      Run();
      EXPECT_EQ(summary_->outcome, engine::BuildOutcome::Finished);
      EXPECT_EQ(LogLines(), "");
      ASSERT_TRUE(messages_.empty()) << messages_.front().text;
      setup::Setup setup = setup::OpenSetup(folder_.Path("aus"));
      const auto proof = ProveVersion(setup, project_, 1, clock_, silent).findings;
      ASSERT_TRUE(proof.empty()) << proof.front().text;
      contents.push_back(setup::TakeContents(setup, silent));
    }
    proven += static_cast<int>(contents.size());
    found += contents.empty() ? 1 : 0;
    if (contents.size() < 2) continue;
    EXPECT_TRUE(setup::CompareSetups(contents[0], contents[1]).differences.empty());
  }
  EXPECT_GE(proven, 200);
  EXPECT_GT(found, 30);
}

}  // namespace console
