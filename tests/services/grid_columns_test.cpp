#include "services/grid_columns.h"

#include "forms/combo_box.h"
#include "forms/form.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_grid.h"
#include "services/text_rules.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

namespace zel::services {

using testing::ElementsAre;

class GridScreen : public forms::Form {
public:
    explicit GridScreen(forms::FormRegistry& registry) : Form(registry, "frmTest") {
        for (const char* caption : {"Date", "Start", "Status", "Special"})
            grid.addColumn(caption, caption);
        combo.addColumn("Code", "Code");
    }
    forms::TDBGrid grid{*this, "dbgTest"};
    forms::TDBCombo combo{*this, "dbcTest"};
    forms::ComboBox premiums{*this, "cbPost"};
};

class GridColumnsTest : public test::DatabaseTest {
protected:
    GridColumnsTest() { session.gConnection = std::make_shared<ado::Connection>(database().open()); }
    std::vector<std::string> items(int column) {
        std::vector<std::string> texts;
        for (const forms::ValueItem& item : screen.grid.Columns(column).ValueItems.items())
            texts.push_back(item.value + "=" + item.display);
        return texts;
    }
    void keepStatuses() {
        connection().Execute(ado::Sql("delete from L_Status"));
        connection().Execute(ado::Sql("insert into L_Status (Code, Description, ZEL, Postable) values ('D', 'Demobed', "
                                      "1, 0)"));
        connection().Execute(ado::Sql("insert into L_Status (Code, Description, ZEL, Postable) values ('C', 'Checked "
                                      "In', 1, 1)"));
        connection().Execute(ado::Sql("insert into L_Status (Code, Description, ZEL, Postable) values ('A', 'Another "
                                      "module', 0, 1)"));
    }

