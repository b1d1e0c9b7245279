#pragma once

#include <string>
#include <string_view>

namespace zel::printing {

/// Makes a PDF in the folder under a name that no file there has: "OF-288.pdf", else "OF-288 (2).pdf". The name comes
/// last, so that whoever waits for it never reads half a file. Gives the file's path. Throws platform::FileError, and
/// nothing is left then.
std::string makeNewPdf(const std::string& folder, std::string name, std::string_view bytes);

} // namespace zel::printing
