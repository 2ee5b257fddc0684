#include "examples/tour/chapter.h"
#include "zor/datatable/ZOR_datatable.h"

using namespace ZOR_datatable;
using plot::short_text;

namespace {

std::string head_of(const TString& fingerprint) { return fingerprint.utf8().substr(0, 16) + " ..."; }

void run(tour::Page& page) {
  page.prose(
      "A file of numbers forgets who measured what. A table keeps a name and an attribute for each row and column, a "
      "scale and identifiers for each column, and a state for each cell, and moves them together.");
  TDataTable table;
  table.ImportFromCSV(page.data("penguins.csv").string(), TCSVOptions());
  // [show]
  const Integer mass = table.FindColIndex("body_mass_g");
  table.SetMScaleType(mass, stRatio);
  table.SetComment("penguins, empty masses filled in");
  double mean = 0.0, variance = 0.0;
  table.MeanVarOfNumCells(mass, 0, mass, 0, mean, variance);
  for (Integer row = 1; row <= table.NrOfRows(); ++row) {
    if (!table.IsEmpty(mass, row)) continue;
    table.SetElem(mass, row, mean);
    table.SetIsEmpty(mass, row, false);
    table.SetIsImputed(mass, row, true);  // a number, but not a measured one
  }
  table.SortRows(mass, false, 0, 0, 0, 0, true);  // names and states travel
  // [/show]
  page.code();
  std::vector<std::vector<std::string>> heaviest;
  for (const TTableRow row : Rows(table)) {
    if (row.Index() > 5) break;
    heaviest.push_back({std::string(row.Name().view()), std::string(row.Nominal(1).view()), short_text(row[mass], 5)});
  }
  page.table({"row", "species", "g"}, heaviest);

  page.section("To XML and back");
  page.prose(
      "The XML form holds all of it: raw numbers, identifiers, states. Fingerprints of names and states, and of the "
      "numbers, prove that nothing was lost.");
  const TString file = page.scratch("penguins.xml").string();
  // [show]
  table.SaveAsXMLFile(file, 0, "penguins");  // 0: every digit that it takes
  TDataTable back;
  const Boolean loaded = back.LoadFromXMLFile(file, "penguins");
  // [/show]
  page.code();
  page.table(
      {"", "written", "read"},
      {{"loaded", "", loaded ? "yes" : "no"},
       {"names, attributes, scales", head_of(table.CRCofNamesAndAttributes()), head_of(back.CRCofNamesAndAttributes())},
       {"cell states", head_of(table.CRCofCellStates()), head_of(back.CRCofCellStates())},
       {"numbers", head_of(table.NumericData->CRCofData()), head_of(back.NumericData->CRCofData())},
       {"imputed cells", std::to_string(table.CountImputedCells(0, 0, 0, 0)),
        std::to_string(back.CountImputedCells(0, 0, 0, 0))}});
  const Boolean same = table.CRCofNamesAndAttributes() == back.CRCofNamesAndAttributes() &&
                       table.CRCofCellStates() == back.CRCofCellStates() &&
                       table.NumericData->CRCofData() == back.NumericData->CRCofData();
  page.prose(same ? "All three agree." : "They differ: this report shows a fault of the library.");
}

const tour::Register chapter({97, "remember", "What a table remembers", run});

}  // namespace
