// The editor pages at many files and 100,000 registry keys, beside the bare work beneath them.
// Prints the medians of some runs. Wants a display, or QT_QPA_PLATFORM=offscreen.
//
//   pages_bench FOLDER [FILES]    FOLDER takes the files (50,000) and stands in for the home folder
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QTreeView>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "grid/ctlPropertyEditor.h"
#include "model/FileEntries.h"
#include "shell/EditorTabs.h"
#include "tools/Dialogs.h"
#include "tools/files/Disk.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace {

constexpr int kUsualFiles = 50'000;
constexpr int kVendors = 100;
constexpr int kKeysOfAVendor = 1'000;
constexpr int kRuns = 5;

/// Chooses one folder whenever it is asked for one, and takes every question's default answer.
class OneFolder : public tools::Dialogs {
 public:
  explicit OneFolder(std::string folder) : folder_(std::move(folder)) {}
  tools::MessageAnswer ShowMessage(const tools::Message& message) override {
    std::cerr << message.text << '\n';
    return message.defaultAnswer;
  }
  std::string InputBox(const std::string&, const std::string&, const std::string&) override {
    return {};
  }
  std::string OpenFile(const tools::OpenFileRequest&) override { return {}; }
  std::vector<std::string> OpenFiles(const tools::OpenFileRequest&) override { return {}; }
  std::string BrowseFolder(const std::string&, int) override { return folder_; }
  int ShowBusyNotice(const std::string&, const std::string&) override { return 0; }
  bool IsStopWanted(int) override { return false; }
  void UpdateBusyNotice(int, const tools::Progress&) override {}
  void WithdrawBusyNotice(int) override {}

 private:
  std::string folder_;
};

/// A window of nothing but the pages.
class Area : public shell::EditorArea {
 public:
  Area() { window_.resize(800, 600); }
  [[nodiscard]] QWidget* PageParent() override { return &window_; }
  void PositionExtender(QWidget& page) override { page.setGeometry(window_.rect()); }
  void ShowStatusText(const std::string&) override {}
  void Show() { window_.show(); }

 private:
  QWidget window_;
};

/// The median time of `work`; what `before` does ahead of each run is not counted.
double Seconds(
    const std::function<void()>& work, const std::function<void()>& before = [] {}) {
  std::vector<double> seconds;
  for (int run = 0; run < kRuns; ++run) {
    before();
    const auto begun = std::chrono::steady_clock::now();
    work();
    seconds.push_back(
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count());
  }
  std::sort(seconds.begin(), seconds.end());
  return seconds[kRuns / 2];
}

void Tell(const char* what, double seconds) { std::cout << what << ": " << seconds << " s\n"; }

void Compare(const char* what, double seconds, const char* bare, double bareSeconds) {
  std::cout << what << ": " << seconds << " s, " << bare << " " << bareSeconds << " s: x "
            << seconds / bareSeconds << "\n";
}

void WriteFile(const std::string& path, std::string_view content) {
  tools::MakeFolder(tools::FolderOf(path));
  std::ofstream(tools::ToPath(path), std::ios::binary) << content;
}

/// One product with one empty component, the files of a folder, and a Wine prefix's registry.
void WriteData(const std::string& folder, int files) {
  const std::string version = tools::JoinPath(folder, "product/Version 1.0.0");
  WriteFile(tools::JoinPath(folder, "product/bench.product"),
            "[General]\nVersion=1.0\n[Versions]\nCount=1\nVer1=1.0.0\n");
  WriteFile(tools::JoinPath(version, "product.version"), "[Components]\nCount=1\n");
  WriteFile(tools::JoinPath(version, "component1.component"), "[Component]\nTitle=All\n");
  if (!tools::FolderExists(tools::JoinPath(folder, "files"))) {
    for (int i = 0; i < files; ++i) {
      WriteFile(tools::JoinPath(folder, "files/datei" + std::to_string(i) + ".dat"), "");
    }
  }
  std::string registry = "WINE REGISTRY Version 2\n\n";
  for (int vendor = 0; vendor < kVendors; ++vendor) {
    for (int key = 0; key < kKeysOfAVendor; ++key) {
      registry += "[Software\\\\Vendor" + std::to_string(vendor) + "\\\\Key" + std::to_string(key) +
                  "] 1\n\"Value\"=\"x\"\n\n";
    }
  }
  WriteFile(tools::JoinPath(folder, ".wine/system.reg"), registry);
}

void Paint() { QCoreApplication::processEvents(); }

class Bench {
 public:
  explicit Bench(const std::string& folder)
      : folder_(folder), dialogs_(tools::JoinPath(folder, "files")) {
    project_.SetProductPath(tools::JoinPath(folder, "product/bench.product"));
    area_.Show();
  }

  void AddFiles() {
    const double listing =
        Seconds([&] { (void)tools::FindFiles(Files(), "*.*", tools::Subfolders::Skip); });
    // Each run adds to an empty list: the page is opened anew, and nothing is applied.
    const double adding = Seconds(
        [&] {
          Find<QAction>("mnuAddDirectory0").trigger();
          Paint();
        },
        [&] {
          tabs_.Reset(false);
          OpenFiles();
        });
    Compare("add the folder of all files", adding, "listing it", listing);
  }

  void EditFiles() {
    ApplyAndOpen();
    ShowEntries();
    EditEntries();
    FilterAndSort();
    tabs_.Reset(false);
  }

