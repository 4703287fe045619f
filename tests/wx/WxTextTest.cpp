#include <gtest/gtest.h>

#include "wx/WxText.h"

namespace qb {
namespace {

TEST(WxTextTest, ToWx_FromWx_ComeBackUnchanged) {
  EXPECT_EQ(FromWx(ToWx("Öffnen 開く 🙂")), "Öffnen 開く 🙂");
  EXPECT_EQ(FromWx(ToWx("")), "");
}

TEST(WxTextTest, ToWx_BadByte_KeepsTheRest) {
  EXPECT_EQ(FromWx(ToWx("a\xFF"
                        "b")),
            "a\xEF\xBF\xBD"
            "b");
}

}  // namespace
}  // namespace qb
