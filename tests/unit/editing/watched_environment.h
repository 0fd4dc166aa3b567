#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "dralo/recordset.h"
#include "platform/environment.h"
#include "support/regional_environment.h"
#include "text/letter_case.h"

namespace dralo::tests {

/// What a test does before an operation of a recordset, such as "Open" or "Update"; it may throw.
using Watch = std::function<void(std::string_view operation)>;

/// A recordset that tells the test what is about to happen to it.
class WatchedRecordset final : public platform::Recordset {
 public:
  WatchedRecordset(std::shared_ptr<platform::Recordset> inner, const Watch& watch)
      : inner_(std::move(inner)), watch_(watch) {}

  void SetMaxRecords(std::int64_t rows) override { inner_->SetMaxRecords(rows); }
  std::int64_t MaxRecords() const override { return inner_->MaxRecords(); }
  void SetCursorLocation(platform::CursorLocation location) override { inner_->SetCursorLocation(location); }
  platform::CursorLocation Location() const override { return inner_->Location(); }
  void SetUpdateCriteria(platform::UpdateCriteria criteria) override { inner_->SetUpdateCriteria(criteria); }
  void SetIdentity(platform::RecordIdentity identity) override { inner_->SetIdentity(std::move(identity)); }
  void SetCounting(std::string statement, std::vector<platform::Variant> parameters) override {
    inner_->SetCounting(std::move(statement), std::move(parameters));
  }
  platform::Variant Counted() override { return inner_->Counted(); }
  void TakeTypesOfRow() override { inner_->TakeTypesOfRow(); }
  void Open(std::string_view sql, const std::shared_ptr<platform::Connection>& connection,
            platform::CursorType cursor, platform::LockType lock, int options) override {
    watch_("Open");
    inner_->Open(sql, connection, cursor, lock, options);
  }
  void Open(platform::Command& command, platform::CursorType cursor, platform::LockType lock,
            int options) override {
    watch_("Open");
    inner_->Open(command, cursor, lock, options);
  }
  void OpenDescribed(platform::Command& described, platform::Command& rows) override {
    watch_("Open");
    inner_->OpenDescribed(described, rows);
  }
  void LockRow() override { inner_->LockRow(); }
  bool IsOpen() const override { return inner_->IsOpen(); }
  bool Eof() override {
    watch_("Eof");
    return inner_->Eof();
  }
  void MoveNext() override { inner_->MoveNext(); }
  void Move(std::int64_t rows) override { inner_->Move(rows); }
  std::span<platform::Field* const> Fields() override {
    watch_("Fields");
    return inner_->Fields();
  }
  void AddNew() override {
    watch_("AddNew");
    inner_->AddNew();
  }
  void Update() override {
    watch_("Update");
    inner_->Update();
  }
  void CancelUpdate() override {
    watch_("CancelUpdate");
    inner_->CancelUpdate();
  }
  void Close() override {
    watch_("Close");
    inner_->Close();
  }

 private:
  std::shared_ptr<platform::Recordset> inner_;
  const Watch& watch_;
};

/// The services of the test program with recordsets that are watched.
class WatchedEnvironment final : public platform::Environment {
 public:
  explicit WatchedEnvironment(Watch watch) : watch_(std::move(watch)) {}

  platform::ObjectPtr CreateObject(std::string_view identifier) override {
    auto object = AmericanEnvironment().CreateObject(identifier);
    auto recordset = std::dynamic_pointer_cast<platform::Recordset>(object);
    if (!recordset) return object;
    watch_("Create");
    return std::make_shared<WatchedRecordset>(std::move(recordset), watch_);
  }
  const platform::ValueFormatting& Regional() const override { return AmericanEnvironment().Regional(); }
  std::unique_ptr<platform::RegExp> CreateRegExp() override { return AmericanEnvironment().CreateRegExp(); }

 private:
  Watch watch_;
};

}  // namespace dralo::tests
