#include "record/property_texts.h"

#include <array>
#include <string>

namespace dralo::record {
namespace {

using Name = std::string_view;

constexpr std::array kAwkward = {
    Name(""),
    Name(" "),
    Name("\""),
    Name("'"),
    Name("<>&"),
    Name("\xFF\xFE"),
    Name("a\r\nb"),
    Name("##"),
    Name("#"),
    Name(","),
    Name(",,,"),
    Name("%%20+"),
    Name("'; DROP TABLE Notes; --"),
    Name("\0x", 2),
    Name("漢字 ÆØÅ ß ı İ"),
    Name("99999999999999999999"),
    Name("-1"),
    Name("*"),
    Name("None"),
    Name("ALL"),
    Name("TOP BOTTOM"),
    Name("</td></table></form><script>x()</script>"),
};
constexpr std::array kAttributes = {
    Name("class=\"x\""),        Name("style='color:red'"),
    Name("width=\"50%\""),      Name("WIDTH = 300 border=1"),
    Name("cellspacing=\"3\""),  Name("align=right"),
    Name("data-id=\"##ID##\""), Name("title='##Company## ##City##'"),
    Name("id=##Nobody##"),      Name("bgcolor=##ID"),
    Name("valign=top nowrap"),
};
constexpr std::array kLanguages = {Name("ENG"), Name("GER"), Name("NOR"), Name("ger"), Name("XXX"), Name("")};
constexpr std::array kTagTexts = {Name("1"), Name("2"),  Name("a"), Name("A"),
                                  Name("é"), Name("12"), Name("")};
constexpr std::array kDisplayTypes = {Name("grid"), Name("form"), Name("default"),  Name("FORM"),
                                      Name("Form"), Name("GRID"), Name("formgrid"), Name("")};
constexpr std::array kBars = {Name("top"),  Name("bottom"), Name("both"),       Name("none"),
                              Name("BOTH"), Name("Top"),    Name("top bottom"), Name("")};
constexpr std::array kBarTexts = {Name("records"), Name("pages"), Name("both"),
                                  Name("none"),    Name("BOTH"),  Name("")};
constexpr std::array kOptions = {Name("ADD UPDATE DELETE"),
                                 Name("ALL"),
                                 Name("UPDATE"),
                                 Name("update delete"),
                                 Name("ADD"),
                                 Name("DELETE"),
                                 Name("UPDATE NOVIEW"),
                                 Name("ALL NOVIEW"),
                                 Name(""),
                                 Name(" all "),
                                 Name("UPDATE,ADD,DELETE")};
constexpr std::array kKeyLists = {
    Name("ID"),        Name("OrderNo,LineNo"), Name("id"),         Name("Code"), Name("Nobody"),
    Name("ID,Nobody"), Name(" ID , Company "), Name("Company,ID"), Name("a"),    Name(""),
    Name("Active"),    Name("Since")};
constexpr std::array kKeyStatements = {Name("autoincrement"),
                                       Name("SELECT max(ID)+1 FROM Customers"),
                                       Name("SELECT 5"),
                                       Name("SELECT NULL"),
                                       Name("SELEC"),
                                       Name("SELECT 77,autoincrement"),
                                       Name(""),
                                       Name("AutoIncrement,SELECT 3")};
constexpr std::array kOrderLists = {Name("1"),        Name("2"),   Name("ID"),         Name("Company"),
                                    Name("City, ID"), Name("3,1"), Name("Nobody"),     Name("ID DESC"),
                                    Name("99"),       Name(""),    Name("\"Line No\"")};
constexpr std::array kSizes = {Name("5,10,20,30"), Name("1,2,3"),           Name("20"), Name(""), Name("a,b"),
                               Name("10, 20 ,30"), Name("-1,0,32767,99999")};
constexpr std::array kPlaces = {Name("top"),      Name("bottom"), Name("TOP"),
                                Name(" bottom "), Name("both"),   Name("")};
constexpr std::array kDelimiters = {Name("#"), Name("|"), Name("##"), Name(","),
                                    Name(";"), Name(""),  Name("ab")};
constexpr std::array kWidths = {Name("100%"),
                                Name("600"),
                                Name("\"50%\""),
                                Name("'7'"),
                                Name("50,,30%"),
                                Name("30%,70%"),
                                Name("10,20,30,40,50,60,70"),
                                Name("")};
constexpr std::array kStatements = {Name("SELECT ID, Company FROM Customers WHERE ID<9"),
                                    Name("SELECT * FROM Customers"),
                                    Name("SELECT * FROM Notes"),
                                    Name("DELETE FROM Customers"),
                                    Name("DELETE FROM Notes"),
                                    Name("SELECT * FROM Nobody"),
                                    Name("SELEC"),
                                    Name(""),
                                    Name("select Company, ID from Customers where City='Oslo' "),
                                    Name("  SELECT 1 AS ID, 'x' AS Name")};
constexpr std::array kNavigationTexts = {
    Name("Next,NextP,Prev,PrevP,Rec,Recs,List,of,First,Last,Per Page,Page"),
    Name("<b>1</b>,2,3,4,5,6,7,8,9,10,11,12,13"), Name("a,b,c")};
constexpr std::array kButtonTexts = {Name("E,S,C,A,D"), Name("Ändern,\"Sichern\",Zu,Neu,Weg,Mehr"),
                                     Name("E,S")};
constexpr std::array kOutcomeTexts = {Name("neu,geändert,weg,fehlt"), Name("new,changed,gone"), Name("a")};
constexpr std::array kAddresses = {Name("../gfx/"), Name("/img/"), Name("http://x/?a=1&b="), Name("")};
constexpr std::array kBulk = {Name("1,<b>#ID#</b>,2,#Company# (#City#)"),
                              Name("1"),
                              Name(""),
                              Name("2,<a href=\"#DRALOPOSTBACKURL#\">#Company#</a>"),
                              Name("x,y,1,z"),
                              Name("3|#ID#|1|,#City#")};
constexpr std::array kQuestions = {Name("Sure?"), Name("Really \"delete\" it?"), Name("Don't?"), Name("")};
constexpr std::array kColumns = {Name("ID"),
                                 Name("Company,City"),
                                 Name("1,2,3"),
                                 Name("2"),
                                 Name("*"),
                                 Name("Number,,Firm"),
                                 Name("id,COMPANY"),
                                 Name("Nobody"),
                                 Name("1,Nobody,99,-1,0"),
                                 Name("ID,Company,Credit,Active,Since,Note"),
                                 Name("Name,Day"),
                                 Name("OrderNo,LineNo,Item"),
                                 Name("Note,Photo,Token"),
                                 Name("A,B,C,D,E,F,G,H,I,J,K,L,M,N,O,P,Q"),
                                 Name(" 1 , 3 ")};

struct Pool {
  Name property;
  Texts texts;
};

const std::array kPools = {
    Pool{"Language", kLanguages},
    Pool{"Tag", kTagTexts},
    Pool{"DisplayType", kDisplayTypes},
    Pool{"DisplayNavBar", kBars},
    Pool{"DisplayNavBarTextOptions", kBarTexts},
    Pool{"EditOptions", kOptions},
    Pool{"EditPrimaryKeys", kKeyLists},
    Pool{"EditNewPKStatement", kKeyStatements},
    Pool{"OrderByFields", kOrderLists},
    Pool{"RecordsPerPageOptions", kSizes},
    Pool{"RecordsPerPageSelectPlacement", kPlaces},
    Pool{"GridFreeFormatCellDataFieldDelimiter", kDelimiters},
    Pool{"GridFreeFormatCellColumnDelimiter", kDelimiters},
    Pool{"Width", kWidths},
    Pool{"GridCellWidths", kWidths},
    Pool{"FormCellWidths", kWidths},
    Pool{"sql", kStatements},
    Pool{"FormSQL", kStatements},
    Pool{"EditSQL", kStatements},
    Pool{"DeleteSQL", kStatements},
    Pool{"LanguageString", kNavigationTexts},
    Pool{"LanguageBtnString", kButtonTexts},
    Pool{"LangUpdString", kOutcomeTexts},
    Pool{"ImageDir", kAddresses},
    Pool{"GridFreeFormatCell", kBulk},
    Pool{"EditConfirmDeleteString", kQuestions},
    Pool{"GridFieldsShow", kColumns},
    Pool{"GridFieldsHide", kColumns},
    Pool{"FormFieldsShow", kColumns},
    Pool{"FormFieldsHide", kColumns},
    Pool{"GridColsNoSort", kColumns},
    Pool{"GridCellsNoBr", kColumns},
    Pool{"GridFieldsSupressDup", kColumns},
    Pool{"GridDisplayFieldNames", kColumns},
    Pool{"FormDisplayFieldNames", kColumns},
    Pool{"EditFieldsReadOnly", kColumns},
};

}  // namespace

Texts AwkwardTexts() { return kAwkward; }

Texts SuitableTexts(std::string_view property) {
  for (const auto& [name, texts] : kPools) {
    if (name == property) return texts;
  }
  return kAttributes;
}

}  // namespace dralo::record
