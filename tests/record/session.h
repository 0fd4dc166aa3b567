#pragma once

#include <memory>
#include <vector>

#include "record/journal.h"
#include "record/page_script.h"
#include "record/plan.h"
#include "record/product.h"
#include "record/visit.h"

namespace dralo::record {

/// One visitor of one page script: a page, and sometimes what follows it.
class Session {
 public:
  Session(const Stage& stage, const std::vector<Plan>& plans, Chance& chance, Journal& journal)
      : stage_(stage), plans_(plans), chance_(chance), journal_(journal) {}

  void Run();

 private:
  using Views = std::vector<std::unique_ptr<DbView>>;

  bool IsJourney() const;
  void EditAndPost();
  void RenderTwoPages();
  Views NewViews() const;
  std::string RenderPage(const Views& views, const Visit& visit, bool is_set_up);
  void RenderHostPage(const Visit& visit);
  void EndPage(const Views& views);
  void Watch(FakePage& page);
  void RenderView(DbView& view, const Plan& plan, PageContext& page, bool is_set_up);
  void Write(DbView& view, const Plan& plan);
  std::vector<RequestField> Posted(const std::string& page);

  const Stage& stage_;
  const std::vector<Plan>& plans_;
  Chance& chance_;
  Journal& journal_;
  std::size_t rarity_ = 0;  ///< From 0 to 99; chooses what seldom happens.
};

}  // namespace dralo::record
