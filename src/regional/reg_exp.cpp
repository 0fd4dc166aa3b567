#include "regional/reg_exp.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <algorithm>
#include <chrono>
#include <new>
#include <span>
#include <utility>

#include "dralo/error.h"
#include "regional/replacement.h"
#include "text/characters.h"
#include "text/utf8.h"

namespace dralo::regional {
namespace {

using platform::Error;
using SteadyClock = std::chrono::steady_clock;

/// PCRE2 counts its steps anew at each place of the text. So a search is also cut into windows of places, and
/// the clock is looked at between them; one look can be late by steps times window.
constexpr std::uint32_t kMaxStepsPerPlace = 500'000;
constexpr std::size_t kWindow = 256;
constexpr std::chrono::milliseconds kMaxTime{1000};
constexpr std::uint32_t kMaxHeapKilobytes = 32 * 1024;
constexpr std::size_t kFirstJitStackBytes = 32'768;
constexpr std::size_t kMaxJitStackBytes = 1'048'576;

struct Free {
  void operator()(pcre2_code* code) const { pcre2_code_free(code); }
  void operator()(pcre2_compile_context* context) const { pcre2_compile_context_free(context); }
  void operator()(pcre2_match_context* context) const { pcre2_match_context_free(context); }
  void operator()(pcre2_match_data* data) const { pcre2_match_data_free(data); }
  void operator()(pcre2_jit_stack* stack) const { pcre2_jit_stack_free(stack); }
};

template <class T>
using Owned = std::unique_ptr<T, Free>;

template <class T>
Owned<T> Own(T* made) {
  if (made == nullptr) throw std::bad_alloc();
  return Owned<T>(made);
}

PCRE2_SPTR Units(std::string_view text) { return reinterpret_cast<PCRE2_SPTR>(text.data()); }

std::string Reason(int code) {
  PCRE2_UCHAR reason[256] = {};
  pcre2_get_error_message(code, reason, sizeof reason);
  return reinterpret_cast<const char*>(reason);
}

[[noreturn]] void ThrowTooLong(int code = 0) {
  throw Error("The regular expression takes too long on this text: make it simpler", code);
}

void Check(SteadyClock::time_point deadline) {
  if (SteadyClock::now() > deadline) ThrowTooLong();
}

/// `at` may be within a character.
std::size_t NextCharacter(std::string_view text, std::size_t at) {
  ++at;
  while (at < text.size() && text::IsTail(text[at])) ++at;
  return at;
}

std::uint32_t CompileOptions(const platform::RegExp::Options& options) {
  std::uint32_t bits = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_NEVER_BACKSLASH_C |
                       PCRE2_USE_OFFSET_LIMIT | PCRE2_ALT_BSUX | PCRE2_ALLOW_EMPTY_CLASS |
                       PCRE2_MATCH_UNSET_BACKREF;
  if (options.ignore_case) bits |= PCRE2_CASELESS;
  bits |= options.multi_line ? PCRE2_MULTILINE : PCRE2_DOLLAR_ENDONLY;
  return bits;
}

Owned<pcre2_code> CompilePattern(std::string_view pattern, const platform::RegExp::Options& options) {
  const auto context = Own(pcre2_compile_context_create(nullptr));
  pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
  int error = 0;
  PCRE2_SIZE offset = 0;
  Owned<pcre2_code> code(
      pcre2_compile(Units(pattern), pattern.size(), CompileOptions(options), &error, &offset, context.get()));
  if (code == nullptr) {
    const std::size_t characters = text::CountCharacters(pattern.substr(0, offset));
    throw Error("The regular expression is not valid after " + std::to_string(characters) +
                    " characters: " + Reason(error),
                error);
  }
  // Without a compiler for this processor the expression is interpreted, so a failure here is no error.
  pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
  return code;
}

class PcreRegExp final : public platform::RegExp {
 public:
  PcreRegExp();
  void Compile(std::string_view pattern, const Options& options) override;
  std::string Replace(std::string_view text, std::string_view replacement) const override;

 private:
  bool Find(std::string_view text, std::size_t from, SteadyClock::time_point deadline) const;
  bool FindInWindow(std::string_view text, std::size_t from) const;
  std::span<const std::size_t> Groups() const;

  Owned<pcre2_jit_stack> jit_stack_;
  Owned<pcre2_match_context> context_;
  Owned<pcre2_code> code_;
  Owned<pcre2_match_data> match_;
  bool is_global_ = false;
};

PcreRegExp::PcreRegExp()
    : jit_stack_(pcre2_jit_stack_create(kFirstJitStackBytes, kMaxJitStackBytes, nullptr)),
      context_(Own(pcre2_match_context_create(nullptr))) {
  pcre2_set_match_limit(context_.get(), kMaxStepsPerPlace);
  pcre2_set_heap_limit(context_.get(), kMaxHeapKilobytes);
  pcre2_jit_stack_assign(context_.get(), nullptr, jit_stack_.get());
}

void PcreRegExp::Compile(std::string_view pattern, const Options& options) {
  auto code = CompilePattern(pattern, options);
  match_ = Own(pcre2_match_data_create_from_pattern(code.get(), nullptr));
  code_ = std::move(code);
  is_global_ = options.global;
}

std::string PcreRegExp::Replace(std::string_view text, std::string_view replacement) const {
  if (code_ == nullptr) throw Error("A regular expression replaces only after its pattern was compiled");
  const SteadyClock::time_point deadline = SteadyClock::now() + kMaxTime;
  std::string result;
  std::size_t copied = 0;
  std::size_t from = 0;
  while (from <= text.size() && Find(text, from, deadline)) {
    const auto groups = Groups();
    const std::size_t start = groups[0];
    const std::size_t end = groups[1];
    result += text.substr(copied, start - copied);
    AppendReplacement(replacement, text, groups, result);
    copied = end;
    from = start == end ? NextCharacter(text, end) : end;
    if (!is_global_) break;
    Check(deadline);
  }
  return result += text.substr(copied);
}

bool PcreRegExp::Find(std::string_view text, std::size_t from, SteadyClock::time_point deadline) const {
  while (true) {
    const std::size_t last = std::min(from + kWindow, text.size());
    pcre2_set_offset_limit(context_.get(), last);
    if (FindInWindow(text, from)) return true;
    if (last == text.size()) return false;
    Check(deadline);
    from = NextCharacter(text, last);
  }
}

bool PcreRegExp::FindInWindow(std::string_view text, std::size_t from) const {
  const auto match = [&](std::uint32_t options) {
    return pcre2_match(code_.get(), Units(text), text.size(), from, options, match_.get(), context_.get());
  };
  int result = match(0);
  if (result == PCRE2_ERROR_JIT_STACKLIMIT) result = match(PCRE2_NO_JIT);
  if (result >= 0) return true;
  switch (result) {
    case PCRE2_ERROR_NOMATCH:
      return false;
    case PCRE2_ERROR_MATCHLIMIT:
    case PCRE2_ERROR_DEPTHLIMIT:
    case PCRE2_ERROR_HEAPLIMIT:
      ThrowTooLong(result);
    default:
      throw Error("The regular expression cannot be matched: " + Reason(result), result);
  }
}

std::span<const std::size_t> PcreRegExp::Groups() const {
  return {pcre2_get_ovector_pointer(match_.get()), 2 * std::size_t{pcre2_get_ovector_count(match_.get())}};
}

}  // namespace

std::unique_ptr<platform::RegExp> MakeRegExp() { return std::make_unique<PcreRegExp>(); }

}  // namespace dralo::regional
