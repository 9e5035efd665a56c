// What only Windows has: a file that another process keeps to itself.
#include <gtest/gtest.h>

#include <memory>

#include "console/CommandLine.h"
#include "console/Platform.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/WindowsApi.h"

namespace console {
namespace {

// Runs a program and waits for it; gives its exit code.
DWORD RunToEnd(const std::string& commandLine) {
  std::wstring command = tools::ToWide(commandLine);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  DWORD code = ~DWORD{0};
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                     &startup, &process) == 0) {
    return code;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

TEST(LockedSourceTest, IsAnErrorInTheLogAndTheOtherFilesAreBuilt) {
  const tests::TemporaryFolder folder;
  folder.Write("demo.product",
               "[General]\nVersion=1.0\n[Product]\nTitle=Demo\n[Versions]\nCount=1\nVer1=1.0.0\n");
  folder.Write("Version 1.0.0/product.version", "[Components]\nCount=1\n");
  folder.Write("Version 1.0.0/component1.component",
               "[Component]\nTitle=Programm\n[Files]\nCount=1\n"
               "[File1]\nID={1}\nType=2\nSourcePath=src\nSourceName=*.*\nTargetFolder=2001\n");
  const std::string locked = folder.Write("src/gesperrt.txt", "gesperrt");
  folder.Write("src/frei.txt", "frei");

  const std::unique_ptr<void, decltype(&CloseHandle)> holder(
      CreateFileW(tools::ToWide(locked).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr),
      CloseHandle);
  ASSERT_NE(holder.get(), INVALID_HANDLE_VALUE);
  for (const std::string option : {"--zip", "--no-zip"}) {
    const std::string output = folder.Path("out" + option);
    EXPECT_EQ(RunToEnd("\"" + ProgramFolder() + "\\packwright-build.exe\" \"" +
                       folder.Path("demo.product") + "\" 1.0.0 --quiet " + option + " --output \"" +
                       output + "\""),
              static_cast<DWORD>(ExitCode::BuiltWithErrors));
    const std::string log = folder.Read("out" + option + "/build.log");
    EXPECT_NE(log.find("Unable to copy file '" + locked + "' to "), std::string::npos) << log;
    const std::string script = folder.Read("out" + option + "/Demo.install");
    EXPECT_NE(script.find("%InstallPath%\\frei.txt"), std::string::npos) << script;
    EXPECT_EQ(script.find("gesperrt"), std::string::npos) << script;
  }
}

}  // namespace
}  // namespace console
