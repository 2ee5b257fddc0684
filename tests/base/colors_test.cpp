#include "zor/base/colors.h"

#include <gtest/gtest.h>

namespace ZOR_zorcolors {
namespace {

struct HSI {
  Double H = -1.0, S = -1.0, I = -1.0;
};
HSI hsi(Integer r, Integer g, Integer b) {
  HSI c;
  RGBtoHSI(r, g, b, c.H, c.S, c.I);
  return c;
}

TEST(RGBtoGray, WeighsTheComponents) {
  EXPECT_EQ(RGBtoGray(255, 0, 0), 76);   // 76.245
  EXPECT_EQ(RGBtoGray(0, 255, 0), 150);  // 149.685
  EXPECT_EQ(RGBtoGray(0, 0, 255), 29);   // 29.07
  for (Integer v = 0; v <= 255; ++v) EXPECT_EQ(RGBtoGray(v, v, v), v);
}

TEST(RGBtoGray, RoundsTiesToEven) {
  EXPECT_EQ(RGBtoGray(0, 0, 250), 28);     // 28.5
  EXPECT_EQ(RGBtoGray(0, 80, 110), 60);    // 59.5, which sums of rounded products miss
  EXPECT_EQ(RGBtoGray(0, 90, 155), 70);    // 70.5
  EXPECT_EQ(RGBtoGray(15, 195, 75), 128);  // 127.5
}

TEST(RGBtoGray, LimitsTheComponents) {
  EXPECT_EQ(RGBtoGray(1000, 256, 2147483647), 255);
  EXPECT_EQ(RGBtoGray(-1, -2147483647 - 1, 0), 0);
}

TEST(RGBtoHSI, GivesTheHuesOfTheSixPureColours) {
  const int rgb[6][3] = {{255, 0, 0}, {255, 255, 0}, {0, 255, 0}, {0, 255, 255}, {0, 0, 255}, {255, 0, 255}};
  for (int k = 0; k < 6; ++k) {
    const HSI c = hsi(rgb[k][0], rgb[k][1], rgb[k][2]);
    EXPECT_NEAR(c.H, 60.0 * k, 1e-12);
    EXPECT_EQ(c.S, 1.0);
    EXPECT_NEAR(c.I, k % 2 == 0 ? 1.0 / 3.0 : 2.0 / 3.0, 1e-15);
  }
}

TEST(RGBtoHSI, GraysHaveNoHueAndNoSaturation) {
  for (const Integer v : {0, 1, 77, 255}) {
    const HSI c = hsi(v, v, v);
    EXPECT_EQ(c.H, 0.0);
    EXPECT_EQ(c.S, 0.0);
    EXPECT_NEAR(c.I, v / 255.0, 1e-15);
  }
}

TEST(RGBtoHSI, StaysInItsRanges) {
  for (Integer r = -10; r <= 270; r += 7) {
    for (Integer g = -10; g <= 270; g += 7) {
      for (Integer b = -10; b <= 270; b += 7) {
        const HSI c = hsi(r, g, b);
        ASSERT_TRUE(c.H >= 0.0 && c.H < 360.0) << r << ' ' << g << ' ' << b << ": " << c.H;
        ASSERT_TRUE(c.S >= 0.0 && c.S <= 1.0 && c.I >= 0.0 && c.I <= 1.0) << r << ' ' << g << ' ' << b;
      }
    }
  }
}

TEST(TColorArray, CountsFromOneAndReadsBlackOutside) {
  TColorArray table;
  EXPECT_EQ(table.NrOfColors(), 0);
  EXPECT_EQ(table.GetColorElem(1), 0);
  table.SetNrOfColors(2);
  table.SetColorElem(2, 0x0000FF);
  table.SetColorElem(0, 7);
  table.SetColorElem(3, 7);
  EXPECT_EQ(table.GetColorElem(1), 0);
  EXPECT_EQ(table.GetColorElem(2), RGBtoColor(255, 0, 0));
  EXPECT_EQ(table.GetColorElem(3), 0);
  EXPECT_EQ(table.GetColorElem(-2147483647 - 1), 0);
  table.SetNrOfColors(-1);
  EXPECT_EQ(table.NrOfColors(), 0);
}

TEST(RGBtoColor, PutsRedInTheLowByte) { EXPECT_EQ(RGBtoColor(0x11, 0x22, 300), 0xFF2211); }

}  // namespace
}  // namespace ZOR_zorcolors
