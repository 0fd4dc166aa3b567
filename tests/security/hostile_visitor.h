#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/request.h"
#include "record/chance.h"

namespace dralo::security {

/// A request as its bytes are sent.
struct HostileRequest {
  std::string method = "GET";
  std::string query = "";
  std::string body = "";
  std::vector<std::pair<std::string, std::string>> headers = {};
  bool receives_posts = false;  ///< Of the page: it calls ReceivePost() first.
};

/// For messages of tests.
std::string Described(const HostileRequest& request);

/// Somebody who knows how the pages work, follows their links and uses their forms, and bends what he sends
/// in every way: other keys, other fields, made-up values, digests of other records, headers of other sites.
/// What he does depends on the seed and on the answers alone.
class HostileVisitor {
 public:
  explicit HostileVisitor(record::Chance chance) : chance_(chance) {}

  HostileRequest Next();

  /// The answer to the request; the next one goes by it.
  void Learn(const std::string& page);

 private:
  using Fields = std::vector<platform::RequestField>;

  HostileRequest Opening();
  HostileRequest OpeningForm();
  HostileRequest ChangingRecord();
  HostileRequest Following();
  HostileRequest Pressing();
  HostileRequest Guessing();
  HostileRequest AddingLikeOthers();
  HostileRequest Posted(const Fields& fields);

  void Type(Fields& fields);
  void Bend(Fields& fields);
  void BendOnce(Fields& fields);
  void BendHeaders(HostileRequest& request);

  std::string AnyKey();
  std::string AnyText();
  std::string AnyName();

  record::Chance chance_;
  std::string page_;
  Fields digests_;  ///< All that he has seen lately.
  std::vector<std::string> keys_;
};

}  // namespace dralo::security
