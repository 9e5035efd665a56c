// How the helpers of tests report a failure, whatever framework runs the test.
#pragma once

#include <string>

namespace tests {

/// Fails the running test, which goes on.
void ReportFailure(const std::string& message);

}  // namespace tests
