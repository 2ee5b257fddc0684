#pragma once

#include "zor/datatable/csv_options.h"
#include "zor/datatable/table_statistics.h"
#include "zor/datatable/table_vocabulary.h"
#include "zor/runtime/streams.h"
#include "zor/runtime/string_list.h"
#include "zor/runtime/text_file.h"

/// \file  The data table. What holds for all of it stands in ZOR_datatable.h.

namespace ZOR_datatable {

/// Results of ImportASC and ReadFromASC; others are those of ReadHeaderOfASC, -1 to -4.
using ZOR_matrix::kBadRowAttribute;              // a row attribute is no number
using ZOR_matrix::kBadValue;                     // a cell is no number, or rows are missing
using ZOR_matrix::kNoSuchFile;                   // no file, no text on the clipboard, null
inline constexpr Integer kTooLarge = -9;         ///< More cells are announced than the file can hold.
inline constexpr Integer kUnfinishedName = -10;  ///< The file ends in a name.
inline constexpr Integer kBadBlock = -11;        ///< A block behind the rows is damaged.
inline constexpr Integer kPlaceOutside = -12;    ///< ReadFromASC: the place is outside of the table.
inline constexpr Integer kListFull = -13;        ///< ReadFromASC: no free slot for an identifier.
/// Results of PrepareSplitCounts and SplitDataSet.
inline constexpr Integer kBadSplitSize = -1;
inline constexpr Integer kNothingToSplit = -2;
inline constexpr Integer kBadSplitMode = -3;
inline constexpr Integer kFileExists = -4;        ///< Nothing was written.
inline constexpr Integer kCannotWriteParts = -5;  ///< Files of the call are removed.

/// The data table: model, edits and statistics are declared in its bases, exchange with files here.
///
/// Readers build aside: a code, or false, leaves the table as it was. What is read replaces all contents, while events,
/// matrix and its ownership stay: R if the size changed, then C K S N A. No file makes a reader allocate more than 16
/// MiB and some 32 times its own size. File names are written by replacing, so that a failure leaves an old file whole.
class ZOR_API TDataTable : public TTableStatistics {
 public:
  /// One column "C-1" and one row "R-1", cell 0.0. Throws EZORDataTableError "failed to initialize (out of memory)".
  explicit TDataTable(TComponent* AOwner = nullptr);
  /// A table of these columns; the longest sets the number of rows, cells that a shorter one lacks are empty.
  explicit TDataTable(std::initializer_list<TNamedColumn> list, TComponent* AOwner = nullptr);
  const char* ClassName() const noexcept override;

  /// \name ASC text; table_asc.cpp shows the form
  /// @{
  /// Numbers in fixed notation with Precision decimals, below 0 the shortest that read back exactly. Cells that are not
  /// numeric or not finite are NAN. Empty, or the text of the failure.
  TString ExportAsASC(const TString& FName, Integer Precision) const;
  TString ExportAsASC(const TString& FName, Integer Precision, const TStr2DArray& CustData) const;
  TString ExportAsASC(TStream* OutStream, Integer Precision) const;
  TString ExportAsASC(TTextFile& F, Integer Precision) const;
  /// NAN and ### are read as 0.0, empty. 0 or a code.
  Integer ImportASC(const TString& FName);
  Integer ImportASC(const TString& FName, TStr2DArray& CustData);
  Integer ImportASC(TStream* InStream);
  Integer ImportASC(TClipboard* ClipBd);
  /// Puts the cells of a file from (PosX, PosY) on into the table, whose size stays; what falls outside is dropped.
  /// With ReplaceIDs names, row attributes, scales and identifiers of that stretch come from the file: C K S N A. Else
  /// only numbers and states: in categorial columns an identifier of the file is looked up, case ignored, and added if
  /// it is new: C K, and S if one was. 0 or a code.
  Integer ReadFromASC(const TString& FName, Integer PosX, Integer PosY, Boolean ReplaceIDs);
  Integer ReadFromASC(TStream* InStream, Integer PosX, Integer PosY, Boolean ReplaceIDs);
  Integer ReadFromASC(TClipboard* ClipBd, Integer PosX, Integer PosY, Boolean ReplaceIDs);
  /// @}

