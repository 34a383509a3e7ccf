#include <gtest/gtest.h>
#include "kivo/Formats.h"
TEST(Smoke, Date9) { char f[9]; dateFormat(f, 9, 0, 22356); EXPECT_EQ(std::string(f, 9), "17MAR2021"); }
