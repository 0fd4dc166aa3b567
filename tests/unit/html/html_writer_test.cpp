#include "html/html_writer.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "dralo/response.h"

namespace dralo::html {
namespace {

/// Keeps the pieces apart; fails on writing as often as `failures` says.
class PieceResponse final : public platform::Response {
 public:
  std::vector<std::string> pieces;
  int failures = 0;

  std::string Body() const {
    std::string body;
    for (const std::string& piece : pieces) body += piece;
    return body;
  }

  void Write(std::string_view html) override {
    pieces.emplace_back(html);
    if (failures > 0) {
      --failures;
      throw std::runtime_error("the client is gone");
    }
  }
  void Clear() override { pieces.clear(); }
  void SetContentType(std::string_view) override {}
  void AddHeader(std::string_view, std::string_view) override {}
  void End() override {}
};

template <class Value>
concept FillsASlot = requires(HtmlWriter& out, const Value& value) {
  out.Put("{}", value);
};

template <class Value>
concept IsWritten = requires(HtmlWriter& out, const Value& value) {
  out.Write(value);
};

static_assert(FillsASlot<Verbatim> && FillsASlot<Joined> && FillsASlot<Quoted> && FillsASlot<Encoded> &&
              FillsASlot<Text>);
static_assert(FillsASlot<int> && FillsASlot<std::int16_t> && FillsASlot<std::int64_t> &&
              FillsASlot<std::size_t>);
static_assert(!FillsASlot<std::string_view> && !IsWritten<std::string_view>);
static_assert(!FillsASlot<std::string> && !IsWritten<std::string>);
static_assert(!FillsASlot<const char*> && !IsWritten<const char*>);
static_assert(!FillsASlot<bool> && !IsWritten<bool>);
static_assert(!FillsASlot<char> && !IsWritten<char>);
static_assert(!FillsASlot<double> && !IsWritten<double>);

/// Writes so many cells; the text that they are.
std::string PutCells(HtmlWriter& out, int cells) {
  std::string text;
  for (int cell = 0; cell < cells; ++cell) {
    out.Put("<td>{}</td>", cell);
    text += "<td>" + std::to_string(cell) + "</td>";
  }
  return text;
}

struct HtmlText : testing::Test {
  HtmlWriter out;
};

struct HtmlPieces : testing::Test {
  PieceResponse response;
  HtmlWriter out{response};
};

TEST_F(HtmlText, KeepsLiteralsByteForByte) {
  out.Put("<tr><td  nowrap>\r\n").Put("").Put(R"(100% "{ } }{ <&>)");

  EXPECT_EQ(out.Take(), "<tr><td  nowrap>\r\n100% \"{ } }{ <&>");
}

TEST_F(HtmlText, PutsEachValueIntoItsSlotInOrder) {
  out.Put("{}<{}>{}", 1, Verbatim{"b"}, 2).Put("{}{}", Joined{"Morvu1", "PK"}, 3);

  EXPECT_EQ(out.Take(), "1<b>2Morvu1PK3");
}

TEST_F(HtmlText, WritesVerbatimAndJoinedTextAsItIs) {
  out.Write(Verbatim{R"(<i class="x">&'%+ )"}).Write(Joined{"\"", "&\xFF"});

  EXPECT_EQ(out.Take(), "<i class=\"x\">&'%+ \"&\xFF");
}

TEST_F(HtmlText, WritesDoubleQuotesOfQuotedTextAsEntitiesAndNothingElse) {
  out.Put(R"(value="{}")", Quoted{R"("a"&<b>'c'"")"});

  EXPECT_EQ(out.Take(), R"(value="&quot;a&quot;&<b>'c'&quot;&quot;")");
}

TEST_F(HtmlText, WritesTextSoThatItShowsAsItIs) {
  out.Put("<td>{}</td>", Text{"a & b <\"S\xC3\xB8n's\"> "}).Put("{}{}", Text{}, Text{"c"});

  EXPECT_EQ(out.Take(), "<td>a &amp; b &lt;&quot;S\xC3\xB8n&#39;s&quot;&gt; </td>c");
}

TEST(HtmlWriter, EncodesEveryByteThatIsNoLetterOrDigit) {
  std::string expected;
  std::string every_byte;
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    every_byte += c;
    char escape[4];
    std::snprintf(escape, sizeof escape, "%%%02X", static_cast<unsigned>(byte));
    const bool stands = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    expected += stands ? std::string(1, c) : c == ' ' ? "+" : std::string(escape);
  }
  HtmlWriter out;

  out.Write(Encoded{every_byte});

