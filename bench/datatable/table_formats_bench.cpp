#ifdef ZOR_PEER_PUGIXML
#include <pugixml.hpp>
#endif

#include <charconv>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/pair.h"
#include "zor/datatable/ZOR_datatable.h"

/// \file  Text forms of tables against the number conversions of the standard library, from and to memory.

namespace ZOR_datatable {
namespace {

namespace bench = zor::bench;

constexpr Integer kColumns = 10;

/// A table of n cells and its text; what is read, and room for the peer.
struct Text {
  TDataTable table, back;
  TMemoryStream stream;
  std::string text, out;
  std::vector<double> cells;
};

/// Results keep the data alive until they are compared. (A shared_ptr has a `reset`, which the harness would call.)
struct Shared {
  Text* operator->() const { return data.get(); }
  Text& operator*() const { return *data; }
  std::shared_ptr<Text> data = std::make_shared<Text>();
};

std::string_view text_of(const TMemoryStream& stream) {
  return {reinterpret_cast<const char*>(stream.Bytes().data()), stream.Bytes().size()};
}

Shared filled(std::size_t n) {
  Shared s;
  s->table.Resize(kColumns, static_cast<Integer>(n / kColumns));
  const std::vector<double> x = bench::noise(n);
  auto edit = s->table.NumericData->Edit();
  for (Integer c = 0; c < kColumns; ++c) {
    const auto column = edit.Column(c + 1);
    std::copy_n(x.begin() + c * static_cast<std::ptrdiff_t>(column.size()), column.size(), column.begin());
  }
  return s;
}

Shared csv(std::size_t n) {
  Shared s = filled(n);
  s->table.ExportAsCSV(&s->stream, 6, csvComma, false, false, false, false);
  s->text = text_of(s->stream);
  return s;
}

/// Cells in the order of the lines.
std::vector<double> rows_of(const TDataTable& t) {
  std::vector<double> cells;
  for (Integer r = 1; r <= t.NrOfRows(); ++r) {
    for (Integer c = 1; c <= t.NrOfColumns(); ++c) cells.push_back(t.GetVal(c, r));
  }
  return cells;
}

struct Cells {
  Shared source;
  bool by_us;
  std::vector<double> cells() const { return by_us ? rows_of(source->back) : source->cells; }
};
constexpr auto same_cells = [](const Cells& a, const Cells& b) { return a.cells() == b.cells(); };

ZOR_BENCH_PAIR(
    CsvRead, csv,
    [](Shared& s) {
      TCSVOptions options;
      options.Delimiter = csvComma, options.ColHeaders = false;
      s->stream.SetPosition(0);
      if (s->back.ImportFromCSV(&s->stream, options) != 0) std::abort();
      return Cells{s, true};
    },
    [](Shared& s) {
      s->cells.clear();
      const char* at = s->text.data();
      const char* const end = at + s->text.size();
      while (at < end) {
        double x = 0.0;
        at = std::from_chars(at, end, x).ptr + 1;
        s->cells.push_back(x);
      }
      return Cells{s, false};
    },
    same_cells)
    .against("std::from_chars over a buffer")
    .goal(1.2)
    .sizes({1'000'000})
    .remark("ours takes a stream, counts its records and makes columns, states and names");

struct Written {
  Shared source;
  std::string_view text;
};
constexpr auto same_text = [](const Written& a, const Written& b) { return a.text == b.text; };

ZOR_BENCH_PAIR(
    CsvWrite, csv,
    [](Shared& s) {
      s->stream.SetPosition(0);
      s->table.ExportAsCSV(&s->stream, 6, csvComma, false, false, false, false);
      return Written{s, text_of(s->stream)};
    },
    [](Shared& s) {
      s->out.resize(s->text.size() + 100);
      char* at = s->out.data();
      const Integer rows = s->table.NrOfRows();
      std::span<const double> columns[kColumns];
      for (Integer c = 0; c < kColumns; ++c) columns[c] = s->table.ColumnView(c + 1);
      for (std::size_t r = 0; r < static_cast<std::size_t>(rows); ++r) {
        for (Integer c = 0; c < kColumns; ++c) {
          char* const begin = at;
          at = std::to_chars(at, at + 40, columns[c][r], std::chars_format::fixed, 6).ptr;
          if (std::string_view(begin, static_cast<std::size_t>(at - begin)) == "-0.000000") {
            at = std::copy_n("0.000000", 8, begin);  // no minus where all digits are zero
          }
          *at++ = c + 1 < kColumns ? ',' : '\n';
        }
      }
      return Written{s, {s->out.data(), static_cast<std::size_t>(at - s->out.data())}};
    },
    same_text)
    .against("std::to_chars into a buffer")
    .goal(0.8)
    .sizes({1'000'000});

Shared xml(std::size_t n) {
  Shared s = filled(n);
  s->table.WriteToXMLStream(&s->stream, false, 0, "bench");
  s->text = text_of(s->stream);
  return s;
}

ZOR_BENCH_PAIR(
    TableXmlWrite, xml,
    [](Shared& s) {
      s->stream.SetPosition(0);
      s->table.WriteToXMLStream(&s->stream, false, 0, "bench");
      return Written{s, text_of(s->stream)};
    },
    [](Shared& s) {
      const std::string_view open = "<datacells>\n", head(s->text.data(), s->text.find(open) + open.size());
      s->out.resize(s->text.size() + 100);
      char* at = std::copy(head.begin(), head.end(), s->out.data());
      const auto put = [&at](std::string_view text) { at = std::copy(text.begin(), text.end(), at); };
      const auto number = [&at](auto x) { at = std::to_chars(at, at + 40, x).ptr; };
      for (Integer c = 1; c <= kColumns; ++c) {
        Integer r = 0;
        for (const double x : s->table.ColumnView(c)) {
          put("<cell ix=\"");
          number(c);
          put("\" iy=\"");
          number(++r);
          put("\">");
          number(x);
          put("</cell>\n");
        }
      }
      put("</datacells>\n</datatable>\n");
      return Written{s, {s->out.data(), static_cast<std::size_t>(at - s->out.data())}};
    },
    same_text)
    .against("std::to_chars into a buffer")
    .goal(1.1)
    .sizes({100'000})
    .remark("ours writes to a stream in memory; the peer copies all in front of the cells");

#ifdef ZOR_PEER_PUGIXML
ZOR_BENCH_PAIR(
    TableXmlRead, xml,
    [](Shared& s) {
      s->stream.SetPosition(0);
      if (!s->back.ReadFromXMLStream(&s->stream, "")) std::abort();
      return Cells{s, true};
    },
    [](Shared& s) {
      pugi::xml_document tree;
      if (!tree.load_buffer(s->text.data(), s->text.size())) std::abort();
      s->cells.assign(static_cast<std::size_t>(kColumns) * static_cast<std::size_t>(s->table.NrOfRows()), 0.0);
      const auto integer = [](const char* text) {
        std::size_t n = 0;
        std::from_chars(text, text + std::strlen(text), n);
        return n;
      };
      for (const pugi::xml_node cell : tree.child("datatable").child("datacells").children("cell")) {
        const std::size_t c = integer(cell.attribute("ix").value()), r = integer(cell.attribute("iy").value());
        const char* text = cell.child_value();
        const std::size_t place = (r - 1) * kColumns + c - 1;
        if (place < s->cells.size()) std::from_chars(text, text + std::strlen(text), s->cells[place]);
      }
      return Cells{s, false};
    },
    same_cells)
    .against("pugixml and std::from_chars")
    .goal(0.9)
    .sizes({100'000});
#endif

}  // namespace
}  // namespace ZOR_datatable
