#include "examples/plot/chart.h"

#include <algorithm>
#include <cmath>

#include "examples/plot/markup.h"

namespace plot {
namespace {

constexpr double kWidth = 560.0;
constexpr double kLetter = 8.8;  // width of a letter, with room for the larger type of narrow screens

double width_of(std::string_view text) {
  return kLetter * static_cast<double>(std::count_if(text.begin(), text.end(), [](char c) {
           return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
         }));
}

std::string text(std::string_view kind, double x, double y, std::string_view words) {
  return "<text class=\"" + std::string(kind) + "\" x=\"" + coordinate(x) + "\" y=\"" + coordinate(y) + "\">" +
         escaped(words) + "</text>\n";
}

std::string path(std::string_view kind, std::string_view d) {
  return "<path class=\"" + std::string(kind) + "\" d=\"" + std::string(d) + "\"/>\n";
}

std::string move(double x, double y) { return "M" + coordinate(x) + " " + coordinate(y); }

// A range to draw in: not empty, not a single point.
Range drawable(Range range) {
  if (range.empty()) return {0.0, 1.0};
  if (range.low < range.high) return range;
  const double room = range.low == 0.0 ? 1.0 : 0.1 * std::fabs(range.low);
  return {range.low - room, range.high + room};
}

int marks_wanted(double units, double apart) { return std::max(2, static_cast<int>(units / apart)); }

int exponent_of(const Range& range) { return common_exponent(std::max(std::fabs(range.low), std::fabs(range.high))); }

std::string tick_text(const Ticks& ticks, int i, int exponent) {
  const double unit = std::pow(10.0, exponent);
  return number_text(ticks.at(i) / unit, ticks.step / unit);
}

std::string axis_title(const std::string& title, int exponent) {
  if (exponent == 0) return title;
  return title.empty() ? exponent_text(exponent) : title + " (" + exponent_text(exponent) + ")";
}

// The range widened to the next tick on both sides. A wider range may get other ticks, hence a few rounds.
Range rounded(Range range, TickRule rule, int wanted) {
  for (int round = 0; round < 3; ++round) {
    const Ticks ticks = rule(range.low, range.high, wanted);
    if (ticks.count == 0) break;
    const double slack = 1e-9 * ticks.step, last = ticks.at(ticks.count - 1);
    range = {range.low < ticks.first - slack ? ticks.first - ticks.step : ticks.first,
             range.high > last + slack ? last + ticks.step : last};
  }
  return range;
}

}  // namespace

Chart& Chart::axes(std::string x_title, std::string y_title) {
  x_title_ = std::move(x_title);
  y_title_ = std::move(y_title);
  return *this;
}

Chart& Chart::x_range(double low, double high) {
  x_.include(low), x_.include(high);
  return *this;
}

Chart& Chart::y_range(double low, double high) {
  y_.include(low), y_.include(high);
  return *this;
}

Chart& Chart::height(double units) {
  height_ = units;
  return *this;
}

Chart& Chart::tick_rule(TickRule rule) {
  ticks_ = rule;
  return *this;
}

Chart& Chart::mark_x(double value, std::string label) {
  x_.include(value);
  x_rules_.push_back({value, std::move(label)});
  return *this;
}

Chart& Chart::mark_y(double value, std::string label) {
  y_.include(value);
  y_rules_.push_back({value, std::move(label)});
  return *this;
}

Frame Chart::layout(double top) const {
  Frame f{0.0, top, kWidth - 20.0, 0.0, drawable(x_), drawable(y_), down_, std::max(bars_, 1)};
  if (!x_rules_.empty()) f.top += 30.0;
  const double below = x_title_.empty() ? 28.0 : 50.0;
  const double row = bars_ > 1 ? 16.0 * bars_ + 12.0 : 34.0;
  f.bottom = f.top + (lying_ ? row * static_cast<double>(y_names_.size()) : std::max(60.0, height_ - f.top - below));
  if (lying_) {
    f.x = rounded(f.x, ticks_, marks_wanted(kWidth, 90.0));
  } else if (y_names_.empty() && round_y_) {
    f.y = rounded(f.y, ticks_, marks_wanted(f.bottom - f.top, 45.0));
  }
  double widest = 0.0;
  for (const auto& name : y_names_) widest = std::max(widest, width_of(name));
  if (y_names_.empty()) {
    const Ticks ticks = ticks_(f.y.low, f.y.high, marks_wanted(f.bottom - f.top, 45.0));
    for (int i = 0; i < ticks.count; ++i) widest = std::max(widest, width_of(tick_text(ticks, i, exponent_of(f.y))));
  }
  f.left = widest + 14.0;
  if (!shades_.empty()) f.right -= 66.0;
  double beside = 0.0;
  for (const Rule& rule : y_rules_) beside = std::max(beside, width_of(rule.label));
  f.right -= beside;
  if (lying_ && bars_ > 0) f.right -= 30.0;  // for the values at the ends
  if (aspect_ > 0.0) {
    const double room = 400.0, width = std::min(f.right - f.left, room / aspect_);
    f.right = f.left + width;
    f.bottom = f.top + width * aspect_;
  }
  return f;
}

void Chart::draw_legend(double& top, std::string& out) const {
  const auto named = std::count_if(marks_.begin(), marks_.end(), [](const Mark& m) { return !m.name.empty(); });
  if (named < 2) return;
  double x = 0.0;
  top += 22.0;
  for (const Mark& mark : marks_) {
    if (mark.name.empty()) continue;
    const double width = 40.0 + width_of(mark.name);
    if (x > 0.0 && x + width > kWidth) x = 0.0, top += 20.0;
    const std::string colour = " c" + std::to_string(mark.colour);
    switch (mark.key) {
      case Key::kLine:
        out += path("line" + colour, move(x, top - 5) + "h18");
        break;
      case Key::kDashes:
        out += path("line dashed" + colour, move(x, top - 5) + "h18");
        break;
      case Key::kPoint:
        out += path("dot" + colour, move(x + 5, top - 5) + "a4 4 0 1 0 8 0a4 4 0 1 0 -8 0z");
        break;
      case Key::kBlock:
        out += path("bar" + colour, move(x + 3, top - 11) + "h12v12h-12z");
        break;
      case Key::kNone:
        break;
    }
    out += text("key", x + 24, top, mark.name);
    x += width;
  }
}

void Chart::draw_x_axis(const Frame& f, std::string& out) const {
  const double base = !lying_ && aspect_ == 0.0 && f.y.low < 0.0 && f.y.high > 0.0 && !down_ ? f.at_y(0.0) : f.bottom;
  int exponent = 0;
  if (!x_names_.empty()) {
    const double middle = aspect_ > 0.0 ? 0.5 : 0.0;
    for (std::size_t i = 0; i < x_names_.size(); ++i)
      out += text("tick x", f.at_x(static_cast<double>(i) + middle), f.bottom + 19, x_names_[i]);
  } else {
    const Ticks ticks = ticks_(f.x.low, f.x.high, marks_wanted(f.right - f.left, 80.0));
    exponent = exponent_of(f.x);
    std::string marks;
    for (int i = 0; i < ticks.count; ++i) {
      const double x = f.at_x(ticks.at(i));
      marks += lying_ ? move(x, f.top) + "V" + coordinate(f.bottom) : move(x, f.bottom) + "v5";
      out += text("tick x", x, f.bottom + 19, tick_text(ticks, i, exponent));
    }
    out += path(lying_ ? "grid" : "axis", marks);
  }
  if (!lying_ && aspect_ == 0.0) out += path("axis", move(f.left, base) + "H" + coordinate(f.right));
  if (const auto title = axis_title(x_title_, exponent); !title.empty())
    out += text("title x", (f.left + f.right) / 2, f.bottom + 42, title);
}

void Chart::draw_y_axis(const Frame& f, std::string& out) const {
  if (!y_names_.empty()) {
    const double middle = aspect_ > 0.0 ? 0.5 : 0.0;
    for (std::size_t i = 0; i < y_names_.size(); ++i)
      out += text("tick y", f.left - 9, f.at_y(static_cast<double>(i) + middle) + 4, y_names_[i]);
    return;
  }
  const Ticks ticks = ticks_(f.y.low, f.y.high, marks_wanted(f.bottom - f.top, 45.0));
  std::string marks;
  for (int i = 0; i < ticks.count; ++i) {
    const double y = f.at_y(ticks.at(i));
    marks += aspect_ > 0.0 ? move(f.left - 5, y) + "h5" : move(f.left, y) + "H" + coordinate(f.right);
    out += text("tick y", f.left - 9, y + 4, tick_text(ticks, i, exponent_of(f.y)));
  }
  out += path(aspect_ > 0.0 ? "axis" : "grid", marks);
}

void Chart::draw_rules(const Frame& f, std::string& out) const {
  double end_of_row[2] = {-1e9, -1e9};  // labels take the upper row where the lower one is taken
  auto rules = x_rules_;
  std::sort(rules.begin(), rules.end(), [](const Rule& a, const Rule& b) { return a.value < b.value; });
  for (const Rule& rule : rules) {
    const double x = f.at_x(rule.value), half = width_of(rule.label) / 2;
    const int row = x - half < end_of_row[0] + 4 ? 1 : 0;
    end_of_row[row] = x + half;
    out += path("rule", move(x, f.top - 4 - 14 * row) + "V" + coordinate(f.bottom));
    const double centre = std::clamp(x, f.left + half, std::max(f.left + half, kWidth - half));
    out += text("note x", centre, f.top - 8 - 14 * row, rule.label);
  }
  for (const Rule& rule : y_rules_) {
    const double y = f.at_y(rule.value);
    out += path("rule", move(f.left, y) + "H" + coordinate(f.right));
    out += text("note", f.right + 6, y + 4, rule.label);
  }
}

void Chart::draw_colour_scale(const Frame& f, std::string& out) const {
  if (shades_.empty()) return;
  const double left = f.right + 14.0;
  const int steps = 32;
  out += "<g class=\"cells\">\n";
  for (int i = 0; i < steps; ++i) {
    const double part = static_cast<double>(i) / steps, height = (f.bottom - f.top) / steps;
    out += "<path fill=\"" + shade(colours_, part + 0.5 / steps) + "\" d=\"" +
           move(left, f.bottom - part * (f.bottom - f.top)) + "h12v" + coordinate(-height - 0.3) + "h-12z\"/>\n";
  }
  out += "</g>\n";
  Frame scale = f;
  scale.y = drawable(shades_);
  scale.down = false;
  const Ticks ticks = ticks_(scale.y.low, scale.y.high, marks_wanted(f.bottom - f.top, 50.0));
  for (int i = 0; i < ticks.count; ++i)
    out += text("tick", left + 18, scale.at_y(ticks.at(i)) + 4, number_text(ticks.at(i), ticks.step));
}

std::string Chart::svg() const {
  std::string body;
  double top = 18.0;
  body += text("head", 0, top, title_);
  draw_legend(top, body);
  const int exponent = y_names_.empty() ? exponent_of(drawable(y_)) : 0;
  if (const auto title = axis_title(y_title_, exponent); !title.empty()) {
    top += 24.0;
    body += text("title", 0, top, title);
  }
  const Frame f = layout(top + 18.0);
  draw_y_axis(f, body);
  draw_x_axis(f, body);
  for (const Mark& mark : marks_) mark.draw(f, body);
  draw_rules(f, body);
  draw_colour_scale(f, body);
  const double height = f.bottom + (x_title_.empty() ? 28.0 : 50.0);
  return "<svg class=\"plot\" xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + coordinate(kWidth) + " " +
         coordinate(height) + "\" role=\"img\" aria-label=\"" + escaped(title_) + "\">\n" + body + "</svg>\n";
}

std::string_view style_sheet() {
  return R"css(:root {
  color-scheme: light dark;
  --plot-1: #1a70b5; --plot-2: #cf5300; --plot-3: #0b5d46; --plot-4: #b0458f; --plot-5: #2f3b4c;
  --plot-ink: #1d232b; --plot-muted: #56606c; --plot-grid: #e3e6ea; --plot-axis: #8b95a1;
}
@media (prefers-color-scheme: dark) {
  :root {
    --plot-1: #58b2f0; --plot-2: #f58a3c; --plot-3: #2a9d76; --plot-4: #efb0dc; --plot-5: #a3abba;
    --plot-ink: #e8ebef; --plot-muted: #a4aebb; --plot-grid: #2c333c; --plot-axis: #6d7885;
  }
}
.plot { width: 100%; height: auto; display: block; font: 13px system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
.plot text { fill: var(--plot-muted); font-variant-numeric: tabular-nums; }
.plot .head { fill: var(--plot-ink); font-size: 15px; font-weight: 600; }
.plot .key, .plot .value, .plot .note { fill: var(--plot-ink); }
.plot text.x { text-anchor: middle; }
.plot text.y { text-anchor: end; }
.plot .c1 { --c: var(--plot-1); } .plot .c2 { --c: var(--plot-2); } .plot .c3 { --c: var(--plot-3); }
.plot .c4 { --c: var(--plot-4); } .plot .c5 { --c: var(--plot-5); }
.plot .line { fill: none; stroke: var(--c); stroke-width: 1.6; stroke-linejoin: round; }
.plot .dashed { stroke-dasharray: 6 4; }
.plot .dot { fill: var(--c); fill-opacity: .8; }
.plot .stalk { fill: none; stroke: var(--c); stroke-width: 1.4; }
.plot .bar { fill: var(--c); }
.plot .bin { fill: var(--c); fill-opacity: .75; stroke: var(--c); }
.plot .box { fill: var(--c); fill-opacity: .25; stroke: var(--c); stroke-width: 1.4; }
.plot .median { stroke: var(--c); stroke-width: 3; }
.plot .grid { stroke: var(--plot-grid); fill: none; }
.plot .axis { stroke: var(--plot-axis); fill: none; }
.plot .rule { stroke: var(--plot-ink); stroke-width: 1; stroke-dasharray: 2 3; fill: none; opacity: .75; }
.plot .cells { shape-rendering: crispEdges; }
.plot image { image-rendering: pixelated; }
@media (max-width: 640px) {
  .plot { font-size: 16px; }
  .plot .head { font-size: 18px; }
}
)css";
}

}  // namespace plot
