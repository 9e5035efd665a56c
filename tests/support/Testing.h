// What nearly every test below Qt uses, under names without their namespaces.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/FaultyDisk.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Disk.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

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

using testing::AllOf;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using tests::ErrorOf;
using tests::FaultyDisk;
using tests::TemporaryFolder;
