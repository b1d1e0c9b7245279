#include "runner/printing.h"

#include "core/session.h"
#include "forms/dialogs.h"
#include "forms/form_registry.h"
#include "printing/new_file.h"
#include "printing/pdf.h"
#include "reports/frmViewRpt.h"
#include "reports/print_report.h"

#include <fmt/format.h>

#include <sstream>

namespace zel::runner {

namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\r\n") + line;
    return text;
}

} // namespace

bool Printing::start(const std::string& program, const std::vector<std::string>& arguments,
                     const platform::Environment& environment) {
    if (folder_.empty())
        return platform::SystemProcesses().start(program, arguments, environment);
    platform::Environment inFolder = environment;
    inFolder.emplace_back("ZEL_PRINT_DIR", folder_);
    const auto ended = platform::SystemProcesses::run(program, arguments, inFolder);
    if (!ended)
        return false;
    for (const std::string& file : linesOf(ended->output))
        files_.push_back(file);
    // What the reporting program would show in its own boxes.
    if (!ended->errors.empty())
        dialogs_.message(joined(linesOf(ended->errors)), "Tablon");
    if (ended->status != 0 && failed)
        failed(fmt::format("the reporting program ended with status {}", ended->status));
    return true;
}

void Printing::connect(core::Session& session) {
    if (folder_.empty())
        return;
    reports::connectReports(session, [this, &session](reports::modRpt& report, const std::string& title, bool flag) {
        auto* window = session.forms.get<reports::frmViewRpt>("frmViewRpt");
        if (window == nullptr)
            return;
        window->ShowReport(report, title, flag);
        const auto& viewer = window->CRViewer91;
        files_.push_back(printing::makeNewPdf(folder_, title, printing::pdfOf(title, viewer.layout(), viewer.pages())));
    });
}

} // namespace zel::runner
