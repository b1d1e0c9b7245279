#include "core/data_controls.h"

#include "ado/error.h"
#include "forms/adodc.h"
#include "forms/form_registry.h"
#include "forms/scripted_dialogs.h"
#include "forms/tdb_grid.h"
#include "platform/timer_service.h"
#include "support/database_test.h"

#include <gtest/gtest.h>

namespace zel::core {
namespace {

using ado::Value;

class DataControls : public test::DatabaseTest {
protected:
    DataControls() {
        for (const char* person : {"1, 'BROWN', 10", "2, 'GREEN', 10", "3, 'ADAMS', 11"})
            connection().Execute("insert into Persons (PersonID, LastName, ResourceID) values (" + std::string(person) +
                                 ")");
        adoPersons.setRecordSource("Select * from Persons order by PersonID");
    }

    [[nodiscard]] std::int64_t rowsHeld() const { return adoPersons.clone().RecordCount(); }

    forms::ScriptedDialogs dialogs;
    platform::ManualClock clock{ado::DateTime::fromDate(2005, 7, 4)};
    platform::TimerService timers{clock};
    forms::FormRegistry registry{dialogs, timers};
    forms::Form form{registry, "frmTest"};
    forms::Adodc adoPersons{form, "adoPersons"};
    forms::TDBGrid dbgPersons{form, "dbgPersons"};
};

TEST_P(DataControls, AScreenIsPointedAtTheOpenConnection) {
    RebindDataControls(form, connection(), "secret", false);
    EXPECT_EQ(adoPersons.ConnectionString(), connection().ConnectionString());
    EXPECT_EQ(adoPersons.Password(), "secret");
    EXPECT_EQ(adoPersons.Recordset().RecordCount(), 3);
}

TEST_P(DataControls, AControlThatShowsTheConnectionAlreadyIsLeftAlone) {
    RebindDataControls(form, connection(), "", false);
    adoPersons.Recordset().MoveLast();
    RebindDataControls(form, connection(), "", false);
    EXPECT_EQ(adoPersons.Recordset().value("PersonID"), Value(3));
    RebindDataControls(form, connection(), "", true);
    EXPECT_EQ(adoPersons.Recordset().value("PersonID"), Value(1));
}

TEST_P(DataControls, AConnectionOpenedAnewIsTakenThoughItsTextIsTheSame) {
    RebindDataControls(form, connection(), "", false);
    ado::Connection again(database().open());
    RebindDataControls(form, again, "", false);
    EXPECT_EQ(adoPersons.Recordset().ActiveConnection(), &again);
}

TEST_P(DataControls, ARequeryReplacesTheOrderOfTheStatement) {
    RebindDataControls(form, connection(), "", false);
    RequeryDataControl(adoPersons, dbgPersons, "LastName");
    EXPECT_EQ(adoPersons.RecordSource().text(), "Select * from Persons ORDER BY LastName ASC");
    EXPECT_EQ(adoPersons.Recordset().value("LastName"), Value("ADAMS"));
}

TEST_P(DataControls, AFilterAndASortReadOnlyTheRowsAskedFor) {
    RebindDataControls(form, connection(), "", false);
    ApplyFilterSort(adoPersons, "ResourceID=10", "LastName", 0);
    EXPECT_EQ(adoPersons.RecordSource().text(), "Select * from Persons ORDER BY LastName DESC");
    EXPECT_EQ(adoPersons.Recordset().RecordCount(), 2);
    EXPECT_EQ(adoPersons.Recordset().value("LastName"), Value("GREEN"));
    EXPECT_EQ(rowsHeld(), 2);
}

TEST_P(DataControls, AGridBoundToTheControlAsksForNoRowBeforeTheFilterIsSet) {
    dbgPersons.bind(adoPersons);
    RebindDataControls(form, connection(), "", false);
    adoPersons.setFilter("ResourceID=10");
    EXPECT_EQ(adoPersons.Recordset().RecordCount(), 2);
    EXPECT_EQ(rowsHeld(), 2);
}

TEST_P(DataControls, RowsAreThereWhenTheRecordSetIsOpenAndHasOne) {
    EXPECT_FALSE(HasRows(adoPersons, false));
    EXPECT_THROW(ApplyFilterSort(adoPersons, "", "LastName", -1), ado::Error);
    RebindDataControls(form, connection(), "", false);
    EXPECT_TRUE(HasRows(adoPersons, true));
    ApplyFilterSort(adoPersons, "PersonID=0", "", -1);
    EXPECT_FALSE(HasRows(adoPersons, true));
    EXPECT_TRUE(HasRows(adoPersons, false));
}

ZEL_ON_BOTH_ENGINES(DataControls);

} // namespace
} // namespace zel::core
