// Every operation on several files, with each step that changes the disk failing in turn.
#include <filesystem>
#include <map>

#include "tests/support/ProductDesk.h"
#include "tests/support/Testing.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace model {

using tests::FaultyDisk;
using Step = FaultyDisk::Step;

/// An open product with a component, a free slot for another, a version with two components and one
/// whose components are gone, and the window that shows it.
struct OpenedProduct : tests::ProductDesk {
  explicit OpenedProduct(const std::string& fileName) {
    window.onUpdateTree = [this] { shown = Listing(); };
    product.AddComponent("A", {});
    folder.Write("Produkt/Version 1.0.0/component2.component", "[Files]\nCount=7\n");
    folder.Write("Produkt/Version 0.2.0/product.version", "[Components]\nCount=2\n");
    folder.Write("Produkt/Version 0.2.0/component1.component", "[Component]\nTitle=C\n");
    folder.Write("Produkt/Version 0.2.0/component2.component", "[Component]\nTitle=D\n");
    folder.Write("Produkt/Version 0.3.0/product.version", "[Components]\nCount=3\n");
    product.WriteVersions("Count=3\nVer1=1.0.0\nVer2=0.2.0\nVer3=0.3.0\n");
    folder.Write("Produkt/Version 1.0.1/rest.txt", "in the way of the next version");
    project.SetProductPath(folder.Write("Produkt/" + fileName, folder.Read(product.kFile)));
    shown = Listing();
  }

  /// The versions and components of the product, as its files have them.
  std::string Listing() {
    std::string text = project.ProductPath();
    for (const std::int32_t version : project.VersionSlots()) {
      text += "|" + project.VersionString(version);
      for (const std::int32_t slot : project.ComponentSlots(version)) {
        text += "," + project.ComponentTitle(version, slot);
      }
    }
    return text;
  }

  /// Everything in the folder; with `temporary`, what waits to be removed too.
  [[nodiscard]] std::map<std::string, std::string> Content(bool temporary) const {
    std::map<std::string, std::string> content;
    std::filesystem::recursive_directory_iterator walk(tools::ToPath(folder.Path()));
    for (auto entry = begin(walk); entry != end(walk); ++entry) {
      const std::string path = tools::FromPath(entry->path());
      if (!temporary && tools::IsTemporaryName(path)) {
        entry.disable_recursion_pending();
      } else {
        content[path.substr(folder.Path().size())] =
            entry->is_directory() ? "folder" : tools::ReadWholeFile(path);
      }
    }
    return content;
  }

  std::string shown;  ///< the listing that the tree shows
};

struct Operation {
  const char* name;
  void (*run)(OpenedProduct&);
};

static const Operation kOperations[] = {
    {"add version", [](OpenedProduct& p) { p.AddVersion("1.0.1"); }},
    {"delete version", [](OpenedProduct& p) { p.DeleteVersion(tools::MessageAnswer::Yes); }},
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
    {"new product", [](OpenedProduct& p) {
       p.window.newProduct = NewProduct{"Neu", "Ich", p.folder.Path("neu/tief/neu.product")};
       p.operations.NewProduct();
     }}};

/// Fails the `call`-th call of `step`; false when the operation has no such call.
static bool FailAndRetry(const Operation& operation, const std::string& fileName, Step step,
                         int call) {
  OpenedProduct whole(fileName);
  const auto old = whole.Content(true);
  operation.run(whole);
  OpenedProduct product(fileName);
  product.disk.FailOnce(step, call);
  const std::string error = tests::ErrorOf([&] { operation.run(product); });
  if (product.disk.Calls(step) < call) return false;

  SCOPED_TRACE(std::string(operation.name) + " in " + fileName + ", step " +
               std::to_string(static_cast<int>(step)) + ", call " + std::to_string(call));
  EXPECT_THAT(error, testing::HasSubstr(product.folder.Path()));
  EXPECT_THAT(error, testing::HasSubstr("Kein Speicherplatz"));
  // What could not be removed at the end is hidden, and named.
  const bool done = step == Step::RemoveFolderTree;
  EXPECT_EQ(product.Content(!done), done ? whole.Content(true) : old);
  EXPECT_EQ(done, error.find(".packwright-") != std::string::npos) << error;
  if (product.project.IsOpen()) {
    EXPECT_EQ(product.shown, product.Listing());
  }
  if (done) return true;
  operation.run(product);
  EXPECT_EQ(product.Content(true), whole.Content(true)) << "again";
  return true;
}

TEST(OperationFailuresTest, LeaveTheProductAsItWas) {
  for (const Operation& operation : kOperations) {
    int failures = 0;
    for (const char* fileName : {"Demo.product", "demo.product"}) {
      for (std::size_t step = 0; step < FaultyDisk::kSteps; ++step) {
        int call = 1;
        while (FailAndRetry(operation, fileName, static_cast<Step>(step), call)) ++call;
        failures += call - 1;
      }
    }
    EXPECT_GT(failures, 0) << operation.name;
  }
}

TEST(OperationFailuresTest, WhatCannotBeTakenBackIsToldBesideTheFirstError) {
  OpenedProduct product("demo.product");
  product.disk.FailAt(Step::MoveFolder, 1);
  product.disk.FailAt(Step::Replace, 2);
  const std::string error = tests::ErrorOf([&] { kOperations[1].run(product); });
  EXPECT_THAT(error, testing::HasSubstr("Version 1.0.0 (Kein Speicherplatz"));
  EXPECT_THAT(error, testing::HasSubstr("zurückgenommen: "));
  EXPECT_THAT(error, testing::HasSubstr("demo.product (Kein Speicherplatz"));
  EXPECT_EQ(product.shown, product.Listing());
}

}  // namespace model
