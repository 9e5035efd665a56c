// The user guide, installed as HTML with the program.
#pragma once

#include <string>

namespace shell {

inline const std::string kMainWindowChapter = "das-hauptfenster";

/// Opens the guide at the chapter of that name in the program that the desktop has for HTML. Raises
/// tools::Error when the guide is not there or nothing opens it.
void OpenGuide(const std::string& chapter);

}  // namespace shell
