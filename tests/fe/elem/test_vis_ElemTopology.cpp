#include <gtest/gtest.h>
TEST(placeholder, none) { SUCCEED(); }
