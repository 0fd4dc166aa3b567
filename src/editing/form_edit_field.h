#pragma once

#include <string>
#include <string_view>

#include "dralo/field.h"
#include "html/html_writer.h"
#include "state/field_inputs.h"
#include "state/render.h"

namespace dralo::editing {

/// Writes the input controls of one edit form. A form that comes back after a failed save shows what was
/// posted, an add form nothing, any other the values of the current record.
/// A field that fails is reported in ErrorMessage and gets no control.
class FormEditFields {
 public:
  /// `render` must outlive the object.
  explicit FormEditFields(state::Render& render);

  bool AddsRecord() const { return render_.view.mode == state::Mode::kFormAdd; }

  /// Writes the control of the field at the 0-based position `index` of the record: a select list for a field
  /// with a lookup, else what suits its type. One that is read-only is disabled and followed by a hidden
  /// input, one that must not be empty by RequiredFieldIndicator.
  void GetFormEditField(platform::Field& field, int index);

  /// Writes the value alone, as a hidden input.
  void PutHidden(platform::Field& field);

 private:
  struct Control;

  Control Read(platform::Field& field, bool is_read_only);
  html::Joined InputName(std::string_view field_name);
  void Put(const Control& control);
  bool PutLookup(const Control& control);
  void PutByType(const Control& control);
  void PutTextarea(const Control& control);
  void PutCheckbox(const Control& control);
  void PutDateInput(const Control& control);
  void PutTextInput(const Control& control);
  void PutHiddenInput(const Control& control);

  template <class Body>
  void Guarded(const platform::Field& field, Body&& body);

  state::Render& render_;
  html::HtmlWriter& out_;
  state::FieldInputs inputs_;
  std::string text_;             ///< For the text of the current control.
  html::HtmlWriter field_name_;  ///< For the name of the current control.
};

}  // namespace dralo::editing
