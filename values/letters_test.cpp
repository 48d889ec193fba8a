#include "values/letters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace velta {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LettersTest, LettersAndMarksBecomeOneCharacter) {
  EXPECT_EQ(Composed("Z\u030Clut\u030Couc\u030Cky\u0301 ku\u030An\u030C"), "Žluťoučký kůň");
  EXPECT_EQ(Composed("L\u030Cudovi\u0301t S\u030Ctu\u0301r, o\u0302d"), "Ľudovít Štúr, ôd");
  EXPECT_EQ(Composed("Gu\u0308nter E\u0328 z\u0307 o\u030B n\u0303 c\u0327 I\u0307"),
            "Günter Ę ż ő ñ ç İ");
}

TEST(LettersTest, WhatIsComposedOrCannotBeStaysAsItIs) {
  EXPECT_EQ(Composed(""), "");
  EXPECT_EQ(Composed("Žluťoučký kůň ‰ Київ 東京"), "Žluťoučký kůň ‰ Київ 東京");
  EXPECT_EQ(Composed("x\u030C \u030Cx и\u0306"), "x\u030C \u030Cx и\u0306");
}

TEST(LettersTest, SecondMarkStaysBehindTheLetter) {
  EXPECT_EQ(Composed("e\u0302\u0301x"), "ê\u0301x");
}

TEST(LettersTest, PlainAsciiHasNoAccentsAndNothingElse) {
  EXPECT_EQ(PlainAscii("Žluťoučký kůň 5 €, ĎÁBEL"), "Zlutoucky kun 5 , DABEL");
  EXPECT_EQ(PlainAscii("c\u030C x\u030C ê\u0301 東"), "c x e ");
  EXPECT_EQ(PlainAscii("ÁČĎÉĚÍŇÓŘŠŤÚŮÝŽáčďéěíňóřšťúůýž"), "ACDEEINORSTUUYZacdeeinorstuuyz");
}

TEST(CellsTest, EveryCharacterHasOne) {
  EXPECT_THAT(Cells(""), IsEmpty());
  EXPECT_THAT(Cells("ž ‰|"), ElementsAre("ž", " ", "‰", "|"));
}

TEST(CellsTest, CombiningMarkStandsInTheCellOfItsLetter) {
  EXPECT_THAT(Cells("xe\u030Cy"), ElementsAre("x", "e\u030C", "y"));
  EXPECT_THAT(Cells("a\u0323\u0302\u20D0\uFE20"), ElementsAre("a\u0323\u0302\u20D0\uFE20"));
}

TEST(CellsTest, MarkWithoutALetterHasItsOwn) {
  EXPECT_THAT(Cells("\u030Ce"), ElementsAre("\u030C", "e"));
}

}  // namespace
}  // namespace velta
