#include "engine_fixture.h"

#include "ado/convert.h"

namespace zel::ado {
namespace {

class EngineCatalogTest : public EngineFixture {
protected:
    [[nodiscard]] std::vector<ResultColumn> columnsOf(std::string_view text) {
        return engine().prepare(std::string(text), false)->columns();
    }
    /// "table.column" in lower case, since one engine keeps no other.
    [[nodiscard]] std::string originOf(const ResultColumn& column) {
        return lowerCase(column.baseTable + "." + column.baseColumn);
    }
};
ZEL_ON_BOTH_ENGINES(EngineCatalogTest);

TEST_P(EngineCatalogTest, TablesHaveTheirColumnsTypesAndKey) {
    const CatalogTable* table = engine().catalog().table("PERSONSPOST");
    ASSERT_NE(table, nullptr);
    EXPECT_FALSE(table->isView());
    EXPECT_TRUE(equalIgnoringCase(table->key, "PersonsPostID"));
    EXPECT_EQ(table->column("ActivityDT")->type, ColumnType::DateTime);
    EXPECT_EQ(table->column("Rate")->type, ColumnType::Currency);
    EXPECT_EQ(table->column("hours")->type, ColumnType::Double);
    EXPECT_EQ(table->column("InvoiceID")->type, ColumnType::Integer);
    EXPECT_EQ(table->column("Remarks")->type, ColumnType::Text);
    EXPECT_EQ(engine().catalog().table("dbo.Equipment")->column("Withdrawn")->type, ColumnType::Flag);
    EXPECT_EQ(table->column("Nothing"), nullptr);
}

TEST_P(EngineCatalogTest, ColumnsStandInTheOrderOfTheTable) {
    const CatalogTable* table = engine().catalog().table("AccountingCodes");
    ASSERT_NE(table, nullptr);
    std::string names;
    for (const CatalogColumn& column : table->columns)
        names += lowerCase(column.name) + " ";
    EXPECT_EQ(names, "accountingid incidentid accountingcode agencycode incidentdefault ");
}

TEST_P(EngineCatalogTest, ViewsHaveTheirDefinitionAndNoKey) {
    const CatalogTable* view = engine().catalog().table("qrySelectPersonnel");
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(view->isView());
    EXPECT_TRUE(view->key.empty());
    EXPECT_TRUE(lowerCase(view->definition).starts_with("select"));
    EXPECT_FALSE(view->definition.ends_with(';'));
    EXPECT_EQ(view->column("LnFn")->name.size(), 4U);
}

TEST_P(EngineCatalogTest, TheDefinitionOfEveryViewRunsInItsPlace) {
    for (const std::string& name : engine().catalog().tableNames()) {
        const CatalogTable* table = engine().catalog().table(name);
        if (!table->isView())
            continue;
        EXPECT_EQ(columnsOf("SELECT * FROM (" + table->definition + ") v").size(), table->columns.size()) << name;
    }
}

TEST_P(EngineCatalogTest, ResultColumnsKnowWhereTheyComeFrom) {
    const auto columns = columnsOf("SELECT p.LastName AS Surname, r.Name, p.PersonID + 1 AS Next, r.ResourceID "
                                   "FROM Persons p INNER JOIN Resources r ON p.ResourceID = r.ResourceID");
    ASSERT_EQ(columns.size(), 4U);
    EXPECT_EQ(originOf(columns[0]), "persons.lastname");
    EXPECT_TRUE(equalIgnoringCase(columns[0].name, "Surname"));
    EXPECT_EQ(originOf(columns[1]), "resources.name");
    EXPECT_EQ(originOf(columns[2]), ".");
    EXPECT_EQ(originOf(columns[3]), "resources.resourceid");
}

TEST_P(EngineCatalogTest, ColumnsOfAViewComeFromTheTablesBehindIt) {
    const CatalogTable* view = engine().catalog().table("qrySelectPersonnel");
    ASSERT_NE(view, nullptr);
    const std::string text = "SELECT FirstName, PRequestNumber, RequestNumber, LnFn FROM (" + view->definition +
                             ") qrySelectPersonnel WHERE IncidentID = 1 ORDER BY LastName";
    const auto columns = columnsOf(text);
    ASSERT_EQ(columns.size(), 4U);
    EXPECT_EQ(originOf(columns[0]), "persons.firstname");
    EXPECT_EQ(originOf(columns[1]), "persons.requestnumber");
    EXPECT_EQ(originOf(columns[2]), "resources.requestnumber");
    EXPECT_EQ(originOf(columns[3]), ".");
    EXPECT_EQ(columns[0].type, ColumnType::Text);
}

TEST_P(EngineCatalogTest, ATableMadeLaterIsSeenAfterARefresh) {
    EXPECT_EQ(engine().catalog().table("Spare"), nullptr);
    run(engine(), "CREATE TABLE Spare (SpareID INTEGER PRIMARY KEY, Other INTEGER)");
    engine().refreshCatalog();
    ASSERT_NE(engine().catalog().table("Spare"), nullptr);
    EXPECT_TRUE(equalIgnoringCase(engine().catalog().table("Spare")->key, "SpareID"));
}

TEST_P(EngineCatalogTest, ATableWithAKeyOfTwoColumnsHasNoKeyColumn) {
    run(engine(), "CREATE TABLE Spare (A INTEGER, B INTEGER, PRIMARY KEY (A, B))");
    engine().refreshCatalog();
    EXPECT_EQ(engine().catalog().table("Spare")->key, "");
}

} // namespace
} // namespace zel::ado
