#pragma once

#include <string_view>
#include <vector>

#include "dralo/change.h"
#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::editing {

/// A change of the record on which a recordset stands, for the handlers of the page.
class RecordChange final : public platform::Change {
 public:
  enum class Kind { kInsert, kUpdate, kDelete };

  /// Reads the old values: make it before anything is assigned. Both must outlive the object. Throws
  /// platform::Error when a value cannot be read.
  RecordChange(state::Render& render, platform::Recordset& recordset, Kind kind);

  /// The record is written: from now on it can be neither changed nor refused.
  void SetWritten() { is_written_ = true; }

  std::string_view Operation() const override;
  std::vector<platform::NamedValue> Key() override;
  std::vector<platform::NamedValue> Old() const override { return old_; }
  std::vector<platform::NamedValue> Values() override;
  void Set(std::string_view field, const platform::Variant& value) override;
  void Refuse(std::string_view field, std::string_view message) override;

 private:
  void RequireUnwritten() const;

  state::Render& render_;
  platform::Recordset& recordset_;
  Kind kind_;
  bool is_written_ = false;
  std::vector<platform::NamedValue> old_;
};

}  // namespace dralo::editing
