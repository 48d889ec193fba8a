#include "batch/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velta {
namespace {

using ::testing::HasSubstr;

std::variant<BatchOptions, BatchAnswer> Read(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "velta-batch");
  return ReadOptions(static_cast<int>(arguments.size()), arguments.data(), "1.2.3");
}

BatchOptions Options(const std::vector<const char*>& arguments) {
  return std::get<BatchOptions>(Read(arguments));
}

TEST(BatchOptionsTest, WithoutOptions) {
  const BatchOptions options = Options({});
  EXPECT_EQ(options.file, "");
  EXPECT_EQ(options.rates_folder, "");
  EXPECT_EQ(options.rounding, Rounding::kUpToTenHaler) << "as on the program's first run";
  EXPECT_FALSE(options.by_half_years);
  EXPECT_EQ(options.format, OutputFormat::kCsv);
  EXPECT_EQ(options.separator, std::nullopt);
  EXPECT_EQ(options.decimal_sign, std::nullopt);
  EXPECT_EQ(options.threads, 0U);
  EXPECT_EQ(Options({"-"}).file, "");
}

TEST(BatchOptionsTest, AllOptions) {
  const BatchOptions options = Options({"--zaokrouhlit", "koruny", "--podrobne", "faktury.csv",
                                        "--format=jsonl", "--oddelovac", ";", "--desetinny",
                                        "tecka", "--sazby", "/tmp/sazby", "--vlaken", "3"});
  EXPECT_EQ(options.file, "faktury.csv");
  EXPECT_EQ(options.rates_folder, "/tmp/sazby");
  EXPECT_EQ(options.rounding, Rounding::kToCrowns);
  EXPECT_TRUE(options.by_half_years);
  EXPECT_EQ(options.format, OutputFormat::kJsonLines);
  EXPECT_EQ(options.separator, ';');
  EXPECT_EQ(options.decimal_sign, '.');
  EXPECT_EQ(options.threads, 3U);
  EXPECT_EQ(Options({"--zaokrouhlit", "ne"}).rounding, Rounding::kNone);
  EXPECT_EQ(Options({"--zaokrouhlit", "ne", "--zaokrouhlit", "halere"}).rounding,
            Rounding::kUpToTenHaler)
      << "the last one counts";
  EXPECT_EQ(Options({"--oddelovac", "tab"}).separator, '\t');
  EXPECT_EQ(Options({"--oddelovac", ","}).separator, ',');
}

TEST(BatchOptionsTest, Mistakes) {
  struct Row {
    std::vector<const char*> arguments;
    const char* told;
  };
  const Row rows[] = {
      {{"--rychle"}, "neočekávaný argument --rychle"},
      {{"a.csv", "b.csv"}, "neočekávaný argument b.csv"},
      {{"--format"}, "volbě --format chybí hodnota"},
      {{"--format", "xml"}, "volba --format může být csv nebo jsonl"},
      {{"--zaokrouhlit", "nahoru"}, "volba --zaokrouhlit může být ne, halere nebo koruny"},
      {{"--oddelovac", "|"}, "volba --oddelovac může být ; nebo , nebo tab"},
      {{"--desetinny", "x"}, "volba --desetinny může být carka nebo tecka"},
      {{"--vlaken", "0"}, "volba --vlaken je počet vláken od 1 do 1024"},
      {{"--vlaken", "dvě"}, "volba --vlaken je počet vláken od 1 do 1024"},
      {{"--vlaken", "2x"}, "volba --vlaken je počet vláken od 1 do 1024"},
  };
  for (const Row& row : rows) {
    const auto read = Read(row.arguments);
    const auto* const answer = std::get_if<BatchAnswer>(&read);
    ASSERT_NE(answer, nullptr) << row.told;
    EXPECT_EQ(answer->text, row.told);
    EXPECT_EQ(answer->status, 2) << row.told;
  }
}

TEST(BatchOptionsTest, HelpAndVersion) {
  for (const char* option : {"--help", "-h"}) {
    const auto answer = std::get<BatchAnswer>(Read({option}));
    EXPECT_EQ(answer.status, 0);
    for (const char* told :
         {"--zaokrouhlit", "--podrobne", "--format",  "--oddelovac", "--desetinny", "--sazby",
          "--vlaken",      "--help",     "--version", "splatnost",   "zaplaceno",   "castka",
          "druh",          "sazba",      "faktura",   "dluh",        "dny",         "regim",
          "sazba_pouzita", "urok",       "celkem",    "chyba"}) {
      EXPECT_THAT(answer.text, HasSubstr(told));
    }
  }
  for (const char* option : {"--version", "-v"}) {
    const auto answer = std::get<BatchAnswer>(Read({option}));
    EXPECT_EQ(answer.text, "velta-batch 1.2.3\n");
    EXPECT_EQ(answer.status, 0);
  }
}

}  // namespace
}  // namespace velta
