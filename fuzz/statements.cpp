// Statements made of the program's words and a clerk's value: whatever the value is, it never changes what the
// statement says, and whatever the text is, it is translated or refused.
#include "ado/error.h"
#include "ado/sql/lexer.h"
#include "ado/sql/outline.h"
#include "ado/sql/sample_catalog.h"
#include "ado/sql/translator.h"

#include "check.h"

#include <cstdint>
#include <string>

namespace {

using namespace zel::ado;

/// The kinds of the tokens, a sign left out and numbers all alike.
std::string kindsOf(std::string_view statement) {
    sql::Tokens tokens;
    ZEL_HOLDS(sql::lex(statement, tokens) == sql::LexFault::None);
    std::string kinds;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (tokens.isOperator(at, "-") || tokens.isOperator(at, "+"))
            continue;
        kinds += static_cast<char>('a' + static_cast<int>(tokens[at].kind));
    }
    return kinds;
}

void aTextNeverLeavesItsQuotes(const Sql& before, std::string_view value, const Sql& behind) {
    const Sql statement = before + Sql::of(value) + behind;
    if (!valueBreaksOut(statement) && !value.empty())
        ZEL_HOLDS(kindsOf(statement.text()) == kindsOf((before + Sql::of("x") + behind).text()));
}

void aNumberStaysOneLiteral(std::string_view value) {
    const Sql before("update Persons set Rate = ");
    const Sql behind(" where PersonID = 5");
    const Sql statement = before + Sql::of(value) + behind;
    const bool blank = value.find_first_not_of(" \t\r\n") == std::string_view::npos;
    if (!blank && !valueBreaksOut(statement))
        ZEL_HOLDS(kindsOf(statement.text()).size() == kindsOf((before + Sql::of(1) + behind).text()).size());
}

void anyTextIsTranslatedOrRefused(const std::string& text) {
    static const Catalog catalog = sql::sampleCatalog();
    for (const EngineKind engine : {EngineKind::Sqlite, EngineKind::Postgres}) {
        sql::Translator translator(engine, catalog);
        try {
            const auto made = translator.translate(text);
            ZEL_HOLDS(made.parameters.size() == made.shape->parameterTypes.size());
            const auto again = translator.translate(text);
            ZEL_HOLDS(again.shape->engineText == made.shape->engineText);
            ZEL_HOLDS(again.parameters == made.parameters);
        } catch (const Error& error) {
            ZEL_HOLDS(error.kind() == ErrorKind::Statement);
        }
    }
}

void aColumnGoesBehindTheList(const std::string& text) {
    const sql::Outline parts = sql::outline(text);
    if (!parts.isSingleSource())
        return;
    const Sql wide = sql::withColumns(Sql::words(text), parts, Sql("zel_a"));
    const sql::Outline again = sql::outline(wide.text());
    ZEL_HOLDS(again.isSingleSource());
    ZEL_HOLDS(wide.text().substr(0, again.listEnd).ends_with(", zel_a"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    aTextNeverLeavesItsQuotes("select * from Persons where LastName = '", text, "' and PersonID = 5");
    aTextNeverLeavesItsQuotes("select * from Persons where LastName = \"", text, "\" and PersonID = 5");
    aTextNeverLeavesItsQuotes("select * from PersonsPost where ActivityDT = #", text, "# and PersonID = 5");
    aNumberStaysOneLiteral(text);
    anyTextIsTranslatedOrRefused(text);
    aColumnGoesBehindTheList(text);
    return 0;
}
