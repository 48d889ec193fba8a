#pragma once

#include <string>
#include <string_view>

/// Czech texts of files that say nothing of their encoding. Inside the program all text is UTF-8.
namespace velta {

/// Whether the bytes are a whole text in UTF-8; plain ASCII and nothing at all are.
bool IsUtf8(std::string_view bytes);

/// A text in Windows-1250 as UTF-8. A byte that means nothing there becomes U+FFFD.
std::string FromWindows1250(std::string_view bytes);

/// The text as UTF-8: as it stands where it is that, else read as Windows-1250, in which Czech
/// texts of other systems are written.
std::string DecodedText(std::string_view bytes);

}  // namespace velta
