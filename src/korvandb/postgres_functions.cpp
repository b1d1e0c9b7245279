#include "korvandb/postgres_functions.h"

namespace zel::korvandb {

namespace {

/// A group behind the first counts as ten-thousandths of the one before, 9999 at most: E-7.2 < E-7.10 < E-8 < E-70.
constexpr const char* sortRequestNumber = R"(
CREATE FUNCTION dbo.f_SortRequestNumber(request citext) RETURNS double precision
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$
    SELECT coalesce(g[1]::double precision
        + least(coalesce(g[2], '0')::numeric, 9999)::double precision / 10000
        + least(coalesce(g[3], '0')::numeric, 9999)::double precision / 100000000, 0)
    FROM (SELECT regexp_match(request::text, '([0-9]+)(?:\.([0-9]+))?(?:\.([0-9]+))?') AS g) AS groups
$$)";

constexpr const char* leftOfText = R"(
CREATE FUNCTION dbo.left(value citext, count integer) RETURNS citext
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT pg_catalog.left(value::text, count)::dbo.citext $$)";

constexpr const char* substringOfText = R"(
CREATE FUNCTION dbo.substring(value citext, first integer, count integer) RETURNS citext
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT pg_catalog.substring(value::text, first, count)::dbo.citext $$)";

constexpr const char* standard = R"(
CREATE FUNCTION dbo.zel_standard(number numeric) RETURNS citext
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT coalesce(to_char(round(number, 2), 'FM999,999,999,999,999,990.00'), '')::dbo.citext
$$)";

constexpr const char* standardOfDouble = R"(
CREATE FUNCTION dbo.zel_standard(number double precision) RETURNS citext
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$ SELECT dbo.zel_standard(number::numeric) $$)";

constexpr const char* moneyText = R"(
CREATE FUNCTION dbo.zel_money_text(money numeric) RETURNS citext
LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT round(money, 2)::text::dbo.citext $$)";

/// The row of the table moves by one in a single statement, so two clerks never see the same number. The first call for
/// a table starts above the highest key; when two clerks make it at once, the second waits and takes the number behind.
constexpr const char* getNextNumber = R"(
CREATE FUNCTION dbo.usp_getNextNumber(tablename varchar(40), fieldname varchar(40)) RETURNS integer
LANGUAGE plpgsql SET search_path = dbo, pg_temp AS $$
#variable_conflict use_column
DECLARE
    given integer;
    highest integer;
    keycolumn name;
BEGIN
    UPDATE dbo.NextNumbers SET NextNumber = NextNumber + 1 WHERE TableName = $1::citext
        RETURNING NextNumber - 1 INTO given;
    IF FOUND THEN
        RETURN given;
    END IF;
    SELECT attname INTO keycolumn FROM pg_catalog.pg_index INNER JOIN pg_catalog.pg_attribute
        ON attrelid = indrelid AND attnum = indkey[0]
        WHERE indrelid = to_regclass('dbo.' || quote_ident(lower($1))) AND indisprimary AND indnatts = 1
            AND atttypid = 'integer'::regtype;
    IF keycolumn IS NULL THEN
        RAISE EXCEPTION 'No table with a key: %', $1 USING ERRCODE = 'undefined_table';
    END IF;
    EXECUTE format('SELECT coalesce(max(%I), 0) FROM dbo.%I', keycolumn, lower($1)) INTO highest;
    INSERT INTO dbo.NextNumbers (TableName, NextNumber) VALUES (lower($1), greatest(highest, 0) + 2)
        ON CONFLICT (TableName) DO UPDATE SET NextNumber = NextNumbers.NextNumber + 1
        RETURNING NextNumber - 1 INTO given;
    RETURN given;
END
$$)";

} // namespace

std::vector<std::string> postgresFunctions() {
    return {sortRequestNumber, leftOfText, substringOfText, standard, standardOfDouble, moneyText, getNextNumber};
}

} // namespace zel::korvandb
