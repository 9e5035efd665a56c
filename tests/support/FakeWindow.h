// The window, the pages and the form that the product model talks to, as a test sets them.
#pragma once

#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/MainView.h"
#include "model/NewProductForm.h"
#include "model/OpenPages.h"

namespace tests {

/// Counts what it is asked to refresh.
struct FakeMainView : model::MainView {
  void UpdateProjectState() override { ++stateUpdates; }
  void UpdateTree() override { ++treeUpdates; }
  void ShowHourglass(bool shown) override { hourglass = shown; }

  int stateUpdates = 0;
  int treeUpdates = 0;
  bool hourglass = false;
};

struct FakePage : model::OpenPage {
  void ApplyChanges() override {
    ++applied;
    if (!failure.empty()) throw std::runtime_error(failure);
    dirty = false;
  }
  [[nodiscard]] bool IsDirty() const override { return dirty; }
  void SetDirty(bool value) override { dirty = value; }

  int applied = 0;
  bool dirty = false;
  std::string failure;  ///< raised by ApplyChanges when not empty
};

struct FakePages : model::OpenPages {
  [[nodiscard]] std::int32_t Count() const override {
    return static_cast<std::int32_t>(pages.size());
  }
  [[nodiscard]] model::OpenPage& Item(std::int32_t index) override {
    return pages.at(static_cast<std::size_t>(index - 1));
  }
  void Reset(bool ask) override { resets.push_back(ask); }

  std::deque<FakePage> pages;
  std::vector<bool> resets;  ///< the `ask` of each Reset
};

/// Answers with what the test has put in.
struct FakeNewProductForm : model::NewProductForm {
  std::optional<model::NewProduct> Ask() override { return answer; }

  std::optional<model::NewProduct> answer;
};

}  // namespace tests
