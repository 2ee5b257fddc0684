#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>
#include <sstream>

#include "tests/vectors/vector_util.h"

namespace ZOR_vector {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A folder for the files of one test.
class Folder {
 public:
  Folder() : path_(std::filesystem::temp_directory_path() / ("zor_vector_" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(path_);
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  TString name(const std::string& file = "v.txt") const { return (path_ / file).string(); }
  TString write(const std::string& text) const {
    std::ofstream(name().utf8(), std::ios::binary) << text;
    return name();
  }
  std::string read() const {
    std::ifstream in(name().utf8(), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  std::filesystem::path path_;
};

template <class V>
using Values = std::vector<typename V::value_type>;

const std::string kFlags = "FALSE FALSE FALSE FALSE\t;row attributes, column names, row names, nominal variables\n";

TYPED_TEST_SUITE(Twins, TwinTypes);

TEST(AscFiles, AreWrittenLineByLine) {
  const Folder folder;
  TVector v;
  set(v, {1.5, -0.004, 12345678901.25});
  EXPECT_EQ(v.ExportAsASC(folder.name(), 2, "two\nlines"), 0);
  EXPECT_EQ(folder.read(), "two lines\n1\t;nr. of columns\n3\t;nr. of rows\n" + kFlags +
                               "        1.50\n        0.00\n12345678901.25\n");
  EXPECT_EQ(v.ExportAsASC(folder.name(), 99, ""), 0);
  EXPECT_EQ(folder.read().find("Exported by ZOR TVector component: " + folder.name().utf8() + "\n"), 0U);
  EXPECT_NE(folder.read().find("1.5000000000000000000000000\n"), std::string::npos) << "at most 25 decimals";
  TIntVector n;
  set(n, {-7, 2147483647});
  EXPECT_EQ(n.ExportAsASC(folder.name(), ""), 0);
  EXPECT_EQ(folder.read(), "Exported by ZOR TIntVector component: " + folder.name().utf8() +
                               "\n1\t;nr. of columns\n2\t;nr. of rows\n" + kFlags + "-7\n2147483647\n");
  EXPECT_EQ(v.ExportAsASC("/no/such/folder/x", 2, ""), -1);
}

TYPED_TEST(Twins, AscFilesOfTablesWithNamesAndAttributesLoad) {
  const Folder folder;
  TypeParam v;
  TString comment;
  folder.write(
      "about\r\n1\t;c\r\n3\t;r\r\nTRUE TRUE true\t;flags\r\n\"the \tcolumn\"\r\n"
      "0.5\t\"first\"\t10\r\n1\t\"\"\tNAN\r\n2 \"third row\" 3e1");
  Listener told(v);
  EXPECT_EQ(v.ImportASC(folder.name(), comment), 0);
  EXPECT_EQ(comment, "about");
  EXPECT_EQ(values_of(v), (Values<TypeParam>{10, 0, 30}));
  EXPECT_EQ(told.take(), "CRCCC");
}

TYPED_TEST(Twins, AFaultInAnAscFileHasACodeAndKeepsWhatWasRead) {
  const Folder folder;
  const auto file = [&](const std::string& columns, const std::string& rows, const std::string& data,
                        const std::string& flags = "FALSE FALSE FALSE FALSE") {
    return folder.write("c\n" + columns + "\n" + rows + "\n" + flags + "\n" + data);
  };
  TypeParam v;
  TString comment;
  const auto fresh = [&] { set(v, {5, 6}); };
  fresh();
  EXPECT_EQ(v.ImportASC(folder.name("missing"), comment), -8);
  EXPECT_EQ(v.ImportASC(file("2", "2", "1 2 3 4"), comment), -7);
  EXPECT_EQ(v.ImportASC(file("1", "0", ""), comment), -9);
  EXPECT_EQ(v.ImportASC(file("1", "-3", "1"), comment), -3);
  EXPECT_EQ(v.ImportASC(file("1", "3", "1", "YES NO MAYBE"), comment), -4);
  EXPECT_EQ(v.ImportASC(folder.write("c\n1\n"), comment), -2);
  EXPECT_EQ(values_of(v), (Values<TypeParam>{5, 6})) << "none of these touches the vector";
  Listener told(v);
  EXPECT_EQ(v.ImportASC(file("1", "5", "1\n2\nabc\n4\n5\n"), comment), -6);
  EXPECT_EQ(values_of(v), (Values<TypeParam>{1, 2, 0}));
  EXPECT_EQ(told.take(), "CRCCCR");
  for (const std::string word : {"nan", "inf", "1e400", "0x10", "1,5", "--1", ""}) {
    EXPECT_EQ(v.ImportASC(file("1", "2", "1 " + word), comment), -6) << word;
  }
  EXPECT_EQ(v.ImportASC(file("1", "2", "x 1", "TRUE FALSE FALSE FALSE"), comment), -5);
  EXPECT_EQ(v.NrOfElem(), 1);
  EXPECT_EQ(v.ImportASC(file("1", "2147483647", "1\n2\n"), comment), -6) << "a small file must not ask for much";
  EXPECT_EQ(v.NrOfElem(), 3);
}

TEST(AscFiles, IntegersAreRoundedToEvenAndSaturate) {
  const Folder folder;
  TIntVector n;
  TString comment;
  folder.write("c\n1\n5\n" + kFlags + "0.5\n1.5\n-2.5\n1e300\n###\n");
  EXPECT_EQ(n.ImportASC(folder.name(), comment), 0);
  EXPECT_EQ(values_of(n), (std::vector<Integer>{0, 2, -2, 2147483647, 0}));
}

TEST(PlainFiles, HaveTheirFormatsAndRepairTheirRange) {
  const Folder folder;
  TVector v;
  set(v, {1.5, -2.25, 3, 4, 5});
  EXPECT_TRUE(v.StoreOnFile(5, 2, 2, folder.name()));
  EXPECT_EQ(folder.read(), "2 5\n-2.25\n3.00\n4.00\n5.00\n");
  EXPECT_TRUE(v.StoreOnFile(1, 2, -5, folder.name()));
  EXPECT_EQ(folder.read(), "1 2\n1.50\n-2.25\n");
  EXPECT_TRUE(v.StoreOnFile(1, 2, -2, folder.name()));
  EXPECT_EQ(folder.read(), "1 2\n 1.50000000000000000E+0000\n-2.25000000000000000E+0000\n");
  EXPECT_TRUE(v.StoreOnFile(1, 1, -1, folder.name()));
  EXPECT_EQ(folder.read(), "1 1\n 1.5000E+0000\n");
  EXPECT_TRUE(v.StoreOnFile(0, 0, 0, folder.name()));
  EXPECT_EQ(folder.read(), "1 5\n2\n-2\n3\n4\n5\n");
  EXPECT_FALSE(v.StoreOnFile(0, 0, 0, "/no/such/folder/x"));
  EXPECT_TRUE(v.StoreOnFile(0, 0, 0, "/dev/full")) << "only creation counts";
  TIntVector n;
  set(n, {7, 8});
  EXPECT_TRUE(n.StoreOnFile(0, 0, folder.name()));
  EXPECT_EQ(folder.read(), "1 0\n");
  EXPECT_TRUE(n.StoreOnFile(9, -4, folder.name()));
  EXPECT_EQ(folder.read(), "1 2\n7\n8\n");
  n.Resize(10);
  EXPECT_TRUE(n.StoreOnFile(20, 30, folder.name()));
  EXPECT_EQ(folder.read(), "20 10\n");
}

TYPED_TEST(Twins, PlainFilesLoadIntoTheElementsTheyName) {
  const Folder folder;
  folder.write("3\n5 30 forty 50");
  TypeParam v;
  set(v, {1, 2});
  Listener told(v);
  EXPECT_FALSE(v.LoadFromFile(folder.name(), false));
  EXPECT_EQ(told.take(), "C");
  EXPECT_EQ(values_of(v), (Values<TypeParam>{1, 2}));
  EXPECT_TRUE(v.LoadFromFile(folder.name(), true));
  EXPECT_EQ(told.take(), "CRCCC");
  EXPECT_EQ(values_of(v), (Values<TypeParam>{1, 2, 30, 0, 50}));
  EXPECT_FALSE(v.LoadFromFile(folder.name("missing"), true));
  EXPECT_FALSE(v.LoadFromFile(folder.write("1 x"), true));
  EXPECT_FALSE(v.LoadFromFile(folder.write(""), true));
  EXPECT_EQ(told.take(), "");
  EXPECT_FALSE(v.LoadFromFile(folder.write("1 2000000000 4"), true)) << "a small file must not ask for much";
  EXPECT_EQ(v.NrOfElem(), 5);
  EXPECT_TRUE(v.LoadFromFile(folder.write("-1 2 10 20 30 40"), false));
  EXPECT_EQ(v.GetVal(1), 30);
  EXPECT_EQ(v.GetVal(2), 40);
  EXPECT_TRUE(v.LoadFromFile(folder.write("-2147483648 2 1"), false)) << "ends with the file";
}

TEST(PlainFiles, LoadOnlyMarkedLinesIfAsked) {
  const Folder folder;
  TVector v;
  folder.write("1 2\nhead\n 1.5 V //dig first\nx //dig\n2.5 //dig\n9\n");
  EXPECT_TRUE(v.LoadFromFile(folder.name(), true, true));
  EXPECT_EQ(values_of(v), (std::vector<double>{1.5, 0.0, 2.5}));
  v.Fill(7);
  EXPECT_TRUE(v.LoadFromFile(folder.write("4 //dig\n"), false, true));
  EXPECT_EQ(values_of(v), (std::vector<double>{4, 7, 7}));
  EXPECT_TRUE(v.LoadFromFile(folder.write("1 2\n5\n6\n"), false, true)) << "no mark: the plain form";
  EXPECT_EQ(v.GetVal(2), 6);
}

TEST(PlainFiles, SeventeenDecimalsOfScientificNotationKeepEveryBit) {
  const Folder folder;
  TVector v, w;
  v.Resize(2000);
  v.FillRandomGauss(0, 1e-5);
  v.SetVal(1, 5e-324), v.SetVal(2, 1.7976931348623157e308), v.SetVal(3, -0.1);
  EXPECT_TRUE(v.StoreOnFile(0, 0, -2, folder.name()));
  EXPECT_TRUE(w.LoadFromFile(folder.name(), true));
  EXPECT_EQ(v.CRCofData(), w.CRCofData());
}

TYPED_TEST(Twins, StreamsKeepEveryBitAndTheirElementNumbers) {
  TypeParam v, w;
  v.Resize(3000);
  v.FillSerial(-5, 3);
  TMemoryStream* made = nullptr;
  v.SaveToStream(made, 2999, 3);
  ASSERT_NE(made, nullptr);
  const std::unique_ptr<TMemoryStream> stream(made);
  EXPECT_EQ(stream->Size(), static_cast<Int64>(sizeof(typename TypeParam::value_type)) * (2 + 2997));
  stream->SetPosition(0);
  Listener told(w);
  EXPECT_TRUE(w.LoadFromStream(stream.get(), true));
  EXPECT_EQ(told.take().size(), 2U + 2997U + 1U);
  EXPECT_EQ(w.NrOfElem(), 2999);
  EXPECT_EQ(w.GetVal(2), 0);
  EXPECT_EQ(w.GetVal(3), v.GetVal(3));
  EXPECT_EQ(w.GetVal(2999), v.GetVal(2999));
  EXPECT_FALSE(w.LoadFromStream(stream.get(), true)) << "at the end of the stream";
  EXPECT_FALSE(w.LoadFromStream(nullptr, true));
  EXPECT_EQ(told.take(), "");
  stream->SetPosition(0);
  w.Resize(5);
  told.take();
  EXPECT_FALSE(w.LoadFromStream(stream.get(), false));
  EXPECT_EQ(told.take(), "C") << "too short a vector reads no value";
}

TEST(Streams, RefuseWhatIsNoElementNumberAndStopWhereTheyEnd) {
  TVector v;
  set(v, {1, 2});
  TMemoryStream stream;
  const auto fill = [&](std::initializer_list<double> numbers) {
    stream.Clear();
    for (const double x : numbers) stream.WriteBuffer(&x, 8);
    stream.SetPosition(0);
  };
  Listener told(v);
  for (const double bad : {kNaN, 1e10, -1e10, std::numeric_limits<double>::infinity()}) {
    fill({1, bad});
    EXPECT_FALSE(v.LoadFromStream(&stream, true));
  }
  fill({1, 2e9});
  EXPECT_FALSE(v.LoadFromStream(&stream, true)) << "a short stream must not ask for much";
  EXPECT_EQ(told.take(), "");
  fill({1, 2, 7});
  EXPECT_FALSE(v.LoadFromStream(&stream, false));
  EXPECT_EQ(values_of(v), (std::vector<double>{7, 2}));
}

TYPED_TEST(Twins, PrintsItsElementsCutToTwentyLines) {
  TypeParam v;
  set(v, {1, -2});
  std::ostringstream out;
  out << v;
  EXPECT_NE(out.str().find("-2"), std::string::npos);
  v.Resize(1000);
  std::ostringstream cut;
  cut << v;
  EXPECT_LE(std::ranges::count(cut.str(), '\n'), 22);
}

}  // namespace
}  // namespace ZOR_vector
