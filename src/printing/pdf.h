#pragma once

#include "printing/pages.h"

#include <functional>
#include <string>
#include <vector>

namespace zel::printing {

/// The pages as a PDF with embedded fonts and text that can be selected. `progress` is told of each page done.
/// Where no Qt application runs, one without a display is made for good.
[[nodiscard]] std::string pdfOf(const std::string& title, const Layout& layout, const std::vector<Page>& pages,
                                const std::function<void(std::size_t done)>& progress = {});

/// Writes it as a file, whole or not at all. Throws platform::FileError.
void writePdf(const std::string& path, const std::string& title, const Layout& layout, const std::vector<Page>& pages,
              const std::function<void(std::size_t done)>& progress = {});

} // namespace zel::printing
