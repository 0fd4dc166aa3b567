#include "views/cell_heads.h"

#include "settings/column_settings.h"

namespace dralo::views {

using html::Verbatim;

void CellHeads::SetAttributes(std::string_view attributes) {
  if (!parts_.empty() && attributes == attributes_) return;
  attributes_ = attributes;
  text_.Clear();
  parts_.clear();
  parts_.reserve(columns_.size() + 1);
  Add(0, settings::GridColAttributes(render_.settings, 0, render_.Errors()), false, false);
  for (const GridColumn& column : columns_) {
    Add(column.number, column.attributes, column.is_numeric, column.is_unbroken);
  }
}

void CellHeads::Add(int number, std::string_view column_attributes, bool is_numeric, bool is_unbroken) {
  const std::size_t start = text_.Collected().size();
  text_.Put(R"(_{}")", number)
      .PutIf(render_.settings.UseCSS, R"(class="DRLOTableTD{}")", Verbatim{ParityWord(parity_)})
      .PutIf(render_.settings.UseCSS && !column_attributes.empty(), " ")
      .Write(Verbatim{column_attributes})
      .PutIf(!attributes_.empty(), " {}", Verbatim{attributes_});
  const std::size_t attributes_end = text_.Collected().size();
  text_.PutIf(is_numeric, R"( align="right")").Put(">").PutIf(is_unbroken, "<nobr>");
  parts_.push_back({start, attributes_end, text_.Collected().size()});
}

}  // namespace dralo::views
