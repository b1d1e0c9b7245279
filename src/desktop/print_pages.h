#pragma once

#include "printing/pages.h"

#include <QPageLayout>

#include <cstddef>
#include <functional>
#include <vector>

class QPrinter;

namespace zel::desktop {

/// The paper that a layout is made for, without margins of the printer's own.
[[nodiscard]] QPageLayout paperOf(const printing::Layout& layout);

/// Prints what the printer was told to: all pages, a range of them, or the current one. `progress` is told of each page
/// done. Throws platform::FileError when the printer refuses.
void printPages(QPrinter& printer, const printing::Layout& layout, const std::vector<printing::Page>& pages,
                std::size_t current, const std::function<void(std::size_t done)>& progress = {});

} // namespace zel::desktop
