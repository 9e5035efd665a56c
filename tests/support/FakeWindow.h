// The window, the pages and the form that the product model talks to, as a test sets them.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/MainView.h"

namespace tests {

struct FakePage : model::OpenPage {
  [[nodiscard]] std::string Title() const override { return title; }
  void ApplyChanges() override {
    ++applied;
    unsaved = dirty || unsaved;
    if (!failure.empty()) throw std::runtime_error(failure);
    if (write) write();
    dirty = unsaved = false;
  }
  [[nodiscard]] bool IsDirty() const override { return dirty; }
  void SetDirty(bool value) override { dirty = value; }
  [[nodiscard]] bool IsUnsaved() const override { return dirty || unsaved; }

  std::string title = "Probe";
  int applied = 0;
  bool dirty = false;
  bool unsaved = false;
  std::function<void()> write;  ///< what ApplyChanges writes
  std::string failure;          ///< raised by ApplyChanges when not empty
};

struct FakeWindow : model::MainView, model::OpenPages, model::NewProductForm {
  void UpdateProjectState() override { ++stateUpdates; }
  void UpdateTree() override {
    ++treeUpdates;
    if (onUpdateTree) onUpdateTree();
  }
  std::unique_ptr<model::Hourglass> ShowHourglass() override {
    struct Pointer : model::Hourglass {
      explicit Pointer(int& count) : shown(count) { ++shown; }
      ~Pointer() override { --shown; }
      int& shown;
    };
    return std::make_unique<Pointer>(hourglasses);
  }
  void ShowStatusText(const std::string& text) override { statusText = text; }
  [[nodiscard]] std::int32_t Count() const override { return std::int32_t(pages.size()); }
  model::OpenPage& Item(std::int32_t index) override { return pages.at(std::size_t(index - 1)); }
  void Reset(bool ask) override { resets.push_back(ask); }
  std::optional<model::NewProduct> Ask() override { return newProduct; }

  int stateUpdates = 0;  ///< how often the window was asked to refresh, and
  int treeUpdates = 0;   ///< its tree
  std::function<void()> onUpdateTree;
  int hourglasses = 0;  ///< that are shown
  std::string statusText;
  std::deque<FakePage> pages;
  std::vector<bool> resets;                     ///< the `ask` of each Reset
  std::optional<model::NewProduct> newProduct;  ///< what the form answers
};

}  // namespace tests