    test::TestSession program;
    core::Session& session = program.session();
    GridScreen screen{program.forms};
};
ZEL_ON_BOTH_ENGINES(GridColumnsTest);

TEST_P(GridColumnsTest, MaskAndFormatComeFromTheTypeOfTheField) {
    struct {
        int type;
        const char* mask;
        const char* format;
    } const wanted[] = {{fieldType::ssn, "###-##-####", "###-##-####"},
                        {fieldType::time, "##:##", "HH:mm"},
                        {fieldType::phone, "(###) ###-####", "(###) ###-####"},
                        {fieldType::requestNumber, ">@-####", ">@-####"},
                        {fieldType::accountingCode, ">@@-@@@-@@@@@@", ">@@-@@@-@@@@@@"},
                        {fieldType::zip, "#####", "99999"},
                        {fieldType::zipPlusFour, "#####-####", "99999-9999"},
                        {fieldType::date, "##/##/####", "MM/DD/YYYY"},
                        {fieldType::dateYearFirst, "####/##/##", "YYYY/MM/DD"},
                        {fieldType::custom, "##.#", "0.0"}};
    for (const auto& field : wanted) {
        SetColumnFormat(screen.grid, 0, field.type, "##.#", "0.0");
        EXPECT_EQ(screen.grid.Columns(0).EditMask(), field.mask);
        EXPECT_EQ(screen.grid.Columns(0).NumberFormat(), field.format);
    }
}

TEST_P(GridColumnsTest, TheEndOfTheDayReadsAndIsTypedAs2400) {
    SetColumnFormat(screen.grid, 1, fieldType::time);
    const forms::ValueItems& list = screen.grid.Columns(1).ValueItems;
    EXPECT_EQ(list.valueOf("24:00"), "00:00");
    EXPECT_EQ(list.displayOf("00:00"), "24:00");
    EXPECT_EQ(list.displayOf("12:00:00 AM"), "24:00");
    EXPECT_EQ(list.displayOf("8:00:00 AM"), std::nullopt);
    SetColumnFormat(screen.grid, 0, fieldType::date);
    EXPECT_EQ(screen.grid.Columns(0).ValueItems.Count(), 0);
}

TEST_P(GridColumnsTest, StatusesReadAsTheirDescriptionsSortedByCode) {
    keepStatuses();
    for (const bool server : {true, false}) {
        session.gServerDialect = server;
        FillStatusCombo(session, screen.grid, 2, false);
        EXPECT_THAT(items(2), ElementsAre("C=Checked In", "D=Demobed"));
        FillStatusCombo(session, screen.grid, 2, true);
        EXPECT_THAT(items(2), ElementsAre("C=Checked In"));
    }
    EXPECT_TRUE(screen.grid.Columns(2).ValueItems.Translate);
}

TEST_P(GridColumnsTest, AValueListTakesTwoColumnsAndABlankRow) {
    keepStatuses();
    const ado::Sql statement("select Code, Description from L_Status order by Code");
    FillValueColumn(session, statement, screen.grid, 3, false);
    EXPECT_THAT(items(3), ElementsAre("A=Another module", "C=Checked In", "D=Demobed"));
    FillValueColumn(session, statement, screen.grid, 3, true);
    EXPECT_THAT(items(3), ElementsAre("=", "A=Another module", "C=Checked In", "D=Demobed"));
    EXPECT_EQ(screen.grid.Columns(3).ValueItems.presentation, forms::ValueItems::Presentation::ComboBox);
    EXPECT_EQ(screen.grid.Columns(3).Width(), 14 * 120);
}

TEST_P(GridColumnsTest, AnEmptyValueListStaysEmpty) {
    FillValueColumn(session, ado::Sql("select Code, Description from L_Status where Code = '~'"), screen.grid, 3, true);
    EXPECT_TRUE(items(3).empty());
}

TEST_P(GridColumnsTest, ATranslatedColumnOffersNothingAndKeepsItsWidth) {
    keepStatuses();
    FillTranslateColumn(session, ado::Sql("select Code, Description from L_Status order by Code"), screen.grid, 2);
    const forms::GridColumn& column = screen.grid.Columns(2);
    EXPECT_TRUE(column.ValueItems.Translate);
    EXPECT_EQ(column.ValueItems.presentation, forms::ValueItems::Presentation::Normal);
    EXPECT_EQ(column.ValueItems.displayOf("D"), "Demobed");
    EXPECT_EQ(column.Width(), 1440);
}

TEST_P(GridColumnsTest, HazardPayIsNotOfferedForAdIndividuals) {
    connection().Execute(ado::Sql("delete from L_Premium"));
    for (const char* code : {"HP", "COP", "GUAR"})
        connection().Execute(
            ado::Sql::words(std::string("insert into L_Premium (PremiumCode) values ('") + code + "')"));
    const auto offered = [this](PremiumKind kind, const char* fedCode) {
        FillPremiumList(session, screen.premiums, kind, fedCode);
        std::string texts;
        for (int index = 0; index < screen.premiums.ListCount(); ++index)
            texts += screen.premiums.List(index) + "|";
        return texts;
    };
    EXPECT_EQ(offered(PremiumKind::Persons, "AD"), "COP|GUAR||");
    EXPECT_EQ(offered(PremiumKind::Persons, "FED"), "COP|GUAR|HP||");
    EXPECT_EQ(offered(PremiumKind::Persons, ""), "COP|GUAR|HP||");
    EXPECT_EQ(offered(PremiumKind::Crews, "AD"), "COP|GUAR|HP||");
}

TEST_P(GridColumnsTest, EveryColumnOfListsAndGridsGetsTheCommonStyle) {
    screen.grid.Columns(1).AllowSizing = false;
    screen.combo.Columns(0).AllowSizing = false;
    SetGridStyle(screen);
    for (int column = 0; column < screen.grid.columnCount(); ++column) {
        EXPECT_TRUE(screen.grid.Columns(column).ButtonHeader);
        EXPECT_TRUE(screen.grid.Columns(column).AllowSizing);
    }
    EXPECT_TRUE(screen.combo.Columns(0).ButtonHeader);
    EXPECT_TRUE(screen.combo.Columns(0).AllowSizing);
}

TEST_P(GridColumnsTest, ASelectedRowIsFoundByItsBookmark) {
    screen.grid.SelBookmarks.Add(7);
    screen.grid.SelBookmarks.Add(3);
    EXPECT_EQ(SelectedRow(screen.grid, 3), 1);
    EXPECT_EQ(SelectedRow(screen.grid, 7), 0);
    EXPECT_EQ(SelectedRow(screen.grid, 5), -1);
}

} // namespace zel::services
