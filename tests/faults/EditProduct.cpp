// Edits a product as the desktop does, in a process that may fail or be killed at any call:
//
//   edit_product PRODUCT OPERATION
//   edit_product PRODUCT write KEY TIMES [seconds]
//   edit_product PRODUCT add NAME TIMES
//
// "list" writes its versions and components to standard output. "write" gives two keys the numbers
// up to TIMES in turn, on a disk whose times tick in seconds where that is said; what it wrote must
// still be there before it writes again. "add" adds versions of that name and components. An error
// goes to standard error, and the exit code is 3.
#include <functional>
#include <iostream>
#include <map>

#include "model/ComponentOperations.h"
#include "model/ModProjectOperations.h"
#include "tests/support/FakeWindow.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedDialogs.h"
#include "tools/Error.h"

namespace {

/// Where it is told to, its times tick in seconds.
class ClockworkDisk : public tools::SystemDisk {
 public:
  explicit ClockworkDisk(bool inSeconds) : inSeconds_(inSeconds) {}
  void Replace(const std::string& from, const std::string& to) override {
    if (inSeconds_) {
      const tools::FileTime time = tools::StampOf(from).modified;
      tools::SetModificationTime(from, std::chrono::floor<std::chrono::seconds>(time));
    }
    SystemDisk::Replace(from, to);
  }

 private:
  bool inSeconds_;
};

struct Desk {
  explicit Desk(const std::string& product, bool inSeconds = false) : disk(inSeconds) {
    project.SetProductPath(product);
  }

  void Save() {
    tools::SettingsStore::Batch batch(settings);
    project.WriteComponentSetting(1, 1, "Component", "Title", "New title");
    for (int i = 1; i <= 300; ++i) {
      project.WriteComponentSetting(1, 1, "File" + std::to_string(i), "SourceName", "a.txt");
    }
    batch.Commit();
  }
  void WriteTimes(const std::string& key, int times) {
    for (int i = 1; i <= times; ++i) {
      for (const std::string& own : {key + "1", key + "2"}) {
        const std::string last = project.ReadProductSetting("Stress", own, "0");
        if (last != std::to_string(i - 1)) throw tools::Error(own + " is " + last + " again");
        project.WriteProductSetting("Stress", own, std::to_string(i));
      }
    }
  }
  void List() {
    std::cout << project.ProductTitle();
    for (const model::VersionSlot version : project.VersionSlots()) {
      std::cout << '|' << project.VersionString(version);
      project.RequireVersion(version);
      for (const model::ComponentSlot slot : project.ComponentSlots(version)) {
        std::cout << ',' << project.ComponentTitle(version, slot) << ' '
                  << project.ReadComponentSetting(version, slot, "File300", "SourceName", "-");
      }
    }
  }

  ClockworkDisk disk;
  tools::SettingsStore settings{disk};
  model::ModProject project{settings};
  tests::ScriptedDialogs dialogs;
  tests::FixedClock clock;
  tests::FakeWindow window;
  model::ModProjectOperations operations{project, disk, dialogs, clock, {window, window, window}};
  model::ComponentOperations components{project, disk, dialogs, window};
};

const std::map<std::string, std::function<void(Desk&)>> kOperations{
    {"list", &Desk::List},
    {"save", &Desk::Save},
    {"add version",
     [](Desk& desk) {
       desk.dialogs.ExpectInputBox(model::Text::EnterVersion, "2.0");
       desk.operations.AddVersion();
     }},
    {"delete version",
     [](Desk& desk) {
       desk.dialogs.ExpectQuestion(model::Text::ConfirmDeletion, tools::MessageAnswer::Yes);
       desk.operations.DeleteVersion(1, "1.0");
     }},
    {"add component",
     [](Desk& desk) {
       desk.dialogs.ExpectInputBox(model::Text::EnterComponentTitle, "Another");
       desk.operations.AddComponent(1);
     }},
    {"copy component",
     [](Desk& desk) { desk.components.Copy(desk.components.ComponentsOf(1), 1); }},
    {"delete component", [](Desk& desk) {
       desk.dialogs.ExpectQuestion(model::Text::ConfirmDeletion, tools::MessageAnswer::Yes);
       desk.operations.DeleteComponent(1, 1, "1.0", "Main");
     }}};

void AddTimes(Desk& desk, const std::string& name, int times) {
  for (int i = 1; i <= times; ++i) {
    desk.dialogs.ExpectInputBox(model::Text::EnterVersion, name + std::to_string(i));
    desk.operations.AddVersion();
    kOperations.at("add component")(desk);
    const model::ShownComponent first = desk.components.ComponentsOf(1).front();
    desk.components.Copy({first, first}, 1);
  }
}

}  // namespace

// A question left unasked ends with the error that kept it from being asked.
void tests::ReportFailure(const std::string& /*message*/) {}

int main(int argc, char** argv) {
  try {
    Desk desk(argv[1], argc > 5);
    if (argc > 4 && std::string_view(argv[2]) == "add") {
      AddTimes(desk, argv[3], std::atoi(argv[4]));
    } else if (argc > 4) {
      desk.WriteTimes(argv[3], std::atoi(argv[4]));
    } else {
      kOperations.at(argv[2])(desk);
    }
  } catch (const tools::Error& error) {
    std::cerr << error.what() << std::endl;
    return 3;
  }
  return 0;
}
