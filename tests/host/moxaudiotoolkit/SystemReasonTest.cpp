#include "../../../host/moxaudiotoolkit/src/SystemReason.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>
#include <string>
#include <system_error>

namespace moxaudiotoolkit {
namespace {

TEST(SystemReason, IsToldInOwnWordsForWhatUsersMeet) {
  EXPECT_EQ(SystemReason(ENOENT), "there is no such file or folder");
  EXPECT_EQ(SystemReason(EACCES), "you have no permission");
  EXPECT_EQ(SystemReason(EPERM), SystemReason(EACCES));
  EXPECT_EQ(SystemReason(ENOSPC), "there is no space left on the disk");
  EXPECT_EQ(SystemReason(EROFS), "the disk can only be read");
  EXPECT_EQ(SystemReason(EISDIR), "it is a folder");
  EXPECT_EQ(SystemReason(EIO), "the disk or its connection failed");
}

TEST(SystemReason, NoTwoReasonsAreToldAlike) {
  std::set<std::string> reasons;
  for (const int error : {ENOENT, ENOTDIR, EISDIR, EACCES, ENOSPC, EDQUOT, EFBIG, EROFS, EIO, ENAMETOOLONG,
                          ELOOP, EMFILE, EBUSY}) {
    EXPECT_NE(SystemReason(error), std::generic_category().message(error));
    EXPECT_TRUE(reasons.insert(SystemReason(error)).second) << error;
  }
}

TEST(SystemReason, OthersAreToldByTheSystem) {
  EXPECT_EQ(SystemReason(EDOM), std::generic_category().message(EDOM));
}

}  // namespace
}  // namespace moxaudiotoolkit
