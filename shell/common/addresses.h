#pragma once

/// The maker's addresses. The domain is reserved for examples and belongs to nobody.
namespace velta {

inline constexpr const char* kHomePage = "https://velta.example/";
inline constexpr const char* kSupportPage = "https://velta.example/podpora/";  ///< technical help
inline constexpr const char* kSupportMail = "podpora@velta.example";

}  // namespace velta
