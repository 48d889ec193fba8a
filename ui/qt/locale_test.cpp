#include "ui/qt/locale.h"

#include <gtest/gtest.h>

#include "ui/qt/text.h"

namespace velta::qt {
namespace {

struct Row {
  const char* name;
  const char* locale;
  const char* decimal;
  const char* group;
  const char* date_pattern;
  const char* time_pattern;
};

class LocaleFormatTest : public ::testing::TestWithParam<Row> {};

// The expected forms are those of the Unicode locale data, with the changes that the header names.
TEST_P(LocaleFormatTest, IsTheUsersOwnInTheProgramsTerms) {
  const LocaleFormat format = LocaleFormatOf(QLocale(GetParam().locale));
  EXPECT_EQ(format.decimal, GetParam().decimal);
  EXPECT_EQ(format.group, GetParam().group);
  EXPECT_EQ(format.date_pattern, GetParam().date_pattern);
  EXPECT_EQ(format.time_pattern, GetParam().time_pattern);
}

TEST(LocaleTimeTest, HalvesOfTheDayAreCalledAsTheUserCallsThem) {
  EXPECT_EQ(LocaleFormatOf(QLocale("en_US")).am, "AM");
  EXPECT_EQ(LocaleFormatOf(QLocale("en_US")).pm, "PM");
  EXPECT_EQ(LocaleFormatOf(QLocale("en_AU")).am, "am");
  EXPECT_EQ(LocaleFormatOf(QLocale("ko_KR")).time_pattern, "AP h:mm");
  EXPECT_EQ(LocaleFormatOf(QLocale("ko_KR")).pm, "오후");
}

INSTANTIATE_TEST_SUITE_P(
    Locales, LocaleFormatTest,
    ::testing::Values(
        Row{"none_chosen_is_Czech", "C", ",", " ", "d.M.yyyy", "H:mm"},
        Row{"Czech_without_the_no_break_blank", "cs_CZ", ",", " ", "d.M.yyyy", "H:mm"},
        Row{"American_with_four_digit_year", "en_US", ".", ",", "M/d/yyyy", "h:mm AP"},
        Row{"British", "en_GB", ".", ",", "dd/MM/yyyy", "HH:mm"},
        Row{"German_keeps_its_zeros_and_groups_by_blanks", "de_DE", ",", " ", "dd.MM.yyyy",
            "HH:mm"},
        Row{"Swiss_groups_by_blanks", "de_CH", ".", " ", "dd.MM.yyyy", "HH:mm"},
        Row{"Persian_sign_gives_way_to_the_point", "fa_IR", ".", " ", "yyyy/M/d", "H:mm"},
        Row{"French_without_the_narrow_blank", "fr_FR", ",", " ", "dd/MM/yyyy", "HH:mm"},
        Row{"Hungarian_with_blanks_between", "hu_HU", ",", " ", "yyyy. MM. dd.", "H:mm"},
        Row{"Finnish_with_a_point_in_the_time", "fi_FI", ",", " ", "d.M.yyyy", "H.mm"},
        Row{"Bulgarian_words_for_year_and_hour_give_way", "bg_BG", ",", " ", "d.M.yyyy", "H:mm"}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace velta::qt
