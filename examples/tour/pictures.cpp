#include "examples/tour/chapter.h"
#include "examples/tour/photo.h"

using namespace ZOR_openarrays;
using namespace ZOR_zorcolors;

namespace {

void stairs(tour::Page& page, const TDouble2DArray& photo) {
  page.prose(
      "A photograph is a table of numbers: `photo[x][y]` is the brightness in column x and row y, from 0 to 255. "
      "Colours "
      "are numbers as well, so an array of them can be saved as a picture.");
  const std::string file = page.scratch("stairs.png").string();
  // [show]
  TInt2DArray picture;
  CloneArray(photo, picture);
  MultiplyArrayByScalar(picture, 0x010101);  // red, green, blue
  SaveArrayAsImg(file, picture, 2);          // twice as large
  // [/show]
  page.code();
  tour::show(page, "stairs.png", picture, "Stairs",
             "Visitors climb a tower under a clear sky. All that follows is made of these 256 by 256 numbers.");
}

void paint_sky(tour::Page& page, const TDouble2DArray& photo) {
  page.section("Pour paint into the sky");
  page.prose("A flood fill spreads over neighbours of much the same brightness. The steel cuts the sky into patches.");
  std::vector<std::vector<std::string>> rows;
  const auto pair = [](Integer a, auto word, Integer b) { return std::to_string(a) + word + std::to_string(b); };
  const Integer starts[][2] = {{20, 10}, {200, 60}, {150, 110}, {80, 120}, {10, 230}};
  // [show]
  const Double paint = -1;
  TDouble2DArray sky;
  CloneArray(photo, sky);
  for (const auto& [x, y] : starts) {
    Integer n, r1, r0, c0, c1;  // last and first row, columns
    n = FloodFillArray(x, y, 12, paint, true, sky, r1, r0, c0, c1);
    // [/show]
    rows.push_back({pair(x, ", ", y), std::to_string(n), pair(c0, " to ", c1), pair(r0, " to ", r1)});
  }
  page.code();
  TInt2DArray picture = tour::grey(photo);
  tour::paint(picture, sky, paint, RGBtoColor(90, 160, 230));
  tour::show(
      page, "sky.png", picture, "Five patches of sky",
      "The paint stops at the steel and where the light differs by more than 12 from its start. Gaps between the "
      "bars are patches of their own, and stay grey.");
  page.table({"start", "pixels", "columns", "rows"}, rows);
}

void people(tour::Page& page, const TDouble2DArray& photo) {
  page.section("Put people in the spotlight");
  page.prose("A mask protects: what it covers stays, the rest is painted over. Shapes drawn into a mask add up.");
  TInt2DArray picture = tour::grey(photo);
  // [show]
  TBool2DArray mask;
  SetLength(mask, 256, 256);
  CreateMaskShape(mask, skCircle, {224, 150, 38});
  CreateMaskShape(mask, skCircle, {89, 178, 38});
  CreateMaskShape(mask, skRing, {89, 178, 42, 45});
  FillArrayMasked(picture, RGBtoColor(40, 24, 60), mask);
  // [/show]
  page.code();
  tour::show(
      page, "people.png", picture, "Two climbers",
      "Two are on their way up, one in the sun and one in the shade. The ring is a third shape in the same mask.");
}

void edges(tour::Page& page, const TDouble2DArray& photo) {
  page.section("Look along the edges");
  page.prose("A projection squeezes a picture into one curve: a mean for each column, or for each row.");
  // [show]
  TDoubleArray columns, rows, place;
  EdgeVector(photo, orVertical, eoMean, columns);
  EdgeVector(photo, orHorizontal, eoMean, rows);
  // [/show]
  page.code();
  SetLength(place, 256);
  FillArraySerial(place, 0, 1);
  plot::Chart chart("Mean brightness");
  page.figure(
      chart.axes("column or row", "brightness").line(place, columns, "columns").line(place, rows, "rows"),
      "The dips at columns 50 and 165 are the dark corners behind the posts. Rows are brightest near 130, where "
      "the sun meets white paint and a white shirt.");
}

void dust(tour::Page& page, const TDouble2DArray& photo) {
  page.section("Wipe off the dust");
  page.prose("One pixel in ten goes black or white. Then each becomes the median of five, two above it and two below.");
  TDouble2DArray dusty, mean, median;
  for (auto* copy : {&dusty, &mean, &median}) CloneArray(photo, *copy);
  RandSeed = static_cast<Int64>(page.seed(42));
  // [show]
  for (auto& column : dusty)
    for (Double& pixel : column)
      if (Random(10) == 0) pixel = 255 * Random(2);
  for (Integer x = 0; x < 256; ++x) {
    for (Integer y = 0; y < 256; ++y) {
      mean[x][y] = LocalMean(dusty[x], y, 2, 0, 255);
      median[x][y] = LocalMedian(dusty[x], y, 2, 0, 255);
    }
  }
  // [/show]
  page.code();
  tour::show(page, "dusty.png", tour::grey(dusty), "Before", "Dust on the lens? No, only random numbers.");
  tour::show(page, "clean.png", tour::grey(median), "After",
             "Nearly all specks are gone, since an odd one out is never in the middle. Edges stay sharp.");
  const auto error = [&](const auto& picture) { return plot::short_text(tour::distance(picture, photo), 3); };
  page.table({"", "dusty", "mean", "median"}, {{"error", error(dusty), error(mean), error(median)}});
}

void heat(tour::Page& page, const TDouble2DArray& photo) {
  page.section("Turn up the colours");
  page.prose("Twelve steps of brightness, and a table with a colour for each, from night blue to yellow.");
  TDouble2DArray steps;
  CloneArray(photo, steps);
  TColorArray table;
  TInt2DArray picture;
  // [show]
  table.SetNrOfColors(12);
  for (Integer i = 1; i <= 12; ++i) {
    const TColor c = RGBtoColor(25 * i - 25, 22 * i - 60, 140 - 12 * i);
    table.SetColorElem(i, c);
  }
  DiscretizeArray(steps, 12, 20, 170, 1, 12);
  CloneArray(steps, picture);
  ConvertToColorMap(picture, &table);
  // [/show]
  page.code();
  tour::show(page, "heat.png", picture, "Brightness in false colours",
             "The even sky has bands: it grows brighter towards the horizon. Eyes see such slow changes better in "
             "colours than in greys.");
}

void run(tour::Page& page) {
  const TDouble2DArray photo = tour::read_photo(page.data("ascent.csv"));
  for (auto* part : {stairs, paint_sky, people, edges, dust, heat}) part(page, photo);
}

const tour::Register chapter({115, "pictures", "Pictures are matrices", run});

}  // namespace
