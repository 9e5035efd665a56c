// Every operation on several files, with each step that changes the disk failing in turn, and with
// the power gone after each.
#include <algorithm>
#include <map>

#include "tests/support/ProductDesk.h"
#include "tests/support/Testing.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

namespace {

using Step = FaultyDisk::Step;
using std::filesystem::copy_options;
using tools::ToPath;

/// The versions and components of a product, as its files have them.
std::string Listing(const ModProject& project) {
  std::string text = project.ProductTitle();
  for (const model::VersionSlot version : project.VersionSlots()) {
    project.RequireVersion(version);
    text += "|" + project.VersionString(version);
    for (const model::ComponentSlot slot : project.ComponentSlots(version)) {
      text += "," + project.ComponentTitle(version, slot);
    }
  }
  return text;
}

/// What waits to be removed.
enum class Temporary { LeftOut, Included };

/// An open product with a component, a free slot for another, a version with two components and one
/// whose components are gone, and the window that shows it.
struct OpenedProduct : tests::ProductDesk {
  explicit OpenedProduct(const std::string& name) : fileName(name) {
    window.onUpdateTree = [this] { shown = Listing(project); };
    product.AddComponent("A", {});
    folder.Write("Produkt/Version 1.0.0/component2.component", "[Files]\nCount=7\n");
    folder.Write("Produkt/Version 0.2.0/product.version", "[Components]\nCount=2\n");
    folder.Write("Produkt/Version 0.2.0/component1.component", "[Component]\nTitle=C\n");
    folder.Write("Produkt/Version 0.2.0/component2.component", "[Component]\nTitle=D\n");
    folder.Write("Produkt/Version 0.3.0/product.version", "[Components]\nCount=3\n");
    product.WriteVersions("Count=3\nVer1=1.0.0\nVer2=0.2.0\nVer3=0.3.0\n");
    folder.Write("Produkt/Version 1.0.1/rest.txt", "in the way of the next version");
    project.SetProductPath(folder.Write("Produkt/" + fileName, folder.Read(product.kFile)));
    shown = Listing(project);
  }

  /// Everything in the folder.
  [[nodiscard]] std::map<std::string, std::string> Content(Temporary temporary) const {
    std::map<std::string, std::string> content;
    std::filesystem::recursive_directory_iterator walk(ToPath(folder.Path()));
    for (auto entry = begin(walk); entry != end(walk); ++entry) {
      const std::string path = tools::FromPath(entry->path());
      if (temporary == Temporary::LeftOut && tools::IsTemporaryName(path)) {
        entry.disable_recursion_pending();
      } else {
        content[path.substr(folder.Path().size())] =
            entry->is_directory() ? "folder" : tools::ReadWholeFile(path);
      }
    }
    return content;
  }

  std::string fileName;
  std::string shown;  ///< the listing that the tree shows
};

struct Operation {
  const char* name;
  void (*run)(OpenedProduct&);
};

const Operation kOperations[] = {
    {"delete version", [](OpenedProduct& p) { p.DeleteVersion(tools::MessageAnswer::Yes); }},
    {"add version", [](OpenedProduct& p) { p.AddVersion("1.0.1"); }},
    {"add component", [](OpenedProduct& p) { p.AddComponent("B"); }},
    {"delete component", [](OpenedProduct& p) { p.DeleteComponent(1, "A"); }},
    {"copy component",
     [](OpenedProduct& p) { p.components.Copy(p.components.ComponentsOf(1), 1); }},
    {"take over components beside others",
     [](OpenedProduct& p) { p.components.Copy(p.components.ComponentsOf(2), 1); }},
    {"take over components",
     [](OpenedProduct& p) { p.components.Copy(p.components.ComponentsOf(2), 3); }},
    {"move component",
     [](OpenedProduct& p) { p.components.Move(p.components.ComponentsOf(2).front(), 1); }},
    {"save",
     [](OpenedProduct& p) { p.project.WriteComponentSetting(1, 1, "Component", "Title", "N"); }},
    {"new product", [](OpenedProduct& p) {
       p.window.newProduct = NewProduct{"Neu", "Ich", p.folder.Path("neu/tief/neu.product")};
       p.operations.NewProduct();
     }}};

/// The product's content before and after an operation that nothing fails.
struct Contents {
  Contents(const Operation& operation, const std::string& fileName) {
    OpenedProduct product(fileName);
    old = product.Content(Temporary::Included);
    operation.run(product);
    whole = product.Content(Temporary::Included);
  }

