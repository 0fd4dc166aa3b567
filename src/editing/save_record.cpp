#include "editing/save_record.h"

#include <exception>
#include <memory>
#include <optional>
#include <string>

#include "dralo/error.h"
#include "dralo/recordset.h"
#include "editing/checked_fields.h"
#include "editing/conflict_check.h"
#include "editing/fields_in_turn.h"
#include "editing/guarded_record.h"
#include "editing/insert_token.h"
#include "editing/lost_change.h"
#include "editing/outcome.h"
#include "editing/posted_key.h"
#include "editing/primary_keys.h"
#include "editing/record_change.h"
#include "editing/replayed_insert.h"
#include "platform/lost_connection.h"
#include "platform/statement_clock.h"
#include "platform/transaction.h"
#include "settings/open_connection.h"
#include "settings/statement_parameters.h"
#include "state/key_items.h"

namespace dralo::editing {
namespace {

/// One save of one posted form. Its recordset, and all that was not written, end with it.
class Save {
 public:
  Save(state::Render& render, const QuerySchema& schema, std::string& statement)
      : render_(render),
        settings_(render.settings),
        schema_(schema),
        statement_(statement),
        is_insert_(render.keys.Has(state::key::kFormInsert)) {
    if (is_insert_ && HasInsertToken(settings_)) token_ = PostedInsertToken(render_);
  }

  bool Run() {
    if (settings_.Hardened) return RunGuarded();
    statement_ = WithoutWhere(settings_.EditSQL);
    if (!is_insert_) {
      key_ = ReadPostedKey(render_, schema_);
      statement_ += " WHERE " + key_.condition;
      RefuseAmbiguousKey(render_, key_);
    }
    if (ChecksAllFields(settings_)) return RunChecked();
    if (!Reopen() || !AssignInTurn(render_, schema_, *recordset_, is_insert_ ? nullptr : &key_) || !Write())
      return false;
    recordset_->Close();
    SetSaved();
    return true;
  }

 private:
  /// A hardened page changes only a record that it shows, and that it still shows when it is changed.
  bool RunGuarded() {
    statement_ = settings_.EditSQL;
    guarded_.emplace(render_);
    if (IsAddedAlready()) return true;
    if (!Reopen() || !SaveChecked()) return is_added_already_;
    const auto saved_key = guarded_->KeyInside(*recordset_);
    if (!saved_key) {
      render_.Errors().AddLeftForm();
      return false;
    }
    recordset_->Close();
    Commit();
    render_.outcome.saved_key = state::KeyOfItems(*saved_key);
    SetSaved();
    return true;
  }

  /// Where the answer was lost, the record tells whether it was added.
  void Commit() {
    try {
      guarded_->Commit();
    } catch (const platform::Error& error) {
      if (!platform::IsOutcomeUnknown(error) || !IsFoundAdded()) throw;
    }
  }

  bool IsFoundAdded() {
    try {
      return IsAddedMeanwhile();
    } catch (const std::exception&) {
      return false;
    }
  }

  /// Whether an earlier post of the same form has added its record: then there is nothing left but to say so.
  bool IsAddedAlready() {
    const auto key = token_.empty() ? std::nullopt : KeyOfAddedRecord(render_, schema_, token_);
    if (!key) return false;
    render_.outcome.saved_key = *key;
    SetSaved();
    return is_added_already_ = true;
  }

  bool OpenGuarded() {
    recordset_ = guarded_->Open();
    if (recordset_ == nullptr) {
      render_.Errors().AddNoSuchRecord();
      return false;
    }
    key_.exact = guarded_->Key();
    return true;
  }

  bool OpenGuardedForNew() {
    recordset_ = guarded_->OpenForNew();
    return AddNew();
  }

  /// Stands on the record that is changed, or on a new one. False when there is none; the outcome then says
  /// so.
  bool Reopen() {
    if (!guarded_) return Open(statement_) && Begin();
    return is_insert_ ? OpenGuardedForNew() : OpenGuarded();
  }

  bool Open(const std::string& statement) {
    recordset_ = platform::Create<platform::Recordset>(render_.environment, "ADODB.Recordset");
    recordset_->SetCursorLocation(platform::CursorLocation::kClient);
    // Of two saves of one record at the same moment one must fail, or the record would be a mixture of both.
    recordset_->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
    if (!is_insert_) {
      recordset_->SetMaxRecords(1);  // However many a made-up key finds.
      recordset_->SetIdentity({KeyNames(settings_), key_.outside_columns});
    }
    try {
      const auto parameters = settings::EditParametersOf(settings_, WithoutWhere(settings_.EditSQL));
      settings::OpenWithParameters(*recordset_, settings_, statement, parameters,
                                   platform::CursorType::kKeyset, platform::LockType::kOptimistic);
      if (is_insert_) return true;  // Without reading a row of the whole table.
      is_found_ = !recordset_->Eof();
    } catch (const std::exception& error) {
      if (!TellOfLoss(render_, error)) render_.Errors().AddOpeningFailure(error.what(), statement);
      return false;
    }
    return true;
  }

