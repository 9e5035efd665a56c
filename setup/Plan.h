// What a setup will do, in the order in which the runtime does it, and what is wrong with it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace setup {

/// How a file is put at its target.
enum class CopyRule {
  Add,            ///< leaves a file that is there
  ReplaceSafely,  ///< replaces one, also one that is in use
  Copy,           ///< replaces one
};

/// What the rule does to a file that is there (German).
[[nodiscard]] constexpr const char* RuleText(CopyRule rule) {
  switch (rule) {
    case CopyRule::Add:
      return "bleibt";
    case CopyRule::ReplaceSafely:
      return "ersetzt (sicher)";
    case CopyRule::Copy:
      return "ersetzt";
  }
  return "";
}

[[nodiscard]] constexpr const char* YesNo(bool yes) { return yes ? "ja" : "nein"; }

/// What the user is told when a file cannot be installed.
struct FailureText {
  std::string message;  ///< with "%file%" where the target stands; empty: nothing is said
  std::string caption;
  std::string cancellation;  ///< the reason with which the installation ends, if it does
  bool operator==(const FailureText&) const = default;
};

/// One file: unpacked if it comes from an archive, then installed, then registered if it is to be.
struct PlannedFile {
  std::uint32_t line = 0;       ///< script line of the statement that installs it
  std::uint32_t component = 0;  ///< position in Plan::components
  std::uint32_t failure = 0;    ///< position in Plan::failures
  CopyRule rule = CopyRule::Add;
  bool registersItself = false;
  bool pathReminder = false;      ///< a comment reminds of registering its path
  bool vital = false;             ///< the installation ends when it cannot be installed
  bool deletesTemporary = false;  ///< the unpacked file is deleted afterwards
  bool packaged = false;          ///< `stored` is a member of the archive
  std::string target;             ///< as the script has it
  std::string stored;             ///< member name, or path below the setup's folder with "\"
};

/// The application's entry in the runtime's catalogue.
struct Registration {
  std::string key;
  std::string title;
  std::string type;  ///< a number
  bool operator==(const Registration&) const = default;
};

struct ScriptHead {
  std::string year;
  std::string author;
  std::string toolVersion;
};

struct Plan {
  ScriptHead head;
  std::string confirmation;  ///< the question at the beginning; empty when there is none
  std::string cancellation;  ///< what ends the installation when the user declines
  std::optional<Registration> registration;
  std::string folderProposal;  ///< the default of %InstallPath%; empty when none is chosen
  std::string archive;         ///< its name in the setup's folder; empty when nothing is unpacked
  std::vector<std::string> components;  ///< their titles
  std::vector<FailureText> failures;    ///< those that differ
  std::vector<PlannedFile> files;
};

/// What is wrong with a setup, and where.
struct Finding {
  std::string file = {};            ///< path of the file that is at fault; empty when none is
  std::uint32_t line = 0;           ///< its line, from 1; 0 when it has none
  std::string text = {};            ///< what is wrong (German)
  std::int32_t component = 0;       ///< component slot in the product, 0 when it belongs to none
  std::string componentTitle = {};  ///< its title; known without a slot when the script names it
  std::int32_t entry = 0;           ///< entry number in the component, 0 when it belongs to none
};

}  // namespace setup
