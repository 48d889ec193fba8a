#include "batch/columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/input_error.h"

namespace velta {
namespace {

const std::vector<std::string_view> kAdded = {"dny", "chyba"};

std::string Mistake(const std::vector<std::string_view>& header) {
  try {
    FindColumns(header, kAdded);
  } catch (const InputError& error) {
    return std::to_string(error.line()) + ": " + error.what();
  }
  return "";
}

TEST(ColumnsTest, AreFoundInAnyOrderAndSpelling) {
  const FileColumns columns =
      FindColumns({"Částka", "pozn.", " DRUH ", "splatnost", "Zaplaceno", "faktura"}, kAdded);
  EXPECT_EQ(columns.count, 6U);
  EXPECT_EQ(columns.amount, 0U);
  EXPECT_EQ(columns.kind, 2U);
  EXPECT_EQ(columns.due, 3U);
  EXPECT_EQ(columns.paid, 4U);
  EXPECT_EQ(columns.rate, std::nullopt);
  EXPECT_EQ(columns.invoice, 5U);
  EXPECT_EQ(columns.debt, std::nullopt);
}

TEST(ColumnsTest, MistakesInTheHeaderAreTold) {
  EXPECT_EQ(Mistake({"splatnost", "zaplaceno", "castka", "druh", "", ""}), "");
  EXPECT_EQ(Mistake({"splatnost", "zaplaceno"}), "1: v hlavičce chybí: castka, druh");
  EXPECT_EQ(Mistake({"splatnost", "zaplaceno", "castka", "druh", "Částka"}),
            "1: sloupec castka je v hlavičce dvakrát");
  EXPECT_EQ(Mistake({"splatnost", "zaplaceno", "castka", "druh", "sazba", "sazba"}),
            "1: sloupec sazba je v hlavičce dvakrát");
  EXPECT_EQ(Mistake({"splatnost", "zaplaceno", "castka", "druh", "Dny"}),
            "1: sloupec dny už v souboru je; odstraňte jej nebo přejmenujte");
}

TEST(ColumnsTest, PlainText) {
  EXPECT_EQ(Plain("  Dle  Diskontní\u00A0sazby ČNB "), "dle diskontni sazby cnb");
  EXPECT_EQ(Plain("c\u030Ca\u0301stka"), "castka") << "as some programs compose it";
  EXPECT_EQ(Plain(" "), "");
}

}  // namespace
}  // namespace velta
