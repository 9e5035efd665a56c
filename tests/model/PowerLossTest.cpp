// Every moment of the operations on a product at which the power can go, replayed.
#include <algorithm>
#include <map>

#include "tests/support/ProductDesk.h"
#include "tests/support/Testing.h"
#include "tools/files/Files.h"
#include "tools/files/Path.h"

namespace model {

namespace {

/// A step that changed the disk, which can be done again in a copy of the folder.
struct Step {
  enum class Kind { Create, Write, Sync, Rename, MakeFolder, Delete, DeleteTree, SyncFolder };
  Kind kind;
  std::string path;
  std::string other{};  ///< the new path, or the bytes
  std::uint64_t offset = 0;
};

/// Forwards everything, and remembers the steps that change the disk.
class RecordingDisk : public tools::SystemDisk {
 public:
  std::vector<Step> steps;

  [[nodiscard]] std::unique_ptr<tools::OutputFile> CreateNew(const std::string& path,
                                                             const std::string& target) override {
    auto file = SystemDisk::CreateNew(path, target);
    steps.push_back({Step::Kind::Create, path});
    return std::make_unique<File>(*this, path, std::move(file));
  }
  void Replace(const std::string& from, const std::string& to) override {
    SystemDisk::Replace(from, to);
    steps.push_back({Step::Kind::Rename, from, to});
  }
  void SyncFolder(const std::string& folder) noexcept override {
    SystemDisk::SyncFolder(folder);
    steps.push_back({Step::Kind::SyncFolder, folder});
  }
  void Discard(const std::string& path) noexcept override {
    SystemDisk::Discard(path);
    steps.push_back({Step::Kind::Delete, path});
  }
  std::vector<std::string> MakeFolder(const std::string& path) override {
    steps.push_back({Step::Kind::MakeFolder, path});
    return SystemDisk::MakeFolder(path);
  }
  void RemoveFolderTree(const std::string& path) override {
    SystemDisk::RemoveFolderTree(path);
    steps.push_back({Step::Kind::DeleteTree, path});
  }
  void MoveFolder(const std::string& from, const std::string& to) override {
    SystemDisk::MoveFolder(from, to);
    steps.push_back({Step::Kind::Rename, from, to});
  }
  void DeleteFile(const std::string& path) override {
    SystemDisk::DeleteFile(path);
    steps.push_back({Step::Kind::Delete, path});
  }

 private:
  class File : public tools::OutputFile {
   public:
    File(RecordingDisk& disk, std::string path, std::unique_ptr<tools::OutputFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

    void Write(std::string_view bytes) override {
      WriteAt(end_, bytes);
      end_ += bytes.size();
    }
    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
      file_->WriteAt(offset, bytes);
      disk_.steps.push_back({Step::Kind::Write, path_, std::string(bytes), offset});
    }
    void Truncate(std::uint64_t size) override { file_->Truncate(end_ = size); }
    void Sync() override {
      file_->Sync();
      disk_.steps.push_back({Step::Kind::Sync, path_});
    }
    void Close() override { file_->Close(); }

   private:
    RecordingDisk& disk_;
    std::string path_;
    std::unique_ptr<tools::OutputFile> file_;
    std::uint64_t end_ = 0;
  };
};

/// What a loss of power spares of names that were made, changed or removed.
enum class Names { All, Flushed };

/// A product in `folder`, edited on a disk that records.
struct RecordedProduct {
  explicit RecordedProduct(const std::string& path) {
    operations.Connect(window, window);
    components.Connect(window);
    project.SetProductPath(path);
  }
  [[nodiscard]] std::string Listing() const {
    std::string text = project.ProductTitle();
    for (const std::int32_t version : project.VersionSlots()) {
      project.RequireVersion(version);
      text += "|" + project.VersionString(version);
      for (const std::int32_t slot : project.ComponentSlots(version)) {
        text += "," + project.ComponentTitle(version, slot);
      }
    }
    return text;
  }

  RecordingDisk disk;
  tools::SettingsStore settings{disk};
  ModProject project{settings};
  tests::ScriptedDialogs dialogs;
  tests::FixedClock clock;
  tests::FakeWindow window;
  ModProjectOperations operations{project, disk, dialogs, clock, window};
  ComponentOperations components{project, disk, dialogs};
};

class PowerLossTest : public testing::Test {
 protected:
  PowerLossTest() { product_.AddComponent("A", {}); }

  /// Does the first `count` steps in a copy of the product, without what a loss of power behind
  /// them takes, and returns what the product then holds.
  std::string After(const std::vector<Step>& steps, std::size_t count, Names names) {
    const std::string copy = folder_.Path("Kopie");
    std::filesystem::remove_all(tools::ToPath(copy));
    std::filesystem::copy(tools::ToPath(folder_.Path("Vorher")), tools::ToPath(copy),
                          std::filesystem::copy_options::recursive);
    for (std::size_t i = 0; i < count; ++i) {
      if (IsKept(steps, i, count, names)) Redo(steps[i]);
    }
    return RecordedProduct(tools::JoinPath(copy, "Probe.product")).Listing();
  }

