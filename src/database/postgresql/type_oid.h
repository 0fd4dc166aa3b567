#pragma once

#include <libpq-fe.h>

namespace dralo::database::postgresql::type_oid {

/// The numbers of PostgreSQL's own types, the same in every database.
inline constexpr Oid kUnknown = 0;  ///< Of a parameter whose place decides.
inline constexpr Oid kBoolean = 16;
inline constexpr Oid kBytes = 17;
inline constexpr Oid kSingleByte = 18;
inline constexpr Oid kName = 19;
inline constexpr Oid kBigInt = 20;
inline constexpr Oid kSmallInt = 21;
inline constexpr Oid kInteger = 23;
inline constexpr Oid kOid = 26;
inline constexpr Oid kNetwork = 650;
inline constexpr Oid kReal = 700;
inline constexpr Oid kDouble = 701;
inline constexpr Oid kMoney = 790;
inline constexpr Oid kHardwareAddress = 829;
inline constexpr Oid kAddress = 869;
inline constexpr Oid kChar = 1042;
inline constexpr Oid kVarChar = 1043;
inline constexpr Oid kDate = 1082;
inline constexpr Oid kTime = 1083;
inline constexpr Oid kTimestamp = 1114;
inline constexpr Oid kTimestampWithZone = 1184;
inline constexpr Oid kInterval = 1186;
inline constexpr Oid kBits = 1560;
inline constexpr Oid kVarBits = 1562;
inline constexpr Oid kNumeric = 1700;
inline constexpr Oid kCursor = 1790;
inline constexpr Oid kUuid = 2950;

}  // namespace dralo::database::postgresql::type_oid