  void BrowseRegistry() {
    tabs_.Prepare("tabRegistryEditor", 1, 1);
    tabs_.ShowTab(1);
    auto& path = *Find<QComboBox>("cmbRegPath").lineEdit();
    int vendor = 0;
    Tell("go to a registry key with 1,000 of 100,000 keys below it", Seconds([&] {
           path.setText(QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\Vendor%1").arg(++vendor));
           Q_EMIT path.returnPressed();
           Paint();
         }));
    if (Find<QListView>("lstSubkeys").model()->rowCount() != kKeysOfAVendor + 4) {
      std::cout << "these are not all keys\n";
    }
    tabs_.Reset(false);
  }

 private:
  void ApplyAndOpen() {
    // Each run writes new entries to a file without any.
    const double applying = Seconds([&] { tabs_.Item(1).ApplyChanges(); },
                                    [&] {
                                      tabs_.Reset(false);
                                      WriteEmpty();
                                      OpenFiles();
                                      Find<QAction>("mnuAddDirectory0").trigger();
                                    });
    const double reading = Seconds([&] { ReadBare(); });
    const double writing = Seconds([&] { WriteBare(); }, [&] { WriteEmpty(); });
    Compare("apply all entries", applying, "the file alone", writing);
    const double opening = Seconds([&] {
      tabs_.Reset(false);
      OpenFiles();
    });
    Compare("open all entries", opening, "the file alone", reading);
  }

  void ShowEntries() {
    auto& folders = Find<QComboBox>("cmbDestinationFolder");
    Tell("show another destination folder and back", Seconds([&] {
           folders.setCurrentIndex(1);
           Paint();
           folders.setCurrentIndex(0);
           Paint();
         }));
    auto& list = Find<QTreeView>("lsvBrowser");
    Tell("scroll to the last entry and select it", Seconds([&] {
           list.setCurrentIndex({});
           list.setCurrentIndex(list.model()->index(list.model()->rowCount() - 1, 0));
           Paint();
         }));
  }

  void EditEntries() {
    auto& list = Find<QTreeView>("lsvBrowser");
    auto& props = Find<grid::ctlPropertyEditor>("propsFile");
    int value = 0;
    const auto edit = [&] {
      props.SetProperty(QStringLiteral("TargetSubFolder"), QString::number(++value));
      Paint();
    };
    Tell("edit the last entry", Seconds(edit));
    Tell("select all", Seconds(
                           [&] {
                             list.selectAll();
                             Paint();
                           },
                           [&] { list.clearSelection(); }));
    Tell("edit all", Seconds(edit));
    Tell("undo that", Seconds([&] {
           Find<QAction>("mnuUndo").trigger();
           Paint();
         }));
  }

  void FilterAndSort() {
    auto& list = Find<QTreeView>("lsvBrowser");
    auto& filter = Find<QLineEdit>("txtFilter");
    Tell("filter, a tenth is left", Seconds(
                                        [&] {
                                          filter.setText(QStringLiteral("7.dat"));
                                          Paint();
                                        },
                                        [&] { filter.clear(); }));
    filter.clear();
    Tell("sort", Seconds(
                     [&] {
                       list.sortByColumn(0, Qt::DescendingOrder);
                       Paint();
                     },
                     [&] { list.sortByColumn(-1, Qt::AscendingOrder); }));
  }

  template <typename T>
  T& Find(const char* name) {
    return *tabs_.Item(1).findChild<T*>(QString::fromUtf8(name));
  }
  [[nodiscard]] std::string Files() const { return tools::JoinPath(folder_, "files"); }
  [[nodiscard]] std::string ComponentFile() const { return project_.ComponentFilePath(1, 1); }

  void OpenFiles() {
    tabs_.Prepare("tabFileList", 1, 1);
    tabs_.ShowTab(1);
    Paint();
  }
  void WriteEmpty() { WriteFile(ComponentFile(), "[Component]\nTitle=All\n"); }
  void WriteBare() {
    tools::SettingsStore::Batch batch(store_);
    model::WriteFileEntries(
        [&, path = ComponentFile()](auto section, auto key, auto value) {
          store_.Write(path, section, key, value);
        },
        *bare_);
    batch.Commit();
  }
  void ReadBare() {
    const auto file = store_.Load(ComponentFile());
    bare_ = std::make_unique<model::FileEntries>(model::ReadFileEntries(
        [&](auto section, auto key, auto defaultValue) {
          return file->Read(section, key, defaultValue);
        },
        ComponentFile()));
  }

  std::string folder_;
  OneFolder dialogs_;
  tools::SystemDisk disk_;
  tools::SettingsStore store_{disk_};
  model::ModProject project_{store_};
  std::unique_ptr<tools::Registry> registry_ = tools::OpenSystemRegistry(disk_);
  pages::PageRegistry pageRegistry_ = pages::AllPages();
  Area area_;
  shell::EditorTabs tabs_{area_, project_, dialogs_, *registry_, pageRegistry_};
  std::unique_ptr<model::FileEntries> bare_;
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc < 2) return 2;
  const std::string folder = argv[1];
  qputenv("HOME", QByteArray::fromStdString(folder));
  const int files = argc > 2 ? std::atoi(argv[2]) : kUsualFiles;
  WriteData(folder, files);
  std::cout << std::fixed << std::setprecision(3);
  Bench bench(folder);
  bench.AddFiles();
  bench.EditFiles();
  bench.BrowseRegistry();
  return 0;
}
