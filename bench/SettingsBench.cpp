// Settings of a component with 50,000 entries (700,000 keys), beside GLib's GKeyFile on the same
// file. Prints the medians of some runs in turn, and their ratios.
//
//   settings_bench FOLDER          FOLDER takes the file
#include <glib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "model/ICFile.h"
#include "tools/Disk.h"
#include "tools/Files.h"
#include "tools/Path.h"
#include "tools/SettingsStore.h"

namespace {

constexpr std::int32_t kEntries = 50'000;
constexpr int kRuns = 5;
constexpr const char* kKeys[] = {"Type",
                                 "Exclude",
                                 "ID",
                                 "IncludeChildren",
                                 "Overwrite",
                                 "Permanent",
                                 "RegisterPath",
                                 "SelfRegisterDLL",
                                 "SourceName",
                                 "SourcePath",
                                 "TargetFolder",
                                 "TargetName",
                                 "TargetSubFolder",
                                 "Vital"};

model::ICFile MakeEntry(std::int32_t number) {
  model::ICFile entry;
  entry.ID = "{00000000-0000-4000-8000-" + std::to_string(100'000'000'000 + number) + "}";
  entry.Type = 1;
  entry.SourcePath = "quellen/programm/teil" + std::to_string(number % 100);
  entry.SourceName = "datei" + std::to_string(number) + ".dat";
  entry.TargetFolder = 2001;
  entry.TargetSubFolder = "daten\\teil" + std::to_string(number % 100);
  return entry;
}

double Median(std::vector<double> seconds) {
  std::sort(seconds.begin(), seconds.end());
  return seconds[seconds.size() / 2];
}

/// The time of `work` in a process of its own, so that what one leaves of the heap is no burden to
/// the other.
double Seconds(const std::function<void()>& work) {
  int ends[2];
  if (pipe(ends) != 0) return 0;
  const pid_t child = fork();
  if (child == 0) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    _exit(write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
  }
  double seconds = 0;
  if (read(ends[0], &seconds, sizeof seconds) != sizeof seconds) seconds = 0;
  waitpid(child, nullptr, 0);
  close(ends[0]);
  close(ends[1]);
  return seconds;
}

void WriteOurs(const std::string& path) {
  tools::SystemDisk disk;
  tools::SettingsStore store(disk);
  tools::SettingsStore::Batch batch(store);
  const auto write = [&](std::string_view section, std::string_view key, std::string_view value) {
    store.Write(path, section, key, value);
  };
  model::WriteFileCount(write, kEntries);
  for (std::int32_t n = 1; n <= kEntries; ++n) model::WriteFileEntry(write, n, MakeEntry(n));
  batch.Commit();
}

std::size_t ReadOurs(const std::string& path) {
  tools::SystemDisk disk;
  tools::SettingsStore store(disk);
  const auto file = store.Load(path);
  const auto read = [&](std::string_view section, std::string_view key, std::string_view value) {
    return file->Read(section, key, value);
  };
  std::size_t bytes = 0;
  for (std::int32_t n = 1; n <= kEntries; ++n) {
    bytes += model::ReadFileEntry(read, n, model::kBuildDefaultType).SourceName.size();
  }
  return bytes;
}

void WriteTheirs(const std::string& path) {
  GKeyFile* file = g_key_file_new();
  g_key_file_set_string(file, "Files", "Count", std::to_string(kEntries).c_str());
  for (std::int32_t n = 1; n <= kEntries; ++n) {
    const std::string section = "File" + std::to_string(n);
    model::WriteFileEntry(
        [&](std::string_view, std::string_view key, std::string_view value) {
          g_key_file_set_string(file, section.c_str(), std::string(key).c_str(),
                                std::string(value).c_str());
        },
        n, MakeEntry(n));
  }
  g_key_file_save_to_file(file, path.c_str(), nullptr);
  g_key_file_free(file);
}

std::size_t ReadTheirs(const std::string& path) {
  GKeyFile* file = g_key_file_new();
  g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr);
  std::size_t bytes = 0;
  for (std::int32_t n = 1; n <= kEntries; ++n) {
    const std::string section = "File" + std::to_string(n);
    for (const char* key : kKeys) {
      gchar* value = g_key_file_get_string(file, section.c_str(), key, nullptr);
      if (value != nullptr && std::string_view(key) == "SourceName") {
        bytes += std::string_view(value).size();
      }
      g_free(value);
    }
  }
  g_key_file_free(file);
  return bytes;
}

void Compare(const char* what, const std::function<void()>& ours,
             const std::function<void()>& theirs) {
  std::vector<double> ourTimes;
  std::vector<double> theirTimes;
  for (int run = 0; run < kRuns; ++run) {
    ourTimes.push_back(Seconds(ours));
    theirTimes.push_back(Seconds(theirs));
  }
  std::cout << what << ": " << Median(ourTimes) << " s, GKeyFile " << Median(theirTimes)
            << " s: " << Median(theirTimes) / Median(ourTimes) << " times as fast\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string path = tools::JoinPath(argv[1], "component1.component");
  const std::string theirPath = tools::JoinPath(argv[1], "gkeyfile");
  tools::MakeFolder(argv[1]);
  std::cout << std::fixed << std::setprecision(3);
  tools::DeleteFile(path);
  WriteOurs(path);
  if (ReadOurs(path) != ReadTheirs(path)) {
    std::cout << "the two read different values\n";
    return 1;
  }
  Compare(
      "read 700,000 keys", [&] { (void)ReadOurs(path); }, [&] { (void)ReadTheirs(path); });
  // GKeyFile flushes to the disk, as this program always does, only where a file was before.
  WriteTheirs(theirPath);
  Compare(
      "write 700,000 keys",
      [&] {
        tools::DeleteFile(path);
        WriteOurs(path);
      },
      [&] { WriteTheirs(theirPath); });
  return 0;
}
