#include "ado/sql/computed_kinds.h"

#include "sample_catalog.h"

#include <gmock/gmock.h>

#include <string>

namespace zel::ado::sql {
namespace {

/// A letter for each column: m money, d a moment, b either, t neither.
std::string kindsOf(std::string_view select) {
    static const Catalog catalog = [] {
        Catalog made = sampleCatalog();
        made.add({"qryPay",
                  {{"Total", ColumnType::Unknown}, {"Note", ColumnType::Unknown}},
                  "",
                  "SELECT sum(Rate) AS Total, Remarks AS Note FROM Persons"});
        return made;
    }();
    std::string letters;
    for (const ComputedKind kind : computedKinds(select, catalog))
        letters += kind.money ? (kind.moment ? 'b' : 'm') : (kind.moment ? 'd' : 't');
    return letters;
}

TEST(ComputedKinds, AnExpressionMayBeWhatTheColumnsInItAre) {
    EXPECT_EQ(kindsOf("select sum(Rate), max(ActivityDT), max(Remarks), Hours * Rate from PersonsPost"), "mdtm");
    EXPECT_EQ(kindsOf("select '1.2500', 1 + 1, count(*), null from Persons"), "tttt");
    EXPECT_EQ(kindsOf("select coalesce(p.Remarks, '') || p.LastName as x, p.Rate as y from Persons as p"), "tm");
}

TEST(ComputedKinds, FunctionsTypesAndCollationsAreNoColumns) {
    EXPECT_EQ(kindsOf("select cast(Remarks as TEXT), upper(Remarks) COLLATE NOCASE from Persons"), "tt");
    EXPECT_EQ(kindsOf("select cast(Rate as TEXT) from Persons"), "m");
}

TEST(ComputedKinds, AColumnIsFoundThroughViewsSubqueriesAndStars) {
    EXPECT_EQ(kindsOf("select * from qryPay"), "mt");
    EXPECT_EQ(kindsOf("select Total, max(Note), q.* from qryPay q"), "mtmt");
    EXPECT_EQ(kindsOf("select x, y from (select max(Rate) as x, Remarks y from Persons) as s"), "mt");
    EXPECT_EQ(kindsOf("select (select max(Rate) from Persons), (select max(Remarks) from Persons where Rate > 0)"),
              "mm"); // a condition counts too: it may, not must
    EXPECT_EQ(kindsOf("select \"Rate\", [Remarks] from [Persons]"), "mt");
}

TEST(ComputedKinds, WhatCannotBeTracedMayBeAnything) {
    EXPECT_EQ(kindsOf("select Nothing, Rate from Persons"), "bm");
    EXPECT_EQ(kindsOf("select max(a) from Elsewhere"), "b");
    EXPECT_EQ(kindsOf("select Remarks as r from Persons union select Rate from Persons"), "b");
    EXPECT_EQ(kindsOf("select * from Elsewhere"), "");
    EXPECT_EQ(kindsOf("pragma integrity_check"), "");
    EXPECT_EQ(kindsOf("select 'open"), "");
}

} // namespace
} // namespace zel::ado::sql
