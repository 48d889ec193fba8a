#pragma once

#include <optional>

#include "values/error.h"

/// For tests only.
namespace velta::testing {

/// The number of the Error that `body` throws; nullopt where it runs to its end.
template <class Body>
std::optional<ErrorNumber> Thrown(Body&& body) {
  try {
    body();
    return std::nullopt;
  } catch (const Error& error) {
    return error.number();
  }
}

}  // namespace velta::testing
