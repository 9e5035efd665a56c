// The user guide, installed as HTML with the program.
#pragma once

#include <QString>
#include <string>

namespace shell {

/// The name of the guide's chapter on a page, by the name of the page's class without its
/// namespace; the one on the main window for any other.
[[nodiscard]] QString GuideChapter(const QString& pageClass);

/// Opens the guide at that chapter in the program that the desktop has for HTML. Raises
/// tools::Error when the guide is not there or nothing opens it.
void OpenGuide(const QString& chapter);

}  // namespace shell
