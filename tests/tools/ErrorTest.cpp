#include <gtest/gtest.h>

#include "tools/Error.h"

namespace tools {
namespace {

TEST(ErrorTest, NamesWhatFailedThePathAndTheCause) {
  const Error error = PathError("Die Datei kann nicht geschrieben werden", "/a/b.product",
                                std::make_error_code(std::errc::permission_denied));
  EXPECT_STREQ(error.what(),
               "Die Datei kann nicht geschrieben werden: /a/b.product (Zugriff verweigert)");
  EXPECT_EQ(error.Cause(), std::errc::permission_denied);
}

}  // namespace
}  // namespace tools
