// Writes the seeds of the fuzz targets with the writers of the library: make_seeds <folder fuzz/seeds>.
#include <array>
#include <filesystem>
#include <iostream>
#include <string>

#include "zor/analysis/ZOR_math2.h"
#include "zor/base/asc_codec.h"
#include "zor/base/record_codec.h"
#include "zor/datatable/ZOR_datatable.h"
#include "zor/matrices/ZOR_matrix.h"
#include "zor/scalar/ZOR_math1.h"
#include "zor/vectors/ZOR_vector.h"

namespace {

using namespace ZOR_zorbase;
using namespace std::literals;
namespace detail = zor::detail;

void write_asc(const std::string& name, detail::AscHeader header, Integer flags) {
  TTextFile file(name);
  file.Rewrite();
  write_asc_header(file, header, flags);
  if (header.ColNames) {
    for (Integer col = 0; col < header.NrCols; ++col) {
      if (col > 0) file.Write("\t");
      detail::write_asc_name(file, "col " + ZOR_runtime::IntToStr(col + 1));
    }
    file.WriteLn();
  }
  for (Integer row = 0; row < header.NrRows; ++row) {
    if (header.RowAttrib) file.WriteInteger(row), file.Write("\t");
    if (header.RowNames) detail::write_asc_name(file, "Zeile \u00E4 \"1\""), file.Write("\t");
    for (Integer col = 0; col < header.NrCols; ++col) {
      if (col > 0) file.Write("\t");
      if (row == 1 && col == 1) {
        file.Write("NAN");
      } else {
        file.WriteFloat(row + 0.1 * col, 12, 3);
      }
    }
    file.WriteLn();
  }
  file.Close();
}

void write_text(const std::string& name, std::string_view text) {
  TTextFile file(name);
  file.Rewrite();
  file.Write(text);
  file.Close();
}

void write_records(const std::string& name, const detail::RecordHead& head) {
  detail::RecordFileWriter writer(name, head);
  for (Int64 i = 0; i < head.cells(); ++i) {
    const Double x = 0.5 * static_cast<Double>(i);
    const Integer n = static_cast<Integer>(i);
    if (head.Format == detail::kIntegerCells) {
      writer.write(std::span<const Integer>(&n, 1));
    } else {
      writer.write(std::span<const Double>(&x, 1));
    }
  }
  writer.finish();
}

/// What a vector wrote, behind the byte that chooses its form.
void write_form(const std::string& name, char form, TMemoryStream& written) {
  TFileStream file(name, ZOR_runtime::fmCreate);
  file.WriteBuffer(&form, 1);
  file.CopyFrom(written, 0);
}

void write_vectors(const std::string& folder) {
  ZOR_vector::TVector v;
  ZOR_vector::TIntVector n;
  v.Resize(4), n.Resize(4);
  v.FillSerial(-1.5, 0.25), n.FillSerial(-2, 3);
  const std::string scratch = folder + "scratch";
  TMemoryStream written;
  const auto keep = [&](const char* name, char form) {
    written.LoadFromFile(scratch);
    write_form(folder + name, form, written);
  };
  v.ExportAsASC(scratch, 3, "seed"), keep("asc", 0);
  v.StoreOnFile(2, 4, -2, scratch), keep("plain", 1);
  n.ExportAsASC(scratch, "seed"), keep("int_asc", 3);
  n.StoreOnFile(2, 4, scratch), keep("int_plain", 5);
  std::filesystem::remove(scratch);
  TMemoryStream stream;
  v.SaveToStream(static_cast<TStream&>(stream), 2, 4), write_form(folder + "stream", 7, stream);
  stream.Clear();
  n.SaveToStream(static_cast<TStream&>(stream), 2, 4), write_form(folder + "int_stream", 9, stream);
  write_text(folder + "marked", "\x06head\n1.5 //dig\nx //dig\n2 //dig 9\n");
}

/// A byte of options (1: exponents and plain angles, 2 and 4: separators, from 8 on: language), a format, the text.
void write_number_text(const std::string& folder) {
  using namespace ZOR_math1;
  write_text(folder + "floats", "\x03\n -7 2.5E3 mm .5 1..2 1e5.2 1ex +.e 4.9e-324 2e308 17976931348623157" +
                                    strf(-1e-300, 30, -1).utf8() + MakeEFormat(1e99, 20, 12).utf8());
  write_text(folder + "commas", "\x07\n1,5 1.5,2 ,5 -,e 3.1415926535897932384626433832795");
  write_text(folder + "integers", "\x02\n" + (Hex(-2, 16) + " " + Octal(-1, 11) + " " + Bin(5, 32)).utf8() +
                                      " -2147483648 +2147483648 99999999999999999999");
  TString angles = "\x01\n";
  for (const TDegreeFormat format : {dfDecimal, dfDegMin, dfDegMinSec, dfPlain})
    angles += DegreeToStr(-0.5, format, 0) + " " + DegreeToStr(359.99999, format, 4) + ", ";
  write_text(folder + "angles", angles.utf8() + "10\u00B0 20\u2032 30\u2033 1\u00B060'60'' 5\u00B0 61'");
  write_text(folder + "dates",
             "\x08"
             "ddd, d. mmmm yyyy h:n:s.zzz am/pm\nMontag, 4. M\u00E4rz 2024 12:30:59.250 PM!");
  write_text(folder + "short_dates",
             "\x10"
             "dd/mmm/yy\n1/juin/49 29/f\u00E9v/50 30/f\u00E9v/24 1/jui/24");
}

void write_matrices(const std::string& folder) {
  ZOR_matrix::TMatrix m;
  m.Resize(3, 2);
  m.FillSerial(-1.5, 0.25);
  m.SetDataID("a<b");
  const std::string scratch = folder + "scratch";
  TMemoryStream written;
  const auto keep = [&](const char* name, char form) {
    written.LoadFromFile(scratch);
    write_form(folder + name, form, written);
  };
  m.SaveAsXMLFile(scratch, ""), keep("xml", 0);
  m.SaveBinary(scratch), keep("records", 3);
  m.ExportAsASC(scratch, 3, "seed", {{"a", "b\t"}, {"\"", ""}}), keep("asc", 4);
  m.StoreOnFile(2, 1, 3, 2, scratch), keep("plain", 5);
  std::filesystem::remove(scratch);
  TMemoryStream stream;
  m.SaveToStream(static_cast<TStream&>(stream), 2, 1, 3, 2), write_form(folder + "stream", 1, stream);
  write_text(folder + "marked", "\x06head\n1.5 2 //dig\nx //dig\n2 3 4 //dig 9\n");
  write_text(folder + "foreign_xml",
             "\x08<?p?><!-- <matrix> --><a><matrix id='no'/></a><matrix id = 'x'><numrows> 2</numrows><numcols>1 "
             "</numcols><cell iy='2' ix='1'> 7.5\n</cell><cell ix=\"1\" iy=\"1\">4</cell></matrix>");
}

void write_tables(const std::string& folder) {
  ZOR_datatable::TDataTable t({{"len", {1.5, -2e300, 0.1}}, {"grp", {"lo", "hi \"<", "lo"}}, {"gap", {1, 2}}});
  t.SetIsImputed(1, 2, true);
  t.SetRowAttrib(3, -7);
  t.SetComment("seed");
  TMemoryStream written;
  t.WriteToXMLStream(&written, true, 0, "a"), write_form(folder + "xml", 1, written);
  write_form(folder + "xml_text", 2, written);
  written.Clear();
  t.ExportAsASC(&written, 3), write_form(folder + "asc", 0, written);
  written.Clear();
  t.ExportAsCSV(&written, -1, csvComma, true, true, false, false), write_form(folder + "csv", 3, written);
  write_form(folder + "csv_headers", 28, written);
  write_text(folder + "bad_csv", "\x03\xEF\xBB\xBF# x\n\"a,\n\";b\r\n1,5;x\r2;NA;more\n;\"q\"\"\"\n");
  write_text(folder + "blanks", "\x27 1  2\n#\n 3 \"4 5\" \n");
  write_text(folder + "quoted_asc",
             "\x00"
             "c\n2\n1\nFALSE TRUE FALSE TRUE\nx y\n\"a\" ###\n;custdata\t1\t1\n\"\\n\"\n"sv);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "make_seeds <folder>\n";
    return 2;
  }
  const std::string root = std::string(argv[1]) + "/";
  for (const char* target : {"asc", "tags", "record_file", "text_file", "vector", "matrix", "number_text", "table"})
    std::filesystem::create_directories(root + target);

