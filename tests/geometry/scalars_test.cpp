// Tolerances and values.
#include "orvil/geometry/scalars.h"

#include <gtest/gtest.h>

namespace {

TEST(Tolerances, TheNinthIsTheEighth) {
    EXPECT_EQ(r_EP8(), 1e-8);
    EXPECT_EQ(r_EP9(), 1e-8);
}

}  // namespace
