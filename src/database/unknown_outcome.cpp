#include "database/unknown_outcome.h"

#include <string>
#include <string_view>

#include "platform/lost_connection.h"

namespace dralo::database {

platform::Error UnknownOutcome(const platform::Error& reason) {
  std::string_view cause = reason.Description();
  cause = cause.substr(0, cause.find(" (SQLSTATE "));
  const std::string state(platform::kUnknownOutcome);
  return platform::Error(
      "It is not known whether the transaction was committed, for the connection was lost: " +
          std::string(cause) + " (SQLSTATE " + state + ")",
      reason.Number(), state, reason.Source());
}

}  // namespace dralo::database
