#include "zor/transforms/ZOR_wavelet.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/message_of.h"

using namespace ZOR_wavelet;

TEST(Wavelet, RestoresTheSignalForAllOrdersAndSizes) {
  for (Integer order = 1; order <= 3; ++order) {
    for (Integer n = 1; n <= 1024; n *= 2) {
      TWavelet1D w;
      w.SetOrder(order);
      w.SetSize(n);
      double before = 0.0, after = 0.0;
      for (Integer i = 1; i <= n; ++i) w.SetData(i, std::sin(i * i * 0.7));
      for (Integer i = 1; i <= n; ++i) before += w.Data(i) * w.Data(i);
      w.Transform(1000);
      for (Integer i = 1; i <= n; ++i) after += w.Data(i) * w.Data(i);
      EXPECT_NEAR(after, before, 1e-12 * (1 + before));
      w.InverseTransform(1000);
      for (Integer i = 1; i <= n; ++i) EXPECT_NEAR(w.Data(i), std::sin(i * i * 0.7), 1e-13);
    }
  }
}

TEST(Wavelet, OrderOneGivesSumAndDifference) {
  TWavelet1D w;
  w.SetOrder(1);
  w.SetSize(2);
  w.SetData(1, 1.0);
  w.SetData(2, 3.0);
  w.SingleStep(false);
  EXPECT_NEAR(w.Data(1), 4 / std::sqrt(2.0), 1e-15);
  EXPECT_NEAR(w.Data(2), -2 / std::sqrt(2.0), 1e-15);
}

TEST(Wavelet, ExtendsTheLeftEdgeAsAsked) {
  const double c0 = 0.48296291314453416, c1 = 0.8365163037378079, c2 = 0.2241438680420134, c3 = -0.12940952255126037;
  for (const auto& [mode, smooth] :
       {std::pair{wseWrap, 4 * c0 + 8 * c1 + 1 * c2 + 2 * c3}, std::pair{wseZeroPad, 1 * c2 + 2 * c3},
        std::pair{wseSymmetric, 2 * c0 + 1 * c1 + 1 * c2 + 2 * c3}}) {
    TWavelet1D w;
    w.SetSize(4);
    w.SetSignalExtMode(mode);
    for (Integer i = 1; i <= 4; ++i) w.SetData(i, 1 << (i - 1));
    w.SingleStep(false);
    EXPECT_NEAR(w.Data(1), smooth, 1e-14);
  }
}

TEST(Wavelet, RefusesBadOrdersSizesAndBlocks) {
  TWavelet1D w;
  w.SetName("W");
  w.SetData(1, 1.0);
  for (const Integer bad : {0, 4}) {
    EXPECT_EQ(zor::test::message_of<EZORWaveletError>([&] { w.SetOrder(bad); }),
              "Component \"W\": invalid order of Daubechies wavelet family");
  }
  EXPECT_EQ(zor::test::message_of<EZORWaveletError>([&] { w.SetSize(300); }),
            "Component \"W\": data length must be power of 2");
  w.PartialWLT(3, 0, false);
  w.PartialWLT(256, 1, false);
  w.PartialWLT(2, -1, false);
  EXPECT_EQ(w.Data(1), 1.0);
  EXPECT_EQ(w.Order(), 2);
  w.SetSize(512);
  EXPECT_EQ(w.Data(1), 0.0);
}