  /// \name Delimited text; csv_options.h describes reading
  /// @{
  /// UTF-8, a line a row: [row name,] [attribute,] cells, behind [the comment] and [a line of column names]. Point as
  /// decimal sign; Precision decimals, below 0 the shortest exact text. Identifiers of categorial cells as text, an
  /// empty field for what is not numeric. Fields with delimiter, quote, line end or outer blanks stand in quotes.
  /// Empty, or the text of the failure.
  TString ExportAsCSV(const TString& FName, Integer Precision, TCSVDelimiters Delimiter, Boolean IncludeColHeaders,
                      Boolean IncludeRowHeaders) const;
  TString ExportAsCSV(const TString& FName, Integer Precision, TCSVDelimiters Delimiter, Boolean IncludeColHeaders,
                      Boolean IncludeRowHeaders, Boolean IncludeRowAttributes) const;
  TString ExportAsCSV(const TString& FName, Integer Precision, TCSVDelimiters Delimiter, Boolean IncludeColHeaders,
                      Boolean IncludeRowHeaders, Boolean IncludeRowAttributes, Boolean IncludeComment) const;
  TString ExportAsCSV(TStream* OutStream, Integer Precision, TCSVDelimiters Delimiter, Boolean IncludeColHeaders,
                      Boolean IncludeRowHeaders, Boolean IncludeRowAttributes, Boolean IncludeComment) const;
  /// 0, the number of bad cells (see CSVReport), or a code of csv_options.h. OnPercentDone fires meanwhile.
  Integer ImportFromCSV(const TString& FName, TCSVDelimiters Delimiter, Boolean IncludeColHeaders,
                        Boolean IncludeRowHeaders);
  /// Passes over the first NLinesSkip lines and takes no record that begins behind line LastImportLine (below 1: all).
  Integer ImportFromCSV(const TString& FName, TCSVDelimiters Delimiter, Integer NLinesSkip, Integer LastImportLine,
                        Boolean IncludeColHeaders, Boolean IncludeRowHeaders);
  Integer ImportFromCSV(const TString& FName, const TCSVOptions& Options);
  Integer ImportFromCSV(TStream* InStream, const TCSVOptions& Options);
  /// What the last ImportFromCSV found.
  const TCSVReport& CSVReport() const noexcept { return FCSVReport; }
  /// @}

  /// \name XML documents; table_vocabulary.h shows the form
  /// A load gives back the table exactly if numbers are written exactly: raw numbers, all identifiers and states.
  /// Precision 1 to 14 is the number of significant digits, others mean the shortest exact text. An empty DataID takes
  /// the first table of a document, else the first with this id.
  /// @{
  /// With the head of a document. What cannot be written raises EInOutError.
  void SaveAsXMLFile(const TString& FName, Integer Precision, const TString& DataID) const;
  /// A null stream does nothing.
  void WriteToXMLStream(TStream* OutStream, Boolean CreateHeader, Integer Precision, const TString& DataID) const;
  void WriteToOpenXMLFile(TTextFile& F, Boolean CreateHeader, Integer Precision, const TString& DataID) const;
  /// False if there is no such table, or it is not as the writers put it: an element is unknown, missing or twice, a
  /// list is short, an index outside. What stands before the table is passed over.
  Boolean LoadFromXMLFile(const TString& FName, const TString& DataID);
  Boolean ReadFromXMLStream(TStream* InStream, const TString& DataID);
  /// Reads on behind the end of the table.
  Boolean ReadFromOpenXMLFile(TTextFile& F, const TString& DataID);
  /// From character StartAt, from 1, which on success moves behind the table.
  Boolean ReadFromXMLString(const TString& InString, Integer& StartAt, const TString& DataID);
  /// Lets one element act on this table, with the events of the setters that it amounts to. For col, row, cell and idf,
  /// Extra is the name of the enclosing tag and Count the column of an idf, else the running number; the elements
  /// around them take these from their Content themselves. kXmlGoOn; kXmlComplete at the end tag; kXmlBadTag for an
  /// unknown element, and for what has no place or no meaning.
  Integer ProcessXmlTag(TDTxmlTags Tag, const TString& Attr, const TString& Content, const TString& Extra,
                        Integer Count);
  /// @}

