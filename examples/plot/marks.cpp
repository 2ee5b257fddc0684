#include <algorithm>
#include <array>
#include <cmath>

#include "examples/plot/chart.h"
#include "examples/plot/markup.h"

namespace plot {
namespace {

std::vector<double> copy_of(std::span<const double> values) { return {values.begin(), values.end()}; }

std::string xy(double x, double y) { return coordinate(x) + " " + coordinate(y); }

std::string classes(std::string_view shape, int colour) {
  return " class=\"" + std::string(shape) + " c" + std::to_string(colour) + "\"";
}

// Bar between two corners, with a text that appears under the pointer.
std::string block(std::string_view shape, int colour, double x0, double y0, double x1, double y1,
                  const std::string& hint) {
  return "<rect" + classes(shape, colour) + " x=\"" + coordinate(std::min(x0, x1)) + "\" y=\"" +
         coordinate(std::min(y0, y1)) + "\" width=\"" + coordinate(std::fabs(x1 - x0)) + "\" height=\"" +
         coordinate(std::fabs(y1 - y0)) + "\"><title>" + escaped(hint) + "</title></rect>\n";
}

}  // namespace

// Each colour has a shape of its own, so that no series is told by colour alone.
std::string Chart::dot(int colour, double x, double y) {
  switch (colour) {
    case 1:
      return "M" + xy(x - 3, y) + "a3 3 0 1 0 6 0a3 3 0 1 0 -6 0z";
    case 2:
      return "M" + xy(x - 2.7, y - 2.7) + "h5.4v5.4h-5.4z";
    case 3:
      return "M" + xy(x, y - 3.6) + "l3.5 6h-7z";
    case 4:
      return "M" + xy(x, y - 3.8) + "l3.8 3.8l-3.8 3.8l-3.8 -3.8z";
    default:
      return "M" + xy(x, y + 3.6) + "l3.5 -6h-7z";
  }
}

Chart& Chart::add(std::string name, Key key, Draw draw) {
  marks_.push_back({std::move(name), next_colour(), key, std::move(draw)});
  return *this;
}

void Chart::include(std::span<const double> x, std::span<const double> y) {
  for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
    if (!std::isfinite(x[i]) || !std::isfinite(y[i])) continue;
    x_.include(x[i]);
    y_.include(y[i]);
  }
}

void Chart::set_names(std::vector<std::string>& names, std::span<const std::string> labels, Range& range) {
  names.assign(labels.begin(), labels.end());
  range.include(-0.5);
  range.include(static_cast<double>(labels.size()) - 0.5);
}

void Chart::set_cells(std::size_t columns, std::size_t rows) {
  x_.include(0.0), x_.include(static_cast<double>(columns));
  y_.include(0.0), y_.include(static_cast<double>(rows));
  aspect_ = columns ? static_cast<double>(rows) / static_cast<double>(columns) : 1.0;
  down_ = true;
  round_y_ = false;
}

Chart& Chart::line(std::span<const double> x, std::span<const double> y, std::string name, bool dashed) {
  include(x, y);
  return add(std::move(name), dashed ? Key::kDashes : Key::kLine,
             [xs = copy_of(x), ys = copy_of(y), dashed, colour = next_colour()](const Frame& f, std::string& out) {
               out += "<path" + classes(dashed ? "line dashed" : "line", colour) + " d=\"";
               bool pen_down = false;
               for (std::size_t i = 0; i < std::min(xs.size(), ys.size()); ++i) {
                 const bool known = std::isfinite(xs[i]) && std::isfinite(ys[i]);
                 if (known) out += (pen_down ? "L" : "M") + xy(f.at_x(xs[i]), f.at_y(ys[i]));
                 pen_down = known;
               }
               out += "\"/>\n";
             });
}

Chart& Chart::scatter(std::span<const double> x, std::span<const double> y, std::string name) {
  include(x, y);
  return add(std::move(name), Key::kPoint,
             [xs = copy_of(x), ys = copy_of(y), colour = next_colour()](const Frame& f, std::string& out) {
               out += "<path" + classes("dot", colour) + " d=\"";
               for (std::size_t i = 0; i < std::min(xs.size(), ys.size()); ++i)
                 if (std::isfinite(xs[i]) && std::isfinite(ys[i])) out += dot(colour, f.at_x(xs[i]), f.at_y(ys[i]));
               out += "\"/>\n";
             });
}

