#include <cmath>

#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

using testing::ElementsAre;

TEST(Discretizing, StepsAreClosedByTheLimits) {
  TDouble2DArray a = {{-1, 0, 5, 10, 11, kNaN}};
  EXPECT_EQ(DiscretizeArray(a, 3, 0, 10, 0, 2), 0);
  EXPECT_THAT(cells(a), ElementsAre(0, 0, 1, 2, 2, testing::NanSensitiveDoubleEq(kNaN)));
  TDouble2DArray below = {{std::nextafter(1.0, 0.0)}};
  DiscretizeArray(below, 199, -1, 1, 0, 198);
  EXPECT_EQ(below[0][0], 197.0) << "not the level of the upper limit";
  EXPECT_EQ(DiscretizeArray(a, 2, 0, 1, 0, 1), kTooFewSteps);
  EXPECT_EQ(DiscretizeArray(a, 2, 1, 1, 0, 1), kBadStepLimits);
  EXPECT_EQ(DiscretizeArray(a, 5, kNaN, 1, 0, 1), kBadStepLimits);
  EXPECT_EQ(DiscretizeArray(a, 5, -kInf, 1, 0, 1), kBadStepLimits);
  TDouble2DArray empty;
  EXPECT_EQ(DiscretizeArray(empty, 3, 0, 1, 0, 1), 0);
}

TEST(ColorMap, NumbersBecomeColoursFromOneOn) {
  ZOR_zorcolors::TColorArray colors;
  TInt2DArray a = {{-5, 1}, {2, 99}}, empty;
  EXPECT_EQ(ConvertToColorMap(a, &colors), kNoColors);
  EXPECT_EQ(ConvertToColorMap(empty, nullptr), kNoColors);
  colors.SetNrOfColors(2);
  colors.SetColorElem(1, 0x112233), colors.SetColorElem(2, 0x445566);
  EXPECT_EQ(ConvertToColorMap(empty, &colors), kNothingToMap);
  EXPECT_EQ(ConvertToColorMap(a, &colors), 0);
  EXPECT_EQ(a, (TInt2DArray{{0x112233, 0x112233}, {0x445566, 0x445566}}));
}

}  // namespace
}  // namespace ZOR_openarrays
