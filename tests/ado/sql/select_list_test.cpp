#include "ado/sql/select_list.h"

#include <gmock/gmock.h>

namespace zel::ado::sql {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> aliasesOf(std::string_view statement) {
    Tokens tokens;
    EXPECT_EQ(lex(statement, tokens), LexFault::None);
    return aliases(tokens, analyse(tokens));
}

TEST(SelectList, AColumnIsCalledByItsAliasOrByItself) {
    EXPECT_THAT(columnNames("SELECT DISTINCT p.PersonID, LastName + ', ' + FirstName AS LnFn, [SSN] fSSN, Rate FROM "
                            "Persons p WHERE Rate > 0"),
                ElementsAre("PersonID", "LnFn", "fSSN", "Rate"));
    EXPECT_THAT(columnNames("select (a || b)::citext AS Info, max(x) from t"), ElementsAre("Info"));
}

TEST(SelectList, StarsAndExpressionsHaveNoNames) {
    EXPECT_THAT(columnNames("select *, p.*, count(*), 1 + 1, 'x' from p"), IsEmpty());
    EXPECT_THAT(columnNames("delete from Persons"), IsEmpty());
    EXPECT_THAT(columnNames("select"), IsEmpty());
}

TEST(SelectList, ACaseAndASubqueryAreOneItem) {
    EXPECT_THAT(columnNames("select case when a = 1 then b else c end Kind, (select max(x), y from t) AS Inner_, d"),
                ElementsAre("Kind", "Inner_", "d"));
}

TEST(SelectList, AliasesOfTheOuterListComeFirst) {
    EXPECT_THAT(aliasesOf("select x.B as Bee, c from (select a AS B, d as Dee from t) x union select e AS F from u"),
                ElementsAre("Bee", "B", "Dee", "F"));
    EXPECT_THAT(aliasesOf("insert into t (a) values (1)"), IsEmpty());
}

} // namespace
} // namespace zel::ado::sql
