#include "reports/report_forms.h"

#include "core/session.h"
#include "forms/form_registry.h"
#include "reports/frmViewRpt.h"
#include "reports/print_report.h"

namespace zel::reports {

void addReportForms(core::Session& session) {
    session.forms.add("frmViewRpt", [&session] { return std::make_unique<frmViewRpt>(session); });
    connectReports(session, [&session](modRpt& report, const std::string& title, bool flag) {
        if (auto* viewer = session.forms.get<frmViewRpt>("frmViewRpt"))
            viewer->ShowReport(report, title, flag);
    });
}

} // namespace zel::reports
