#pragma once

#include "reports/modRpt.h"

#include <functional>
#include <memory>
#include <string>

namespace zel::reports {

/// Shows the report that is ready, under its title, with the display flag.
using Viewer = std::function<void(modRpt& report, const std::string& title, bool flag)>;

/// What the reporting program is told: comma-joined, in the order that it reads.
[[nodiscard]] std::string tablonArgument(core::Session& session, int ReportNumber, const std::string& Option,
                                         bool flag);

/// Sends a report its way: most to the reporting program, a few to the viewer.
void PrintReport(core::Session& session, modRpt& engine, const Viewer& show, int ReportNumber, std::string Option,
                 bool flag = false);

/// Connects the shell's reports, and the roster's, with an engine that lives as long as the session.
void connectReports(core::Session& session, Viewer show);

} // namespace zel::reports
