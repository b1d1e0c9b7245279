#include "korvandb/schema.h"

#include "ado/convert.h"
#include "korvandb/texts.h"

#include <fmt/format.h>

#include <charconv>
#include <stdexcept>

namespace zel::korvandb {

namespace {

using ado::ColumnType;

std::vector<std::string> split(std::string_view text, std::string_view separators) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of(separators);
        const std::string_view word = text.substr(0, end);
        if (!word.empty())
            words.emplace_back(word);
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + 1);
    }
    return words;
}

/// Reads the text line by line; an item lasts as long as its lines are indented.
class Parser {
public:
    explicit Parser(std::string_view text) : rest_(text) {}

    Schema parse() {
        while (!rest_.empty())
            takeLine();
        return std::move(schema_);
    }

private:
    enum class Item { None, Table, View };

    void takeLine() {
        const std::size_t end = rest_.find('\n');
        const std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        ++number_;
        const std::string_view content = ado::trim(line);
        if (content.empty() || content.front() == '#')
            return;
        if (line.front() != ' ')
            beginItem(content);
        else if (item_ == Item::Table)
            takeTableLine(split(content, ", "));
        else if (item_ == Item::View)
            takeQueryLine(line);
        else
            fail("a line of no table or view");
    }

    void beginItem(std::string_view content) {
        const std::vector<std::string> words = split(content, " ");
        if (words.size() == 2 && words[0] == "table") {
            schema_.tables.push_back({words[1], {}, {}, {}});
            item_ = Item::Table;
        } else if (words.size() == 2 && words[0] == "view") {
            schema_.views.push_back({words[1], {}});
            item_ = Item::View;
        } else if (words.size() > 5 && words[0] == "view" && words[2] == "like" && words[4] == "where") {
            const View* model = schema_.view(words[3]);
            if (model == nullptr)
                fail("like an unknown view");
            const std::string condition(content.substr(content.find(" where ") + 7));
            schema_.views.push_back({words[1], model->query + "\n    WHERE " + condition});
            item_ = Item::None;
        } else
            fail("neither a table nor a view");
    }

    void takeTableLine(std::vector<std::string> words) {
        Table& table = schema_.tables.back();
        if (words[0] == "index" || words[0] == "unique" || words[0] == "wide") {
            const Index index{{words.begin() + 1, words.end()}, words[0] == "unique", words[0] == "wide"};
            for (const std::string& name : index.columns)
                require(table, name);
            table.indexes.push_back(index);
        } else if (words[0] == "refers" && words.size() == 3) {
            require(table, words[1]);
            table.references.push_back({words[1], words[2]});
        } else if (words.size() > 1)
            table.columns.push_back(column(words));
        else
            fail("a column without a type");
    }

    Column column(const std::vector<std::string>& words) const {
        Column made;
        made.name = words[0];
        std::size_t next = 2;
        if (words[1] == "key") {
            made.type = ColumnType::Integer;
            made.primary = true;
        } else if (words[1] == "text")
            made.width = number(words, next++);
        if (made.type == ColumnType::Unknown)
            made.type = typeOf(words[1]);
        if (made.type == ColumnType::Flag) {
            made.required = true;
            made.defaultValue = "0";
        }
        for (; next < words.size(); ++next) {
            if (words[next] == "primary")
                made.primary = true;
            else if (words[next] == "required")
                made.required = true;
            else if (words[next] == "default")
                made.defaultValue = std::to_string(number(words, ++next));
            else
                fail("unknown option " + words[next]);
        }
        return made;
    }

    [[nodiscard]] ColumnType typeOf(const std::string& word) const {
        if (word == "integer")
            return ColumnType::Integer;
        if (word == "flag")
            return ColumnType::Flag;
        if (word == "double")
            return ColumnType::Double;
        if (word == "money")
            return ColumnType::Currency;
        if (word == "datetime")
            return ColumnType::DateTime;
        if (word == "text")
            return ColumnType::Text;
        fail("unknown type " + word);
    }

    [[nodiscard]] int number(const std::vector<std::string>& words, std::size_t at) const {
        int value = 0;
        if (at >= words.size() ||
            std::from_chars(words[at].data(), words[at].data() + words[at].size(), value).ec != std::errc())
            fail("a number is missing");
        return value;
    }

    void takeQueryLine(std::string_view line) {
        std::string& query = schema_.views.back().query;
        if (!query.empty())
            query += '\n';
        query += line;
    }

    void require(const Table& table, const std::string& columnName) const {
        if (table.column(columnName) == nullptr)
            fail("no column " + columnName);
    }

    [[noreturn]] void fail(const std::string& what) const {
        throw std::invalid_argument(fmt::format("schema, line {}: {}", number_, what));
    }

    std::string_view rest_;
    int number_ = 0;
    Item item_ = Item::None;
    Schema schema_;
};

template <typename T>
const T* named(const std::vector<T>& items, std::string_view name) {
    for (const T& item : items)
        if (ado::equalIgnoringCase(item.name, name))
            return &item;
    return nullptr;
}

} // namespace

const Column* Table::column(std::string_view columnName) const {
    return named(columns, columnName);
}

const Column* Table::primary() const {
    for (const Column& candidate : columns)
        if (candidate.primary)
            return &candidate;
    return nullptr;
}

const Table* Schema::table(std::string_view name) const {
    return named(tables, name);
}

const View* Schema::view(std::string_view name) const {
    return named(views, name);
}

Schema parseSchema(std::string_view text) {
    return Parser(text).parse();
}

const Schema& theSchema() {
    static const Schema schema = parseSchema(texts::schema);
    return schema;
}

} // namespace zel::korvandb
