// The preferences: the five leading fields in their order, their defaults, and Reset.
#include "TevPreference.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

TEST(TevPreference, FiveLeadingBoolsInOrder)
{
    static_assert(std::is_standard_layout<TevPreference>::value, "fields are read by position");
    EXPECT_EQ(offsetof(TevPreference, snapEndPoint), 0u);
    EXPECT_EQ(offsetof(TevPreference, snapMiddle), 1u);
    EXPECT_EQ(offsetof(TevPreference, snapGrid), 2u);
    EXPECT_EQ(offsetof(TevPreference, snapOnLine), 3u);
    EXPECT_EQ(offsetof(TevPreference, pickOffPlane), 4u);
}

TEST(TevPreference, DefaultsAndReset)
{
    TevPreference* pref = TevPreference::GetInstance();
    EXPECT_EQ(pref, TevPreference::GetInstance());
    pref->Reset();
    EXPECT_TRUE(pref->snapEndPoint);
    EXPECT_TRUE(pref->snapMiddle);
    EXPECT_TRUE(pref->snapGrid);
    EXPECT_TRUE(pref->snapOnLine);
    EXPECT_FALSE(pref->pickOffPlane);
    pref->snapGrid = false;
    pref->pickOffPlane = true;
    EXPECT_FALSE(TevPreference::GetInstance()->snapGrid);
    pref->Reset();
    EXPECT_TRUE(pref->snapGrid);
    EXPECT_FALSE(pref->pickOffPlane);
}
