#include "tests/arrays/array_util.h"

namespace ZOR_openarrays {
namespace {

TBool2DArray blank(Integer cols, Integer rows) {
  TBool2DArray mask;
  SetLength(mask, cols, rows);
  return mask;
}

/// The mask as text, a line for each row.
std::string picture(const TBool2DArray& mask) {
  std::string text;
  for (std::size_t r = 0; r < mask[0].size(); ++r) {
    for (const auto& column : mask) text += column[r] ? '#' : '.';
    text += '\n';
  }
  return text;
}

std::string drawn(Integer cols, Integer rows, TShapeKind kind, const TIntArray& params) {
  TBool2DArray mask = blank(cols, rows);
  EXPECT_EQ(CreateMaskShape(mask, kind, params), 0);
  return picture(mask);
}

TEST(MaskShapes, HaveTheCellsOfTheirFormulas) {
  EXPECT_EQ(drawn(4, 3, skRectangle, {1, 1, 2, 1}), "....\n.##.\n....\n");
  EXPECT_EQ(drawn(4, 3, skRectangle, {2, 1, 1, 1}), "....\n....\n....\n");
  EXPECT_EQ(drawn(5, 5, skCircle, {2, 2, 2}), "..#..\n.###.\n#####\n.###.\n..#..\n");
  EXPECT_EQ(drawn(3, 3, skCircle, {1, 1, 0}), "...\n.#.\n...\n");
  EXPECT_EQ(drawn(5, 5, skRing, {2, 2, 2, 2}), "..#..\n.....\n#...#\n.....\n..#..\n");
  EXPECT_EQ(drawn(4, 4, skEllipse, {0, 0, 3, 3}), "###.\n####\n###.\n.#..\n");
  EXPECT_EQ(drawn(5, 5, skEllipse, {0, 0, 4, 4}), "#####\n#####\n#####\n#####\n#####\n");
  EXPECT_EQ(drawn(2, 2, skEllipse, {-4, -4, 1, 1}), "##\n##\n") << "the centre of -1.5 is -1";
  EXPECT_EQ(drawn(3, 4, skEllipse, {1, 0, 1, 3}), ".#.\n.#.\n.#.\n.#.\n") << "a side of no width";
}

TEST(MaskShapes, RadiiOfARingComeInEitherOrder) {
  EXPECT_EQ(drawn(13, 13, skRing, {6, 6, 5, 3}), drawn(13, 13, skRing, {6, 6, 3, 5}));
}

TEST(MaskShapes, AddUp) {
  TBool2DArray mask = blank(3, 1);
  CreateMaskShape(mask, skRectangle, {0, 0, 0, 0});
  CreateMaskShape(mask, skRectangle, {2, 0, 2, 0});
  EXPECT_EQ(picture(mask), "#.#\n");
}

TEST(MaskShapes, AreClippedHoweverFarTheyReach) {
  constexpr Integer kFar = 2147483647;
  EXPECT_EQ(drawn(2, 2, skCircle, {0, 0, kFar}), "##\n##\n");
  EXPECT_EQ(drawn(2, 2, skRing, {kMinInteger, 0, 0, kFar}), "..\n..\n");
  EXPECT_EQ(drawn(2, 2, skRing, {-kFar, 0, 0, kFar}), "#.\n..\n");
  EXPECT_EQ(drawn(2, 2, skRectangle, {kMinInteger, kMinInteger, kFar, 0}), "##\n..\n");
  EXPECT_EQ(drawn(2, 2, skEllipse, {kMinInteger, kMinInteger, kFar, kFar}), "##\n##\n");
  EXPECT_EQ(drawn(2, 2, skCircle, {-5, -5, 2}), "..\n..\n");
}

TEST(MaskShapes, CodesDependOnParametersAloneAndNegativeRadiiWin) {
  TBool2DArray mask = blank(2, 2), empty;
  EXPECT_EQ(CreateMaskShape(mask, skRectangle, {0, 0, 1}), kWrongShapeParams);
  EXPECT_EQ(CreateMaskShape(mask, skCircle, {0, 0, 1, 1}), kWrongShapeParams);
  EXPECT_EQ(CreateMaskShape(mask, skRing, nullptr), kWrongShapeParams);
  EXPECT_EQ(CreateMaskShape(mask, static_cast<TShapeKind>(9), {0, 0, 1, 1}), kWrongShapeParams);
  EXPECT_EQ(CreateMaskShape(mask, skRing, {0, 0, 1, -1}), kNegativeRadius);
  EXPECT_EQ(CreateMaskShape(mask, skRing, {0, 0, -1}), kNegativeRadius);
  EXPECT_EQ(CreateMaskShape(mask, skCircle, {0, 0, -1, 4}), kNegativeRadius);
  EXPECT_EQ(picture(mask), "..\n..\n");
  EXPECT_EQ(CreateMaskShape(empty, skCircle, {0, 0, 1}), 0);
  EXPECT_EQ(CreateMaskShape(empty, skCircle, {0, 0, -1}), kNegativeRadius);
}

TEST(MaskedFill, WritesWhereTheMaskIsFalse) {
  const TBool2DArray mask = {{true, false}, {false, false}};
  TDouble2DArray d = {{1, 2}, {3, 4}};
  TInt2DArray i = {{1, 2}, {3, 4}};
  EXPECT_EQ(FillArrayMasked(d, 9, mask), 3);
  EXPECT_EQ(d, (TDouble2DArray{{1, 9}, {9, 9}}));
  EXPECT_EQ(FillArrayMasked(i, 9, mask), 0);
  EXPECT_EQ(i, (TInt2DArray{{1, 9}, {9, 9}}));
}

TEST(MaskedFill, NullMaskFillsDoublesOnly) {
  TDouble2DArray d = {{1, 2}}, none;
  TInt2DArray i = {{1, 2}}, nothing;
  EXPECT_EQ(FillArrayMasked(d, 9, nullptr), 2);
  EXPECT_EQ(d, (TDouble2DArray{{9, 9}}));
  EXPECT_EQ(FillArrayMasked(i, 9, nullptr), kNothingToFill);
  EXPECT_EQ(FillArrayMasked(d, 7, {{true}}), kMaskOfOtherSize);
  EXPECT_EQ(FillArrayMasked(i, 7, {{true, true}, {true}}), kMaskOfOtherSize);
  EXPECT_EQ(FillArrayMasked(none, 7, nullptr), kNothingToFill);
  EXPECT_EQ(FillArrayMasked(nothing, 7, {{true}}), kNothingToFill);
  EXPECT_EQ(i, (TInt2DArray{{1, 2}}));
}

}  // namespace
}  // namespace ZOR_openarrays
