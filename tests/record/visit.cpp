#include "record/visit.h"

#include <array>
#include <utility>

#include "record/field_texts.h"

namespace dralo::record {
namespace {

using Name = std::string_view;

constexpr std::array kRequestKeys = {
    Name("maxrecords"),    Name("CountRecords"), Name("CurrRecord"), Name("SQL"),        Name("FormDisplay"),
    Name("OrderByFields"), Name("OrderByDesc"),  Name("FIRST"),      Name("PREV"),       Name("NEXT"),
    Name("LAST"),          Name("BookMark"),     Name("PK"),         Name("FormEdit"),   Name("FormAdd"),
    Name("FormView"),      Name("FormInsert"),   Name("FormUpdate"), Name("FormDelete"), Name("ToExcel")};
constexpr std::array kButtons = {Name("FIRST"), Name("PREV"), Name("NEXT"), Name("LAST")};
constexpr std::array kRecordNumbers = {Name("1"),  Name("2"),  Name("5"),  Name("11"), Name("20"),
                                       Name("21"), Name("41"), Name("45"), Name("46"), Name("3")};
constexpr std::array kBadNumbers = {Name("0"),     Name("-5"),    Name("abc"), Name("99999999999"),
                                    Name("1.5"),   Name("1,000"), Name(" 7 "), Name("2147483647"),
                                    Name("32768"), Name("1e3"),   Name("٣")};
constexpr std::array kAskedOrders = {Name("1"),
                                     Name("2"),
                                     Name("3"),
                                     Name("ID"),
                                     Name("4"),
                                     Name("Nobody"),
                                     Name("1; DROP TABLE Notes"),
                                     Name("Company,City")};
constexpr std::array kHostile = {Name("'"),
                                 Name("\""),
                                 Name("<script>"),
                                 Name("\xFF\xFE"),
                                 Name("1 OR 1=1"),
                                 Name(" "),
                                 Name("1' OR '1'='1"),
                                 Name("a\r\nb: c"),
                                 Name("漢字"),
                                 Name("%41"),
                                 Name(",,,"),
                                 Name("--"),
                                 Name("formOneRec"),
                                 Name("SELECT ID, Company FROM Customers")};
constexpr std::array kOwnFields = {Name("Search"), Name("City[]"), Name("q\"<"),
                                   Name("Morvu"),  Name("x.y"),    Name("é")};

/// The fields of one view's request.
class ViewRequest {
 public:
  ViewRequest(const Plan& plan, Chance& chance, std::vector<RequestField>& fields)
      : plan_(plan), chance_(chance), fields_(fields) {}

  void Ask() {
    switch (plan_.wish) {
      case Wish::kGrid:
        return Page();
      case Wish::kExport:
        Put("ToExcel.x", chance_.Percent(95) ? "3" : "");
        Put("ToExcel.y", "4");
        return Page();
      case Wish::kFormAdd:
        Put("FormDisplay", "formOneRec");
        return Put("FormAdd", "1");
      case Wish::kFormView:
      case Wish::kFormEdit:
        return Form();
      default:
        return Change();
    }
  }

  /// Any keys with any values, which no page would send.
  void Disturb() {
    for (std::size_t rest = 1 + chance_.Below(3); rest > 0; --rest) {
      std::string key(chance_.Pick(kRequestKeys));
      if (chance_.Percent(30)) key += ".x";
      Put(key, chance_.Percent(50) ? chance_.Pick(kHostile) : chance_.Pick(kBadNumbers));
    }
  }

 private:
  void Put(std::string_view key, std::string_view value) {
    std::string name = "Morvu" + plan_.tag + std::string(key);
    if (chance_.Percent(3)) {
      for (char& c : name) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    }
    fields_.push_back({std::move(name), std::string(value)});
  }

  std::string_view Number() {
    if (!plan_.is_careful && chance_.Percent(20)) return chance_.Pick(kBadNumbers);
    return chance_.Pick(kRecordNumbers);
  }

  void Page() {
    if (chance_.Percent(40)) Put("CurrRecord", Number());
    if (chance_.Percent(25)) Put(std::string(chance_.Pick(kButtons)) + ".x", "7");
    if (chance_.Percent(20)) Put("maxrecords", Number());
    if (chance_.Percent(20)) {
      const std::size_t orders = plan_.is_careful ? 3 : kAskedOrders.size();
      Put("OrderByFields", kAskedOrders[chance_.Below(orders)]);
    }
    if (chance_.Percent(10)) Put("OrderByDesc", "True");
    if (chance_.Percent(10)) Put("CountRecords", "on");
    if (chance_.Percent(5)) Put("BookMark", Number());
    if (!plan_.is_careful && chance_.Percent(5)) Put("SQL", chance_.Pick(kHostile));
  }

