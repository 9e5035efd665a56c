// An open product with one version, for the tests of the wizards.
#pragma once

#include "model/ModProject.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/Disk.h"
#include "wizards/SetupWizard.h"

namespace tests {

/// Version 1.2.0 in slot 1 has a component with the file "hallo.txt". `buildKeys` are the sections
/// of the version's file.
struct OpenSample {
  explicit OpenSample(const std::string& buildKeys = {}) {
    folder.Write("quelle/hallo.txt", "Hallo");
    folder.Write("Version 1.2.0/product.version",
                 "[Components]\nCount=1\n[Component1]\nTitle=Kern\n" + buildKeys);
    folder.Write("Version 1.2.0/component1.component",
                 "[Files]\nCount=1\n[File1]\nType=1\nID=a\nSourceName=hallo.txt\n"
                 "SourcePath=quelle\nTargetFolder=2001\nTargetName=hallo.txt\n");
    project.SetProductPath(folder.Write("demo.product",
                                        "[General]\nVersion=1.0\n[Product]\nTitle=Demo\n"
                                        "[Versions]\nCount=1\nVer1=1.2.0\n"));
  }

  wizards::BuildServices Services() {
    return {project, dialogs, clock, disk, folder.Path("programm")};
  }

  TemporaryFolder folder;
  tools::SystemDisk disk;
  tools::SettingsStore store{disk};
  model::ModProject project{store};
  ScriptedDialogs dialogs;
  FixedClock clock;
};

}  // namespace tests