Chart& Chart::stem(std::span<const double> x, std::span<const double> y, std::string name) {
  include(x, y);
  y_.include(0.0);
  return add(std::move(name), Key::kPoint,
             [xs = copy_of(x), ys = copy_of(y), colour = next_colour()](const Frame& f, std::string& out) {
               std::string stalks, heads;
               for (std::size_t i = 0; i < std::min(xs.size(), ys.size()); ++i) {
                 if (!std::isfinite(xs[i]) || !std::isfinite(ys[i])) continue;
                 stalks += "M" + xy(f.at_x(xs[i]), f.at_y(0.0)) + "V" + coordinate(f.at_y(ys[i]));
                 heads += dot(colour, f.at_x(xs[i]), f.at_y(ys[i]));
               }
               out += "<path" + classes("stalk", colour) + " d=\"" + stalks + "\"/>\n";
               out += "<path" + classes("dot", colour) + " d=\"" + heads + "\"/>\n";
             });
}

Chart& Chart::histogram(std::span<const double> counts, double first_edge, double width, std::string name) {
  for (const double count : counts) y_.include(count);
  y_.include(0.0);
  x_.include(first_edge);
  x_.include(first_edge + width * static_cast<double>(counts.size()));
  return add(std::move(name), Key::kBlock,
             [n = copy_of(counts), first_edge, width, colour = next_colour()](const Frame& f, std::string& out) {
               for (std::size_t i = 0; i < n.size(); ++i) {
                 if (!std::isfinite(n[i])) continue;
                 const double from = first_edge + width * static_cast<double>(i);
                 out += block("bin", colour, f.at_x(from), f.at_y(0.0), f.at_x(from + width), f.at_y(n[i]),
                              short_text(from) + " to " + short_text(from + width) + ": " + short_text(n[i]));
               }
             });
}

Chart& Chart::bars(std::span<const std::string> labels, std::span<const double> values, std::string name) {
  set_names(x_names_, labels, x_);
  y_.include(0.0);
  for (const double value : values) y_.include(value);
  return add(
      std::move(name), Key::kBlock,
      [names = x_names_, v = copy_of(values), at = bars_++, colour = next_colour()](const Frame& f, std::string& out) {
        const double width = 0.72 / f.bars;
        for (std::size_t i = 0; i < std::min(names.size(), v.size()); ++i) {
          if (!std::isfinite(v[i])) continue;
          const double from = static_cast<double>(i) - 0.36 + at * width;
          out += block("bar", colour, f.at_x(from), f.at_y(0.0), f.at_x(from + width), f.at_y(v[i]),
                       names[i] + ": " + short_text(v[i]));
        }
      });
}

Chart& Chart::bars_across(std::span<const std::string> labels, std::span<const double> values, std::string name) {
  set_names(y_names_, labels, y_);
  lying_ = down_ = true;
  x_.include(0.0);
  for (const double value : values) x_.include(value);
  return add(
      std::move(name), Key::kBlock,
      [names = y_names_, v = copy_of(values), at = bars_++, colour = next_colour()](const Frame& f, std::string& out) {
        const double width = 0.72 / f.bars;
        for (std::size_t i = 0; i < std::min(names.size(), v.size()); ++i) {
          if (!std::isfinite(v[i])) continue;
          const double from = static_cast<double>(i) - 0.36 + at * width;
          const std::string value = short_text(v[i], 3);
          out += block("bar", colour, f.at_x(0.0), f.at_y(from), f.at_x(v[i]), f.at_y(from + width),
                       names[i] + ": " + value);
          out += "<text class=\"value\" x=\"" + coordinate(f.at_x(std::max(v[i], 0.0)) + 5) + "\" y=\"" +
                 coordinate(f.at_y(from + width / 2)) + "\" dy=\".35em\">" + value + "</text>\n";
        }
      });
}

