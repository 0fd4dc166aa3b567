#include "editing/field_digest.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <variant>

#include "editing/control_text.h"
#include "editing/query_schema.h"
#include "platform/field_kind.h"
#include "state/key_text.h"
#include "state/named_field.h"
#include "text/base64url.h"
#include "text/decimal.h"
#include "text/sha256.h"

namespace dralo::editing {
namespace {

/// Is hashed in front of every value; must change whenever what is hashed does.
constexpr std::string_view kDigestVersion = "1";

using DigestBytes =
    std::array<std::uint8_t, std::tuple_size_v<FieldDigest::Value> + std::tuple_size_v<FieldDigest::Text>>;

std::string LengthOf(std::string_view part) {
  std::string length;
  for (unsigned shift = 64; shift > 0; shift -= 8) {
    length += static_cast<char>(std::uint64_t{part.size()} >> (shift - 8) & 0xFF);
  }
  return length;
}

/// Its length goes first, so that parts cannot run into each other.
void AddPart(text::Sha256& hash, std::string_view part) { hash.Add(LengthOf(part)).Add(part); }

/// The value in a form that does not depend on settings, with a tag for its kind.
struct PlainValue {
  std::string_view tag;
  std::string_view text;
};

struct PlainValueMaker {
  platform::TypeCode type;
  std::string& scratch;

  PlainValue operator()(platform::Null) const { return {"0", ""}; }
  PlainValue operator()(bool flag) const { return {"1", flag ? "1" : "0"}; }
  PlainValue operator()(std::int64_t number) const {
    scratch = std::to_string(number);
    return {platform::IsFractionalFieldType(type) ? "3" : "2", scratch};
  }
  PlainValue operator()(double number) const {
    scratch = text::DecimalText(number).value_or(std::to_string(number));
    return {"3", scratch};
  }
  PlainValue operator()(platform::DecimalView number) const {
    scratch = text::ParseDecimal(number.text).value_or(std::string(number.text));
    return {"3", scratch};
  }
  PlainValue operator()(const platform::DateTime& time) const {
    return {"4", state::KeyText(time, type, scratch)};
  }
  PlainValue operator()(std::string_view text) const { return {"5", text}; }
  PlainValue operator()(platform::BytesView bytes) const {
    return {"6", {reinterpret_cast<const char*>(bytes.data), bytes.size}};
  }
};

template <class Cut>
Cut CutDigest(const text::Sha256::Digest& digest) {
  Cut cut{};
  std::copy_n(digest.begin(), cut.size(), cut.begin());
  return cut;
}

}  // namespace

FieldDigest::Value DigestOfValue(std::string_view record_key, std::string_view name, platform::TypeCode type,
                                 const platform::VariantView& value) {
  std::string scratch;
  const PlainValue plain = std::visit(PlainValueMaker{type, scratch}, value);
  text::Sha256 hash;
  for (const std::string_view part : {kDigestVersion, record_key, name, plain.tag, plain.text}) {
    AddPart(hash, part);
  }
  return CutDigest<FieldDigest::Value>(hash.Finish());
}

FieldDigest::Text DigestOfText(std::string_view text, bool is_one_line) {
  return CutDigest<FieldDigest::Text>(text::Sha256().Add(AsHeldByControl(text, is_one_line)).Finish());
}

FieldDigest::Text DigestOfTick(bool is_ticked) { return DigestOfText(is_ticked ? "1" : "", true); }

std::string DigestText(const FieldDigest& digest) {
  DigestBytes bytes{};
  std::ranges::copy(digest.text, std::ranges::copy(digest.value, bytes.begin()).out);
  std::string text;
  text::PutBase64Url(bytes, text);
  return text;
}

std::optional<FieldDigest> ReadDigest(std::string_view text) {
  const auto bytes = text::ParseBase64Url(text);
  if (!bytes || bytes->size() != std::tuple_size_v<DigestBytes>) return std::nullopt;
  FieldDigest digest;
  std::copy_n(bytes->begin(), digest.value.size(), digest.value.begin());
  std::copy_n(bytes->begin() + digest.value.size(), digest.text.size(), digest.text.begin());
  return digest;
}

std::string RecordKeyOf(const settings::Settings& settings, platform::Recordset& recordset) {
  std::string key;
  std::string scratch;
  for (const std::string& name : KeyNames(settings)) {
    platform::Field* field = state::FindField(recordset, name);
    if (field == nullptr) continue;
    const std::string_view text = state::KeyText(*field, scratch);
    key.append(LengthOf(text)).append(text);
  }
  return key;
}

}  // namespace dralo::editing
