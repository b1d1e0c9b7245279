#pragma once

#include "core/test_program.h"
#include "incident/incident_forms.h"

#include "ado/convert.h"
#include "ado/recordset.h"

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
    /// Past the program: each row as its values in default text, parted by "|".
    std::vector<std::string> rows(const std::string& statement) {
        ado::Recordset records;
        records.Open(ado::Sql::words(statement), program.database.connection());
        std::vector<std::string> lines;
        for (; !records.EOF_(); records.MoveNext()) {
            std::string line;
            for (std::size_t field = 0; field < records.fieldCount(); ++field)
                line += (field == 0 ? "" : "|") + ado::toText(records.value(field));
            lines.push_back(std::move(line));
        }
        return lines;
    }
    std::vector<std::string> accounts() {
        return rows("Select IncidentID, AccountingCode, IncidentDefault from AccountingCodes order by AccountingID");
    }
};

} // namespace zel::incident
