#pragma once

#include "forms/scripted_dialogs.h"
#include "platform/files.h"
#include "support/database_test.h"
#include "support/rows.h"
#include "support/run_folder.h"
#include "tablon/tablon.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

namespace zel::tablon {

/// A program folder with the layouts, and a database with one incident, two accounts, a crew of two and an individual.
class TablonFixture : public test::DatabaseTest {
protected:
    TablonFixture();
    ~TablonFixture() override;

    void execute(const std::string& statement) { connection().Execute(std::string_view(statement)); }
    /// Hours of a person on a day of July 2005; the times as they are typed.
    void post(int id, int person, int day, const std::string& start, const std::string& stop, double hours,
              const std::string& more = "1,'FFT2','AD-B',18.20");
    [[nodiscard]] std::vector<std::string> rows(const std::string& statement) {
        return test::rowsOf(connection(), statement);
    }
    /// The argument that the program would give for this incident.
    [[nodiscard]] std::string argument(const std::string& option, int report = 6, const std::string& flag = "False",
                                       const std::string& incident = "1", const std::string& manageAll = "False");
    [[nodiscard]] std::string databaseName();

    std::filesystem::path folder;
    forms::ScriptedDialogs dialogs;
};

} // namespace zel::tablon
