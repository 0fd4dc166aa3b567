#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include "dralo/error.h"
#include "dralo/recordset.h"

namespace dralo::component {

/// A column of a recordset that scripts may keep longer than the recordset is open. Reading it may move or
/// convert what the recordset holds.
class FieldReference final : public platform::Object {
 public:
  /// `position` counts from 0.
  FieldReference(std::shared_ptr<platform::Recordset> recordset, std::size_t position)
      : recordset_(std::move(recordset)), position_(position) {}

  /// Throws Error when the recordset was closed, or opened again with fewer columns.
  platform::Field& Get() {
    if (!recordset_->IsOpen()) throw platform::Error("The recordset of this field is closed");
    const auto fields = recordset_->Fields();
    if (position_ >= fields.size()) throw platform::Error("The recordset does not have this field any more");
    return *fields[position_];
  }

 private:
  std::shared_ptr<platform::Recordset> recordset_;
  std::size_t position_;
};

}  // namespace dralo::component
