#pragma once

#include <string_view>

#include "zor/datatable/table_types.h"
#include "zor/matrices/xml_vocabulary.h"

/// \file  The XML vocabulary of data tables: one element a line, in this order.
///
///     <datatable id="model">
///     <comment>free text</comment>
///     <size cols="2" rows="3"></size>
///     <colnames><col ix="1">len</col><col ix="2">grp</col></colnames>
///     <rownames><row ix="1">b</row><row ix="2">A</row><row ix="3">c</row></rownames>
///     <colattrib><col ix="1">0</col><col ix="2">300</col></colattrib>
///     <rowattrib><row ix="1">4</row><row ix="2">3</row><row ix="3">0</row></rowattrib>
///     <vardef ix="1" scale="Interval"></vardef>
///     <vardef ix="2" scale="Nominal"><idf ord="0">lo</idf><idf ord="1">hi</idf></vardef>
///     <datacells>
///     <cell ix="1" iy="1">1.5</cell>
///     <cell ix="2" iy="3" st="66">0</cell>
///     ... every cell once; `st`, the state, is left out when it is 0 ...
///     </datacells>
///     </datatable>
/// The characters for markup and quotes are written as entities, control characters as decimal references. Numbers that
/// are not finite are NAN, INF, -INF.

namespace ZOR_datatable {

/// Tags of a table in a document, in the order of their names in kTableXmlTags.
enum TDTxmlTags : Byte {
  xmlDataTableId = 0,
  xmlDataTableEndId = 1,
  xmlComment = 2,
  xmlSize = 3,
  xmlColNames = 4,
  xmlRowNames = 5,
  xmlColAttrib = 6,
  xmlRowAttrib = 7,
  xmlColId = 8,
  xmlRowId = 9,
  xmlDataCells = 10,
  xmlCellID = 11,
  xmlVarType = 12,
  xmlVarIdentifier = 13,
  xmlInvalid = 14
};

/// Names of the tags.
inline constexpr std::string_view kTableXmlTags[] = {"datatable", "/datatable", "comment",   "size", "colnames",
                                                     "rownames",  "colattrib",  "rowattrib", "col",  "row",
                                                     "datacells", "cell",       "vardef",    "idf",  "invalid"};

/// Results of ProcessXmlTag.
using ZOR_matrix::kXmlBadTag;
using ZOR_matrix::kXmlComplete;
using ZOR_matrix::kXmlGoOn;

}  // namespace ZOR_datatable