Chart& Chart::boxes(std::span<const std::string> labels, std::span<const Quartiles> values) {
  set_names(y_names_, labels, y_);
  lying_ = down_ = true;
  for (const auto& box : values) x_.include(box.low), x_.include(box.high);
  std::vector<Quartiles> copies(values.begin(), values.end());
  return add({}, Key::kBlock, [v = std::move(copies), colour = next_colour()](const Frame& f, std::string& out) {
    for (std::size_t i = 0; i < v.size(); ++i) {
      const double y = static_cast<double>(i), middle = f.at_y(y), top = f.at_y(y - 0.28), bottom = f.at_y(y + 0.28);
      const double low = f.at_x(v[i].low), high = f.at_x(v[i].high), q2 = f.at_x(v[i].median);
      out += "<path" + classes("stalk", colour) + " d=\"M" + xy(low, middle) + "H" + coordinate(f.at_x(v[i].q1)) + "M" +
             xy(f.at_x(v[i].q3), middle) + "H" + coordinate(high) + "M" + xy(low, middle - 6) + "v12M" +
             xy(high, middle - 6) + "v12\"/>\n";
      out += block("box", colour, f.at_x(v[i].q1), top, f.at_x(v[i].q3), bottom,
                   short_text(v[i].low) + ", " + short_text(v[i].q1) + ", " + short_text(v[i].median) + ", " +
                       short_text(v[i].q3) + ", " + short_text(v[i].high));
      out += "<path" + classes("median", colour) + " d=\"M" + xy(q2, top) + "V" + coordinate(bottom) + "\"/>\n";
    }
  });
}

Chart& Chart::heat_map(std::span<const double> cells, std::size_t columns, std::size_t rows, Colours colours,
                       double low, double high) {
  set_cells(columns, rows);
  colours_ = colours;
  if (low == high)
    for (const double cell : cells) shades_.include(cell);
  else
    shades_.include(low), shades_.include(high);
  return add({}, Key::kNone,
             [v = copy_of(cells), columns, rows, colours, shades = shades_](const Frame& f, std::string& out) {
               const double span = shades.high > shades.low ? shades.high - shades.low : 1.0;
               const auto colour_at = [&](std::size_t i) {
                 return i < v.size() && std::isfinite(v[i]) ? shade(colours, (v[i] - shades.low) / span) : "none";
               };
               out += "<g class=\"cells\">\n";
               for (std::size_t row = 0; row < rows; ++row) {
                 const double y = static_cast<double>(row), top = f.at_y(y), bottom = f.at_y(y + 1.0);
                 for (std::size_t from = 0, to = 0; from < columns; from = to) {  // cells of one colour in one run
                   const std::string fill = colour_at(row * columns + from);
                   for (to = from + 1; to < columns && colour_at(row * columns + to) == fill;) ++to;
                   out += "<path fill=\"" + fill + "\" d=\"M" + xy(f.at_x(static_cast<double>(from)), top) + "H" +
                          coordinate(f.at_x(static_cast<double>(to))) + "V" + coordinate(bottom) + "H" +
                          coordinate(f.at_x(static_cast<double>(from))) + "z\"/>\n";
                 }
               }
               out += "</g>\n";
             });
}

Chart& Chart::cell_names(std::span<const std::string> columns, std::span<const std::string> rows) {
  x_names_.assign(columns.begin(), columns.end());
  y_names_.assign(rows.begin(), rows.end());
  return *this;
}

Chart& Chart::image(std::span<const std::byte> png_file, std::size_t columns, std::size_t rows) {
  set_cells(columns, rows);
  return add({}, Key::kNone, [data = base64(png_file)](const Frame& f, std::string& out) {
    out += "<image x=\"" + coordinate(f.left) + "\" y=\"" + coordinate(f.top) + "\" width=\"" +
           coordinate(f.right - f.left) + "\" height=\"" + coordinate(f.bottom - f.top) +
           "\" preserveAspectRatio=\"none\" href=\"data:image/png;base64," + data + "\"/>\n";
  });
}

std::string shade(Colours colours, double part) {
  using Rgb = std::array<double, 3>;
  // Even steps of lightness, told apart with all kinds of colour vision.
  static constexpr std::array<Rgb, 5> kSequential = {
      {{22, 34, 84}, {56, 82, 126}, {106, 126, 134}, {176, 167, 114}, {250, 226, 90}}};
  static constexpr std::array<Rgb, 5> kDiverging = {
      {{16, 82, 148}, {116, 168, 212}, {245, 245, 242}, {238, 152, 96}, {172, 66, 4}}};
  const auto& stops = colours == Colours::kSequential ? kSequential : kDiverging;
  const double at = std::clamp(part, 0.0, 1.0) * 4.0;
  const auto k = std::min<std::size_t>(static_cast<std::size_t>(at), 3);
  std::string out = "#";
  for (std::size_t c = 0; c < 3; ++c) {
    const double mixed = stops[k][c] + (stops[k + 1][c] - stops[k][c]) * (at - static_cast<double>(k));
    const auto level = static_cast<unsigned>(std::lround(mixed));
    out += "0123456789abcdef"[level / 16];
    out += "0123456789abcdef"[level % 16];
  }
  return out;
}

}  // namespace plot
