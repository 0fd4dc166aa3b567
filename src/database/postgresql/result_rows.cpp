#include "database/postgresql/result_rows.h"

#include <algorithm>
#include <utility>

namespace dralo::database::postgresql {

namespace {

/// About the time that a new connection takes.
constexpr std::chrono::milliseconds kShortRest{20};

constexpr std::chrono::seconds kLongRest{30};

/// How long a reader may take over rows while the server counts the time.
constexpr std::chrono::milliseconds kReaderTime{5000};

}  // namespace

ResultRows::ResultRows(Result answer, std::size_t columns) : part_(std::move(answer)), row_(columns) {}

ResultRows::ResultRows(Link& link, const Execution& execution, std::size_t columns, bool may_drop)
    : link_(&link), execution_(execution), may_drop_(may_drop), row_(columns) {
  execution_->Split();
  link.SetReader(this);
  if (execution_->IsLimited()) {
    const std::chrono::milliseconds patience = *link.Patience();
    set_aside_at_ = Clock::now() + std::min(kReaderTime, patience / 4);
  }
}

ResultRows::ResultRows(Link& link, std::unique_ptr<ServerCursor> cursor, Result first)
    : link_(&link),
      cursor_(std::move(cursor)),
      part_(std::move(first)),
      row_(static_cast<std::size_t>(Libpq::Get().PQnfields(part_.get()))) {
  link.Attach(this);
  if (!cursor_->IsOpen()) Release();
}

void ResultRows::Await() {
  if (link_ != nullptr) TakePart();
}

bool ResultRows::Next() {
  if (link_ != nullptr && set_aside_at_ && Clock::now() >= *set_aside_at_) SetAside();
  if (!aside_) return NextOfServer();
  shown_ = nullptr;
  return aside_->Next(row_);
}

bool ResultRows::NextOfServer() {
  while (!part_ || next_ >= libpq_.PQntuples(part_.get())) {
    if (link_ == nullptr) return false;
    TakePart();
  }
  shown_ = part_.get();
  shown_row_ = next_++;
  return true;
}

void ResultRows::TakePart() {
  try {
    part_ = cursor_ ? cursor_->Next() : execution_->Part();
  } catch (...) {
    if (may_drop_ && link_->IsDead()) link_->Drop();
    Release();
    throw;
  }
  next_ = 0;
  if (!part_ || (cursor_ && !cursor_->IsOpen())) Release();
}

/// A failure is thrown when its row is asked for.
void ResultRows::SetAside() noexcept {
  if (link_ == nullptr) return;
  try {
    KeepRest();
  } catch (...) {
    aside_->EndBy(std::current_exception());
    Stop();
  }
}

/// The values of the current row may still be read, so their part stays.
void ResultRows::KeepRest() {
  aside_.emplace();
  KeepRestOfPart();
  current_part_ = std::move(part_);
  while (link_ != nullptr) {
    TakePart();
    KeepRestOfPart();
  }
}

void ResultRows::KeepRestOfPart() {
  RowsAside::Row row(row_.size());
  for (; part_ && next_ < libpq_.PQntuples(part_.get()); ++next_) {
    int column = 0;
    for (std::string_view& value : row) value = ValueIn(part_.get(), next_, column++);
    aside_->Add(row);
  }
}

void ResultRows::Release() noexcept {
  if (link_ == nullptr) return;
  if (cursor_) {
    link_->Detach(this);
  } else {
    link_->SetReader(nullptr);
  }
  link_ = nullptr;
}

/// A statement that still runs on the server then finds nobody to send its rows to.
void ResultRows::Stop() noexcept {
  Link* const link = link_;
  Release();
  if (link == nullptr) return;
  if (cursor_) return cursor_->Close();
  try {
    if (may_drop_) {
      if (!link->FinishWithin(kShortRest)) link->Drop();
    } else if (!link->FinishWithin(link->Patience().value_or(kLongRest))) {
      link->GiveUp();
    }
  } catch (const std::exception&) {
    link->GiveUp();
  }
}

}  // namespace dralo::database::postgresql
