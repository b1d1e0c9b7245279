#pragma once

#include "ado/connection.h"
#include "ado/recordset.h"
#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"
#include "korvandb/create.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace zel::ado {

/// An empty database of the real schema, with connections to it.
class RecordsetTest : public testing::TestWithParam<EngineKind> {
protected:
    RecordsetTest() {
        file_ = std::filesystem::temp_directory_path() / ("zel_recordset_" + std::to_string(getpid()) + ".mdb");
        createSqliteFile(
            file_, [](Engine& engine) { korvandb::createTables(engine); }, true);
        connection.Open(openSqlite(file_));
        other.Open(openSqlite(file_));
    }
    ~RecordsetTest() override { std::filesystem::remove(file_); }

    void run(const std::string& statement) { connection.Execute(statement); }

    /// The first column of the first row, as text; "NULL" for Null and "none" without a row.
    std::string lookUp(const std::string& select);

    Connection connection;
    /// Another clerk.
    Connection other;

private:
    std::filesystem::path file_;
};

} // namespace zel::ado
