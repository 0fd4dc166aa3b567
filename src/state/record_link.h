#pragma once

#include <cstdint>
#include <string>

#include "dralo/recordset.h"
#include "html/html_writer.h"
#include "state/primary_key_value_list.h"
#include "state/render.h"

namespace dralo::state {

/// The address of the one-record view of a record. What all records of a page have in common is put together
/// once.
class RecordLink {
 public:
  /// For the records of `recordset`, which must outlive the link. The addresses have the sort order and the
  /// state query that `render` has now.
  RecordLink(const Render& render, platform::Recordset& recordset);

  /// The same for an attribute: on a hardened page "&" is escaped.
  static RecordLink InAttribute(const Render& render, platform::Recordset& recordset);

  /// The same, with the key that asks for the one-record view at the end of the address.
  static RecordLink WithViewAtEnd(const Render& render, platform::Recordset& recordset);

  /// Writes the address of the current record, whose number, counted from 1, is `number`. The record is
  /// addressed by its primary key, or by the number when it has none. A key that cannot be read is reported
  /// in ErrorMessage.
  void Put(html::HtmlWriter& out, Render& render, std::int32_t number);

 private:
  std::string before_key_;
  std::string before_number_;
  std::string after_number_;
  PrimaryKeyValueList key_values_;
};

}  // namespace dralo::state