  /// \name Parts and long form
  /// @{
  /// Sizes of the parts into which SplitDataSet cuts the table, in the order of the files, and their number. Columns
  /// (splitColumns) or rows (splitRows): parts of SplitSize lines, the last one takes the rest. splitTstTrn: SplitSize
  /// rows for a test, the others for training; with CreateAllPairs so many pairs that each row is tested once.
  /// kBadSplitSize, kNothingToSplit, kBadSplitMode.
  Integer PrepareSplitCounts(TDataSetSplitMode SplitMode, Integer SplitSize, Boolean CreateAllPairs,
                             TIntArray& DataCnts) const;
  /// Writes the parts and gives the number of files; their names go to FileNames, which may be null. Lines go to parts
  /// at random (Random), in blocks, or in turn, and keep their order within a part. The first run of "#" in the
  /// template becomes the number of the part, with leading zeros; without one "_001" goes before the extension; "tst"
  /// or "trn" stands before the number. The extension chooses the form: .xml, .csv (both headers), else ASC; numbers
  /// are exact. OnPercentDone after each file. Codes of PrepareSplitCounts, kFileExists, kCannotWriteParts.
  Integer SplitDataSet(TDataSetSplitMode SplitMode, TDataSelMode SelMode, Integer SplitSize, Boolean CreateAllPairs,
                       const TString& FNameTemplate, Boolean AllowOverWrite, TStringList* FileNames);
  /// Long form in place: one row for each cell, column by column. With ColHeadsAsVar column 1, "(column)", holds the
  /// number c of the old column, and NominalID(1, c - 1) is its label, "c:name" cut to 10: subtract 1 from the number
  /// to find it, since ElemNominal of the cell names the next column. With IncludeColRowNumbers follow "(col. index)"
  /// and
  /// "(row index)"; the last column, "(data)", holds the numbers, rounded in categorial columns, with the highest scale
  /// of the table, and the states; it has identifiers if all columns had the same ones. Rows have name and attribute of
  /// the old row. Events: those of the setters on the way but C, and S at the end.
  void Serialize(Boolean ColHeadsAsVar, Boolean IncludeColRowNumbers);
  /// @}

 private:
  void write_asc(TTextFile& file, Integer precision, const TString& origin, const TStr2DArray& custom) const;
  void write_csv(TTextFile& file, Integer precision, TCSVDelimiters delimiter, Boolean col_headers, Boolean row_headers,
                 Boolean attributes, Boolean comment) const;
  Integer import_asc(TTextFile& file, TStr2DArray* custom);
  Integer paste_asc(TTextFile& file, Integer col, Integer row, Boolean replace_ids);
  Integer paste(const TTableImage& image, Integer col, Integer row, Boolean replace_ids);
  Integer import_csv(std::string_view bytes, const TCSVOptions& options);
  Boolean read_xml(std::string_view text, const TString& id, std::size_t& taken);
  /// Puts an image in the place of all contents: R if the size changed, then C K S N A.
  void commit(TTableImage& image);
  /// The lines of a part as a table of its own, no event.
  void take_part(const TDataTable& from, TDims dim, std::span<const Integer> chosen);

  TCSVReport FCSVReport;
};

}  // namespace ZOR_datatable
