#pragma once

#include <string>
#include <vector>

#include "dralo/recordset.h"
#include "html/html_writer.h"
#include "state/render.h"

namespace dralo::state {

/// Whether single records can be looked up in the statement. Setting `sql` also copies a command into the
/// statements of the forms, and no record can be looked up in a command.
bool CanAddressRecords(const Render& render, std::string_view statement);

/// The key values that address a record in links and forms; made once for many records.
class PrimaryKeyValueList {
 public:
  /// For the hidden input of a form: looks the fields of EditPrimaryKeys up in `recordset`, which must
  /// outlive the list. The list is empty when EditPrimaryKeys is blank.
  PrimaryKeyValueList(const settings::Settings& settings, platform::Recordset& recordset);

  /// The same for a link. It is empty also when there is no edit statement.
  static PrimaryKeyValueList ForLink(const Render& render, platform::Recordset& recordset);

  /// Takes the values of the current record. Returns whether they address a record. They do not when the list
  /// is empty, when its only value is, and after a failure, such as a key that is no field, which is reported
  /// in ErrorMessage. On a hardened page an empty text is a key, and Null and bytes are none.
  bool Read(settings::ErrorReport errors);

  /// Writes the values last read, URL-encoded and joined with ",".
  void Put(html::HtmlWriter& out) const;

  /// Writes the values last read, joined with ",", for a text in single quotes in a script that stands in an
  /// attribute in double quotes.
  void PutInScript(html::HtmlWriter& out) const;

  /// The values last read, joined with ",".
  std::string Plain() const;

 private:
  PrimaryKeyValueList() = default;

  struct Key {
    std::string name;
    platform::Field* field;
    std::string value = {};
  };

  /// Whether a value that is neither Null nor bytes is there; on a hardened page alone it matters.
  bool Read(Key& key);

  std::vector<Key> keys_;
  bool is_hardened_ = false;
  std::string scratch_;
};

}  // namespace dralo::state