  std::map<std::string, std::string> old;
  std::map<std::string, std::string> whole;
};

/// Fails the `call`-th call of `step`; false when the operation has no such call.
bool FailAndRetry(const Operation& operation, const std::string& fileName, const Contents& contents,
                  Step step, int call) {
  OpenedProduct product(fileName);
  product.disk.FailOnce(step, call);
  const std::string error = ErrorOf([&] { operation.run(product); });
  if (product.disk.Calls(step) < call) return false;

  SCOPED_TRACE(std::string(operation.name) + " in " + fileName + ", step " +
               std::to_string(static_cast<int>(step)) + ", call " + std::to_string(call));
  EXPECT_THAT(error, AllOf(HasSubstr(product.folder.Path()), HasSubstr("Kein Speicherplatz")));
  // What could not be removed at the end is hidden, and named.
  const bool done = step == Step::RemoveFolderTree;
  EXPECT_EQ(product.Content(done ? Temporary::LeftOut : Temporary::Included),
            done ? contents.whole : contents.old);
  EXPECT_EQ(done, error.find(".packwright-") != std::string::npos) << error;
  if (product.project.IsOpen()) {
    EXPECT_EQ(product.shown, Listing(product.project));
  }
  if (done) return true;
  operation.run(product);
  EXPECT_EQ(product.Content(Temporary::Included), contents.whole) << "again";
  return true;
}

/// What a loss of power takes, at its worst, of what was not flushed: bytes, names too, or all but
/// the step taken last.
enum class Lost { Bytes, BytesAndNames, AllBeforeTheLastStep };

/// A product whose steps in an operation can be taken again in a copy of it.
struct ReplayedProduct : OpenedProduct {
  explicit ReplayedProduct(const Operation& operation) : OpenedProduct("Demo.product") {
    std::filesystem::copy(ToPath(folder.Path("Produkt")), ToPath(folder.Path("Vorher")),
                          copy_options::recursive);
    disk.onStep = [this](const FaultyDisk::Taken& step) { steps.push_back(step); };
    operation.run(*this);
    disk.onStep = {};
  }

  /// What the product holds when the power has gone after the first `count` steps.
  std::string After(std::size_t count, Lost lost,
                    const std::function<void(ModProject&)>& then = {}) {
    std::filesystem::remove_all(ToPath(folder.Path("Kopie")));
    std::filesystem::copy(ToPath(folder.Path("Vorher")), ToPath(folder.Path("Kopie")),
                          copy_options::recursive);
    for (std::size_t i = 0; i < count; ++i) {
      if (IsKept(i, count, lost)) Redo(steps[i]);
    }
    tools::SettingsStore store{disk};
    ModProject copy{store};
    copy.SetProductPath(folder.Path("Kopie/" + fileName));
    if (then) then(copy);
    return Listing(copy);
  }

  [[nodiscard]] bool IsKept(std::size_t at, std::size_t count, Lost lost) const {
    const bool isWrite = steps[at].step == Step::Write;
    // What is moved last is there.
    const bool isOfLast =
        lost == Lost::AllBeforeTheLastStep && steps[at].path == steps[count - 1].path;
    if (!isWrite && (lost == Lost::Bytes || isOfLast)) return true;
    const auto wanted = isWrite ? Step::Sync : Step::SyncFolder;
    const std::string path = isWrite ? steps[at].path : tools::FolderOf(steps[at].path);
    return std::any_of(steps.begin() + std::ptrdiff_t(at), steps.begin() + std::ptrdiff_t(count),
                       [&](const auto& step) { return step.step == wanted && step.path == path; });
  }

  void Redo(const FaultyDisk::Taken& taken) const {
    const auto inCopy = [this](const std::string& path) {
      return ToPath(folder.Path("Kopie") + path.substr(folder.Path("Produkt").size()));
    };
    const std::filesystem::path path = inCopy(taken.path);
    std::error_code lost;  // what it works on may not have been kept
    switch (taken.step) {
      case Step::Create:
        std::ofstream(path, std::ios::binary);
        break;
      case Step::Write:
        if (!std::filesystem::exists(path)) break;
        std::fstream(path, std::ios::in | std::ios::out | std::ios::binary)
                .seekp(std::streamoff(taken.offset))
            << taken.other;
        break;
      case Step::Replace:
      case Step::MoveFolder:
        std::filesystem::rename(path, inCopy(taken.other), lost);
        break;
      case Step::MakeFolder:
        std::filesystem::create_directories(path, lost);
        break;
      case Step::Discard:
      case Step::DeleteFile:
      case Step::RemoveFolderTree:
        std::filesystem::remove_all(path, lost);
        break;
      default:
        break;
    }
  }

  std::vector<FaultyDisk::Taken> steps;
};

}  // namespace

