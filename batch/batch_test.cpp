#include "batch/batch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "batch/input_error.h"
#include "tests/support/day.h"

namespace velta {
namespace {

const BankTables& Tables() {
  static const BankTables tables = ReadBankTables(VELTA_SOURCE_DIR "/data", Day(2026, 11, 21), {});
  return tables;
}

std::string Computed(const std::string& input, const BatchOptions& options = {},
                     BatchCounts* counts = nullptr) {
  std::string output;
  std::size_t position = 0;
  const BatchStreams streams{[&](char* to, std::size_t size) {
                               const std::size_t count = std::min(size, input.size() - position);
                               std::copy_n(input.data() + position, count, to);
                               position += count;
                               return count;
                             },
                             [&](std::string_view text) { output += text; },
                             [](std::size_t /*rows*/) {}};
  const BatchCounts counted = RunBatch(options, Tables(), streams);
  if (counts != nullptr) *counts = counted;
  return output;
}

BatchOptions Rounded(Rounding rounding) {
  BatchOptions options;
  options.rounding = rounding;
  return options;
}

const std::string kHeader = "splatnost;zaplaceno;castka;druh;sazba\n";
const std::string kHeaderOut =
    "splatnost;zaplaceno;castka;druh;sazba;dny;regim;sazba_pouzita;urok;celkem;chyba\n";

/// What is added to a single row, and what it is in the windows' own tests.
struct SingleRow {
  const char* name;
  Rounding rounding;
  const char* row;
  const char* added;
};

constexpr auto kNe = Rounding::kNone;
constexpr auto kHalere = Rounding::kUpToTenHaler;
constexpr auto kKoruny = Rounding::kToCrowns;

const SingleRow kSingleRows[] = {
    {"discount", kHalere, "10.3.2005;20.6.2005;10000;Dle Diskontní sazby ČNB;",
     "102;Dle Diskontní sazby ČNB;2,5;69,90;10069,90;"},
    {"discount, not rounded", kNe, "10.3.2005;20.6.2005;10000;diskont;",
     "102;Dle Diskontní sazby ČNB;2,5;69,86;10069,86;"},
    {"typed by the year", kNe, "1.1.2010;1.4.2010;10000;% ročně;8",
     "90;% ročně;8;197,26;10197,26;"},
    {"in crowns", kKoruny, "1.1.2010;1.4.2010;10000;% ročně;8", "90;% ročně;8;197,00;10197,00;"},
    {"typed by the day", kNe, "1.1.2010;31.1.2010;10000;% denně;0,05",
     "30;% denně;0,05;150,00;10150,00;"},
    {"per mille by the day", kNe, "1.1.2010;31.1.2010;10000;‰ denně;0,5",
     "30;‰ denně;0,5;150,00;10150,00;"},
    {"per mille by the year", kNe, "1.1.2010;1.1.2011;10000;‰ ročně;80",
     "365;‰ ročně;80;800,00;10800,00;"},
    {"crowns by the day", kNe, "1.1.2010;31.1.2010;10000;částka Kč denně;5",
     "30;částka Kč denně;5;150,00;10150,00;"},
    // the half-haléř that a sum of rounded amounts would lose
    {"interest and sum are rounded each", kNe, "1.1.2021;23.3.2021;12345;% ročně;8,25",
     "81;% ročně;8,25;226,01;12571,02;"},
    {"the due date asks for the repo regime", kHalere, "28.4.2005;30.6.2005;10000;diskont;",
     "63;Dle Repo sazby ČNB;9,5;164,00;10164,00;"},
    {"and for the discount regime", kHalere, "27.4.2005;30.6.2005;10000;repo;",
     "64;Dle Diskontní sazby ČNB;2;35,10;10035,10;"},
    {"repo beyond the year 2010", kNe, "31.12.2020;31.12.2023;100000;repo;",
     "1095;Dle Repo sazby ČNB;7,25;33764,38;133764,38;"},
    {"statutory", kHalere, "31.12.2020;31.12.2023;100000;zákonná;",
     "1095;nařízení vlády č. 351/2013 Sb.;8,25;24750,00;124750,00;"},
    {"a typed rate of a bank kind does not count", kNe, "10.3.2005;20.6.2005;10000;diskont;99",
     "102;Dle Diskontní sazby ČNB;2,5;69,86;10069,86;"},
};

TEST(BatchTest, ARowIsASingleCalculation) {
  for (const SingleRow& row : kSingleRows) {
    EXPECT_EQ(Computed(kHeader + row.row + "\n", Rounded(row.rounding)),
              kHeaderOut + row.row + ";" + row.added + "\n")
        << row.name;
  }
}

struct BadRow {
  const char* row;
  const char* reason;
};

const BadRow kBadRows[] = {
    {";1.4.2010;1;% ročně;8",
     "splatnost: Datum je chybně zadáno, zadejte je například takto: 31.12.2005"},
    {"1.1.2010;31.4.2010;1;% ročně;8",
     "zaplaceno: Datum je chybně zadáno, zadejte je například takto: 31.12.2005"},
    {"1.1.2010;1.1.2010;1;% ročně;8", "Datum zaplacení je chybně zadáno"},
    {"1.1.2010;1.4.2010;;% ročně;8", "Nezadali jste dlužnou částku"},
    {"1.1.2010;1.4.2010;deset;% ročně;8", "castka: Zde je nutné zadat číslo"},
    {"1.1.2010;1.4.2010;1.000;% ročně;8", "castka: Zde je nutné zadat číslo"},
    {"1.1.2010;1.4.2010;999999999999999;% ročně;8", "Přetečení"},
    {"1.1.2010;1.4.2010;900000000000000;% ročně;9999999", "Přetečení"},
    {"1.1.2010;1.4.2010;1;% ročně;", "Nezadali jste sazbu pro výpočet"},
    {"1.1.2010;1.4.2010;1;% ročně;8 %", "sazba: Zde je nutné zadat číslo"},
    {"1.1.2010;1.4.2010;1;;8", "Nezadali jste druh sazby"},
    {"1.1.2010;1.4.2010;1;měsíčně;8", "druh: neznámý druh sazby"},
    {"1.1.2026;1.4.2027;1;repo;", "Nelze najít sazbu, zadali jste vysoké datum splatnosti"},
    {"1.1.2027;1.4.2027;1;repo;", "Nenalezena sazba pro zadané období"},
    {"1.1.1994;1.4.2010;1;zakonna;",
     "Zákonnou sazbu lze určit jen pro prodlení, které začalo 15. 7. 1994 nebo později"},
    {"31.12.2026;1.4.2027;1;zakonna;",
     "Zákonná sazba pro pololetí, ve kterém prodlení začalo, v tabulce sazeb není"},
    {"1.1.2010;1.4.2010;1;% ročně;8;9", "počet polí je 6, v hlavičce jich je 5"},
};

TEST(BatchTest, ARowThatCannotBeComputedComesOutAsItCame) {
  for (const BadRow& row : kBadRows) {
    BatchCounts counts;
    EXPECT_EQ(Computed(kHeader + row.row + "\n1.1.2010;1.4.2010;1;% ročně;8\n", {}, &counts),
              kHeaderOut + row.row + ";;;;;;" + row.reason +
                  "\n1.1.2010;1.4.2010;1;% ročně;8;90;% ročně;8;0,10;1,10;\n")
        << row.row;
    EXPECT_EQ(counts.rows, 2U);
    EXPECT_EQ(counts.errors, 1U) << row.row;
  }
}

TEST(BatchTest, ATooShortRowIsFilledUpSoThatTheReasonStandsInItsColumn) {
  EXPECT_EQ(Computed(kHeader + "1.1.2010;1.4.2010\n"),
            kHeaderOut + "1.1.2010;1.4.2010;;;;;;;;;počet polí je 2, v hlavičce jich je 5\n");
}

TEST(BatchTest, EmptyRowsSayNothing) {
  BatchCounts counts;
  EXPECT_EQ(Computed(kHeader + "\n;;;;\n ; ;;;\n", {}, &counts),
            kHeaderOut + "\n;;;;;;;;;;\n ; ;;;;;;;;;\n");
  EXPECT_EQ(counts.errors, 0U);
  EXPECT_EQ(Computed(kHeader), kHeaderOut);
}

TEST(BatchTest, ColumnsAreCarriedThroughUntouched) {
  EXPECT_EQ(
      Computed("pozn;splatnost;\"zaplaceno\";castka;druh;sazba;číslo\r\n"
               "\"a;\"\"b\"\"\r\nc\";1.1.2010;\"1.4.2010\"; 10 000,00 ;% ročně;8;\" 007 \"\r\n"),
      "pozn;splatnost;\"zaplaceno\";castka;druh;sazba;číslo;dny;regim;sazba_pouzita;urok;"
      "celkem;chyba\r\n"
      "\"a;\"\"b\"\"\r\nc\";1.1.2010;\"1.4.2010\"; 10 000,00 ;% ročně;8;\" 007 \";90;"
      "% ročně;8;197,30;10197,30;\r\n");
}

TEST(BatchTest, TheOutputIsWrittenAsTheInput) {
  const auto lines = [](const std::string& input, const BatchOptions& options = {}) {
    return Computed(input, options);
  };
  EXPECT_EQ(lines("\xEF\xBB\xBFsplatnost,zaplaceno,castka,druh,sazba\n"
                  "2010-01-01,2010-04-01,1000.50,% ročně,8.5"),
            "\xEF\xBB\xBFsplatnost,zaplaceno,castka,druh,sazba,dny,regim,sazba_pouzita,urok,celkem,"
            "chyba\n2010-01-01,2010-04-01,1000.50,% ročně,8.5,90,% ročně,8.5,21.00,1021.50,\n")
      << "mark, comma, point, line end";
  EXPECT_EQ(lines("splatnost,zaplaceno,castka,druh,sazba\n1.1.2010,1.4.2010,\"1000,50\",rocne,8\n"),
            "splatnost,zaplaceno,castka,druh,sazba,dny,regim,sazba_pouzita,urok,celkem,chyba\n"
            "1.1.2010,1.4.2010,\"1000,50\",rocne,8,90,% ročně,8,\"19,80\",\"1020,30\",\n")
      << "decimal commas are quoted";
  EXPECT_EQ(
      lines("splatnost\tzaplaceno\tcastka\tdruh\tsazba\n1.1.2010\t1.4.2010\t1000\trocne\t8\n"),
      "splatnost\tzaplaceno\tcastka\tdruh\tsazba\tdny\tregim\tsazba_pouzita\turok\tcelkem\t"
      "chyba\n1.1.2010\t1.4.2010\t1000\trocne\t8\t90\t% ročně\t8\t19,80\t1019,80\t\n")
      << "a comma where there is no decimal sign";
  EXPECT_EQ(lines("splatnost,zaplaceno,castka,druh,sazba\n1.1.2010,1.4.2010,1000,rocne,8\n"),
            "splatnost,zaplaceno,castka,druh,sazba,dny,regim,sazba_pouzita,urok,celkem,chyba\n"
            "1.1.2010,1.4.2010,1000,rocne,8,90,% ročně,8,19.80,1019.80,\n")
      << "a point where commas part the columns";
  BatchOptions point;
  point.decimal_sign = '.';
  EXPECT_EQ(lines(kHeader + "1.1.2010;1.4.2010;1000,5;rocne;8\n", point),
            kHeaderOut + "1.1.2010;1.4.2010;1000,5;rocne;8;90;% ročně;8;19.80;1020.30;\n")
      << "as it was said";
}

const std::string kInvoiceHeader = "faktura;splatnost;dluh;zaplaceno;castka;druh;sazba\n";

struct InvoiceRow {
  const char* row;
  const char* added;
};

void ExpectInvoice(const std::vector<InvoiceRow>& rows, Rounding rounding) {
  std::string input = kInvoiceHeader;
  std::string expected =
      "faktura;splatnost;dluh;zaplaceno;castka;druh;sazba;dny;regim;sazba_pouzita;urok;celkem;"
      "chyba\n";
  for (const InvoiceRow& row : rows) {
    input.append(row.row).append("\n");
    expected.append(row.row).append(";").append(row.added).append("\n");
  }
  EXPECT_EQ(Computed(input, Rounded(rounding)), expected);
}

TEST(BatchTest, RowsOfAnInvoiceAreItsPayments) {
  ExpectInvoice({{"A;10.3.2005;10000;20.3.2005;4000;% ročně;8", "10;% ročně;8;8,80;4008,80;"},
                 {"A;10.3.2005;10 000;20.6.2005;6000;rocne;8,0", "102;% ročně;8;134,20;6134,20;"},
                 {"B;10.3.2005;10000;20.3.2005;4000;% ročně;8", "10;% ročně;8;8,80;4008,80;"},
                 {"B;;;20.6.2005;5000;;", "102;% ročně;8;111,80;5111,80;"}},
                kHalere);
}

TEST(BatchTest, AnInvoiceIsRoundedAsTheProgressiveCalculation) {
  // 12 345 Kč for 81 days at 8,25 %: 226,0150…, which is two decimals here
  ExpectInvoice(
      {{"A;1.1.2021;12345;23.3.2021;12345;% ročně;8,25", "81;% ročně;8,25;226,01;12571,01;"}}, kNe);
  // a repo total is the exact sum of the half-years: 112 days at 9 % and 57 at 9 %
  ExpectInvoice(
      {{"A;10.3.2006;10000;26.8.2006;10000;repo;", "169;Dle Repo sazby ČNB;9;416,71;10416,71;"}},
      kHalere);
  // within one half-year it is rounded
  ExpectInvoice(
      {{"A;10.3.2006;10000;20.3.2006;10000;repo;", "10;Dle Repo sazby ČNB;9;24,70;10024,70;"}},
      kHalere);
}

TEST(BatchTest, WhatIsWrongWithAnInvoice) {
  ExpectInvoice(
      {{"A;10.3.2006;10000;20.3.2006;4000;zakonna;",
        "10;nařízení vlády č. 163/2005 Sb.;9;9,86;"
        "4009,86;"},
       {"A;;;20.3.2006;7000;;", ";;;;;Nesprávně zadaná hodnota částečné platby !"},
       {"A;;;10.3.2006;6000;;", ";;;;;Datum zaplacení je chybně zadáno"},
       {"A;;;20.3.2006;;;", ";;;;;Nezadali jste částečnou úhradu!"},
       {"A;11.3.2006;;20.3.2006;6000;;", ";;;;;splatnost: liší se od prvního řádku faktury"},
       {"A;;1;20.3.2006;6000;;", ";;;;;dluh: liší se od prvního řádku faktury"},
       {"A;;;20.3.2006;6000;repo;", ";;;;;druh: liší se od prvního řádku faktury"},
       {"A;;;20.3.2006;6000;;7", "10;nařízení vlády č. 163/2005 Sb.;9;14,79;6014,79;"},
       {"B;10.3.2006;10000;20.3.2006;4000;% ročně;8", "10;% ročně;8;8,80;4008,80;"},
       {"B;;;20.3.2006;6000;;9", ";;;;;sazba: liší se od prvního řádku faktury"},
       {"C;10.3.2006;;20.3.2006;4000;% ročně;8", ";;;;;Nezadali jste částku dluhu!"},
       {"C;10.3.2006;;20.3.2006;4000;% ročně;8", ";;;;;první řádek faktury je chybný"},
       {"D;10.3.2006;;20.3.2006;4000;% ročně;8", "10;% ročně;8;8,80;4008,80;"},
       {"E;10.3.2006;x;20.3.2006;4000;% ročně;8", ";;;;;dluh: Zde je nutné zadat číslo"},
       {"E;10.3.2006;10000;20.3.2006;4000;% ročně;8", ";;;;;první řádek faktury je chybný"},
       {";10.3.2006;;20.3.2006;4000;% ročně;8", "10;% ročně;8;8,80;4008,80;"},
       {"F;31.12.2026;9;1.2.2027;4;zakonna;",
        ";;;;;Zákonná sazba pro pololetí, ve kterém prodlení začalo, v tabulce sazeb není"}},
      kHalere);
}

TEST(BatchTest, WithoutAColumnOfDebtsAnInvoiceIsAColumnLikeOthers) {
  EXPECT_EQ(Computed("faktura;" + kHeader +
                     "A;1.1.2010;1.4.2010;1;% ročně;8\nA;1.1.2010;1.4.2010;1;% ročně;8\n"),
            "faktura;" + kHeaderOut +
                "A;1.1.2010;1.4.2010;1;% ročně;8;90;% ročně;8;0,10;1,10;\n"
                "A;1.1.2010;1.4.2010;1;% ročně;8;90;% ročně;8;0,10;1,10;\n");
}

TEST(BatchTest, HalfYearsAddUpToTheirRow) {
  BatchOptions options;
  options.by_half_years = true;
  // 64 days at 9,5 %, 184 at 8,75 % and 90 at 9 % on 10 000 Kč: 166,5753, 441,0959 and 221,9178,
  // rounded up after each
  EXPECT_EQ(Computed("splatnost;zaplaceno;castka;druh\n"
                     "27.4.2005;31.3.2006;10000;zakonna\n2005-04-28;2005-05-28;10000;repo\n"
                     "1.1.2010;1.4.2010;1;chyba\n1.1.2010;1.4.2010;10000;diskont\n",
                     options),
            "splatnost;zaplaceno;castka;druh;od;do;dny;regim;sazba_pouzita;urok;celkem;chyba\n"
            "27.4.2005;31.3.2006;10000;zakonna;27.4.2005;30.6.2005;64;"
            "nařízení vlády č. 163/2005 Sb.;9,5;166,60;10166,60;\n"
            "27.4.2005;31.3.2006;10000;zakonna;1.7.2005;31.12.2005;184;"
            "nařízení vlády č. 163/2005 Sb.;8,75;441,10;10607,70;\n"
            "27.4.2005;31.3.2006;10000;zakonna;1.1.2006;31.3.2006;90;"
            "nařízení vlády č. 163/2005 Sb.;9;222,00;10829,70;\n"
            "2005-04-28;2005-05-28;10000;repo;2005-04-28;2005-05-28;30;Dle Repo sazby ČNB;9,5;"
            "78,10;10078,10;\n"
            "1.1.2010;1.4.2010;1;chyba;;;;;;;;druh: neznámý druh sazby\n"
            "1.1.2010;1.4.2010;10000;diskont;1.1.2010;1.4.2010;90;Dle Repo sazby ČNB;8;197,30;"
            "10197,30;\n");
}

TEST(BatchTest, JsonLines) {
  BatchOptions options;
  options.format = OutputFormat::kJsonLines;
  EXPECT_EQ(Computed("\xEF\xBB\xBFsplatnost;zaplaceno;castka;druh;sazba;\"po\"\"zn\"\r\n"
                     "1.1.2010;1.4.2010;10000;% ročně;8,25;\"a\t\"\"\r\"\r\n\r\n"
                     "1.1.2010;1.4.2010\r\n",
                     options),
            R"({"splatnost":"1.1.2010","zaplaceno":"1.4.2010","castka":"10000","druh":"% ročně",)"
            R"("sazba":"8,25","po\"zn":"a\t\"\r","dny":90,"regim":"% ročně","sazba_pouzita":8.25,)"
            R"("urok":203.50,"celkem":10203.50,"chyba":null})"
            "\n"
            R"({"splatnost":"1.1.2010","zaplaceno":"1.4.2010","dny":null,"regim":null,)"
            R"("sazba_pouzita":null,"urok":null,"celkem":null,)"
            R"("chyba":"počet polí je 2, v hlavičce jich je 6"})"
            "\n");
}

std::string Failure(const std::string& input, const BatchOptions& options = {}) {
  try {
    Computed(input, options);
  } catch (const InputError& error) {
    return std::to_string(error.line()) + ": " + error.what();
  }
  return "";
}

TEST(BatchTest, WhatCannotBeReadAtAll) {
  const std::string not_utf8 =
      ": text není v UTF-8; uložte soubor znovu a zvolte znakovou sadu Unicode (UTF-8)";
  EXPECT_EQ(
      Failure(kHeader + "1.1.2010;1.4.2010;1;% ročně;8\n\n1.1.2010;1.4.2010;1;% ro\xE8n\xEC;8\n"),
      "4" + not_utf8);
  EXPECT_EQ(Failure("splatnost;zaplaceno;\xE8\xE1stka;druh\n"), "1" + not_utf8);
  EXPECT_EQ(Failure("splatnost;zaplaceno\n"), "1: v hlavičce chybí: castka, druh");
  EXPECT_EQ(Failure("splatnost;zaplaceno;castka;druh;urok\n"),
            "1: sloupec urok už v souboru je; odstraňte jej nebo přejmenujte");
  BatchOptions options;
  options.format = OutputFormat::kJsonLines;
  EXPECT_EQ(Failure("splatnost;zaplaceno;castka;druh;a;a\n"), "");
  EXPECT_EQ(Failure("splatnost;zaplaceno;castka;druh;a;a\n", options),
            "1: sloupec a je v hlavičce dvakrát");
  EXPECT_EQ(Failure("splatnost;zaplaceno;castka;druh;\n", options), "1: sloupec 5 nemá jméno");
}

TEST(BatchTest, ThreadsDoNotChangeTheResult) {
  std::string input = kInvoiceHeader;
  for (int i = 0; i < 30000; ++i) {
    const std::string invoice = i % 7 == 0 ? "" : "F" + std::to_string(i / 5);
    input += invoice + ";" + std::to_string(1 + i % 28) + ".1.2006;1000000;1.5.2008;" +
             std::to_string(i) + ",25;" + (i % 3 == 0 ? "repo" : "\"zákonná\"") + ";\n";
  }
  BatchOptions options;
  options.threads = 1;
  const std::string one = Computed(input, options);
  for (const unsigned threads : {2U, 5U}) {
    options.threads = threads;
    EXPECT_EQ(Computed(input, options), one) << threads;
  }
}

}  // namespace
}  // namespace velta
