#include "values/error.h"

#include <new>
#include <stdexcept>

namespace velta {

std::string ErrorDescription(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::kBadArgument:
      return "Neplatné volání procedury nebo argument";
    case ErrorNumber::kOverflow:
      return "Přetečení";
    case ErrorNumber::kOutOfMemory:
      return "Nedostatek paměti";
    case ErrorNumber::kOutOfRange:
      return "Index mimo rozsah";
    case ErrorNumber::kDivisionByZero:
      return "Dělení nulou";
    case ErrorNumber::kTypeMismatch:
      return "Neshoda typů";
    case ErrorNumber::kBadFileName:
      return "Chybné jméno souboru";
    case ErrorNumber::kFileNotFound:
      return "Soubor nebyl nalezen";
    case ErrorNumber::kDeviceError:
      return "Chyba vstupně-výstupního zařízení";
    case ErrorNumber::kPermissionDenied:
      return "Přístup odepřen";
    case ErrorNumber::kPathAccess:
      return "Chyba přístupu k cestě nebo souboru";
    case ErrorNumber::kPathNotFound:
      return "Cesta nebyla nalezena";
    case ErrorNumber::kBadPropertyValue:
      return "Neplatná hodnota vlastnosti";
    case ErrorNumber::kPrinter:
      return "Chyba tiskárny";
    case ErrorNumber::kClipboard:
      return "Schránku nelze otevřít";
    case ErrorNumber::kPrintCancelled:
      return "Tisk byl zrušen";
  }
  return ErrorDescription(ErrorNumber::kBadArgument);
}

ErrorNumber NumberOf(const std::exception_ptr& thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (const Error& error) {
    return error.number();
  } catch (const std::bad_alloc&) {
    return ErrorNumber::kOutOfMemory;
  } catch (const std::out_of_range&) {
    return ErrorNumber::kOutOfRange;
  } catch (...) {
    return ErrorNumber::kBadArgument;
  }
}

}  // namespace velta
