// Settings of a component with 50,000 entries (700,000 keys), beside GLib's GKeyFile. Prints the
// medians of some runs in turn, each in a process of its own, and their ratios.
//
//   settings_bench FOLDER          FOLDER takes the files
//
// read: the same file, in the system's cache, is parsed and every key is asked for as a text (this
// program makes numbers of those that are numbers, too). make: an empty document takes every key
// and is turned into the bytes of a file, in memory. write: the same, put in an older file's place
// as both do it: a temporary file, flushed to the disk, renamed, its folder flushed. Both write the
// same bytes: values are raw, without GKeyFile's escapes, which would cost it some time more.
#include <glib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "model/ICFile.h"
#include "tools/files/Disk.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"
#include "tools/settings/SettingsFile.h"
#include "tools/settings/SettingsStore.h"

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

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/// What a piece of work took, in seconds.
struct Times {
  double wall = 0;
  double processor = 0;
};

/// The times of `work` in a process of its own, so that what one leaves of the heap is no burden to
/// the other. Work that fails ends this program.
Times Measure(const std::function<bool()>& work) {
  int ends[2];
  if (pipe(ends) != 0) std::exit(1);
  const pid_t child = fork();
  if (child == 0) {
    const auto begun = std::chrono::steady_clock::now();
    const std::clock_t processorBegun = std::clock();
    const bool good = work();
    const Times times{
        std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count(),
        static_cast<double>(std::clock() - processorBegun) / CLOCKS_PER_SEC};
    _exit(good && write(ends[1], &times, sizeof times) == sizeof times ? 0 : 1);
  }
  Times times;
  close(ends[1]);
  const bool good = read(ends[0], &times, sizeof times) == sizeof times;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  if (!good) {
    std::cerr << "a run failed\n";
    std::exit(1);
  }
  return times;
}

void FillOurs(const model::SettingWriter& write) {
  model::WriteFileCount(write, kEntries);
  for (std::int32_t n = 1; n <= kEntries; ++n) model::WriteFileEntry(write, n, MakeEntry(n));
}

bool MakeOurs() {
  tools::SettingsFile file;
  FillOurs([&](std::string_view section, std::string_view key, std::string_view value) {
    file.Write(section, key, value);
  });
  return !file.Render().empty();
}

bool WriteOurs(const std::string& path) {
  tools::DeleteFile(path);
  tools::SystemDisk disk;
  tools::SettingsStore store(disk);
  tools::SettingsStore::Batch batch(store);
  FillOurs([&](std::string_view section, std::string_view key, std::string_view value) {
    store.Write(path, section, key, value);
  });
  batch.Commit();
  return true;
}

std::size_t ReadOurs(const std::string& path) {
  tools::SystemDisk disk;
  tools::SettingsStore store(disk);
  const auto file = store.Load(path);
  std::size_t bytes = 0;
  const auto read = [&](std::string_view section, std::string_view key, std::string_view value) {
    std::string text = file->Read(section, key, value);
    bytes += text.size();
    return text;
  };
  for (std::int32_t n = 1; n <= kEntries; ++n) {
    (void)model::ReadFileEntry(read, path, n, model::EntryUse::Edit);
  }
  return bytes;
}

GKeyFile* FillTheirs() {
  GKeyFile* file = g_key_file_new();
  g_key_file_set_value(file, "Files", "Count", std::to_string(kEntries).c_str());
  for (std::int32_t n = 1; n <= kEntries; ++n) {
    const std::string section = "File" + std::to_string(n);
    // Keys and values come from literals and strings: a zero stands behind each.
    const auto write = [&](std::string_view, std::string_view key, std::string_view value) {
      g_key_file_set_value(file, section.c_str(), key.data(), value.data());
    };
    model::WriteFileEntry(write, n, MakeEntry(n));
  }
  return file;
}

bool MakeTheirs() {
  GKeyFile* file = FillTheirs();
  gsize size = 0;
  g_free(g_key_file_to_data(file, &size, nullptr));
  g_key_file_free(file);
  return size > 0;
}

bool WriteTheirs(const std::string& path) {
  GKeyFile* file = FillTheirs();
  const bool saved = g_key_file_save_to_file(file, path.c_str(), nullptr) != 0;
  g_key_file_free(file);
  return saved;
}

std::size_t ReadTheirs(const std::string& path) {
  GKeyFile* file = g_key_file_new();
  g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr);
  std::size_t bytes = 0;
  for (std::int32_t n = 1; n <= kEntries; ++n) {
    const std::string section = "File" + std::to_string(n);
    for (const char* key : kKeys) {
      gchar* value = g_key_file_get_value(file, section.c_str(), key, nullptr);
      if (value != nullptr) bytes += std::string_view(value).size();
      g_free(value);
    }
  }
  g_key_file_free(file);
  return bytes;
}

void Compare(const char* what, const std::function<bool()>& ours,
             const std::function<bool()>& theirs) {
  std::vector<double> ourTimes, theirTimes, ourProcessor, theirProcessor;
  for (int run = 0; run < kRuns; ++run) {
    const Times our = Measure(ours);
    const Times their = Measure(theirs);
    ourTimes.push_back(our.wall);
    theirTimes.push_back(their.wall);
    ourProcessor.push_back(our.processor);
    theirProcessor.push_back(their.processor);
  }
  std::cout << what << " 700,000 keys: " << Median(ourTimes) << " s, GKeyFile "
            << Median(theirTimes) << " s: " << Median(theirTimes) / Median(ourTimes)
            << " times as fast (processor " << Median(ourProcessor) << " s, "
            << Median(theirProcessor) << " s: " << Median(theirProcessor) / Median(ourProcessor)
            << " times)" << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string path = tools::JoinPath(argv[1], "component1.component");
  const std::string theirPath = tools::JoinPath(argv[1], "gkeyfile");
  tools::MakeFolder(argv[1]);
  std::cout << std::fixed << std::setprecision(3);
  // Here too nothing is left on the heap of this process, which the others start with.
  Measure([&] { return WriteOurs(path); });
  Measure([&] { return WriteTheirs(theirPath); });
  Measure([&] {
    const std::size_t bytes = ReadOurs(path);
    return bytes > 0 && bytes == ReadTheirs(path) &&
           tools::ReadWholeFile(path) == tools::ReadWholeFile(theirPath);
  });
  Compare(
      "read", [&] { return ReadOurs(path) > 0; }, [&] { return ReadTheirs(path) > 0; });
  Compare("make", MakeOurs, MakeTheirs);
  // GKeyFile flushes, as this program always does, only where a file was before.
  Compare(
      "write", [&] { return WriteOurs(path); }, [&] { return WriteTheirs(theirPath); });
  return 0;
}
