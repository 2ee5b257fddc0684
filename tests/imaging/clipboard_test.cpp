#include "zor/imaging/clipboard.h"

#include "imaging_util.h"

namespace ZOR_imaging {
namespace {

TEST(TClipboard, HoldsOneTextOrOnePicture) {
  TBitmap bitmap;
  paint(bitmap, 3, 2);
  Clipboard().SetAsText("ten");
  EXPECT_TRUE(Clipboard().HasText());
  EXPECT_EQ(Clipboard().AsText(), "ten");
  Clipboard().Assign(&bitmap);
  EXPECT_TRUE(Clipboard().HasBitmap());
  EXPECT_FALSE(Clipboard().HasText());
  EXPECT_EQ(Clipboard().AsText(), "");
  Clipboard().Clear();
  EXPECT_FALSE(Clipboard().HasBitmap());
}

TEST(TClipboard, GivesBackACopyOfThePicture) {
  TBitmap bitmap, before, pasted;
  paint(bitmap, 3, 2);
  before.Assign(&bitmap);
  Clipboard().Assign(&bitmap);
  bitmap.SetSize(0, 0);
  pasted.Assign(&Clipboard());
  EXPECT_TRUE(same_picture(pasted, before));
}

TEST(TClipboard, WithoutAPictureAssignsNothing) {
  TBitmap bitmap;
  paint(bitmap, 2, 2);
  Clipboard().SetAsText("x");
  EXPECT_THROW(bitmap.Assign(&Clipboard()), ZOR_runtime::EConvertError);
  EXPECT_EQ(bitmap.Width(), 2);
  EXPECT_THROW(Clipboard().Assign(nullptr), ZOR_runtime::EConvertError);
  EXPECT_EQ(Clipboard().AsText(), "x");
}

TEST(TClipboard, TakesWhatAnotherOneHolds) {
  TClipboard a, b;
  TBitmap bitmap, pasted;
  paint(bitmap, 2, 3);
  a.Assign(&bitmap);
  b.Assign(&a);
  pasted.Assign(&b);
  EXPECT_TRUE(same_picture(pasted, bitmap));
  a.SetAsText("t");
  b.Assign(&a);
  EXPECT_EQ(b.AsText(), "t");
  b.Assign(&b);
  EXPECT_EQ(b.AsText(), "t");
}

}  // namespace
}  // namespace ZOR_imaging
