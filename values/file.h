#pragma once

#include <string>

/// Files as a whole. Paths are UTF-8.
namespace velta {

/// True where a file (not a folder) of that name exists.
bool FileExist(const std::string& path);

/// The bytes of a whole file, without a byte order mark at its beginning. No such file: Error 53. A
/// file that cannot be opened: Error 75, or read: Error 57.
std::string ReadFile(const std::string& path);

}  // namespace velta