TEST(OperationFailuresTest, LeaveTheProductAsItWas) {
  for (const Operation& operation : kOperations) {
    int failures = 0;
    for (const char* fileName : {"Demo.product", "demo.product"}) {
      const Contents contents(operation, fileName);
      for (std::size_t step = 0; step < FaultyDisk::kFailingSteps; ++step) {
        int call = 1;
        while (FailAndRetry(operation, fileName, contents, static_cast<Step>(step), call)) ++call;
        failures += call - 1;
      }
    }
    EXPECT_GT(failures, 0) << operation.name;
  }
}

TEST(OperationFailuresTest, WantOfMemoryIsTakenBackToo) {
  OpenedProduct product("demo.product");
  const auto old = product.Content(Temporary::Included);
  product.disk.onStep = [](const auto& taken) {
    if (taken.step == Step::MoveFolder) throw std::bad_alloc();
  };
  EXPECT_THROW(kOperations[1].run(product), std::bad_alloc);
  EXPECT_EQ(product.Content(Temporary::Included), old);
}

TEST(OperationFailuresTest, WhatCannotBeTakenBackIsToldBesideTheFirstError) {
  OpenedProduct product("demo.product");
  product.disk.FailAt(Step::MoveFolder, 1);
  product.disk.FailAt(Step::Replace, 2);
  EXPECT_THAT(ErrorOf([&] { kOperations[0].run(product); }),
              AllOf(HasSubstr("Version 1.0.0 (Kein Speicherplatz"), HasSubstr("zurückgenommen: "),
                    HasSubstr("demo.product (Kein Speicherplatz")));
  EXPECT_EQ(product.shown, Listing(product.project));
}

TEST(PowerLossTest, LeavesTheProductAsBeforeOrAsAfterTheOperation) {
  for (const Operation& operation : kOperations) {
    if (std::string_view(operation.name) == "new product") continue;  // beside this one
    ReplayedProduct product(operation);
    const std::string before = product.After(0, Lost::BytesAndNames);
    const std::string after = Listing(product.project);
    ASSERT_NE(before, after);
    for (const Lost lost : {Lost::Bytes, Lost::BytesAndNames, Lost::AllBeforeTheLastStep}) {
      SCOPED_TRACE(testing::Message() << operation.name << ", lost " << static_cast<int>(lost));
      for (std::size_t count = 0; count < product.steps.size(); ++count) {
        EXPECT_THAT(product.After(count, lost), AnyOf(before, after)) << count;
      }
      EXPECT_EQ(product.After(product.steps.size(), lost), after);
    }
  }
}

TEST(PowerLossTest, NothingThatAKilledCopyHasLeftIsShownByTheNextOne) {
  ReplayedProduct product(
      {"take over", [](OpenedProduct& p) { p.components.Copy(p.components.ComponentsOf(2), 1); }});
  const ShownComponent wanted = product.components.ComponentsOf(2).front();
  const auto copyOne = [&](ModProject& project) {
    ComponentOperations(project, product.disk, product.dialogs, product.window).Copy({wanted}, 1);
  };
  const std::string before = product.After(0, Lost::Bytes, copyOne);
  const std::string after = product.After(product.steps.size(), Lost::Bytes, copyOne);
  for (std::size_t count = 1; count < product.steps.size(); ++count) {
    EXPECT_THAT(product.After(count, Lost::Bytes, copyOne), AnyOf(before, after)) << count;
  }
}

TEST(PowerLossTest, WhatAnAuthorChangedSinceAKilledCopyStays) {
  ReplayedProduct product(kOperations[5]);
  const ShownComponent wanted = product.components.ComponentsOf(2).front();
  int kept = 0;
  const auto editAndCopy = [&](ModProject& project) {
    const ComponentSlot slot = project.ComponentCount(1) + 1;
    const std::string edited = project.ComponentFilePath(1, slot);
    if (project.ComponentTitle(1, slot).empty()) return;
    std::ofstream(ToPath(edited), std::ios::app | std::ios::binary) << "; mine\n";
    ComponentOperations operations(project, product.disk, product.dialogs, product.window);
    EXPECT_THAT(ErrorOf([&] { operations.Copy({wanted, wanted}, 1); }), HasSubstr(edited));
    EXPECT_THAT(tools::ReadWholeFile(edited), testing::EndsWith("; mine\n"));
    ++kept;
  };
  for (std::size_t count = 1; count < product.steps.size(); ++count) {
    (void)product.After(count, Lost::Bytes, editAndCopy);
  }
  EXPECT_GT(kept, 0);
}

}  // namespace model
