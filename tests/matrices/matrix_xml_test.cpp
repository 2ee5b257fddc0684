#include <limits>

#include "tests/matrices/matrix_util.h"
#include "tests/temp_file.h"
#include "zor/runtime/cell_memory.h"

namespace ZOR_matrix {
namespace {

using zor::test::TempFile;
using Limits = std::numeric_limits<Double>;

/// Reads a document into a matrix; the result is in `good`.
struct Read {
  explicit Read(std::string_view document, const TString& id = "") {
    m.Resize(1, 1);
    m.SetVal(1, 1, 99.0);
    m.SetDataID("old");
    TTextFile file;
    file.AssignText(document);
    file.Reset();
    good = m.ReadFromOpenXMLFile(file, id);
  }
  TMatrix m;
  bool good = false;
};

std::string document(const TMatrix& m, const TString& id = "", bool header = false) {
  TMemoryStream stream;
  m.WriteToXMLStream(&stream, header, id);
  const auto bytes = stream.Bytes();
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(TMatrixXmlTags, SizesWaitForTheFirstCellWhichResizes) {
  TMatrix m;
  Listener told(m);
  EXPECT_EQ(m.ProcessXmlTag(xmlMatBegin, "", ""), 0);
  EXPECT_EQ(m.ProcessXmlTag(xmlMatNumCols, "", " +2x"), 0);
  EXPECT_EQ(m.ProcessXmlTag(xmlMatNumRows, "", "3"), 0);
  EXPECT_EQ(m.ProcessXmlTag(xmlMatNumLayers, "", "7"), 0);
  EXPECT_EQ(told.take(), "");
  EXPECT_EQ(m.ProcessXmlTag(xmlMatCell, "ix=\"2\" iy=\"3\"", "-1.5E1 mm"), 0);
  EXPECT_EQ(told.take(), "CRC");
  EXPECT_EQ(m.GetVal(2, 3), -15.0);
  EXPECT_EQ(m.ProcessXmlTag(xmlMatCell, "ix=\"3\" iy=\"1\"", "1"), 0);
  EXPECT_EQ(m.ProcessXmlTag(xmlMatCell, "iy=\"1\"", "1"), 0);
  EXPECT_EQ(m.ProcessXmlTag(xmlMatCell, "ix=\"4294967297\" iy=\"1\"", "1"), 0);
  EXPECT_EQ(told.take(), "") << "cells outside are dropped";
  EXPECT_EQ(m.ProcessXmlTag(xmlMatEnd, "", ""), 1);
  EXPECT_EQ(m.ProcessXmlTag(xmlInvalid, "", ""), -1);
}

TEST(TMatrixXmlTags, ACellBeforeTheSizesIsRefusedItsResize) {
  TMatrix m;
  EXPECT_EQ(m.ProcessXmlTag(xmlMatCell, "ix=\"1\" iy=\"1\"", "5"), 0);
  EXPECT_EQ(columns_of(m), (Columns<TMatrix>{{5}}));
}

TEST(TMatrixXmlTags, AttributesMatchAsWholeNamesWithBlanksAndBothQuotes) {
  for (const char* attributes :
       {"ix=\"1\" iy=\"2\"", "iy = '2'  ix\t=\n'1'", "mix=\"9\" iy=\"2\" ix=\"1\"", "a=\"ix=3\" ix=\"1\" iy=\"2"}) {
    TMatrix m;
    m.Resize(1, 2);
    m.ProcessXmlTag(xmlMatNumCols, "", "1");
    m.ProcessXmlTag(xmlMatNumRows, "", "2");
    m.ProcessXmlTag(xmlMatCell, attributes, "5");
    EXPECT_EQ(m.GetVal(1, 2), 5.0) << attributes;
  }
}

TEST(TMatrixXml, TheDocumentNamesSizesAndCellsInStorageOrder) {
  TMatrix m;
  set(m, Columns<TMatrix>{{1.5, -2}, {0.1, 1e300}});
  EXPECT_EQ(document(m, "a<\"&>'", true),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<matrix id=\"a&lt;&quot;&amp;&gt;'\">\n"
            "<numcols>2</numcols>\n<numrows>2</numrows>\n"
            "<cell ix=\"1\" iy=\"1\">1.5</cell>\n<cell ix=\"1\" iy=\"2\">-2</cell>\n"
            "<cell ix=\"2\" iy=\"1\">0.1</cell>\n<cell ix=\"2\" iy=\"2\">1e+300</cell>\n</matrix>\n");
}

TEST(TMatrixXml, PrecisionChoosesTheNotation) {
  TMatrix m;
  m.SetVal(1, 1, 1234.5678);
  const auto cell = [&](Integer significant, Integer decimals) {
    m.SetPrecision(1, significant);
    m.SetPrecision(2, decimals);
    const std::string text = document(m);
    const auto at = text.find("iy=\"1\">") + 7;
    return text.substr(at, text.find('<', at) - at);
  };
  EXPECT_EQ(cell(15, 2), "1234.57");
  EXPECT_EQ(cell(15, 0), "1235");
  EXPECT_EQ(cell(6, -1), "1234.57");
  EXPECT_EQ(cell(2, -1), "1.2e+03");
  EXPECT_EQ(cell(0, -1), "1e+03");
  EXPECT_EQ(cell(-1, -1), "1234.5678");
}

TEST(TMatrixXml, AMatrixComesBackBitForBitAndTellsOnce) {
  TMatrix m, back;
  m.Resize(3, 50);
  m.FillRandomGauss(0.0, 1e-3);
  m.SetVal(1, 1, -0.0);
  m.SetVal(2, 1, Limits::denorm_min());
  m.SetVal(3, 1, Limits::max());
  m.SetDataID("<&\"'\xC3\xA4>");
  TempFile file;
  m.SaveAsXMLFile(file.path(), "");
  Listener told(back);
  EXPECT_TRUE(back.LoadFromXMLFile(file.path(), ""));
  EXPECT_EQ(told.take(), "CR");
  EXPECT_EQ(back.CRCofData(), m.CRCofData());
  EXPECT_EQ(back.DataID(), m.DataID());
  EXPECT_TRUE(back.LoadFromXMLFile(file.path(), m.DataID()));
  EXPECT_EQ(told.take(), "C");
  EXPECT_FALSE(back.LoadFromXMLFile(file.path(), "other"));
  EXPECT_FALSE(back.LoadFromXMLFile(file.path() + "x", ""));
  EXPECT_FALSE(back.ReadFromXMLStream(nullptr, ""));
  EXPECT_EQ(told.take(), "");
}

TEST(TMatrixXml, WhatTheVocabularyCannotSayIsReadAsZeroOrTheLargestNumber) {
  TMatrix m;
  set(m, Columns<TMatrix>{{Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}});
  const Read back(document(m));
  ASSERT_TRUE(back.good);
  EXPECT_EQ(columns_of(back.m), (Columns<TMatrix>{{0.0, Limits::max(), Limits::lowest()}}));
}

TEST(TMatrixXml, TheIdSelectsAMatrixAndReadingStopsBehindIt) {
  TMatrix a, b;
  number_cells(a, 1, 2);
  number_cells(b, 2, 1);
  TMemoryStream stream;
  a.WriteToXMLStream(&stream, true, "a");
  b.WriteToXMLStream(&stream, false, "b");
  stream.WriteBuffer("rest", 4);
  stream.SetPosition(0);
  TMatrix m;
  EXPECT_TRUE(m.ReadFromXMLStream(&stream, "b"));
  EXPECT_EQ(columns_of(m), columns_of(b));
  char rest[6] = {};
  EXPECT_EQ(stream.Read(rest, 5), 5);
  EXPECT_STREQ(rest, "\nrest");
}

TEST(TMatrixXml, DocumentsOfOthersAreReadByTheVocabularyAlone) {
  const Read back(
      "<?xml version='1.0'?><!-- <matrix> --><head><matrix id='no'/></head>\r\n"
      "<matrix  id = 'x' >\r\n<numrows> 2</numrows><numcols>1 </numcols><!-- - -->"
      "<cell iy='2' ix='1'> 7.5\n</cell>\n<cell ix=\"1\" iy=\"1\"><!-- 3 -->4</cell></matrix>");
  ASSERT_TRUE(back.good);
  EXPECT_EQ(back.m.DataID(), "x");
  EXPECT_EQ(back.m.GetVal(1, 2), 7.5);
}

TEST(TMatrixXml, ABadDocumentLeavesTheMatrixAlone) {
  const std::string sizes = "<matrix id=\"\"><numcols>2</numcols><numrows>2</numrows>";
  const std::string cell = "<cell ix=\"1\" iy=\"1\">5</cell>";
  for (const std::string& bad : std::vector<std::string>{
           "", "<cell ix=\"1\" iy=\"1\">5</cell></matrix>", sizes + cell, sizes + cell + "<other>1</other></matrix>",
           sizes + "<cell ix=\"1\" iy=\"1\">5</matrix>", "<matrix>" + cell + "</matrix>",
           "<matrix>" + cell + sizes.substr(14) + "</matrix>",
           "<matrix>" + cell + "<numcols>1</numcols><numrows>1</numrows></matrix>",
           "<matrix><numcols>1</numcols>" + cell + "<numrows>1</numrows></matrix>",
           "<matrix><numcols>-1</numcols><numrows>2</numrows></matrix>",
           "<matrix><numcols>2147483647</numcols><numrows>2147483647</numrows>" + cell + "</matrix>",
           "<matrix><numcols>100000</numcols><numrows>10000</numrows></matrix>"}) {
    const Read back(bad);
    EXPECT_FALSE(back.good) << bad;
    EXPECT_EQ(columns_of(back.m), (Columns<TMatrix>{{99.0}})) << bad;
    EXPECT_EQ(back.m.DataID(), "old");
  }
  EXPECT_TRUE(Read(sizes + "</matrix>").good) << "missing cells are 0";
}

}  // namespace
}  // namespace ZOR_matrix
