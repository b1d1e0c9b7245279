#pragma once

#include "core/test_program.h"
#include "incident/incident_forms.h"

#include "support/rows.h"

namespace zel::incident {

/// A whole program with the screens of the incident data, on both engines.
class IncidentDataTest : public core::ProgramTest {
protected:
    IncidentDataTest() { addIncidentForms(session); }

    void start() { program.start(GetParam() == ado::EngineKind::Sqlite ? "False" : ""); }
    void openScreen(const std::string& name) {
        program.run([this, &name] { program.shell().OpenScreen(name, true, 0); });
    }
    void type(forms::Control& box, const std::string& text) { EXPECT_EQ(program.user.type(box, text).refusal, ""); }
    void click(forms::Control& button) { EXPECT_EQ(program.user.click(button).refusal, ""); }
    /// Past the program, see rowsOf.
    std::vector<std::string> rows(const std::string& statement) {
        return test::rowsOf(program.database.connection(), statement);
    }
    std::vector<std::string> accounts() {
        return rows("Select IncidentID, AccountingCode, IncidentDefault from AccountingCodes order by AccountingID");
    }
};

} // namespace zel::incident
