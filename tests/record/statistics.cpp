#include "record/statistics.h"

#include <array>
#include <string_view>

namespace dralo::record {
namespace {

using Name = std::string_view;

/// A fact, and the texts of which the page has all but the last; the last, when there is one, it has not.
struct Fact {
  Name name;
  std::array<Name, 3> has;
  Name has_not = "";
};

constexpr auto kFacts = std::to_array<Fact>({
    {"grids with rows", {"\nmode: grid\n", "cell_1_1\""}},
    {"grids without rows", {"\nmode: grid\n", "DRLOTable\""}, "cell_1_1\""},
    {"one-record views", {"\nmode: formview\n", "DRLOTableFormOuter"}},
    {"edit forms", {"\nmode: formedit\n", "_Form_", "<td>"}},
    {"add forms", {"\nmode: formadd\n", "<td>"}},
    {"saves done", {"FormUpdate: ", "written tables: table"}, "FormInsert: 1"},
    {"inserts done", {"FormUpdate: ", "FormInsert: 1", "written tables: table"}},
    {"saves that change nothing or are refused", {"FormUpdate: ", "written tables: \n"}},
    {"saves refused for a missing value", {"Fill out all required"}},
    {"saves refused for a date", {" is not a valid date"}},
    {"saves refused for a number", {" is not a number"}},
    {"deletes done", {"FormDelete: ", "written tables: table"}, "FormUpdate: "},
    {"exports", {"content-type: application/vnd.ms-excel"}},
    {"pages with an error message", {" in "}, "\nErrorMessage: \n"},
    {"pages with an exception", {" throws: "}},
    {"format functions", {"set GridFormatCellFunction"}},
    {"invalid formatting arguments", {"Invalid Formatting arguments"}},
    {"templates", {"set GridFreeFormatCellByCol"}},
    {"lookups", {"\nlookup: ", "<select"}},
    {"suppressed duplicates or column lists", {"set GridFieldsSupressDup"}},
    {"bars with several pages", {"nextpg.gif"}},
    {"supplied recordsets", {"set ADORecordset: object"}},
    {"commands", {"set StoredProcCommand: object"}},
    {"cleared pages", {"\ncleared: "}},
    {"views in German", {"Datens"}},
    {"views in Norwegian", {"poster"}},
});

bool Holds(const Fact& fact, Name text) {
  for (const Name part : fact.has) {
    if (!part.empty() && text.find(part) == text.npos) return false;
  }
  return fact.has_not.empty() || text.find(fact.has_not) == text.npos;
}

}  // namespace

void Statistics::Count(const RenderedPage& page) {
  ++counts_["pages"];
  if (page.is_portable) ++counts_["portable pages"];
  counts_["bytes"] += page.text.size();
  for (const Fact& fact : kFacts) {
    if (Holds(fact, page.text)) ++counts_[std::string(fact.name)];
  }
}

void Statistics::Print(std::ostream& out) const {
  for (const auto& [name, count] : counts_) out << count << '\t' << name << '\n';
}

}  // namespace dralo::record
