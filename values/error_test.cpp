#include "values/error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace velta {
namespace {

struct DescriptionRow {
  int number;
  const char* description;
};

// The numbers and texts under which users report an error to the support.
constexpr DescriptionRow kDescriptions[] = {
    {5, "Neplatné volání procedury nebo argument"},
    {6, "Přetečení"},
    {7, "Nedostatek paměti"},
    {9, "Index mimo rozsah"},
    {11, "Dělení nulou"},
    {13, "Neshoda typů"},
    {52, "Chybné jméno souboru"},
    {53, "Soubor nebyl nalezen"},
    {57, "Chyba vstupně-výstupního zařízení"},
    {70, "Přístup odepřen"},
    {75, "Chyba přístupu k cestě nebo souboru"},
    {76, "Cesta nebyla nalezena"},
    {380, "Neplatná hodnota vlastnosti"},
    {482, "Chyba tiskárny"},
    {521, "Schránku nelze otevřít"},
    {32755, "Tisk byl zrušen"},
};

TEST(ErrorTest, EachNumberHasItsDescription) {
  for (const DescriptionRow& row : kDescriptions) {
    EXPECT_EQ(ErrorDescription(static_cast<ErrorNumber>(row.number)), row.description)
        << row.number;
  }
}

TEST(ErrorTest, NamesStandForTheirNumbers) {
  EXPECT_EQ(static_cast<int>(ErrorNumber::kBadArgument), 5);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kOverflow), 6);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kOutOfMemory), 7);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kOutOfRange), 9);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kDivisionByZero), 11);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kTypeMismatch), 13);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kBadFileName), 52);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kFileNotFound), 53);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kDeviceError), 57);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kPermissionDenied), 70);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kPathAccess), 75);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kPathNotFound), 76);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kBadPropertyValue), 380);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kPrinter), 482);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kClipboard), 521);
  EXPECT_EQ(static_cast<int>(ErrorNumber::kPrintCancelled), 32755);
}

TEST(ErrorTest, NumberOfWhateverWasThrown) {
  EXPECT_EQ(NumberOf(std::make_exception_ptr(Error(ErrorNumber::kDivisionByZero))),
            ErrorNumber::kDivisionByZero);
  EXPECT_EQ(NumberOf(std::make_exception_ptr(std::bad_alloc())), ErrorNumber::kOutOfMemory);
  EXPECT_EQ(NumberOf(std::make_exception_ptr(std::bad_array_new_length())),
            ErrorNumber::kOutOfMemory);
  EXPECT_EQ(NumberOf(std::make_exception_ptr(std::out_of_range("index"))),
            ErrorNumber::kOutOfRange);
  EXPECT_EQ(NumberOf(std::make_exception_ptr(std::runtime_error("unforeseen"))),
            ErrorNumber::kBadArgument);
  EXPECT_EQ(NumberOf(std::make_exception_ptr(42)), ErrorNumber::kBadArgument);
}

}  // namespace
}  // namespace velta
