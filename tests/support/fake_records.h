#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/error.h"
#include "dralo/recordset.h"

namespace dralo::tests {

/// A field whose value, or failure, the test makes up.
class FakeField final : public platform::Field {
 public:
  using Read = std::function<platform::VariantView()>;

  FakeField(std::string name, platform::TypeCode type, Read read)
      : name_(std::move(name)), type_(type), read_(std::move(read)) {}

  int reads = 0;  ///< How often the value was asked for.

  std::string_view Name() const override { return name_; }
  platform::TypeCode Type() const override { return type_; }
  int Attributes() const override { return platform::kFieldIsNullable; }
  std::int64_t DefinedSize() const override { return 0; }
  std::int64_t ActualSize() override { return 0; }
  std::string BoundComparison(std::string_view name) const override { return std::string(name) + " = ?"; }
  std::string BaseName() const override { return name_; }
  platform::VariantView Value() override {
    ++reads;
    return read_();
  }
  void SetValue(const platform::Variant&) override { throw platform::Error("read-only"); }

 private:
  std::string name_;
  platform::TypeCode type_;
  Read read_;
};

/// For a field that cannot be read.
inline platform::VariantView Unreadable() { throw platform::Error("Disk gone", 10); }

/// `rows` rows of made-up fields.
class FakeRecords : public platform::Recordset {
 public:
  explicit FakeRecords(int rows) : rows_(rows) {}

  FakeField& Add(std::string name, platform::TypeCode type, FakeField::Read read) {
    owned_.push_back(std::make_unique<FakeField>(std::move(name), type, std::move(read)));
    fields_.push_back(owned_.back().get());
    return *owned_.back();
  }

  int row = 1;               ///< The current row, counted from 1.
  int fail_moving_from = 0;  ///< The row that MoveNext() fails to leave; 0 for none.

  bool Eof() override { return row > rows_; }
  void MoveNext() override {
    if (row == fail_moving_from) throw platform::Error("Disk gone", 10);
    ++row;
  }
  void Move(std::int64_t rows) override { row += static_cast<int>(rows); }
  std::span<platform::Field* const> Fields() override { return fields_; }

  bool IsOpen() const override { return true; }
  void OpenDescribed(platform::Command&, platform::Command&) override {}
  void LockRow() override {}
  void Close() override {}
  void SetMaxRecords(std::int64_t) override {}
  std::int64_t MaxRecords() const override { return 0; }
  void SetCursorLocation(platform::CursorLocation) override {}
  platform::CursorLocation Location() const override { return platform::CursorLocation::kServer; }
  void SetUpdateCriteria(platform::UpdateCriteria) override {}
  void Open(std::string_view, const std::shared_ptr<platform::Connection>&, platform::CursorType,
            platform::LockType, int) override {}
  void Open(platform::Command&, platform::CursorType, platform::LockType, int) override {}
  void SetCounting(std::string, std::vector<platform::Variant>) override {}
  platform::Variant Counted() override { return std::int64_t{rows_}; }
  void SetIdentity(platform::RecordIdentity) override {}
  void AddNew() override {}
  void TakeTypesOfRow() override {}
  void Update() override {}
  void CancelUpdate() override {}

 private:
  int rows_;
  std::vector<std::unique_ptr<FakeField>> owned_;
  std::vector<platform::Field*> fields_;
};

}  // namespace dralo::tests
