#include "core/modData.h"

#include <gtest/gtest.h>

namespace zel::core {
namespace {

using ado::Sql;

TEST(AddSelect, ATableBecomesASelectWithTwoBlanks) {
    EXPECT_EQ(AddSelect("Persons").text(), "SELECT * FROM  Persons");
    EXPECT_EQ(AddSelect("Preselect").text(), "SELECT * FROM  Preselect");
}

TEST(AddSelect, ASelectStaysAsItIs) {
    EXPECT_EQ(AddSelect("SeLeCt Name from Persons").text(), "SeLeCt Name from Persons");
    EXPECT_EQ(AddSelect("  select Name from Persons").text(), "  select Name from Persons");
}

TEST(AddWhere, WithoutAnOrderTheConditionStandsBehindTwoBlanks) {
    EXPECT_EQ(AddWhere("PersonID=5", "SELECT * FROM  Persons").text(), "SELECT * FROM  Persons WHERE  PersonID=5");
    EXPECT_EQ(AddWhere("PersonID=5", "select * from Persons Where City='ELY'").text(),
              "select * from Persons Where City='ELY' AND  PersonID=5");
}

TEST(AddWhere, AnOrderInAnyLettersStaysBehindTheCondition) {
    EXPECT_EQ(AddWhere("PersonID=5", "select * from Persons ORDER BY LastName").text(),
              "select * from Persons WHERE PersonID=5 ORDER BY LastName");
    EXPECT_EQ(AddWhere("PersonID=5", "select * from Persons where City='ELY' order by LastName").text(),
              "select * from Persons where City='ELY' AND PersonID=5 order by LastName");
}

TEST(AddWhere, ABlankConditionLeavesTheStatementAlone) {
    EXPECT_EQ(AddWhere("", "select 1").text(), "select 1");
    EXPECT_EQ(AddWhere("   ", "select * from Persons order by LastName").text(),
              "select * from Persons order by LastName");
}

TEST(AddWhere, TheClerksValueStaysKnownAsOne) {
    const Sql whole = AddWhere("LastName='" + Sql::of("x' or 'a'='a") + "'", AddSelect("Persons"));
    EXPECT_EQ(whole.text(), "SELECT * FROM  Persons WHERE  LastName='x' or 'a'='a'");
    EXPECT_TRUE(ado::valueBreaksOut(whole));
}

TEST(AddIncidentFilter, TheIncidentIsJoinedWithABlankBehindIt) {
    EXPECT_EQ(AddIncidentFilter("select * from Resources", 7).text(), "select * from Resources WHERE IncidentID=7 ");
    EXPECT_EQ(AddIncidentFilter("select * from Resources where Status='C'", -1).text(),
              "select * from Resources where Status='C' AND IncidentID=-1 ");
}

TEST(AddIncidentFilter, TheIncidentStandsInFrontOfAnOrder) {
    EXPECT_EQ(AddIncidentFilter("select * from Resources Order By Name", 7).text(),
              "select * from Resources WHERE IncidentID=7 Order By Name");
    EXPECT_EQ(AddIncidentFilter("select * from Resources WHERE Status='C' order by Name", 7).text(),
              "select * from Resources WHERE Status='C' AND IncidentID=7 order by Name");
}

TEST(AddOrderBy, MinusOneIsAscendingAndAnyOtherDescending) {
    EXPECT_EQ(AddOrderBy("LastName", "select * from Persons", -1).text(),
              "select * from Persons ORDER BY LastName ASC");
    EXPECT_EQ(AddOrderBy("LastName", "select * from Persons", 0).text(),
              "select * from Persons ORDER BY LastName DESC");
    EXPECT_EQ(AddOrderBy("LastName", "select * from Persons", 1).text(),
              "select * from Persons ORDER BY LastName DESC");
}

TEST(AddOrderBy, AnEarlierOrderIsReplaced) {
    const Sql once = AddOrderBy("LastName", "select * from Persons where City='ELY' Order By City DESC", -1);
    EXPECT_EQ(once.text(), "select * from Persons where City='ELY' ORDER BY LastName ASC");
    EXPECT_EQ(AddOrderBy("City", once, 1).text(), "select * from Persons where City='ELY' ORDER BY City DESC");
}

TEST(AddOrderBy, ARequestNumberSortsByItsLetterAndThenItsNumber) {
    EXPECT_EQ(AddOrderBy("requestnumber", "select * from qryCrews", -1).text(),
              "select * from qryCrews ORDER BY Left(RequestNumber, 1), dbo.f_SortRequestNumber(RequestNumber) ASC");
    EXPECT_EQ(AddOrderBy("RequestNumber", "select * from RESOURCES where resources.Status='C'", 1).text(),
              "select * from RESOURCES where resources.Status='C' ORDER BY Left(Resources.RequestNumber, 1), "
              "dbo.f_SortRequestNumber(Resources.RequestNumber) DESC");
    EXPECT_EQ(AddOrderBy("PRequestNumber", "select Resources.Name from Resources", -1).text(),
              "select Resources.Name from Resources ORDER BY Left(RequestNumber, 1), "
              "dbo.f_SortRequestNumber(RequestNumber) ASC");
}

TEST(AddOrderBy, ColumnsThatAJoinHasTwiceAreQualified) {
    EXPECT_EQ(
        AddOrderBy("KindCode", "select qrySelectPersonnel.* from qrySelectPersonnel, Persons.x", -1).text(),
        "select qrySelectPersonnel.* from qrySelectPersonnel, Persons.x ORDER BY qrySelectPersonnel.KindCode ASC");
    EXPECT_EQ(AddOrderBy("KindCode", "select Persons.Name from Persons", -1).text(),
              "select Persons.Name from Persons ORDER BY Persons.KindCode ASC");
    EXPECT_EQ(AddOrderBy("KindCode", "select * from L_Kind", -1).text(), "select * from L_Kind ORDER BY KindCode ASC");
    EXPECT_EQ(AddOrderBy("AgencyCode", "select Resources.Name from Resources", -1).text(),
              "select Resources.Name from Resources ORDER BY Resources.AgencyCode ASC");
    EXPECT_EQ(AddOrderBy("AgencyCode", "select * from Persons", -1).text(),
              "select * from Persons ORDER BY AgencyCode ASC");
}

} // namespace
} // namespace zel::core
