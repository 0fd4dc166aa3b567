#pragma once

#include <memory>
#include <string>

#include "record/journal.h"
#include "record/plan.h"
#include "record/product.h"

namespace dralo::record {

/// What pages are made with.
struct Stage {
  Environment& environment;
  std::string connection_string;
  std::shared_ptr<DBConnection> shared;  ///< Open, for the views of one page.
};

/// Sets the view up as a page script would, well or badly. Notes what it sets and what that throws.
class PageScript {
 public:
  PageScript(DbView& view, const Plan& plan, const Stage& stage, Chance& chance, Journal& journal)
      : view_(view), plan_(plan), stage_(stage), chance_(chance), journal_(journal) {}

  void SetUp();

  /// A connection alone, as a view needs it on its second page.
  void Connect();

 private:
  void Set(std::string_view name, const PropertyValue& value);
  void SetText(std::string_view name, std::string_view text) { Set(name, std::string(text)); }

  void SetStatements();
  void SetOtherStatements();
  void SetFormOfSeveral();
  void SetEngine();
  void SetEditing();
  void SetRandomProperties();
  void SetRandom(const ViewProperty& property);
  PropertyValue RandomValue(const ViewProperty& property);
  PropertyValue RandomNumber();
  void SetColumns();
  void AddLookups();
  void SupplyRecordset();
  void SupplyCommand();

  DbView& view_;
  const Plan& plan_;
  const Stage& stage_;
  Chance& chance_;
  Journal& journal_;
};

}  // namespace dralo::record
