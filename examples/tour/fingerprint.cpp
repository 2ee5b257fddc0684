#include <cmath>

#include "examples/tour/certified.h"
#include "examples/tour/chapter.h"
#include "examples/tour/csv.h"
#include "examples/tour/vectors.h"

using namespace ZOR_vector;
using namespace ZOR_zorbase;
using plot::short_text;

namespace {

std::string size_of(const std::string& file) { return std::to_string(std::filesystem::file_size(file)); }

// Smallest number of digits to which an element came back; 17 stands for all bits.
double digits_kept(const TVector& sent, const TVector& received) {
  double digits = 17.0;
  for (Integer i = 1; i <= sent.NrOfElem(); ++i)
    if (sent.GetVal(i) != received.GetVal(i))
      digits = std::fmin(digits, tour::digits_reached(received.GetVal(i), sent.GetVal(i)));
  return digits;
}

void three_forms(tour::Page& page, const TVector& sent) {
  const std::string asc = page.scratch("nile.asc").string(), plain = page.scratch("nile.txt").string();
  // [show]
  TVector a, b, c;
  TString comment;
  sent.ExportAsASC(asc, 15, "roots of the flow of the Nile");
  a.ImportASC(asc, comment);

  sent.StoreOnFile(0, 0, -2, plain);
  b.LoadFromFile(plain, true);

  TMemoryStream stream;
  sent.SaveToStream(stream, 0, 0);
  stream.SetPosition(0);
  c.LoadFromStream(&stream, true);

  const TString original = sent.CRCofData();
  // [/show]
  page.code();
  const auto same = [&](const TVector& v) { return std::string(v.CRCofData() == original ? "yes" : "NO"); };
  page.table({"form", "bytes", "same fingerprint"}, {{"ASC text, 15 decimals", size_of(asc), same(a)},
                                                     {"plain text, scientific", size_of(plain), same(b)},
                                                     {"stream", std::to_string(stream.Size()), same(c)}});
}

void run(tour::Page& page) {
  page.prose(
      "`CRCofData` boils a vector down to 64 characters. If a single bit of a single element differs, so does "
      "the text: two people can compare their data over the telephone.");
  const auto flow = tour::read_csv(page.data("nile.csv")).numbers("volume");
  TVector sent;
  sent.SetNrOfElem(static_cast<Integer>(flow.size()));
  for (std::size_t i = 0; i < flow.size(); ++i) sent.SetVal(static_cast<Integer>(i) + 1, std::sqrt(flow[i]));
  page.prose("A hundred square roots, numbers with all their digits in use, go out in three forms and come back:");
  three_forms(page, sent);
  page.prose("Their fingerprint: `" + sent.CRCofData().utf8() + "`");

  page.section("How many decimals does it take?");
  page.prose("Text with fewer decimals is easier to read, and loses something.");
  const std::string file = page.scratch("rounded.asc").string();
  std::vector<double> decimals, digits;
  double enough = 20.0;
  // [show]
  for (Integer n = 0; n <= 17; ++n) {
    TVector received;
    TString comment;
    sent.ExportAsASC(file, n, "");
    received.ImportASC(file, comment);
    decimals.push_back(n);
    digits.push_back(digits_kept(sent, received));
    if (received.CRCofData() == sent.CRCofData()) {
      enough = std::fmin(enough, n);
    }
  }
  // [/show]
  page.code();
  plot::Chart kept("Digits that survive in the worst element");
  kept.axes("decimals in the file", "digits (17: every bit)").stem(decimals, digits);
  page.figure(kept.mark_x(enough, "fingerprints agree"));

  page.section("What a fingerprint sees");
  page.prose(
      "Eight checksums run side by side, one for each byte of the elements, the least significant first. So the "
      "text also tells what kind of difference there is.");
  const auto changed = [&](const TVector& other) {
    const std::string text = sent.CRCofData().utf8(), now = other.CRCofData().utf8();
    std::vector<double> lanes;
    for (std::size_t k = 0; k < 64; k += 8) lanes.push_back(text.compare(k, 8, now, k, 8) != 0);
    return lanes;
  };
  // [show]
  TVector bit, sign, moved;
  bit.Assign(&sent);
  bit.SetVal(50, std::nextafter(sent.GetVal(50), 100.0));
  sign.Assign(&sent);
  sign.SetVal(50, -sent.GetVal(50));
  moved.Assign(&sent);
  moved.Mirror();
  // [/show]
  page.code();
  std::vector<double> cells;
  for (const TVector* other : {&bit, &sign, &moved})
    for (const double lane : changed(*other)) cells.push_back(lane);
  plot::Chart lanes("Which of the eight checksums changed (1) or not (0)");
  page.figure(
      lanes.axes("byte of the elements", "")
          .heat_map(cells, 8, 3, plot::Colours::kSequential, 0.0, 1.0)
          .cell_names(std::vector<std::string>{"1", "2", "3", "4", "5", "6", "7", "8"},
                      std::vector<std::string>{"last bit of one", "sign of one", "order reversed"}),
      "Byte 8 holds the sign and most of the exponent. All hundred roots agree in it, so their order leaves no trace.");
}

const tour::Register chapter({120, "fingerprint", "Save, load, compare", run});

}  // namespace
