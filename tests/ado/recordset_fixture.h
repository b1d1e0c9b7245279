#pragma once

#include "ado/recordset.h"
#include "support/database_test.h"

#include <string>

namespace zel::ado {

/// Two clerks on an empty database of the real schema.
class RecordsetTest : public test::DatabaseTest {
protected:
    RecordsetTest() : connection(database().connection()), other(database().open()) {}

    void run(const std::string& statement) { connection.Execute(statement); }

    /// What the other clerk reads in the first column of the first row, as text; "NULL" for Null and "none" without a
    /// row.
    std::string lookUp(const std::string& select);

    Connection& connection;
    /// The other clerk's.
    Connection other;
};

} // namespace zel::ado
