#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "dralo/field.h"
#include "editing/edit_rules.h"
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

  /// From now on every control is followed by the digest of its field in the record of that key. In a form
  /// that comes back after a failed save that is the posted digest, or a new one that the save has made.
  void CarryDigests(std::string record_key) { record_key_ = std::move(record_key); }

  /// Writes the control of the field at the 0-based position `index` of the record: a select list for a field
  /// with a lookup, else what suits its type. A read-only control is disabled and followed by a hidden input;
  /// one that must not be empty is followed by RequiredFieldIndicator.
  void GetFormEditField(platform::Field& field, int index);

  /// Writes the value alone, as a hidden input.
  void PutHidden(platform::Field& field);

 private:
  struct Control;

  bool IsReadOnly(const platform::Field& field, int index) const;
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
  std::string_view Digest(platform::Field& field);
  void PutDigest(const Control& control);
  void PutNotes(std::string_view field_name);

  template <class Body>
  void Guarded(const platform::Field& field, Body&& body);

  state::Render& render_;
  html::HtmlWriter& out_;
  state::FieldInputs inputs_;
  state::FieldInputs digests_;
  std::optional<std::string> record_key_;  ///< Of forms that carry digests.
  EditRules rules_;                        ///< Of the current control.
  std::string text_;                       ///< For the text of the current control.
  std::string digest_;                     ///< For its digest.
  html::HtmlWriter field_name_;            ///< For the name of the current control.
};

}  // namespace dralo::editing