  EXPECT_EQ(out.Take(), expected);
}

TEST_F(HtmlText, EncodesApostrophesQuotesAndSeparators) {
  out.Put("?a={}", Encoded{"O'Hara & \"Søn\"+1%"});

  EXPECT_EQ(out.Take(), "?a=O%27Hara+%26+%22S%C3%B8n%22%2B1%25");
}

TEST_F(HtmlText, WritesNumbersOfEveryWidthInDecimal) {
  out.Put("{},{},{},{},{}", std::int16_t{-7}, 0, std::numeric_limits<std::int64_t>::min(),
          std::numeric_limits<std::uint64_t>::max(), static_cast<unsigned char>(65));

  EXPECT_EQ(out.Take(), "-7,0,-9223372036854775808,18446744073709551615,65");
}

TEST_F(HtmlText, WritesConditionalMarkupOnlyWhenWanted) {
  out.PutIf(false, "<b>{}</b>", 1).PutIf(true, "<i>{}</i>", 2).PutIf(false, "x").PutIf(true, "y");

  EXPECT_EQ(out.Take(), "<i>2</i>y");
}

TEST_F(HtmlText, TakesEmptyTextsBeforeAnythingElse) {
  out.Put("").Put("{}", Verbatim{}).Write(Quoted{}).Write(Encoded{}).Write(Joined{});

  EXPECT_EQ(out.Collected(), "");
  EXPECT_EQ(out.Take(), "");
}

TEST_F(HtmlText, CollectsATextOfAnyLengthWithoutAResponse) {
  const std::string expected = PutCells(out, 10'000);
  out.Flush();

  EXPECT_EQ(out.Collected(), expected);
  EXPECT_EQ(out.Take(), expected);
}

TEST_F(HtmlText, StartsAnewAfterItsTextWasTaken) {
  out.Put("first");
  out.Take();

  out.Put("second");

  EXPECT_EQ(out.Take(), "second");
}

TEST_F(HtmlPieces, HandsNothingToTheResponseBeforeAPieceIsFull) {
  out.Put("<p>");
  EXPECT_TRUE(response.pieces.empty());

  out.Flush();
  out.Flush();
  EXPECT_EQ(response.pieces, std::vector<std::string>{"<p>"});
}

TEST_F(HtmlPieces, SendsPiecesOfAboutSixteenKilobytesInOrder) {
  const std::string expected = PutCells(out, 20'000);
  out.Flush();

  EXPECT_EQ(response.Body(), expected);
  for (std::size_t piece = 0; piece + 1 < response.pieces.size(); ++piece) {
    EXPECT_GE(response.pieces[piece].size(), 16'000U);
    EXPECT_LE(response.pieces[piece].size(), 16'384U);
  }
}

TEST_F(HtmlPieces, SendsADownloadInLargerPieces) {
  out.Put("<table>");
  out.SetPieceBytes(HtmlWriter::kDownloadBytes);
  const std::string expected = "<table>" + PutCells(out, 20'000);
  out.Flush();

  EXPECT_EQ(response.Body(), expected);
  ASSERT_GE(response.pieces.size(), 4U);
  for (std::size_t piece = 1; piece + 1 < response.pieces.size(); ++piece) {
    EXPECT_GE(response.pieces[piece].size(), 65'000U);
    EXPECT_LE(response.pieces[piece].size(), 65'536U);
  }
}

TEST_F(HtmlPieces, CopiesTextsOfEveryLengthBeforeAndBehindTheEndOfAPiece) {
  std::string letters;
  for (char c = '0'; letters.size() < 150; c = c == 'z' ? '0' : static_cast<char>(c + 1)) letters += c;
  std::string expected;
  for (int round = 0; round < 10; ++round) {
    for (std::size_t size = 0; size <= letters.size(); ++size) {
      const std::string_view text = std::string_view(letters).substr(0, size);
      out.Put("<b>{}</b>{};", Verbatim{text}, size).Write(Verbatim{text});
      expected.append("<b>")
          .append(text)
          .append("</b>")
          .append(std::to_string(size))
          .append(";")
          .append(text);
    }
  }
  out.Flush();
  EXPECT_GT(response.pieces.size(), 10U);
  EXPECT_EQ(response.Body(), expected);
}

TEST_F(HtmlPieces, KeepsTheOrderAroundATextLongerThanAPiece) {
  const std::string memo(100'000, 'm');

  out.Put("<td>{}</td>", Verbatim{memo});
  out.Flush();

  EXPECT_EQ(response.Body(), "<td>" + memo + "</td>");
}

TEST_F(HtmlPieces, GoesOnInPiecesOfTheUsualSizeAfterALongText) {
  const std::string memo(100'000, 'm');
  out.Write(Verbatim{memo});
  out.Flush();
  response.pieces.clear();

  PutCells(out, 20'000);
  out.Flush();

  for (const std::string& piece : response.pieces) EXPECT_LE(piece.size(), 16'384U);
}

TEST_F(HtmlPieces, GivesAFailingResponseTheSameBytesOnlyOnce) {
  response.failures = 1;
  out.Put("lost");

  EXPECT_THROW(out.Flush(), std::runtime_error);
  out.Put("kept");
  out.Flush();

  EXPECT_EQ(response.pieces, (std::vector<std::string>{"lost", "kept"}));
}

TEST_F(HtmlPieces, GivesAResponseThatFailsInTheMiddleOfAPutTheSameBytesOnlyOnce) {
  response.failures = 1;
  const std::string row(10'000, 'r');
  const std::string memo(50'000, 'm');
  out.Put("{}", Verbatim{row});

  EXPECT_THROW(out.Put("{}", Verbatim{memo}), std::runtime_error);
  out.Flush();

  EXPECT_EQ(response.pieces, std::vector<std::string>{row});
}

TEST(HtmlWriter, LosesWhatWasNotFlushed) {
  PieceResponse response;
  {
    HtmlWriter out(response);
    out.Put("unsent");
  }
  EXPECT_TRUE(response.pieces.empty());
}

}  // namespace
}  // namespace dralo::html
