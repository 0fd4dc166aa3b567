#include "editing/rule_attributes.h"

#include <algorithm>
#include <string>

#include "platform/field_kind.h"
#include "text/iso_date.h"

namespace dralo::editing {
namespace {

using html::Text;
using html::Verbatim;

void PutRequired(html::HtmlWriter& out, const EditRules& rules) { out.PutIf(rules.is_required, " required"); }

void PutMinLength(html::HtmlWriter& out, const EditRules& rules) {
  if (rules.min_length) out.Put(R"( minlength="{}")", *rules.min_length);
}

void PutDay(html::HtmlWriter& out, std::string_view name, const std::optional<DayLimit>& limit) {
  if (!limit) return;
  std::string day;
  text::PutDate(limit->DayAt(Today()), day);
  out.Put(R"( {}="{}")", Verbatim{name}, Verbatim{day});
}

/// Which keys an on-screen keyboard should offer.
std::string_view InputMode(const EditRules& rules, platform::TypeCode type) {
  if (rules.is_email) return "email";
  if (rules.is_url) return "url";
  if (rules.min.empty() && rules.max.empty()) return {};
  // Few of these keyboards have a minus sign.
  if (rules.min.empty() || rules.min.starts_with('-')) return {};
  return platform::KindOf(type) == platform::FieldKind::kWholeNumber ? "numeric" : "decimal";
}

}  // namespace

void PutTextRules(html::HtmlWriter& out, const EditRules& rules) {
  PutRequired(out, rules);
  PutMinLength(out, rules);
  if (rules.max_length) out.Put(R"( maxlength="{}")", *rules.max_length);
}

void PutDayRules(html::HtmlWriter& out, const EditRules& rules) {
  PutRequired(out, rules);
  PutDay(out, "min", rules.first_day);
  PutDay(out, "max", rules.last_day);
}

void PutInputRules(html::HtmlWriter& out, const EditRules& rules, platform::TypeCode type) {
  PutRequired(out, rules);
  PutMinLength(out, rules);
  const std::string_view mode = InputMode(rules, type);
  out.PutIf(!mode.empty(), R"( inputmode="{}")", Verbatim{mode});
  out.PutIf(!rules.min.empty(), R"( min="{}")", Verbatim{rules.min});
  out.PutIf(!rules.max.empty(), R"( max="{}")", Verbatim{rules.max});
  out.PutIf(!rules.pattern.empty(), R"( pattern="{}")", Text{rules.pattern});
}

std::int64_t MaxLength(const EditRules& rules, std::int64_t defined) {
  if (!rules.max_length) return defined;
  const auto wanted = static_cast<std::int64_t>(*rules.max_length);
  return defined > 0 ? std::min(defined, wanted) : wanted;
}

}  // namespace dralo::editing
