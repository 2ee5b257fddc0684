#include <fcntl.h>
#include <unistd.h>

#ifdef ZOR_PEER_PUGIXML
#include <pugixml.hpp>
#endif

#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "bench/pair.h"
#include "zor/matrices/ZOR_matrix.h"

namespace ZOR_matrix {
namespace {

namespace bench = zor::bench;

/// Data that results keep alive until they are compared. (A shared_ptr has a `reset`, which the harness would call.)
template <class T>
struct Shared {
  T* operator->() const { return data.get(); }
  T& operator*() const { return *data; }
  std::shared_ptr<T> data = std::make_shared<T>();
};

/// Name of a file of its own.
std::string scratch() {
  static int count = 0;
  const std::string name = "zor_bench_" + std::to_string(::getpid()) + '_' + std::to_string(++count);
  return (std::filesystem::temp_directory_path() / name).string();
}

std::unique_ptr<TMatrix> noise_matrix(std::size_t columns, std::size_t rows) {
  auto m = std::make_unique<TMatrix>();
  m->Resize(static_cast<Integer>(columns), static_cast<Integer>(rows));
  const auto x = bench::noise(columns * rows);
  auto edit = m->Edit();
  for (std::size_t c = 0; c < columns; ++c)
    std::copy_n(x.begin() + static_cast<std::ptrdiff_t>(c * rows), rows,
                edit.Column(static_cast<Integer>(c) + 1).begin());
  return m;
}

/// A square matrix of n cells, its record file, and the bytes of that file for the peer.
struct Records {
  ~Records() {
    for (const std::string& name : {ours, peer}) std::filesystem::remove(name);
  }
  std::unique_ptr<TMatrix> m;
  TMatrix back;  // what is read
  std::vector<char> bytes;
  std::string ours = scratch(), peer = scratch();
};

std::vector<char> contents(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

Shared<Records> records(std::size_t n) {
  auto r = Shared<Records>();
  const auto side = static_cast<std::size_t>(std::sqrt(static_cast<double>(n)));
  r->m = noise_matrix(side, side);
  r->m->SaveBinary(r->ours);
  r->bytes = contents(r->ours);
  return r;
}

constexpr std::size_t kPiece = std::size_t{1} << 20;

/// A file that was written, which lives as long as the records.
struct Saved {
  Shared<Records> source;
  const std::string& name;
};
constexpr auto same_files = [](const Saved& a, const Saved& b) { return contents(a.name) == contents(b.name); };

ZOR_BENCH_PAIR(
    BinarySave, records,
    [](Shared<Records>& r) {
      r->m->SaveBinary(r->ours);
      return Saved{r, r->ours};
    },
    [](Shared<Records>& r) {
      const int file = ::open(r->peer.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
      for (std::size_t at = 0; at < r->bytes.size();) {
        const auto put = ::write(file, r->bytes.data() + at, std::min(kPiece, r->bytes.size() - at));
        if (put <= 0) std::abort();
        at += static_cast<std::size_t>(put);
      }
      ::close(file);
      return Saved{r, r->peer};
    },
    same_files)
    .against("write(2) by 1 MiB")
    .goal(1.1)
    .sizes({4096 * 4096})
    .remark("ours turns columns into rows on the way");

/// Cells in the order of the file.
std::vector<double> rows_of(const TMatrix& m) {
  std::vector<double> cells;
  for (Integer r = 1; r <= m.NrOfRows(); ++r) {
    for (Integer c = 1; c <= m.NrOfColumns(); ++c) cells.push_back(m.GetVal(c, r));
  }
  return cells;
}

/// What a reader filled, compared only by the proof.
struct Loaded {
  Shared<Records> source;
  std::vector<double> cells() const {
    if (by_us) return rows_of(source->back);
    std::vector<double> x((source->bytes.size() - 4096) / 8);
    std::memcpy(x.data(), source->bytes.data() + 4096, x.size() * 8);
    x.resize(static_cast<std::size_t>(source->m->NrOfColumns()) * static_cast<std::size_t>(source->m->NrOfRows()));
    return x;
  }
  bool by_us;
};

ZOR_BENCH_PAIR(
    BinaryLoad, records,
    [](Shared<Records>& r) {
      r->back.LoadBinary(r->ours);
      return Loaded{r, true};
    },
    [](Shared<Records>& r) {
      const int file = ::open(r->ours.c_str(), O_RDONLY);
      for (std::size_t at = 0; at < r->bytes.size();) {
        const auto got = ::read(file, r->bytes.data() + at, std::min(kPiece, r->bytes.size() - at));
        if (got <= 0) std::abort();
        at += static_cast<std::size_t>(got);
      }
      ::close(file);
      return Loaded{r, false};
    },
    [](const Loaded& ours, const Loaded& peer) { return ours.cells() == peer.cells(); })
    .against("read(2) by 1 MiB")
    .goal(1.1)
    .sizes({4096 * 4096})
    .remark("ours turns rows into columns on the way, into fresh memory");

/// A matrix of 100 columns with n cells, its document, and room for the peer.
struct Document {
  std::unique_ptr<TMatrix> m;
  TMatrix back;  // what is read
  TMemoryStream stream;
  std::string text, out;
};

std::string_view text_of(const TMemoryStream& stream) {
  return {reinterpret_cast<const char*>(stream.Bytes().data()), stream.Bytes().size()};
}

/// The text that was written, the matrix that was read; compared only by the proof.
struct Written {
  Shared<Document> source;
  std::string_view text;
};
struct Read {
  Shared<Document> source;
  std::vector<double> cells;
};

Shared<Document> document(std::size_t n) {
  auto d = Shared<Document>();
  d->m = noise_matrix(100, n / 100);
  d->m->WriteToXMLStream(&d->stream, true, "bench");
  d->text = text_of(d->stream);
  return d;
}

ZOR_BENCH_PAIR(
    XmlWrite, document,
    [](Shared<Document>& d) {
      d->stream.SetPosition(0);
      d->m->WriteToXMLStream(&d->stream, true, "bench");
      return Written{d, text_of(d->stream)};
    },
    [](Shared<Document>& d) {
      const TMatrix& m = *d->m;
      d->out.resize(d->text.size() + 100);
      char* at = d->out.data();
      const auto put = [&at](std::string_view s) { at = std::copy(s.begin(), s.end(), at); };
      const auto number = [&at](auto x) { at = std::to_chars(at, at + 40, x).ptr; };
      put("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<matrix id=\"bench\">\n<numcols>");
      number(m.NrOfColumns());
      put("</numcols>\n<numrows>");
      number(m.NrOfRows());
      put("</numrows>\n");
      for (Integer c = 1; c <= m.NrOfColumns(); ++c) {
        Integer r = 0;
        for (const double x : m.Column(c)) {
          put("<cell ix=\"");
          number(c);
          put("\" iy=\"");
          number(++r);
          put("\">");
          number(x);
          put("</cell>\n");
        }
      }
      put("</matrix>\n");
      return Written{d, {d->out.data(), static_cast<std::size_t>(at - d->out.data())}};
    },
    [](const Written& ours, const Written& peer) { return ours.text == peer.text; })
    .against("std::to_chars into a buffer")
    .goal(1.1)
    .sizes({100'000})
    .remark("ours writes to a stream in memory");

#ifdef ZOR_PEER_PUGIXML
Read read_document(const Shared<Document>& d) {
  TTextFile file;
  file.AssignText(d->text);
  file.Reset();
  if (!d->back.ReadFromOpenXMLFile(file, "")) std::abort();
  return {d, {}};
}

std::vector<double> peer_document(Document& d) {
  pugi::xml_document tree;
  if (!tree.load_buffer(d.text.data(), d.text.size())) std::abort();
  const pugi::xml_node matrix = tree.child("matrix");
  const auto integer = [](const char* text) {
    std::size_t n = 0;
    std::from_chars(text, text + std::strlen(text), n);
    return n;
  };
  const std::size_t columns = integer(matrix.child_value("numcols")), rows = integer(matrix.child_value("numrows"));
  std::vector<double> cells(columns * rows);
  for (const pugi::xml_node cell : matrix.children("cell")) {
    const std::size_t c = integer(cell.attribute("ix").value()), r = integer(cell.attribute("iy").value());
    const char* text = cell.child_value();
    if (c - 1 < columns && r - 1 < rows)
      std::from_chars(text, text + std::strlen(text), cells[(r - 1) * columns + c - 1]);
  }
  return cells;
}

ZOR_BENCH_PAIR(
    XmlRead, document, [](Shared<Document>& d) { return read_document(d); },
    [](Shared<Document>& d) {
      return Read{d, peer_document(*d)};
    },
    [](const Read& ours, const Read& peer) { return rows_of(ours.source->back) == peer.cells; })
    .against("pugixml and std::from_chars")
    .goal(0.8)
    .sizes({100'000})
    .remark("both from a buffer");
#endif

}  // namespace
}  // namespace ZOR_matrix