  write_asc(root + "asc/vector", {"one column", 1, 4, false, false, false, false}, 4);
  write_asc(root + "asc/table", {"names and attributes", 3, 3, true, true, true, true}, 4);
  write_asc(root + "asc/fit", {"three flags", 2, 2, false, false, false, false}, 3);
  write_asc(root + "asc/empty", {"no rows", 2, 0, false, true, false, false}, 4);
  write_text(root + "asc/bare_names", "c\n2\t;\n1\t;\nFALSE TRUE FALSE\nx   y\n1.5\t-2e3\n");
  write_text(root + "asc/crlf_huge", "c\r\n1\r\n2147483647\r\nFALSE FALSE FALSE FALSE\r\n1\r\n###");

  for (const int pairs : {0, 1, 5}) {
    ZOR_math2::TCurveFit fit;
    for (int i = 0; i < pairs; ++i) fit.EnterStatValue(i * 1.5, -i / 3.0);
    fit.ExportAsASC(root + "curve_fit/pairs" + std::to_string(pairs), "pairs", 3 * pairs);
  }
  write_asc(root + "curve_fit/attributes", {"names and attributes", 2, 3, true, false, true, true}, 4);

  write_text(root + "tags/matrix",
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<matrix id=\"a\">\n<numcols>2</numcols>\n"
             "<numrows>1</numrows>\n<cell ix=\"1\" iy=\"1\">1.5</cell>\n<cell ix=\"2\" iy=\"1\"/>\n</matrix>\n");
  write_text(root + "tags/nested", "<x>a<x>b</x><!-- </x> --><![CDATA[</x>]]></x><other><x></x></other><x \"'>\" >");
  write_text(root + "tags/open", "<x><other><x><matrix/ ><</x><x");
  write_text(root + "tags/doctype", "<!DOCTYPE a [<!ENTITY b \"]>\">]><?p?><cell \u00E4='>'>\u20AC</cell>");

  write_records(root + "record_file/matrix", {3, 2, 0, 0, "matrix", detail::kDoubleCells});
  write_records(root + "record_file/integers", {5, 1, 0, 0, "", detail::kIntegerCells});
  write_records(root + "record_file/time_slots", {8, 8, 3, 3, "four dimensions", detail::kDoubleCells});

  write_text(root + "text_file/words", "\x03\x01\x02\x03 one 2.5 \u00A03\u00A0\r\n\u20AC\U0001F600 x\n\n-7 1e400 end");
  write_text(root + "text_file/lines", "\x02\0\6\nfirst\r\nsecond\rx\n\xFF\xC3\0last"sv);
  write_vectors(root + "vector/");
  write_number_text(root + "number_text/");
  write_matrices(root + "matrix/");
  write_tables(root + "table/");
  return 0;
}
