// The script of a setup that is then installed for a test: whatever it says, nothing may come into
// the installation from outside the setup, and nothing may be written outside the installation.
#include <filesystem>
#include <map>

#include "setup/TestInstallation.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipMaker.h"
#include "tools/Error.h"
#include "tools/files/Disk.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace {

namespace fs = std::filesystem;

const std::string kSecret = "not part of any setup";

class Playground {
 public:
  Playground() {
    folder_.Write("secret.txt", kSecret);
    folder_.Write("setup/Probe.zip", tests::MakeZip({{"1.dll", "a program", true}, {"2.txt", ""}}));
    folder_.Write("setup/InstallPath/c", "not packaged");
    std::error_code impossible;  // links need a right under Windows
    fs::create_symlink("../../secret.txt", tools::ToPath(folder_.Path("setup/InstallPath/link")),
                       impossible);
  }

  void Try(const std::string& script) {
    tools::RemoveFolderTree(folder_.Path("probe"));
    folder_.Write("setup/Probe.install", script);
    const auto before = FilesOutside();
    try {
      tools::SystemDisk disk;
      const setup::Setup setup = setup::OpenSetup(folder_.Path("setup"));
      (void)setup::InstallInto(setup, folder_.Path("probe"), disk, {[](auto&) {}, [](auto&) {}});
    } catch (const tools::Error& error) {
      tests::Require(*error.what() != '\0', "an error has a text");
    }
    tests::Require(FilesOutside() == before, "nothing is written outside the folder");
    LookAtInstalled();
  }

 private:
  /// Everything that is not a part of the test installation, with its size.
  [[nodiscard]] std::map<fs::path, std::uintmax_t> FilesOutside() const {
    std::map<fs::path, std::uintmax_t> files;
    for (fs::recursive_directory_iterator it(tools::ToPath(folder_.Path())); it != end(it); ++it) {
      if (it.depth() == 0 && it->path().filename() == "probe") {
        it.disable_recursion_pending();
      } else {
        files[it->path()] = it->is_regular_file() ? it->file_size() : 0;
      }
    }
    return files;
  }

  void LookAtInstalled() const {
    std::error_code missing;
    for (const fs::directory_entry& entry :
         fs::recursive_directory_iterator(tools::ToPath(folder_.Path("probe")), missing)) {
      tests::Require(!entry.is_symlink(), "no links are made");
      tests::Require(
          entry.is_directory() || tools::ReadWholeFile(tools::FromPath(entry.path())) != kSecret,
          "nothing from outside the setup is installed");
    }
  }

  tests::TemporaryFolder folder_;
};

}  // namespace

void tests::Fuzz(std::string_view input) {
  static Playground playground;
  playground.Try(std::string(input));
}
