#include "shell/UserGuide.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "model/TextTable.h"
#include "tools/Error.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::Text;

// Not every desktop hands on the part of an address behind "#": each chapter has a small file that
// leads to it.
void OpenGuide(const std::string& chapter) {
  const QDir programs(QCoreApplication::applicationDirPath());
  const QFileInfo file(programs.filePath(
      QStringLiteral(PACKWRIGHT_GUIDE_FOLDER "/kapitel/%1.html").arg(tools::ToQString(chapter))));
  const auto fail = [&](Text text) {
    throw tools::Error(model::LoadText(text) + "\n" +
                       tools::ToUtf8(QDir::toNativeSeparators(file.absoluteFilePath())));
  };
  if (!file.exists()) fail(Text::GuideNotFound);
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file.canonicalFilePath()))) {
    fail(Text::GuideNotOpened);
  }
}

}  // namespace shell
