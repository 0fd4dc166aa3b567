#include "editing/form_edit_field.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "dralo/type_code.h"
#include "editing/conflict_check.h"
#include "editing/control_text.h"
#include "editing/field_digest.h"
#include "editing/lookup_select.h"
#include "editing/rule_attributes.h"
#include "platform/field_kind.h"
#include "settings/error_report.h"
#include "settings/field_lists.h"
#include "state/delete_request.h"
#include "state/value_text.h"
#include "text/blanks.h"
#include "text/boolean_text.h"
#include "text/letter_case.h"

namespace dralo::editing {
namespace {

using html::Joined;
using html::Verbatim;
using platform::TypeCode;

constexpr std::int64_t kWidestInput = 60;

/// An attribute, with a blank at its end, that is written only when UseCSS is set.
Verbatim Class(const state::Render& render, std::string_view attribute) {
  return {render.settings.UseCSS ? attribute : std::string_view()};
}

}  // namespace

/// All that is known about a control before anything of it is written.
struct FormEditFields::Control {
  std::string_view field_name;
  Joined name;
  TypeCode type{};
  std::int64_t defined_size = 0;
  bool is_required = false;
  bool is_read_only = false;
  std::string_view text = "";
  bool is_ticked = false;        ///< Of a boolean.
  std::string_view digest = "";  ///< Empty for none.

