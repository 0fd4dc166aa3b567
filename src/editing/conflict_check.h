#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dralo/field.h"
#include "dralo/recordset.h"
#include "editing/field_digest.h"
#include "editing/query_schema.h"
#include "state/field_inputs.h"
#include "state/render.h"

namespace dralo::editing {

/// Whether forms carry digests, and changes are checked against them.
bool DetectsConflicts(const settings::Settings& settings);

/// The digest of a field as the edit form shows it, of the record with that key. `is_iso_day` is as in
/// ControlText().
FieldDigest DigestOfField(const state::Render& render, std::string_view record_key, platform::Field& field,
                          bool is_iso_day);

/// Compares a posted form with the record on which a recordset stands: what has the visitor touched, and what
/// has somebody else changed since the form was made?
class ConflictCheck {
 public:
  /// Both must outlive the object. Throws platform::Error when the record's keys cannot be read.
  ConflictCheck(const state::Render& render, platform::Recordset& recordset);

  enum class Finding {
    kUntouched,  ///< Or the posted text is what is stored now: nothing to assign.
    kTouched,    ///< By the visitor alone.
    kConflict,   ///< By both; or a text came without a digest, and nobody knows what it replaces.
  };

  /// `schema` has the type of the field in this record, `posted` its input as it was posted.
  Finding Compare(const SchemaField& schema, platform::Field& field, std::optional<std::string_view> posted);

  /// Whether the field has another value than the form has shown, or its digest is missing.
  bool HasChanged(platform::Field& field);

  /// What the form says about a conflict: the value that is stored now, with its digest.
  state::FieldNote Note(platform::Field& field, bool is_iso_day);

 private:
  std::optional<FieldDigest> Posted(std::string_view field_name) const;

  const state::Render& render_;
  state::FieldInputs digests_;
  std::string record_key_;
};

}  // namespace dralo::editing
