#include "shell/UserGuide.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <array>

#include "model/TextTable.h"
#include "tools/Error.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::Text;

namespace {

struct Chapter {
  const char* pageClass;
  const char* name;
};

constexpr std::array<Chapter, 8> kChapters{{
    {"tabProductDetails", "produkt"},
    {"tabVersionDetails", "version"},
    {"tabFeatures", "setup-typen"},
    {"tabSetupProcedure", "installationsablauf"},
    {"tabBuildOptions", "erstellungs-optionen"},
    {"tabTesselRegistration", "tessel-datenbank"},
    {"tabFileList", "dateien"},
    {"tabRegistryEditor", "registrierung"},
}};

}  // namespace

QString GuideChapter(const QString& pageClass) {
  for (const Chapter& chapter : kChapters) {
    if (pageClass == QLatin1String(chapter.pageClass)) return QString::fromLatin1(chapter.name);
  }
  return QStringLiteral("das-hauptfenster");
}

// Not every desktop hands on the part of an address behind "#": each chapter has a small file that
// leads to it.
void OpenGuide(const QString& chapter) {
  const QDir programs(QCoreApplication::applicationDirPath());
  const QFileInfo file(
      programs.filePath(QStringLiteral(PACKWRIGHT_GUIDE_FOLDER "/kapitel/%1.html").arg(chapter)));
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
