#include "shell/WindowPlace.h"

#include <QByteArray>
#include <QSplitter>
#include <QWidget>
#include <string>
#include <string_view>

#include "model/Preferences.h"

namespace shell {

namespace {

void Store(tools::Registry& registry, std::string_view name, const QByteArray& state) {
  registry.Write(tools::RegistryRoot::CurrentUser, model::kPreferencesKey, name,
                 state.toBase64().toStdString());
}

QByteArray Stored(tools::Registry& registry, std::string_view name) {
  return QByteArray::fromBase64(QByteArray::fromStdString(
      registry.Read(tools::RegistryRoot::CurrentUser, model::kPreferencesKey, name, "")));
}

}  // namespace

void RememberWindowPlace(tools::Registry& registry, const QWidget& window,
                         const QSplitter& splitter) {
  Store(registry, model::kWindowGeometry, window.saveGeometry());
  Store(registry, model::kSplitterPosition, splitter.saveState());
}

void RestoreWindowPlace(tools::Registry& registry, QWidget& window, QSplitter& splitter) {
  window.restoreGeometry(Stored(registry, model::kWindowGeometry));
  splitter.restoreState(Stored(registry, model::kSplitterPosition));
}

}  // namespace shell
