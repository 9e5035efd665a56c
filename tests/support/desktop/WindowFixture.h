// The desktop program with a product of three versions, as the tests of the main window use it.
#pragma once

#include <QTabBar>

#include "tests/support/TestProduct.h"
#include "tests/support/desktop/ModalScript.h"
#include "tests/support/desktop/OpenedProgram.h"

namespace tests {

class WindowFixture {
 protected:
  // Version 1.10.0 is the latest; the slots 2 of the product and 1 of that version are free.
  void SetUp() {
    home_ = std::make_unique<TemporaryFolder>();
    UseHome(*home_);
    TestProduct product(*home_);
    product.AddComponent("Alt", {});
    product.WriteVersions("Count=4\nVer1=1.0.0\nVer3=1.10.0\nVer4=1.9.0\n");
    home_->Write("Produkt/Version 1.10.0/product.version", "[Components]\nCount=2\n");
    home_->Write("Produkt/Version 1.10.0/component2.component", "[Component]\nTitle=Programm\n");
    product_ = product.Project().ProductPath();
    dialogs_ = std::make_unique<ScriptedDialogs>();
    program_ = std::make_unique<OpenedProgram>(dialogs_.get());
  }
  void TearDown() {
    program_.reset();
    dialogs_.reset();
  }

  void Press(const QKeySequence& keys) { QTest::keySequence(&program_->Tree(), keys); }
  QString TabTitles() {
    QStringList titles;
    for (int i = 0; i < Tabs().count(); ++i) titles.append(Tabs().tabText(i));
    return titles.join('|');
  }
  QTabBar& Tabs() { return Child<QTabBar>(program_->window, "tabDataEditor"); }

  std::unique_ptr<TemporaryFolder> home_;
  std::string product_;
  std::unique_ptr<ScriptedDialogs> dialogs_;
  std::unique_ptr<OpenedProgram> program_;
};

}  // namespace tests
