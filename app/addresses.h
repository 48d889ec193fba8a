#pragma once

#include <string>

#include "ui/platform.h"

/// The maker's addresses. The domain is reserved for examples and belongs to nobody.
namespace velta {

inline constexpr const char* kHomePage = "https://velta.example/";
inline constexpr const char* kSupportPage = "https://velta.example/podpora/";  ///< technical help
inline constexpr const char* kSupportMail = "podpora@velta.example";

/// Opens a web address, or a new message to a mail address, in the user's own program. Where there
/// is none the user is told so.
void OpenWeb(const ui::Platform& platform, const std::string& address);
void OpenMail(const ui::Platform& platform, const std::string& address);

/// What the user is told where no program takes an address.
std::string NothingOpens(const std::string& address);

}  // namespace velta
