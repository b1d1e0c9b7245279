#include "recordset_fixture.h"

#include <gmock/gmock.h>

namespace zel::ado {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class RecordsetNames : public RecordsetTest {
protected:
    std::vector<std::string> namesOf(const std::string& select) {
        Recordset rows;
        rows.Open(Sql::words(select), connection);
        std::vector<std::string> names;
        for (std::size_t field = 0; field < rows.fieldCount(); ++field)
            names.push_back(rows.fieldInfo(field).name);
        return names;
    }
};
ZEL_ON_BOTH_ENGINES(RecordsetNames);

TEST_P(RecordsetNames, ColumnsOfATableAreSpelledAsTheSchemaSpellsThem) {
    EXPECT_THAT(namesOf("select * from accountingcodes"),
                ElementsAre("AccountingID", "IncidentID", "AccountingCode", "AgencyCode", "IncidentDefault"));
    EXPECT_THAT(namesOf("select PERSONID, persons.ssn, lastname + firstname as both_ from Persons"),
                ElementsAre("PersonID", "SSN", "both_"));
}

TEST_P(RecordsetNames, AnAliasIsSpelledAsTheStatementSpellsIt) {
    EXPECT_THAT(namesOf("select PersonID as WHO, LastName Surname, SSN AS [fSsn], [Class] as class, count(*) as Rows_ "
                        "from Persons group by PersonID, LastName, SSN, Class"),
                ElementsAre("WHO", "Surname", "fSsn", "class", "Rows_"));
}

TEST_P(RecordsetNames, ColumnsOfAViewAreSpelledAsItsDefinitionSpellsThem) {
    const auto names = namesOf("select * from QRYSELECTPERSONNEL");
    for (const char* name : {"LnFn", "Info", "PersonID", "PRequestNumber", "RKindCode", "RResourceID"})
        EXPECT_THAT(names, Contains(name));
    EXPECT_THAT(namesOf("select lnfn, rkindcode, Info as INFORMATION from qrySelectPersonnel"),
                ElementsAre("LnFn", "RKindCode", "INFORMATION"));
    EXPECT_THAT(namesOf("select x.Surname from (select LastName as Surname from Persons) x"), ElementsAre("Surname"));
}

TEST_P(RecordsetNames, ASpelledColumnStillNarrowsWhatIsRead) {
    run("insert into Persons (PersonID, LastName) values (1, 'DOE')");
    run("insert into Persons (PersonID, LastName) values (2, 'ROE')");
    Recordset rows;
    rows.Open("select PersonID as Who, LastName from Persons", connection);
    rows.setFilter("Who = 2 and LASTNAME = 'roe'");
    EXPECT_EQ(rows.RecordCount(), 1);
    rows.setValue("LastName", "POE");
    rows.Update();
    EXPECT_EQ(lookUp("select LastName from Persons where PersonID = 2"), "POE");
}

TEST_P(RecordsetNames, AServerThatWasNotToldTheSpellingShowsItsOwn) {
    if (GetParam() == EngineKind::Sqlite)
        return;
    run("comment on table Persons is null");
    run("comment on table Resources is 'Where things are: RESOURCEID'");
    const auto names = namesOf("select * from Persons");
    EXPECT_THAT(names, Contains("personid"));
    EXPECT_THAT(names, Not(Contains("PersonID")));
    EXPECT_THAT(namesOf("select ResourceID, Name from Resources"), ElementsAre("RESOURCEID", "name"));
    EXPECT_THAT(namesOf("select AccountingID from AccountingCodes"), ElementsAre("AccountingID"));
}

} // namespace
} // namespace zel::ado
