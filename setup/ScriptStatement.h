// One line of an installation script as the runtime understands it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace setup {

struct Statement {
  enum class Kind {
    Blank,
    Comment,
    Sub,
    EndSub,
    IfAsk,           ///< If Ask(text) = False Then
    IfExtract,       ///< If Extract(archive, member, destination) Then
    IfNotInstalled,  ///< If Not Add|ReplSafe|Copy(source, target[, , register]) Then
    Else,
    EndIf,
    CancelInstall,
    SetAppKey,
    RegPrd,
    SelectInstallFolder,
    ErrMsg,
    SelfReg,
    Del,
  };
  Kind kind = Kind::Blank;
  /// The texts without their quotation marks (for a comment: what follows the apostrophe), views
  /// into the line; RegPrd's third is its number.
  std::array<std::string_view, 3> arguments;
  std::string_view function;  ///< IfNotInstalled: Add, ReplSafe or Copy
  bool flag = false;          ///< ReplSafe: the last argument; CancelInstall: True stands behind it
};

/// Either a statement, or what the runtime expects where it cannot read on.
struct ParsedLine {
  Statement statement;
  std::string expected;     ///< empty: the line was read
  std::size_t column = 0;   ///< where it was expected, in characters from 1
  bool opensBlock = false;  ///< a line that cannot be read but begins with "If"
};

/// Reads a line without its line end. Words and punctuation are exactly those that Packwright's
/// scripts use; blanks may stand between them.
[[nodiscard]] ParsedLine ParseScriptLine(std::string_view line);

}  // namespace setup
