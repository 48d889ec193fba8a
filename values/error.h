#pragma once

#include <exception>
#include <string>

namespace velta {

/// What can go wrong, under the run-time error numbers that users and support know from this kind
/// of program. The Czech description of each is fixed (ErrorDescription).
enum class ErrorNumber : int {
  kBadArgument = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kDeviceError = 57,
  kPermissionDenied = 70,
  kPathAccess = 75,
  kPathNotFound = 76,
  kBadPropertyValue = 380,
  kPrinter = 482,
  kClipboard = 521,
  kPrintCancelled = 32755,
};

/// The error that every routine of the logic throws; a window's error trap turns it into the
/// report.
class Error : public std::exception {
 public:
  explicit Error(ErrorNumber number) : number_(number) {}
  ErrorNumber number() const { return number_; }
  const char* what() const noexcept override { return "velta::Error"; }

 private:
  ErrorNumber number_;
};

/// The Czech description, as it stands in the brackets of the report: "Neshoda typů".
std::string ErrorDescription(ErrorNumber number);

/// The number for whatever was thrown: an Error's own; 7 for exhausted memory; 9 for an index
/// outside a list; 5 for anything else.
ErrorNumber NumberOf(const std::exception_ptr& thrown);

}  // namespace velta