  static bool IsKept(const std::vector<Step>& steps, std::size_t at, std::size_t count,
                     Names names) {
    const Step& step = steps[at];
    const bool isWrite = step.kind == Step::Kind::Write;
    if (!isWrite && names == Names::All) return true;
    const auto wanted = isWrite ? Step::Kind::Sync : Step::Kind::SyncFolder;
    const std::string path = isWrite ? step.path : tools::FolderOf(step.path);
    return std::any_of(steps.begin() + std::ptrdiff_t(at), steps.begin() + std::ptrdiff_t(count),
                       [&](const Step& s) { return s.kind == wanted && s.path == path; });
  }

  [[nodiscard]] std::string InCopy(const std::string& path) const {
    return folder_.Path("Kopie") + path.substr(folder_.Path("Produkt").size());
  }

  void Redo(const Step& step) const {
    using Kind = Step::Kind;
    const std::filesystem::path path = tools::ToPath(InCopy(step.path));
    std::error_code lost;  // what it works on may not have been kept
    if (step.kind == Kind::Create) std::ofstream(path, std::ios::binary);
    if (step.kind == Kind::Write && std::filesystem::exists(path)) {
      std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
      file.seekp(std::streamoff(step.offset)) << step.other;
    }
    if (step.kind == Kind::Rename) {
      std::filesystem::rename(path, tools::ToPath(InCopy(step.other)), lost);
    }
    if (step.kind == Kind::MakeFolder) std::filesystem::create_directories(path, lost);
    if (step.kind == Kind::Delete || step.kind == Kind::DeleteTree) {
      std::filesystem::remove_all(path, lost);
    }
  }

  /// Loses the power after each step of `operation`.
  void LosePowerIn(const std::function<void(RecordedProduct&)>& operation) {
    const std::string whole = folder_.Path("Vorher");
    std::filesystem::remove_all(tools::ToPath(whole));
    std::filesystem::copy(tools::ToPath(folder_.Path("Produkt")), tools::ToPath(whole),
                          std::filesystem::copy_options::recursive);
    RecordedProduct product(product_.Project().ProductPath());
    const std::string before = product.Listing();
    operation(product);
    const std::string after = product.Listing();
    ASSERT_NE(before, after);
    const std::vector<Step>& steps = product.disk.steps;
    for (const Names names : {Names::All, Names::Flushed}) {
      for (std::size_t count = 0; count < steps.size(); ++count) {
        EXPECT_THAT(After(steps, count, names), testing::AnyOf(before, after))
            << "after step " << count << ", " << int(names);
      }
      EXPECT_EQ(After(steps, steps.size(), names), after) << int(names);
    }
  }

  tests::TemporaryFolder folder_;
  tests::TestProduct product_{folder_};
};

TEST_F(PowerLossTest, LeavesTheProductAsBeforeOrAsAfterTheOperation) {
  LosePowerIn([](RecordedProduct& p) {
    tools::SettingsStore::Batch batch(p.settings);
    p.project.WriteComponentSetting(1, 1, "Component", "Title", "Neu");
    batch.Commit();
  });
  LosePowerIn([](RecordedProduct& p) {
    p.dialogs.ExpectInputBox(Text::EnterComponentTitle, "B");
    p.operations.AddComponent(1);
  });
  folder_.Write("Produkt/Version 2.0/rest.txt", "in the way");
  LosePowerIn([](RecordedProduct& p) {
    p.dialogs.ExpectInputBox(Text::EnterVersion, "2.0");
    p.operations.AddVersion();
  });
  // "2.0" has the count of the version before it, and no component.
  for (const std::int32_t version : {2, 1}) {
    LosePowerIn(
        [=](RecordedProduct& p) { p.components.Copy(p.components.ComponentsOf(1), version); });
  }
  LosePowerIn(
      [](RecordedProduct& p) { p.components.Copy({p.components.ComponentsOf(1).front()}, 2); });
  LosePowerIn(
      [](RecordedProduct& p) { p.components.Move(p.components.ComponentsOf(2).front(), 1); });
  LosePowerIn([](RecordedProduct& p) {
    p.dialogs.ExpectQuestion(Text::ConfirmDeletion, tools::MessageAnswer::Yes);
    p.operations.DeleteComponent(1, 1, "1.0.0", "Neu");
  });
  LosePowerIn([](RecordedProduct& p) {
    p.dialogs.ExpectQuestion(Text::ConfirmDeletion, tools::MessageAnswer::Yes);
    p.operations.DeleteVersion(1, "1.0.0");
  });
}

}  // namespace

}  // namespace model
