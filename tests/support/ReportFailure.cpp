#include "tests/support/ReportFailure.h"

#include <gtest/gtest.h>

namespace tests {

void ReportFailure(const std::string& message) { ADD_FAILURE() << message; }

}  // namespace tests
