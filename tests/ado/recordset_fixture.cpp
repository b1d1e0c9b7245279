#include "recordset_fixture.h"

#include "ado/convert.h"

namespace zel::ado {

std::string RecordsetTest::lookUp(const std::string& select) {
    Recordset rows;
    rows.Open(Sql::words(select), other, CursorType::Static, LockType::ReadOnly);
    if (rows.EOF_())
        return "none";
    return rows.value(0).isNull() ? "NULL" : toText(rows.value(0));
}

} // namespace zel::ado
