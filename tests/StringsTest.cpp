// The exported string routines pass through to the C library.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "kivo/Strings.h"

namespace {

TEST(KvcStrings, CompareIgnoringCase) {
    EXPECT_EQ(kvc_stricmp("DateTime", "dATEtIME"), 0);
    EXPECT_LT(kvc_stricmp("abc", "ABD"), 0);
    EXPECT_GT(kvc_stricmp("b", "A"), 0);
    EXPECT_EQ(kvc_strnicmp("JANUARY", "janx", 3), 0);
    EXPECT_NE(kvc_strnicmp("JANUARY", "janx", 4), 0);
}

TEST(KvcStrings, ErrorTextLandsInTheCallersBuffer) {
    char buffer[64];
    EXPECT_EQ(kvc_strerror_r(EAGAIN, buffer, sizeof buffer), buffer);
    EXPECT_STREQ(buffer, std::strerror(EAGAIN));
    char tiny[4];
    EXPECT_EQ(kvc_strerror_r(ENOENT, tiny, sizeof tiny), tiny);
    EXPECT_LT(std::strlen(tiny), sizeof tiny);
}

}  // namespace