  std::string_view Key() {
    if (!plan_.is_careful && chance_.Percent(25)) return chance_.Pick(kHostile);
    return chance_.Pick(plan_.table->key_texts);
  }

  void Form() {
    if (chance_.Percent(90)) Put("FormDisplay", chance_.Percent(90) ? "formOneRec" : "FORMONEREC");
    if (chance_.Percent(50)) Put("PK", Key());
    if (chance_.Percent(50)) Put("BookMark", Number());
    if (plan_.wish == Wish::kFormEdit) Put("FormEdit", "1");
    if (chance_.Percent(5)) Put("FormView", "1");
    if (chance_.Percent(30)) Page();
  }

  void Change() {
    const bool is_insert = plan_.wish == Wish::kInsert;
    Put(plan_.wish == Wish::kDelete ? "FormDelete" : "FormUpdate", "1");
    if (is_insert) Put("FormInsert", "1");
    if (chance_.Percent(80)) Put("FormDisplay", "formOneRec");
    if (chance_.Percent(60)) Put(is_insert ? "FormAdd" : "FormEdit", "1");
    const std::string_view key = Key();
    if (!is_insert && chance_.Percent(75)) Put("PK", key);
    PutFields(key);
    if (chance_.Percent(20)) Page();
  }

  void PutFields(std::string_view key) {
    const bool is_complete = chance_.Percent(plan_.is_careful ? 90 : 50);
    const std::span<const ShopField> fields = plan_.table->fields;
    const std::size_t wrong = chance_.Percent(25) ? chance_.Below(fields.size()) : fields.size();
    for (const ShopField& field : fields) {
      if (!is_complete && chance_.Percent(25)) continue;
      std::string value = FieldText(field.kind, chance_,
                                    &field == &fields[0] + wrong ? 100
                                    : plan_.is_careful           ? 0
                                                                 : 4);
      if (const auto text = KeyText(field, key); !text.empty() && chance_.Percent(95)) value = text;
      Put("_Form_" + std::string(field.name), value);
    }
  }

  /// The part of the key that the field holds; empty when it is none.
  std::string KeyText(const ShopField& field, std::string_view key) const {
    if (plan_.wish == Wish::kInsert) return {};
    const std::span<const ShopField> fields = plan_.table->fields;
    if (plan_.table->keys.find(',') == std::string_view::npos) {
      return &field == &fields[0] ? std::string(key) : std::string();
    }
    for (const ShopField* known = &fields[0]; known != &field; ++known) {
      const std::size_t comma = key.find(',');
      if (comma == key.npos) return {};
      key.remove_prefix(comma + 1);
    }
    return std::string(key.substr(0, key.find(',')));
  }

  const Plan& plan_;
  Chance& chance_;
  std::vector<RequestField>& fields_;
};

void PutOwnFields(Chance& chance, std::vector<RequestField>& fields) {
  for (std::size_t rest = 1 + chance.Below(3); rest > 0; --rest) {
    const std::string_view name = chance.Pick(kOwnFields);
    fields.push_back({std::string(name), std::string(chance.Pick(kHostile))});
  }
}

}  // namespace

Visit MakeVisit(const std::vector<Plan>& plans, Chance& chance) {
  Visit visit;
  for (const Plan& plan : plans) {
    if (plan.tag != plans[0].tag && chance.Percent(50)) continue;
    const bool is_posted = plan.IsChange() ? chance.Percent(98) : chance.Percent(30);
    ViewRequest request(plan, chance, is_posted ? visit.form : visit.query);
    request.Ask();
    if (!plan.is_careful && chance.Percent(35)) request.Disturb();
  }
  if (chance.Percent(5)) {
    const Plan stranger{.wish = Wish::kGrid, .table = plans[0].table, .tag = "9", .is_careful = false};
    ViewRequest(stranger, chance, visit.query).Disturb();
  }
  if (chance.Percent(25)) PutOwnFields(chance, visit.query);
  if (chance.Percent(25)) PutOwnFields(chance, visit.form);
  return visit;
}

}  // namespace dralo::record
