#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "examples/plot/scale.h"

/// \file  Charts as SVG text.
/// A chart is built by adding marks; each call returns the chart, each named call gets the next colour and a place in
/// the legend. Values that are not finite leave a gap. Axes fit the data; bars, stems and histograms start at 0.
/// Colours come from style_sheet(), which follows the reader's light or dark theme and is needed once for each page.
///
///     plot::Chart chart("Flow of the Nile at Aswan");
///     chart.axes("year", "flow in 10⁸ m³").line(years, flow).mark_y(mean, "mean");
///     std::cout << "<style>" << plot::style_sheet() << "</style>" << chart.svg();

namespace plot {

/// Five numbers that a box shows.
struct Quartiles {
  double low, q1, median, q3, high;
};

/// kSequential runs from dark to bright; kDiverging from blue through white to red, for values around a middle.
enum class Colours { kSequential, kDiverging };

/// Where values land in the picture.
struct Frame {
  double left, top, right, bottom;
  Range x, y;
  bool down;  // y grows downwards, as the rows of a matrix do
  int bars;   // that stand side by side

  double at_x(double value) const { return left + (value - x.low) / (x.high - x.low) * (right - left); }
  double at_y(double value) const {
    const double part = (value - y.low) / (y.high - y.low) * (bottom - top);
    return down ? top + part : bottom - part;
  }
};

class Chart {
 public:
  explicit Chart(std::string title) : title_(std::move(title)) {}

  /// Titles of the axes, with their units.
  Chart& axes(std::string x_title, std::string y_title);
  /// Shows at least from low to high.
  Chart& x_range(double low, double high);
  Chart& y_range(double low, double high);
  /// Height in units of which the width has 560; a heat map or an image finds its own.
  Chart& height(double units);
  /// Rule for the marks of both axes, ticks_125 if none is set.
  Chart& tick_rule(TickRule rule);

  /// Polygon through the points; `dashed` for lines that should stay in the background.
  Chart& line(std::span<const double> x, std::span<const double> y, std::string name = {}, bool dashed = false);
  Chart& scatter(std::span<const double> x, std::span<const double> y, std::string name = {});
  /// Stalks from 0 to the values.
  Chart& stem(std::span<const double> x, std::span<const double> y, std::string name = {});
  /// Touching bars; bar i spans first_edge + i * width to first_edge + (i + 1) * width.
  Chart& histogram(std::span<const double> counts, double first_edge, double width, std::string name = {});
  /// A bar for each label; bars of several calls stand side by side.
  Chart& bars(std::span<const std::string> labels, std::span<const double> values, std::string name = {});
  /// Lying bars with their values written at the ends, first label on top.
  Chart& bars_across(std::span<const std::string> labels, std::span<const double> values, std::string name = {});
  /// Lying boxes from q1 to q3 with the median and whiskers to the ends, first label on top.
  Chart& boxes(std::span<const std::string> labels, std::span<const Quartiles> values);
  /// Matrix of values, row by row from the top; colours run from low to high (both 0: over all values).
  Chart& heat_map(std::span<const double> cells, std::size_t columns, std::size_t rows,
                  Colours colours = Colours::kSequential, double low = 0.0, double high = 0.0);
  /// Names in place of numbers along the axes of a heat map.
  Chart& cell_names(std::span<const std::string> columns, std::span<const std::string> rows);
  /// PNG file of the given size in pixels.
  Chart& image(std::span<const std::byte> png_file, std::size_t columns, std::size_t rows);
  /// Dashed line across the chart with a label.
  Chart& mark_x(double value, std::string label);
  Chart& mark_y(double value, std::string label);

  /// The picture as an `<svg>` element.
  std::string svg() const;

 private:
  using Draw = std::function<void(const Frame&, std::string&)>;
  enum class Key { kNone, kLine, kDashes, kPoint, kBlock };  // what the legend shows beside the name
  struct Mark {
    std::string name;
    int colour;
    Key key;
    Draw draw;
  };
  struct Rule {
    double value;
    std::string label;
  };

  static std::string dot(int colour, double x, double y);
  int next_colour() { return marks_.empty() ? 1 : marks_.back().colour % 5 + 1; }
  Chart& add(std::string name, Key key, Draw draw);
  void include(std::span<const double> x, std::span<const double> y);
  void set_names(std::vector<std::string>& names, std::span<const std::string> labels, Range& range);
  void set_cells(std::size_t columns, std::size_t rows);
  Frame layout(double top) const;
  void draw_legend(double& top, std::string& out) const;
  void draw_x_axis(const Frame& frame, std::string& out) const;
  void draw_y_axis(const Frame& frame, std::string& out) const;
  void draw_rules(const Frame& frame, std::string& out) const;
  void draw_colour_scale(const Frame& frame, std::string& out) const;

  std::string title_, x_title_, y_title_;
  double height_ = 300.0, aspect_ = 0.0;  // aspect: rows / columns of a heat map or an image
  TickRule ticks_ = ticks_125;
  Range x_, y_, shades_;
  Colours colours_ = Colours::kSequential;
  std::vector<std::string> x_names_, y_names_;
  std::vector<Mark> marks_;
  std::vector<Rule> x_rules_, y_rules_;
  int bars_ = 0;
  bool lying_ = false, down_ = false, round_y_ = true;
};

/// Colours, type and line widths of all charts, for light and dark.
std::string_view style_sheet();

/// Colour of `part` (0 to 1) of a scale, as "#rrggbb".
std::string shade(Colours colours, double part);

}  // namespace plot
