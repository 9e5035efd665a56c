// POSIX only: acting as a user without any rights, because rights do not bind the superuser.
#pragma once

#include <unistd.h>

#include <string>

#include "tests/support/Testing.h"

namespace tests {

/// The description of the tools::Error that `action` raises for such a user.
template <typename Action>
[[nodiscard]] std::string ErrorWithoutRights(const Action& action) {
  constexpr uid_t kNobody = 65534;
  const bool superuser = ::geteuid() == 0;
  EXPECT_EQ(superuser ? ::seteuid(kNobody) : 0, 0);
  std::string error = ErrorOf(action);
  EXPECT_EQ(superuser ? ::seteuid(0) : 0, 0);
  return error;
}

}  // namespace tests