  Verbatim Disabled() const { return {is_read_only ? " disabled " : ""}; }
};

FormEditFields::FormEditFields(state::Render& render)
    : render_(render), out_(render.out), inputs_(render.keys), digests_(render.keys, state::key::kDigest) {}

void FormEditFields::GetFormEditField(platform::Field& field, int index) {
  Guarded(field, [&] {
    rules_ = RulesOfColumn(render_.settings, index + 1);
    Put(Read(field, IsReadOnly(field, index)));
  });
}

/// A record that can only be deleted is shown read-only.
bool FormEditFields::IsReadOnly(const platform::Field& field, int index) const {
  const settings::Settings& settings = render_.settings;
  return (!AddsRecord() && !settings.edit.update) || settings::IsFieldReadOnly(settings, field.Name(), index);
}

void FormEditFields::PutHidden(platform::Field& field) {
  Guarded(field, [&] {
    rules_ = {};
    PutHiddenInput(Read(field, true));
    out_.Put("\r\n");
  });
}

template <class Body>
void FormEditFields::Guarded(const platform::Field& field, Body&& body) {
  const std::string name = "GetFormEditField. oField.Name=" + std::string(field.Name());
  settings::Guarded(render_.Errors(), name, std::forward<Body>(body));
}

FormEditFields::Control FormEditFields::Read(platform::Field& field, bool is_read_only) {
  Control control{.field_name = field.Name(),
                  .name = InputName(field.Name()),
                  .type = field.Type(),
                  .defined_size = field.DefinedSize(),
                  .is_required = (field.Attributes() & platform::kFieldIsNullable) == 0,
                  .is_read_only = is_read_only};
  if (control.type == TypeCode::kLongVarBinary) return control;
  // Before the text is made: that may point into the record, and reading the value again would end it.
  if (record_key_) control.digest = Digest(field);
  if (render_.outcome.ShowsPosted()) {
    const std::string_view posted = inputs_.Posted(field.Name()).value_or("");
    // Without its blanks the text of an untouched field would count as typed.
    control.text = DetectsConflicts(render_.settings) ? posted : text::TrimBlanks(posted);
    // Ticked boxes post anything; a disabled one has a hidden input, which posts its value.
    control.is_ticked = is_read_only ? text::TrimBlanks(posted) == text::BooleanText(true) : !posted.empty();
  } else if (!AddsRecord()) {
    control.is_ticked = control.type == TypeCode::kBoolean && IsTicked(field.Value());
    control.text = ControlText(render_, field, rules_.is_day, text_);
  }
  return control;
}

/// The name of the input as it is written. A name with a double quote in it must be escaped: a browser would
/// read only its beginning, and the save would take the field for one that was emptied.
Joined FormEditFields::InputName(std::string_view field_name) {
  field_name_.Clear();
  state::PutInAttribute(field_name_, render_, field_name);
  return inputs_.Name(field_name_.Collected());
}

void FormEditFields::Put(const Control& control) {
  out_.PutIf(control.is_required, "<nobr>");
  if (control.type == TypeCode::kLongVarBinary) {
    out_.Put("&nbsp;");
  } else {
    if (!PutLookup(control)) PutByType(control);
    if (control.is_read_only) PutHiddenInput(control);
    if (!control.digest.empty()) PutDigest(control);
  }
  out_.PutIf(control.is_required, "{}</nobr>", Verbatim{render_.settings.RequiredFieldIndicator});
  PutNotes(control.field_name);
  out_.Put("\r\n");
}

/// A form that comes back keeps the digest that was posted: with a new one the visitor's old text would pass
/// for a change of a newer value, which nobody has seen, unless the form shows that beside it. The page that
/// asks before a delete keeps it too: the visitor has seen the form, and is told what has changed since when
/// he confirms.
std::string_view FormEditFields::Digest(platform::Field& field) {
  const bool asks = state::AsksToDelete(render_.settings, render_.keys);
  if (!asks && !render_.outcome.ShowsPosted()) {
    digest_ = DigestText(DigestOfField(render_, *record_key_, field, rules_.is_day));
    return digest_;
  }
  for (const state::FieldNote& note : render_.outcome.field_notes) {
    if (!note.digest.empty() && text::EqualIgnoringCase(note.field, field.Name())) return note.digest;
  }
  return digests_.Posted(field.Name()).value_or("");
}

void FormEditFields::PutDigest(const Control& control) {
  out_.Put(R"(<input type="hidden" name="{}" value="{}">)", digests_.Name(field_name_.Collected()),
           html::Text{control.digest});
}

void FormEditFields::PutNotes(std::string_view field_name) {
  for (const state::FieldNote& note : render_.outcome.field_notes) {
    if (!text::EqualIgnoringCase(note.field, field_name)) continue;
    out_.Put("<br><span")
        .Put("{}>{}", Class(render_, R"( class="DraloFieldNote")"), html::Text{note.message})
        .PutIf(note.newer_value.has_value(), " <span{}>{}</span>",
               Class(render_, R"( class="DraloNewerValue")"), html::Text{note.newer_value.value_or("")})
        .Put("</span>");
  }
}

bool FormEditFields::PutLookup(const Control& control) {
  const std::string_view lookup = render_.settings.lookups.Find(control.field_name);
  return !lookup.empty() &&
         PutLookupSelect(out_, render_, control.name, control.Disabled().text, lookup, control.text);
}

void FormEditFields::PutByType(const Control& control) {
  if (platform::IsMemoFieldType(control.type)) {
    PutTextarea(control);
  } else if (control.type == TypeCode::kBoolean) {
    PutCheckbox(control);
  } else if (platform::IsDateFieldType(control.type)) {
    PutDateInput(control);
  } else {
    PutTextInput(control);
  }
}

void FormEditFields::PutTextarea(const Control& control) {
  out_.Put(R"(<textarea cols=60 rows=5 {}{}id="{}" name="{}")", control.Disabled(),
           Class(render_, R"(class="DraloTextArea" )"), control.name, control.name);
  PutTextRules(out_, rules_);
  out_.Put(">");
  state::PutInTextarea(out_, render_, control.text);
  out_.Put("</textarea>");
}

void FormEditFields::PutCheckbox(const Control& control) {
  out_.Put(R"(<input {}type="checkbox" {}id="{}" name="{}"{}>)", control.Disabled(),
           Class(render_, R"(class="DraloCheckBox" )"), control.name, control.name,
           Verbatim{control.is_ticked ? " checked " : ""});
}

void FormEditFields::PutDateInput(const Control& control) {
  out_.Put(R"(<input {}{}size=22 maxlength=25 type="{}" id="{}" name="{}" value=")", control.Disabled(),
           Class(render_, R"(class="DraloInput" )"), Verbatim{rules_.is_day ? "date" : "text"}, control.name,
           control.name);
  state::PutInAttribute(out_, render_, control.text);
  out_.Put(R"(")");
  PutDayRules(out_, rules_);
  out_.Put(">");
}

void FormEditFields::PutTextInput(const Control& control) {
  constexpr std::int64_t kNumberSize = 20;
  const bool is_number = platform::IsNumericFieldType(control.type);
  const std::int64_t max_length = MaxLength(rules_, is_number ? kNumberSize : control.defined_size);
  const std::int64_t room = is_number ? 0 : 2;
  const std::int64_t size = max_length > 0 ? std::min(max_length, kWidestInput - room) + room : kWidestInput;
  out_.Put(R"(<input {}{}size={} type="text" id="{}" name="{}" value=")", control.Disabled(),
           Class(render_, R"(class="DraloInput" )"), size, control.name, control.name);
  state::PutInAttribute(out_, render_, control.text);
  out_.Put(R"(" maxlength=")").PutIf(max_length > 0, "{}", max_length).Put(R"(")");
  PutInputRules(out_, rules_, control.type);
  out_.Put(">");
}

void FormEditFields::PutHiddenInput(const Control& control) {
  out_.Put(R"(<input type="hidden" name="{}" value=")", control.name);
  state::PutInAttribute(out_, render_, control.text);
  out_.Put(R"(">)");
}

}  // namespace dralo::editing
