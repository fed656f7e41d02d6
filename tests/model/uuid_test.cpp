#include "model/uuid.h"

#include <gtest/gtest.h>

#include <set>

namespace mirvane {
namespace {

TEST(Uuid, IsRandomAndOfVersion4) {
  std::set<Uuid> made;
  for (int i = 0; i < 1000; ++i) {
    const Uuid uuid = makeUuid();
    EXPECT_EQ(uuid.bits[0] >> 12 & 0xF, 4U);
    EXPECT_EQ(uuid.bits[1] >> 62, 2U);
    made.insert(uuid);
  }
  EXPECT_EQ(made.size(), 1000U);
}

}  // namespace
}  // namespace mirvane
