#pragma once

/// The maker's addresses.
namespace velta {

inline constexpr const char* kHomePage = "https://velta.example/";

}  // namespace velta
