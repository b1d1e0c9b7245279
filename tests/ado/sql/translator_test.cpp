#include "ado/sql/translator.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "sample_catalog.h"

#include <gmock/gmock.h>

#include <random>
#include <string>

namespace zel::ado::sql {
namespace {

/// "i5 m18.2000 d2005-07-04 00:00:00 'text'", so that a table can say types and values in a line.
std::string spelled(const std::vector<Value>& values) {
    std::string all;
    for (const Value& value : values) {
        if (!all.empty())
            all += ' ';
        switch (value.type()) {
        case Value::Type::Integer:
            all += "i" + toText(value);
            break;
        case Value::Type::Currency:
            all += "m" + value.as<Currency>().toFixedText();
            break;
        case Value::Type::DateTime:
            all += "d" + toIsoText(value.as<DateTime>());
            break;
        case Value::Type::Text:
            all += "'" + value.as<std::string>() + "'";
            break;
        default:
            all += "f" + toText(value);
            break;
        }
    }
    return all;
}

struct Case {
    const char* name;
    const char* statement;
    const char* sqlite;
    const char* postgres;
    const char* parameters;
};

class TranslationCases : public testing::TestWithParam<Case> {};

TEST_P(TranslationCases, SaysItInTheEnginesWords) {
    const Catalog catalog = sampleCatalog();
    for (const EngineKind engine : {EngineKind::Sqlite, EngineKind::Postgres}) {
        Translator translator(engine, catalog);
        const Translated made = translator.translate(GetParam().statement);
        EXPECT_EQ(made.shape->engineText, engine == EngineKind::Sqlite ? GetParam().sqlite : GetParam().postgres);
        EXPECT_EQ(spelled(made.parameters), GetParam().parameters);
        EXPECT_EQ(made.shape->parameterTypes.size(), made.parameters.size());
    }
}

const Case literalCases[] = {
    {"Integer", "select * from Persons where PersonID = 5", "select * from Persons where PersonID = ?1",
     "select * from Persons where PersonID = $1", "i5"},
    {"Negative", "select * from Resources where ParentID <> -1", "select * from Resources where ParentID <> ?1",
     "select * from Resources where ParentID <> $1", "i-1"},
    {"Text", "select * from Persons where LastName='O''BRIEN'", "select * from Persons where LastName=?1",
     "select * from Persons where LastName=$1", "'O'BRIEN'"},
    {"DoubleQuotedText", "select * from Persons where LastName = \"O'BRIEN\"",
     "select * from Persons where LastName = ?1", "select * from Persons where LastName = $1", "'O'BRIEN'"},
    {"DoubleQuotedTextThatStays", "select \"O'BRIEN\" as N from Persons", "select 'O''BRIEN' as N from Persons",
     "select 'O''BRIEN' as N from Persons", ""},
    {"Money", "select * from PersonsPost where Amt > 0 and Rate = 18.2",
     "select * from PersonsPost where Amt > ?1 and Rate = ?2", "select * from PersonsPost where Amt > $1 and Rate = $2",
     "m0.0000 m18.2000"},
    {"MoneyRoundsHalfToEven", "update PersonsPost set Amt = 0.00005, Rate=-1.00015 where PersonID=1",
     "update PersonsPost set Amt = ?1, Rate=?2 where PersonID=?3",
     "update PersonsPost set Amt = $1, Rate=$2 where PersonID=$3", "m0.0000 m-1.0002 i1"},
    {"Hours", "update PersonsPost set Hours = 8.25 where PersonsPostID = 1",
     "update PersonsPost set Hours = ?1 where PersonsPostID = ?2",
     "update PersonsPost set Hours = $1 where PersonsPostID = $2", "f8.25 i1"},
    {"FlagsAreOne", "update UnitOfMeasure set [Primary]=-1 where [Primary] = 1 or [Primary] = 0",
     "update UnitOfMeasure set [Primary]=?1 where [Primary] = ?2 or [Primary] = ?3",
     "update UnitOfMeasure set \"primary\"=$1 where \"primary\" = $2 or \"primary\" = $3", "i1 i1 i0"},
    {"TrueAndFalse", "select * from UnitOfMeasure where [Primary] = True or [Primary] = false",
     "select * from UnitOfMeasure where [Primary] = 1 or [Primary] = 0",
     "select * from UnitOfMeasure where \"primary\" = 1 or \"primary\" = 0", ""},
    {"InList", "select * from Persons where PersonID in (1, 2,-3) and SSN not in ('1','2')",
     "select * from Persons where PersonID in (?1, ?2,?3) and SSN not in (?4,?5)",
     "select * from Persons where PersonID in ($1, $2,$3) and SSN not in ($4,$5)", "i1 i2 i-3 '1' '2'"},
    {"NumberBesideText", "select * from Persons where SSN = 999999999", "select * from Persons where SSN = ?1",
     "select * from Persons where SSN = $1", "'999999999'"},
    {"TextBesideNumber", "select * from Persons where PersonID = '7'", "select * from Persons where PersonID = ?1",
     "select * from Persons where PersonID = $1", "i7"},
    {"DecimalBesideIntegerStays", "select * from Persons where PersonID = 1.5",
     "select * from Persons where PersonID = 1.5", "select * from Persons where PersonID = 1.5", ""},
    {"WideNumberStays", "select * from Persons where PersonID = 9999999999",
     "select * from Persons where PersonID = 9999999999", "select * from Persons where PersonID = 9999999999", ""},
    {"ArithmeticStays", "select * from Persons where PersonID = 5 + ResourceID",
     "select * from Persons where PersonID = 5 + ResourceID", "select * from Persons where PersonID = 5 + ResourceID",
     ""},
    {"SelectListStays", "SELECT 'CONTRACT CREW' as Make, 1 FROM Resources",
     "SELECT 'CONTRACT CREW' as Make, 1 FROM Resources", "SELECT 'CONTRACT CREW' as Make, 1 FROM Resources", ""},
    {"NumberAndWordParted", "select * from Persons where PersonID<>5AND LastName='x'and SSN='y'",
     "select * from Persons where PersonID<>?1 AND LastName=?2 and SSN=?3",
     "select * from Persons where PersonID<>$1 AND LastName=$2 and SSN=$3", "i5 'x' 'y'"},
    {"BracketedComparison", "select * from L_Status where (((L_Status.ZEL)=1))",
     "select * from L_Status where (((L_Status.ZEL)=?1))", "select * from L_Status where (((L_Status.ZEL)=$1))", "i1"},
    {"UnknownTableKeepsNumbers", "select * from Incident where IncidentID = 5 and Name = 'x'",
     "select * from Incident where IncidentID = 5 and Name = ?1",
     "select * from Incident where IncidentID = 5 and Name = $1", "'x'"},
    {"NullStays", "update Persons set Remarks = Null where PersonID = 1",
     "update Persons set Remarks = Null where PersonID = ?1", "update Persons set Remarks = Null where PersonID = $1",
     "i1"},
};

const Case dateCases[] = {
    {"ServerDay", "select * from PersonsPost where ActivityDT='7/4/2005'",
     "select * from PersonsPost where ActivityDT=?1", "select * from PersonsPost where ActivityDT=$1",
     "d2005-07-04 00:00:00"},
    {"DesktopDay", "select * from PersonsPost where ActivityDT=#7/4/2005#",
     "select * from PersonsPost where ActivityDT=?1", "select * from PersonsPost where ActivityDT=$1",
     "d2005-07-04 00:00:00"},
    {"ServerTimes", "select * from PersonsPost where StartTime>='1899-12-30 1:30:00 PM' or StopTime='12:00:00 AM'",
     "select * from PersonsPost where StartTime>=?1 or StopTime=?2",
     "select * from PersonsPost where StartTime>=$1 or StopTime=$2", "d1899-12-30 13:30:00 d1899-12-30 00:00:00"},
    {"DesktopTimes", "select * from PersonsPost where StartTime>=#1:30:00 PM# or StopTime=#12:01:00 AM#",
     "select * from PersonsPost where StartTime>=?1 or StopTime=?2",
     "select * from PersonsPost where StartTime>=$1 or StopTime=$2", "d1899-12-30 13:30:00 d1899-12-30 00:01:00"},
    {"ShortTime", "select * from PersonsPost where StartTime = '1899-12-30 08:15'",
     "select * from PersonsPost where StartTime = ?1", "select * from PersonsPost where StartTime = $1",
     "d1899-12-30 08:15:00"},
    {"ARemarkStaysText", "select * from PersonsPost where Remarks = '7/4/2005'",
     "select * from PersonsPost where Remarks = ?1", "select * from PersonsPost where Remarks = $1", "'7/4/2005'"},
    {"Between", "select * from PersonsPost where ActivityDT between #7/1/2005# and #7/4/2005# and Remarks = 'x'",
     "select * from PersonsPost where ActivityDT between ?1 and ?2 and Remarks = ?3",
     "select * from PersonsPost where ActivityDT between $1 and $2 and Remarks = $3",
     "d2005-07-01 00:00:00 d2005-07-04 00:00:00 'x'"},
    {"MaxOfADate", "select PersonID from PersonsInvoices group by PersonID having max(LastDate) > '7/4/2005'",
     "select PersonID from PersonsInvoices group by PersonID having max(LastDate) > ?1",
     "select PersonID from PersonsInvoices group by PersonID having max(LastDate) > $1", "d2005-07-04 00:00:00"},
    {"DateThatStays", "select #7/4/2005 1:30 PM# as D from Persons", "select '2005-07-04 13:30:00' as D from Persons",
     "select timestamp '2005-07-04 13:30:00' as D from Persons", ""},
    {"InsertByNames",
     "Insert into PersonsPost (PersonsPostID,Remarks,ActivityDT,StartTime,Hours,Amt)Values "
     "(7,'7/4/2005','7/4/2005','1899-12-30 12:01:00 AM',-8.5,0)",
     "Insert into PersonsPost (PersonsPostID,Remarks,ActivityDT,StartTime,Hours,Amt)Values (?1,?2,?3,?4,?5,?6)",
     "Insert into PersonsPost (PersonsPostID,Remarks,ActivityDT,StartTime,Hours,Amt)Values ($1,$2,$3,$4,$5,$6)",
     "i7 '7/4/2005' d2005-07-04 00:00:00 d1899-12-30 00:01:00 f-8.5 m0.0000"},
    {"InsertByPosition", "Insert into AccountingCodes values (1,2,'7/4/2005','PVT',True)",
     "Insert into AccountingCodes values (?1,?2,?3,?4,1)", "Insert into AccountingCodes values ($1,$2,$3,$4,1)",
     "i1 i2 '7/4/2005' 'PVT'"},
    {"InsertRateLine", "Insert into UnitOfMeasure Values(1,2,18.25,-1,0,'HOURLY',3,'x')",
     "Insert into UnitOfMeasure Values(?1,?2,?3,?4,?5,?6,?7,?8)",
     "Insert into UnitOfMeasure Values($1,$2,$3,$4,$5,$6,$7,$8)", "i1 i2 m18.2500 i1 m0.0000 'HOURLY' i3 'x'"},
    {"UpdateDate", "update PersonsPost set ActivityDT = #7/4/2005#, Remarks='12:00:00 AM'",
     "update PersonsPost set ActivityDT = ?1, Remarks=?2", "update PersonsPost set ActivityDT = $1, Remarks=$2",
     "d2005-07-04 00:00:00 '12:00:00 AM'"},
};

const Case textCases[] = {
    {"ServerConcatenation", "SELECT Name + ' ' + RequestNumber AS CrewInfo FROM Resources",
     "SELECT (Name || ' ' || RequestNumber) COLLATE NOCASE AS CrewInfo FROM Resources",
     "SELECT (Name || ' ' || RequestNumber)::citext AS CrewInfo FROM Resources", ""},
    {"DesktopConcatenation", "Select RateType & '  |  ' & Description as Info from UnitOfMeasure",
     "Select zel_join(RateType , '  |  ' , Description) COLLATE NOCASE as Info from UnitOfMeasure",
     "Select concat(RateType , '  |  ' , Description)::citext as Info from UnitOfMeasure", ""},
    {"PlusBindsTighterThanAmpersand", "select Name & LastName + FirstName from Persons, Resources",
     "select zel_join(Name , LastName || FirstName) COLLATE NOCASE from Persons, Resources",
     "select concat(Name , LastName || FirstName)::citext from Persons, Resources", ""},
    {"NumbersAreAdded", "select Amt + Rate, 1 + 2, -PersonID + 3 from PersonsPost",
     "select Amt + Rate, 1 + 2, -PersonID + 3 from PersonsPost",
     "select Amt + Rate, 1 + 2, -PersonID + 3 from PersonsPost", ""},
    {"BracketedText", "select ('a' + Name) + 'b' from Resources",
     "select ((('a' || Name) COLLATE NOCASE) || 'b') COLLATE NOCASE from Resources",
     "select ((('a' || Name)::citext) || 'b')::citext from Resources", ""},
    {"Left", "select * from Resources where (LEFT(RequestNumber, 1)='E')",
     "select * from Resources where (substr(RequestNumber, 1, 1) COLLATE NOCASE=?1)",
     "select * from Resources where (LEFT(RequestNumber, 1)=$1)", "'E'"},
    {"LeftIsAJoinToo", "select * from Persons left join (Resources) on 1=1",
     "select * from Persons left join (Resources) on 1=?1", "select * from Persons left join (Resources) on 1=$1",
     "i1"},
    {"Substring", "select SUBSTRING(SSN, 1, 3) + '-' from Persons",
     "select (SUBSTRING(SSN, 1, 3) COLLATE NOCASE || '-') COLLATE NOCASE from Persons",
     "select (SUBSTRING(SSN, 1, 3) || '-')::citext from Persons", ""},
    {"FormatStandard", "Select Format(Rate,'Standard') as R from UnitOfMeasure",
     "Select zel_standard(Rate) COLLATE NOCASE as R from UnitOfMeasure",
     "Select dbo.zel_standard(Rate) as R from UnitOfMeasure", ""},
    {"ConvertMoney", "Select '$' + Convert(nvarchar,Rate) as R from UnitOfMeasure",
     "Select ('$' || zel_money_text(Rate) COLLATE NOCASE) COLLATE NOCASE as R from UnitOfMeasure",
     "Select ('$' || dbo.zel_money_text(Rate))::citext as R from UnitOfMeasure", ""},
    {"ConvertText", "Select Convert(nvarchar(20), RateType) as R from UnitOfMeasure",
     "Select CAST( RateType AS TEXT) COLLATE NOCASE as R from UnitOfMeasure",
     "Select CAST( RateType AS citext) as R from UnitOfMeasure", ""},
    {"CastNumber", "select cast(Persons.PersonID as nvarchar) AS K from Persons",
     "select CAST(Persons.PersonID as TEXT) COLLATE NOCASE AS K from Persons",
     "select CAST(Persons.PersonID as citext) AS K from Persons", ""},
    {"SortFunction",
     "select * from Resources order by Left(RequestNumber, 1), dbo.f_SortRequestNumber(RequestNumber) ASC",
     "select * from Resources order by substr(RequestNumber, 1, 1) COLLATE NOCASE, "
     "f_SortRequestNumber(RequestNumber) COLLATE NOCASE ASC",
     "select * from Resources order by Left(RequestNumber, 1) NULLS FIRST, dbo.f_SortRequestNumber(RequestNumber) ASC "
     "NULLS FIRST",
     ""},
    {"DoubleQuotedLike", "select * from Persons where LastName like \"SM%\"",
     "select * from Persons where LastName like ?1", "select * from Persons where LastName like $1 ESCAPE ''", "'SM%'"},
};

const Case shapeCases[] = {
    {"OrderPutsNullFirst", "select * from Persons order by LastName, FirstName DESC, 3 asc",
     "select * from Persons order by LastName, FirstName DESC, 3 asc",
     "select * from Persons order by LastName NULLS FIRST, FirstName DESC NULLS LAST, 3 asc NULLS FIRST", ""},
    {"OrderInASubqueryToo",
     "select * from Persons where PersonID in (select PersonID from PersonsPost order by Amt) order by SSN",
     "select * from Persons where PersonID in (select PersonID from PersonsPost order by Amt) order by SSN",
     "select * from Persons where PersonID in (select PersonID from PersonsPost order by Amt NULLS FIRST) order by SSN "
     "NULLS FIRST",
     ""},
    {"OrderByAComputedText", "select * from Persons order by upper(LastName);",
     "select * from Persons order by upper(LastName) COLLATE NOCASE",
     "select * from Persons order by upper(LastName) NULLS FIRST", ""},
    {"OrderByComputedMoney", "select * from PersonsPost order by (Rate)", "select * from PersonsPost order by (Rate)",
     "select * from PersonsPost order by (Rate) NULLS FIRST", ""},
    {"DeleteStar", "DELETE * FROM PersonsPost;", "DELETE  FROM PersonsPost", "DELETE  FROM PersonsPost", ""},
    {"NestedOn",
     "SELECT * FROM (AccountingCodes A RIGHT OUTER JOIN Resources INNER JOIN Persons ON Resources.ResourceID = "
     "Persons.ResourceID ON A.AccountingID = Persons.PersonID) LEFT JOIN L_Status ON Persons.PStatus = L_Status.Code",
     "SELECT * FROM (AccountingCodes A RIGHT OUTER JOIN (Resources INNER JOIN Persons ON Resources.ResourceID = "
     "Persons.ResourceID) ON A.AccountingID = Persons.PersonID) LEFT JOIN L_Status ON Persons.PStatus = L_Status.Code",
     "SELECT * FROM (AccountingCodes A RIGHT OUTER JOIN Resources INNER JOIN Persons ON Resources.ResourceID = "
     "Persons.ResourceID ON A.AccountingID = Persons.PersonID) LEFT JOIN L_Status ON Persons.PStatus = L_Status.Code",
     ""},
    {"NestedOnTurnedAround",
     "SELECT A.AccountingID, Persons.* FROM (dbo.AccountingCodes A RIGHT OUTER JOIN Resources INNER JOIN Persons ON "
     "Resources.ResourceID = Persons.ResourceID ON A.AccountingID = Persons.PersonID) LEFT JOIN L_Status ON 1=2",
     "SELECT A.AccountingID, Persons.* FROM (     Resources INNER JOIN Persons ON Resources.ResourceID = "
     "Persons.ResourceID LEFT OUTER JOIN AccountingCodes A ON A.AccountingID = Persons.PersonID) LEFT JOIN L_Status ON "
     "1=?1",
     "SELECT A.AccountingID, Persons.* FROM (dbo.AccountingCodes A RIGHT OUTER JOIN Resources INNER JOIN Persons ON "
     "Resources.ResourceID = Persons.ResourceID ON A.AccountingID = Persons.PersonID) LEFT JOIN L_Status ON 1=$1",
     "i2"},
    {"RightJoinBehindOthersStays", "SELECT 1 FROM A LEFT JOIN B ON A.x=B.x RIGHT JOIN C ON B.x=C.x",
     "SELECT 1 FROM A LEFT JOIN B ON A.x=B.x RIGHT JOIN C ON B.x=C.x",
     "SELECT 1 FROM A LEFT JOIN B ON A.x=B.x RIGHT JOIN C ON B.x=C.x", ""},
    {"WordsGrownOntoBrackets",
     "select 1 FROM((Resources A inner join Persons B on A.x=B.x)left join L_Status on 1=1)where 2=2",
     "select 1 FROM((Resources A inner join Persons B on A.x=B.x)left join L_Status on 1=?1)where 2=?2",
     "select 1 FROM((Resources A inner join Persons B on A.x=B.x)left join L_Status on 1=$1)where 2=$2", "i1 i2"},
    {"ViewsBecomeTheirDefinition", "select * from qryCrews where Name = 'x'", "select * from qryCrews where Name = ?1",
     "select * from (SELECT resources.name AS crewinfo FROM dbo.resources) qryCrews where Name = $1", "'x'"},
    {"ViewsKeepTheirAlias", "select * from (dbo.qryCrews C inner join Persons P on C.ResourceID=P.ResourceID)",
     "select * from (qryCrews C inner join Persons P on C.ResourceID=P.ResourceID)",
     "select * from ((SELECT resources.name AS crewinfo FROM dbo.resources) C inner join Persons P on "
     "C.ResourceID=P.ResourceID)",
     ""},
    {"ViewsOfViews", "select * from qryCrewNames", "select * from qryCrewNames",
     "select * from (SELECT name FROM (SELECT resources.name AS crewinfo FROM dbo.resources) q JOIN (SELECT "
     "resources.name AS crewinfo FROM dbo.resources) qryCrews ON true) qryCrewNames",
     ""},
    {"CommentsGoAway", "select 1 /* a ; ? */ from Persons -- b", "select 1 from Persons", "select 1 from Persons", ""},
    {"WhiteSpaceStays", "select\n\t*  from   Persons ", "select\n\t*  from   Persons", "select\n\t*  from   Persons",
     ""},
    {"WhatIsNotUnderstoodGoesThrough", "foo bar ( baz ) ! ~ 5 x", "foo bar ( baz ) ! ~ 5 x", "foo bar ( baz ) ! ~ 5 x",
     ""},
    {"UnbalancedBracketsGoThrough", "select ) ( ) from ((", "select ) ( ) from ((", "select ) ( ) from ((", ""},
};

std::string caseName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Literals, TranslationCases, testing::ValuesIn(literalCases), caseName);
INSTANTIATE_TEST_SUITE_P(Dates, TranslationCases, testing::ValuesIn(dateCases), caseName);
INSTANTIATE_TEST_SUITE_P(Texts, TranslationCases, testing::ValuesIn(textCases), caseName);
INSTANTIATE_TEST_SUITE_P(Shapes, TranslationCases, testing::ValuesIn(shapeCases), caseName);

} // namespace
} // namespace zel::ado::sql
