#include "runner/spelling.h"

#include "ado/convert.h"
#include "korvandb/schema.h"

#include <map>

namespace zel::runner {

namespace {

bool isWordCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

template <typename Visitor>
void eachWord(std::string_view text, Visitor visit) {
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && isWordCharacter(text[end]))
            ++end;
        if (end > at)
            visit(text.substr(at, end - at));
        at = end + 1;
    }
}

using Spellings = std::map<std::string, std::string, std::less<>>; // by lower case

Spellings schemaSpellings() {
    Spellings spellings;
    for (const auto& table : korvandb::theSchema().tables) {
        for (const auto& column : table.columns)
            spellings.emplace(ado::lowerCase(column.name), column.name);
    }
    // The views' own columns are named in their queries.
    for (const auto& view : korvandb::theSchema().views)
        eachWord(view.query, [&](std::string_view word) { spellings.emplace(ado::lowerCase(word), word); });
    return spellings;
}

} // namespace

std::string spelledName(const std::string& name, std::string_view statement) {
    static const Spellings spellings = schemaSpellings();
    if (const auto found = spellings.find(ado::lowerCase(name)); found != spellings.end())
        return found->second;
    std::string spelled = name;
    eachWord(statement, [&](std::string_view word) {
        if (ado::equalIgnoringCase(word, name))
            spelled = word; // the last one is the alias
    });
    return spelled;
}

} // namespace zel::runner