  bool Begin() {
    if (!is_insert_) {
      if (!is_found_ || !IsRecordOfKey(render_, *recordset_, key_))
        throw platform::Error("There is no record with the posted key");
      RefuseSharedKey(render_, key_);
      return true;
    }
    return AddNew();
  }

  bool AddNew() {
    try {
      recordset_->AddNew();
    } catch (const std::exception& error) {
      if (!TellOfLoss(render_, error)) render_.Errors().AddAddNewFailure(error.what());
      return false;
    }
    return true;
  }

  /// Handlers see the record inside the transaction that writes it.
  bool RunChecked() {
    // A handler may give the view another connection.
    connection_ = settings::OpenConnection(settings_);
    transaction_.emplace(*connection_);
    if (!Reopen() || !SaveChecked()) return false;
    recordset_->Close();
    transaction_->Commit();
    SetSaved();
    return true;
  }

  bool SaveChecked() {
    RecordChange change(render_, *recordset_,
                        is_insert_ ? RecordChange::Kind::kInsert : RecordChange::Kind::kUpdate);
    if (!AssignAll() || !IsAllowed(change) || !IsFirst() || !Write()) return false;
    change.SetWritten();
    if (settings_.OnSaved != nullptr) (*settings_.OnSaved)(change);
    return true;
  }

  bool IsAllowed(RecordChange& change) {
    if (settings_.OnSave != nullptr) (*settings_.OnSave)(change);
    if (render_.outcome.field_notes.empty()) return true;
    SetRefused(render_, schema_, settings::kSeeFields);
    Abandon();
    return false;
  }

  /// A second equal insert asks before it is made. The form that comes back carries the greatest key of this
  /// moment, so that posting it is no replay.
  bool IsFirst() {
    if (!is_insert_ || !DetectsReplays(settings_) || !IsReplayed(render_, schema_, *recordset_)) return true;
    SetRefused(render_, schema_, settings::kAddedAlready);
    Abandon();
    return false;
  }

  bool AssignAll() {
    const bool is_done = is_insert_ ? AssignToNewRecord(render_, schema_, *recordset_)
                                    : AssignToRecord(render_, schema_, *recordset_, key_);
    if (!is_done) Abandon();
    if (is_done && !token_.empty()) SetInsertToken(render_, *recordset_, token_);
    return is_done;
  }

  void SetSaved() { SetOutcome(render_, is_insert_ ? settings::kInserted : settings::kUpdated); }

  void Abandon() {
    recordset_->CancelUpdate();
    recordset_->Close();
  }

  bool Write() {
    try {
      recordset_->Update();
    } catch (const std::exception& error) {
      recordset_->Close();
      const bool may_ask = !platform::StatementClock::IsOver();
      if (may_ask && (IsAddedMeanwhile() || IsOvertaken())) return false;
      if (TellOfLoss(render_, error)) return false;
      render_.Errors().AddUpdateFailure(error.what());
      return false;
    }
    return true;
  }

  /// Begins a new transaction: some databases do not show in the old one what others have stored meanwhile.
  void StartAgain() {
    if (guarded_) {
      guarded_.reset();
      guarded_.emplace(render_);
    } else if (transaction_) {
      transaction_.reset();
      transaction_.emplace(*connection_);
    }
  }

  /// Whether a post of the same form was faster.
  bool IsAddedMeanwhile() {
    if (token_.empty()) return false;
    StartAgain();
    return IsAddedAlready();
  }

  /// Whether the record cannot be written because somebody else was faster: then what the visitor wanted to
  /// write is a conflict, and the form tells of it.
  bool IsOvertaken() {
    if (is_insert_ || !DetectsConflicts(settings_)) return false;
    StartAgain();
    return Reopen() && !AssignAll();
  }

  state::Render& render_;
  const settings::Settings& settings_;
  const QuerySchema& schema_;
  std::string& statement_;
  bool is_insert_;
  std::optional<GuardedRecord> guarded_;  ///< Of a hardened page.
  std::shared_ptr<platform::Connection> connection_;
  std::optional<platform::Transaction<platform::Connection>> transaction_;  ///< On connection_; of others.
  std::string token_;              ///< Of a new record whose form has one.
  bool is_added_already_ = false;  ///< By another post of the same form.
  PostedKey key_;                  ///< Of an update.
  bool is_found_ = false;          ///< Whether there is a record with the posted key.
  std::shared_ptr<platform::Recordset> recordset_;
};

}  // namespace

bool SaveRecord(state::Render& render, const QuerySchema& schema, std::string& statement) {
  return Save(render, schema, statement).Run();
}

}  // namespace dralo::editing
