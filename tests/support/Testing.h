// What nearly every test needs: the framework, a folder of its own, errors as text.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"

namespace tests {

/// The description of the tools::Error that `action` raises; "no error" when it raises none.
template <typename Action>
[[nodiscard]] std::string ErrorOf(const Action& action) {
  try {
    action();
  } catch (const tools::Error& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace tests
