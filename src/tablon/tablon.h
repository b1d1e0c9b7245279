#pragma once

#include "core/session.h"
#include "forms/form_registry.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/timer_service.h"
#include "printing/pages.h"
#include "reports/modRpt.h"
#include "suite/korvan_suite.h"
#include "tablon/columns.h"
#include "tablon/request.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zel::tablon {

/// What the reporting program ends with.
enum class Outcome { Printed = 0, Failed = 1, BadArgument = 2, NotInThisBuild = 3, NothingToPrint = 4 };

/// Where the reporting program runs, and what it does with the pages.
struct Surroundings {
    /// The program folder, with zel.ini and Reports.
    std::string home;
    /// The file that the program has open; empty when it does not say, as when Tablon is started by hand.
    std::string database;
    /// Takes a report's pages; `name` is what a file of them should be called.
    std::function<void(const std::string& name, const std::string& title, const printing::Layout& layout,
                       const std::vector<printing::Page>& pages)>
        print;
};

/// The reporting program: takes one argument, reads the database that the program works on, and prints.
class Tablon {
public:
    Tablon(Surroundings surroundings, forms::Dialogs& dialogs);

    /// What cannot be done is told in a box; nothing in the database is changed then.
    Outcome run(const std::string& argument);

private:
    Outcome carryOut(const Request& request);
    void open(const Request& request);
    [[nodiscard]] std::string databaseFile();
    void select(const Request& request);
    /// A report that shows what its statements read.
    Outcome printPlain(const Request& request);
    Outcome printTimeReport(const Request& request);
    struct TimeReport {
        printing::Layout layout;
        printing::ReportData data;
        std::vector<Posting> postings;
    };
    /// The rows, with every posting in its column. Nothing when it was told why not.
    std::optional<TimeReport> readTimeReport(reports::modRpt& engine, const Request& request);
    void tellOfPostingsWithoutAccount(const Request& request);
    Outcome print(const Request& request, const reports::modRpt& engine, const printing::Layout& layout,
                  const printing::ReportData& data);
    Outcome tell(Outcome outcome, const std::string& text, forms::Icon icon);

    Surroundings surroundings_;
    platform::SystemClock clock_;
    platform::TimerService timers_{clock_};
    platform::DiskFiles files_;
    platform::SystemProcesses processes_;
    forms::FormRegistry forms_;
    suite::KorvanSuite suite_;
    core::Session session_;
};

} // namespace zel::tablon
