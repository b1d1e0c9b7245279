#pragma once

#include <functional>
#include <string>

namespace zel::printing {

/// Makes a PDF in the folder under a name that no file there has: "OF-288.pdf", else "OF-288 (2).pdf". `write` is given
/// another path to write to, so that whoever waits for the name never reads half a file. Gives the file's path. Throws
/// platform::FileError, and what `write` throws; nothing is left then.
std::string makeNewPdf(const std::string& folder, std::string name,
                       const std::function<void(const std::string& path)>& write);

} // namespace zel::printing
