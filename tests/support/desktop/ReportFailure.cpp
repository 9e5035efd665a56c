#include "tests/support/ReportFailure.h"

#include <QTest>

namespace tests {

void ReportFailure(const std::string& message) {
  QTest::qFail(message.c_str(), __FILE__, __LINE__);
}

}  // namespace tests
