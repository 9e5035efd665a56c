// The product of the tests with the commands on it, a scripted author and a window that counts.
#pragma once

#include "model/ComponentOperations.h"
#include "model/ModProjectOperations.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TestProduct.h"

namespace tests {

struct ProductDesk {
  // Commands with the author's answer; `shown` is what the tree shows of the node.
  void AddVersion(const std::string& answer) {
    dialogs.ExpectInputBox(model::Text::EnterVersion, answer);
    operations.AddVersion();
  }
  void DeleteVersion(tools::MessageAnswer answer, const std::string& shown = "1.0.0") {
    dialogs.ExpectQuestion(model::Text::ConfirmDeletion, answer);
    operations.DeleteVersion(1, shown);
  }
  void AddComponent(const std::string& answer) {
    dialogs.ExpectInputBox(model::Text::EnterComponentTitle, answer);
    operations.AddComponent(1);
  }
  void DeleteComponent(std::int32_t slot, const std::string& shown,
                       const std::string& shownVersion = "1.0.0") {
    dialogs.ExpectQuestion(model::Text::ConfirmDeletion, tools::MessageAnswer::Yes);
    operations.DeleteComponent(1, slot, shownVersion, shown);
  }

  TemporaryFolder folder;
  TestProduct product{folder};
  model::ModProject& project = product.Project();
  FaultyDisk& disk = product.Disk();
  ScriptedDialogs dialogs;
  FixedClock clock;
  FakeWindow window;
  model::ModProjectOperations operations{project, disk, dialogs, clock, {window, window, window}};
  model::ComponentOperations components{project, disk, dialogs, window};
};

}  // namespace tests
