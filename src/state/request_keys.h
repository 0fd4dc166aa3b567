#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/request.h"
#include "html/html_writer.h"

namespace dralo::state {

/// Names of the keys that carry a view's state through the request; each follows the view's prefix.
namespace key {
/// What every key of every view begins with; the view's tag follows.
inline constexpr std::string_view kPrefix = "Morvu";

inline constexpr std::string_view kMaxRecords = "maxrecords";
inline constexpr std::string_view kCountRecords = "CountRecords";
inline constexpr std::string_view kCurrRecord = "CurrRecord";
inline constexpr std::string_view kSql = "SQL";
inline constexpr std::string_view kFormDisplay = "FormDisplay";
inline constexpr std::string_view kOrderByFields = "OrderByFields";
inline constexpr std::string_view kOrderByDesc = "OrderByDesc";
inline constexpr std::string_view kFirst = "FIRST";
inline constexpr std::string_view kPrevious = "PREV";
inline constexpr std::string_view kNext = "NEXT";
inline constexpr std::string_view kLast = "LAST";
inline constexpr std::string_view kBookmark = "BookMark";
inline constexpr std::string_view kPrimaryKey = "PK";
inline constexpr std::string_view kEditPrimaryKey = "EditPK";
inline constexpr std::string_view kFormEdit = "FormEdit";
inline constexpr std::string_view kFormAdd = "FormAdd";
inline constexpr std::string_view kFormView = "FormView";
inline constexpr std::string_view kFormInsert = "FormInsert";
inline constexpr std::string_view kFormUpdate = "FormUpdate";
inline constexpr std::string_view kFormDelete = "FormDelete";
inline constexpr std::string_view kFormDeleteConfirmed = "FormDeleteConfirmed";
inline constexpr std::string_view kToExcel = "ToExcel";

/// What happened before this address was shown: "u" a record was saved, "i" added, "d" deleted.
inline constexpr std::string_view kDone = "Done";

/// Tells one add form from all others, so that it adds one record only.
inline constexpr std::string_view kInsertToken = "InsertToken";

/// The token by which a page recognises the forms that it has written itself.
inline constexpr std::string_view kToken = "Token";

/// Stands before the name of the field in the names of a form's inputs.
inline constexpr std::string_view kField = "_Form_";

/// Stands before the name of the field in the names of the inputs that carry digests.
inline constexpr std::string_view kDigest = "_Was_";

/// What a browser appends to the name of an image button that was pressed.
inline constexpr std::string_view kPressed = ".x";
}  // namespace key

/// The value of key::kFormDisplay that asks for single records; read in any letter case.
inline constexpr std::string_view kOneRecord = "formOneRec";

/// Whether the key commands a change or says what is written. A hardened view reads such keys from the body
/// of a post only. `name` is without the view's prefix; letter case does not matter.
bool IsOfChange(std::string_view name);

/// Where keys of a change are read.
enum class ChangeKeys { kAnywhere, kForm, kNowhere };

/// The request keys of one view: "Morvu", its tag, and the key's name. The one place where keys are formed.
class RequestKeys {
 public:
  /// When the button that edits a record was pressed, key::kPrimaryKey has the key that the button posts.
  RequestKeys(const platform::Request& request, std::string_view tag,
              ChangeKeys change_keys = ChangeKeys::kAnywhere);

  /// The key as it is written into the page. Valid as long as this object.
  html::Joined operator()(std::string_view name) const { return {prefix_, name}; }

  /// The value of the key, without blanks around it: from the posted form, else from the query string; the
  /// first when the key occurs several times. Empty when the key is missing or blank. Letter case does not
  /// matter. Valid as long as the request.
  std::string_view Value(std::string_view name) const;

  /// The value of the key as it was sent; nothing when it is missing. Otherwise like Value().
  std::optional<std::string_view> Untrimmed(std::string_view name) const;

  /// The same, from the posted form only; nothing also when it occurs there more than once.
  std::optional<std::string_view> PostedOnce(std::string_view name) const;

  /// Whether the image button of that name was pressed.
  bool WasPressed(std::string_view button) const;

  /// From now on these keys are missing, whatever the request says. The names must outlive the object.
  void Ignore(std::vector<std::string_view> names) { ignored_ = std::move(names); }

  bool Has(std::string_view name) const { return !Value(name).empty(); }

  const platform::Request& GetRequest() const { return request_; }

 private:
  std::optional<std::string_view> Find(std::string_view name, std::string_view suffix) const;
  bool IsKey(std::string_view candidate, std::string_view name, std::string_view suffix) const;

  bool IsReadInForm(std::string_view name) const;
  bool IsReadInQuery(std::string_view name) const;

  const platform::Request& request_;
  std::string prefix_;
  ChangeKeys change_keys_;
  /// The form commands a change and is read. Then the key of its record is part of the change.
  bool commands_change_ = false;
  std::vector<std::string_view> ignored_;
};

}  // namespace dralo::state
