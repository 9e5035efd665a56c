// How fast the main window shows a large product, beside reading the product's files alone.
//
//   desktop_bench FOLDER
//
// Makes a product of 100 versions with 100 components each in FOLDER (once) and prints the time of
// reading each file, of opening the product in the window with the tree filled, and of selecting a
// node of each kind. Each time is the median of some rounds that take turns.
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "app/DesktopProgram.h"
#include "model/ModProject.h"
#include "tools/desktop/QtText.h"
#include "tools/files/Disk.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"
#include "tools/settings/SettingsStore.h"

namespace {

constexpr int kVersions = 100;
constexpr int kComponents = 100;
constexpr int kFilesOfComponent = 20;
constexpr int kRounds = 7;

std::string Numbered(const char* before, int number, const char* behind) {
  return before + std::to_string(number) + behind;
}

void FillComponent(int number, tools::SettingsFile& file) {
  file.Write("Component", "Title", Numbered("Komponente ", number, ""));
  file.Write("Files", "Count", std::to_string(kFilesOfComponent));
  for (int i = 1; i <= kFilesOfComponent; ++i) {
    const std::string section = Numbered("File", i, "");
    file.Write(section, "ID", Numbered("{", i, "}"));
    file.Write(section, "SourcePath", "Quellen/Programm");
    file.Write(section, "SourceName", Numbered("Datei", i, ".dll"));
    file.Write(section, "TargetFolder", "2001");
  }
}

/// The paths of all files of the product; the first is the product's own.
std::vector<std::string> MakeProduct(tools::SettingsStore& settings, const std::string& folder) {
  tools::SettingsFile product;
  product.Write("General", "Version", model::ModProject::kFormatVersion);
  product.Write("Product", "Title", "Bench");
  product.Write("Versions", "Count", std::to_string(kVersions));
  std::vector<std::string> paths{tools::JoinPath(folder, "Bench.product")};
  const bool exists = tools::FileExists(paths.front());
  const auto store = [&](const std::string& path, const tools::SettingsFile& file) {
    if (!exists) settings.ReplaceFile(path, file);
  };
  for (int version = 1; version <= kVersions; ++version) {
    const std::string number = Numbered("1.", version, ".0");
    product.Write("Versions", Numbered("Ver", version, ""), number);
    const std::string versionFolder = tools::JoinPath(folder, "Version " + number);
    tools::MakeFolder(versionFolder);
    tools::SettingsFile versionFile;
    versionFile.Write("Components", "Count", std::to_string(kComponents));
    paths.push_back(tools::JoinPath(versionFolder, "product.version"));
    store(paths.back(), versionFile);
    for (int i = 1; i <= kComponents; ++i) {
      paths.push_back(tools::JoinPath(versionFolder, Numbered("component", i, ".component")));
      tools::SettingsFile component;
      FillComponent(i, component);
      store(paths.back(), component);
    }
  }
  store(paths.front(), product);  // last: it says that the product is whole
  return paths;
}

double Milliseconds(const std::function<void()>& work) {
  QElapsedTimer timer;
  timer.start();
  work();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

double TimeOfReading(const std::vector<std::string>& paths) {
  tools::SystemDisk disk;
  tools::SettingsStore settings(disk);
  return Milliseconds([&] {
    for (const std::string& path : paths) (void)settings.Load(path);
  });
}

/// Clicks the node and lets its pages paint.
double TimeOfClick(QTreeWidget& tree, const QString& key) {
  QTreeWidgetItemIterator item(&tree);
  while ((*item)->data(0, Qt::UserRole).toString() != key) ++item;
  tree.scrollToItem(*item);
  const QPointF place = tree.visualItemRect(*item).center();
  return Milliseconds([&] {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, place, tree.viewport()->mapToGlobal(place), Qt::LeftButton,
                        Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(tree.viewport(), &event);
    }
    QCoreApplication::processEvents();
  });
}

struct Times {
  std::vector<double> reading;
  std::vector<double> opening;
  std::vector<double> product;
  std::vector<double> version;
  std::vector<double> component;
};

void Round(const std::vector<std::string>& paths, Times& times) {
  times.reading.push_back(TimeOfReading(paths));
  app::DesktopProgram program;
  shell::frmMain& window = program.Window();
  window.show();
  QCoreApplication::processEvents();
  times.opening.push_back(Milliseconds([&] {
    program.OpenFromCommandLine({QString(), tools::ToQString(paths.front())});
    QCoreApplication::processEvents();
  }));
  auto& tree = *window.findChild<QTreeWidget*>(QStringLiteral("trvProjectTree"));
  times.product.push_back(TimeOfClick(tree, QStringLiteral("product")));
  times.version.push_back(TimeOfClick(tree, QStringLiteral("v50")));
  times.component.push_back(TimeOfClick(tree, QStringLiteral("v100c50")));
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 2) {
    std::fputs("usage: desktop_bench FOLDER\n", stderr);
    return 2;
  }
  tools::SystemDisk disk;
  tools::SettingsStore settings(disk);
  const std::vector<std::string> paths = MakeProduct(settings, tools::ToUtf8(arguments.at(1)));
  Times times;
  for (int round = 0; round < kRounds; ++round) Round(paths, times);
  const double reading = Median(times.reading);
  const double opening = Median(times.opening);
  std::printf("reading %zu files       %8.1f ms\n", paths.size(), reading);
  std::printf("opening in the window  %8.1f ms  x %.2f\n", opening, opening / reading);
  std::printf("selecting the product  %8.1f ms\n", Median(times.product));
  std::printf("selecting a version    %8.1f ms\n", Median(times.version));
  std::printf("selecting a component  %8.1f ms\n", Median(times.component));
  return 0;
}
