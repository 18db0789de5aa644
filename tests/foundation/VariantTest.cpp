#include "Variant.h"

#include <gtest/gtest.h>

using namespace norvik;

TEST(VariantTest, UnassignedReadsAsZeroAndEmptyText)
{
    const Variant v;
    EXPECT_EQ(v.type(), VarType::Unassigned);
    EXPECT_EQ(v.toInt(), 0);
    EXPECT_EQ(v.toString(), QString());
    EXPECT_FALSE(v.toBool());
}
