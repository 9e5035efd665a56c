#include "shell/GuardedApplication.h"

#include <QLibraryInfo>
#include <QTranslator>
#include <exception>

#include "tools/desktop/Guard.h"

namespace shell {

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
  if (dialogs_ == nullptr) return QApplication::notify(receiver, event);
  bool handled = true;
  tools::Guard(*dialogs_, [&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

void InstallGermanTexts(QApplication& application) {
  auto* translator = new QTranslator(&application);
  if (translator->load(QStringLiteral("qtbase_de"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  }
}

}  // namespace shell
