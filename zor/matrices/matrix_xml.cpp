#include <array>
#include <cstring>
#include <string>

#include "zor/base/reader_limits.h"
#include "zor/matrices/cell_text_internal.h"
#include "zor/matrices/matrix.h"
#include "zor/matrices/xml_reader_internal.h"
#include "zor/runtime/number_writer.h"
#include "zor/runtime/numbers.h"
#include "zor/runtime/text_file.h"
#include "zor/scalar/number_scan.h"

namespace ZOR_matrix {
namespace {

template <class T>
T content_value(const TString& content) {
  Integer at = 1;
  if constexpr (RealCell<T>) {
    return ZOR_math1::ScanFPNum(content, true, 1, at);
  } else {
    return ZOR_math1::ScanDecimal(content, at);
  }
}

}  // namespace

template <class Self, Cell T>
void MatrixCore<Self, T>::process_xml_cell(Integer col, Integer row, T value) {
  if (FirstCell) {
    FirstCell = false;
    Resize(FAuxCol, FAuxRow);
  }
  SetVal(col, row, value);
}

template <class Self, Cell T>
Integer MatrixCore<Self, T>::ProcessXmlTag(TMatXmlTag Tag, const TString& Attr, const TString& Content) {
  switch (Tag) {
    case xmlMatNumCols:
      FAuxCol = zor::detail::xml_number(Content);
      return kXmlGoOn;
    case xmlMatNumRows:
      FAuxRow = zor::detail::xml_number(Content);
      return kXmlGoOn;
    case xmlMatNumLayers:
    case xmlMatNumTimeSlots:
    case xmlMatBegin:
      return kXmlGoOn;
    case xmlMatCell:
      process_xml_cell(zor::detail::xml_index(Attr, u"ix"), zor::detail::xml_index(Attr, u"iy"),
                       content_value<T>(Content));
      return kXmlGoOn;
    case xmlMatEnd:
      FirstCell = true;
      return kXmlComplete;
    case xmlInvalid:
      break;
  }
  return kXmlBadTag;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::ReadFromOpenXMLFile(TTextFile& XMLFile, const TString& DataID) {
  constexpr std::array<std::string_view, 2> kIndices{"ix", "iy"};
  zor::detail::XmlMatrixReader reader(XMLFile, kIndices);
  Self made;
  if (!reader.find(DataID, made.FDataID)) return false;
  // Before the first cell, and at the end of a matrix without cells, the announced size is judged: it must stand there.
  const auto size_fits = [&] {
    const Int64 bytes = zor::detail::column_array_bytes<T>(made.FAuxCol, made.FAuxRow);
    return made.FAuxCol > 0 && made.FAuxRow > 0 && zor::detail::may_allocate(bytes, XMLFile.Remaining());
  };
  TString attributes, content;
  std::array<Integer, 2> at{};
  std::string_view text;
  for (Integer result = kXmlGoOn; result != kXmlComplete;) {
    if (reader.next_plain_cell(at, text)) {
      if (made.FirstCell && !size_fits()) return false;
      Double x = 0.0;
      const bool whole = RealCell<T> && zor::detail::read_cell(text, x);
      made.process_xml_cell(at[0], at[1], whole ? static_cast<T>(x) : content_value<T>(TString(text)));
      continue;
    }
    const TMatXmlTag tag = reader.next(attributes, content);
    if (made.FirstCell && (tag == xmlMatCell || tag == xmlMatEnd)) {
      if (!size_fits()) return false;
      if (tag == xmlMatEnd) made.Resize(made.FAuxCol, made.FAuxRow);
    }
    result = made.ProcessXmlTag(tag, attributes, content);
    if (result == kXmlBadTag) return false;
  }
  if (made.FNCol != made.FAuxCol || made.FNRow != made.FAuxRow) return false;
  FDataID = made.FDataID;
  renew_as_read(made.Mat);
  return true;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::ReadFromXMLStream(TStream* InStream, const TString& DataID) {
  if (!InStream) return false;
  TTextFile file;
  file.AssignStream(InStream);
  file.Reset();
  const Boolean result = ReadFromOpenXMLFile(file, DataID);
  file.Close();
  return result;
}

template <class Self, Cell T>
Boolean MatrixCore<Self, T>::LoadFromXMLFile(const TString& FName, const TString& DataID) {
  try {
    TTextFile file(FName);
    file.Reset();
    return ReadFromOpenXMLFile(file, DataID);
  } catch (const EInOutError&) {
    return false;
  }
}

template <class Self, Cell T>
void MatrixCore<Self, T>::WriteToOpenXMLFile(TTextFile& XMLFile, Boolean CreateHeader, const TString& DataID) const {
  using zor::detail::kNumberBuffer;
  zor::detail::write_xml_begin(XMLFile, CreateHeader, DataID.empty() ? FDataID : DataID);
  zor::detail::write_xml_size(XMLFile, xmlMatNumCols, FNCol);
  zor::detail::write_xml_size(XMLFile, xmlMatNumRows, FNRow);
  const zor::detail::CellFormat format(FPrecis[0], FPrecis[1]);
  for (Integer c = 1; c <= FNCol; ++c) {
    const std::string before = "<cell ix=\"" + std::to_string(c) + "\" iy=\"";
    constexpr std::string_view kBetween = "\">", kBehind = "</cell>\n";
    Integer r = 0;
    for (const T x : Column(c)) {
      char* const start = XMLFile.room(before.size() + kBetween.size() + kBehind.size() + 2 * kNumberBuffer);
      char* out = start;
      const auto put = [&out](std::string_view text) {
        std::memcpy(out, text.data(), text.size());
        out += text.size();
      };
      put(before);
      out += zor::detail::format_integer(out, ++r);
      put(kBetween);
      out += format.write(out, x);
      put(kBehind);
      XMLFile.took(static_cast<std::size_t>(out - start));
    }
  }
  zor::detail::write_xml_end(XMLFile);
}

template <class Self, Cell T>
void MatrixCore<Self, T>::WriteToXMLStream(TStream* OutStream, Boolean CreateHeader, const TString& DataID) const {
  if (!OutStream) return;
  TTextFile file;
  file.AssignStream(OutStream);
  file.Rewrite();
  WriteToOpenXMLFile(file, CreateHeader, DataID);
  file.Close();
}

template <class Self, Cell T>
void MatrixCore<Self, T>::SaveAsXMLFile(const TString& FName, const TString& DataID) const {
  TTextFile file(FName);
  file.Replace();
  WriteToOpenXMLFile(file, true, DataID);
  file.Close();
}

#define ZOR_INSTANCES(M, T)                                                                      \
  template void MatrixCore<M, T>::process_xml_cell(Integer, Integer, T);                         \
  template Integer MatrixCore<M, T>::ProcessXmlTag(TMatXmlTag, const TString&, const TString&);  \
  template Boolean MatrixCore<M, T>::ReadFromOpenXMLFile(TTextFile&, const TString&);            \
  template Boolean MatrixCore<M, T>::ReadFromXMLStream(TStream*, const TString&);                \
  template Boolean MatrixCore<M, T>::LoadFromXMLFile(const TString&, const TString&);            \
  template void MatrixCore<M, T>::WriteToOpenXMLFile(TTextFile&, Boolean, const TString&) const; \
  template void MatrixCore<M, T>::WriteToXMLStream(TStream*, Boolean, const TString&) const;     \
  template void MatrixCore<M, T>::SaveAsXMLFile(const TString&, const TString&) const;

ZOR_INSTANCES(TMatrix, Double)

}  // namespace ZOR_matrix
