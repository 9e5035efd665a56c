// What a build puts at the top of a setup beside the product's files. Those who write a setup and
// those who read one back take the names from here.
#pragma once

#include <string_view>

namespace tools {

inline constexpr const char* kLogName = "build.log";
inline constexpr const char* kWrapperName = "Setup.exe";
inline constexpr const char* kWrapperSource = "Wrapper.exe";  ///< in the program's folder
inline constexpr const char* kRuntimeName = "InstallTessel.msi";
/// Every name that no product chooses.
inline constexpr const char* kFixedSetupNames[] = {kLogName, kWrapperName, kRuntimeName};

// These follow the product's title.
inline constexpr const char* kScriptEnding = ".install";
inline constexpr const char* kArchiveEnding = ".zip";

// Log and script begin with these: they tell a setup from other files.
inline constexpr std::string_view kLogHead = "Quillon Packwright Build Log";
inline constexpr std::string_view kScriptHead =
    "' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL";

}  // namespace tools
