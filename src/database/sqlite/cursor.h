#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <vector>

#include "database/cursor.h"
#include "database/query.h"
#include "database/sqlite/statement.h"

namespace dralo::database::sqlite {

class Session;

/// A statement of the session's cache while it is in use.
class Cursor final : public database::Cursor {
 public:
  /// Throws platform::Error when the number of parameters is wrong.
  Cursor(Session& session, std::unique_ptr<Statement> statement, const Query& query);
  ~Cursor() override;

  std::shared_ptr<const Columns> GetColumns() const override { return statement_->Describe().columns; }
  void FixColumns() override;
  platform::TypeCode Type(std::size_t column) const override;
  void TakeTypes() override;
  bool ChangesData() const override;
  bool Skip(std::int64_t rows) override;
  bool Step() override;

  /// Takes the first step, whose result the next Step() returns.
  void StepAhead() noexcept;
  void Stop() noexcept override;
  platform::VariantView Value(std::size_t column) override;
  platform::VariantView Stored(std::size_t column) override;
  std::int64_t RowsAffected() const override { return rows_affected_; }
  const BaseTable& Table() override { return statement_->Table(); }

 private:
  bool Limit();
  void BindAll();
  void AfterFirstStep(bool has_row);

  Session& session_;
  std::unique_ptr<Statement> statement_;
  std::vector<platform::Variant> parameters_;
  std::int64_t max_records_;
  std::int64_t offset_ = 0;
  const Reader* readers_ = nullptr;
  bool was_stepped_ = false;
  std::optional<bool> ahead_ = {};         ///< What Step() has found ahead.
  std::exception_ptr ahead_failure_ = {};  ///< Or how it failed.
  bool is_running_ = false;
  std::int64_t changes_before_ = 0;
  std::int64_t rows_affected_ = 0;
  std::vector<platform::TypeCode> first_types_;  ///< For each column; empty when all types are declared.
};

}  // namespace dralo::database::sqlite
