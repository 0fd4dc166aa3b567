#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dralo/recordset.h"
#include "dralo/type_code.h"
#include "dralo/variant.h"
#include "settings/settings.h"

namespace dralo::editing {

/// What an edit form carries about a field that it shows, so that a save can tell who has changed what. There
/// are two digests because the control's text does not have all of the value: it lacks Null, digits that are
/// not shown, and bytes that are no UTF-8.
struct FieldDigest {
  /// Of the stored value: has the database changed? Half a SHA-256: that is enough against another visitor
  /// who makes up two values with one digest.
  using Value = std::array<std::uint8_t, 16>;
  /// Of the control's text: has the visitor touched it? May be short: a visitor who makes up such texts
  /// deceives only himself.
  using Text = std::array<std::uint8_t, 8>;

  Value value{};
  Text text{};

  friend bool operator==(const FieldDigest&, const FieldDigest&) = default;
};

/// Digest of a value of the field `name`, of that type, in the record of that key. Language and regional
/// settings do not matter, nor whether a number with a fraction is kept as binary or as decimal digits.
FieldDigest::Value DigestOfValue(std::string_view record_key, std::string_view name, platform::TypeCode type,
                                 const platform::VariantView& value);

/// Digest of the text in a control, as a browser holds it.
FieldDigest::Text DigestOfText(std::string_view text, bool is_one_line);

/// Digest of a checkbox.
FieldDigest::Text DigestOfTick(bool is_ticked);

/// 32 characters that need no escape anywhere in a page.
std::string DigestText(const FieldDigest& digest);

/// Nothing when `text` is not what DigestText() writes.
std::optional<FieldDigest> ReadDigest(std::string_view text);

/// What tells the current record of `recordset` from others in digests: the values of those key fields that
/// it has. Throws platform::Error when a value cannot be read.
std::string RecordKeyOf(const settings::Settings& settings, platform::Recordset& recordset);

}  // namespace dralo::editing
