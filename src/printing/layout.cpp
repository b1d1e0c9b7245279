#include "printing/layout.h"

#include "ado/convert.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace zel::printing {

namespace {

struct Word {
    std::string text;
    int column = 1;
    bool quoted = false;
};

/// The words of one line: blanks part them, quotes keep them together, "" is a quote inside quotes.
std::vector<Word> wordsOf(std::string_view line, int number) {
    std::vector<Word> words;
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && (line[at] == ' ' || line[at] == '\t' || line[at] == '\r'))
            ++at;
        if (at == line.size() || line[at] == '#')
            return words;
        Word word{{}, static_cast<int>(at) + 1, line[at] == '"'};
        if (!word.quoted) {
            while (at < line.size() && line[at] != ' ' && line[at] != '\t' && line[at] != '\r')
                word.text += line[at++];
        } else {
            for (++at;; ++at) {
                if (at == line.size())
                    throw LayoutError(number, word.column, "the text has no closing quote");
                if (line[at] == '"' && (at + 1 == line.size() || line[at + 1] != '"'))
                    break;
                if (line[at] == '"')
                    ++at;
                word.text += line[at];
            }
            ++at;
        }
        words.push_back(std::move(word));
    }
}

/// The words of a line, taken one after the other.
class Line {
public:
    Line(std::string_view text, int number) : words_(wordsOf(text, number)), number_(number) {
        end_ = static_cast<int>(text.size()) + 1;
    }
    [[nodiscard]] bool done() const { return next_ == words_.size(); }
    [[noreturn]] void fail(const std::string& what, int back = 0) const {
        const std::size_t at = next_ - static_cast<std::size_t>(back);
        throw LayoutError(number_, at < words_.size() ? words_[at].column : end_, what);
    }
    std::string word(const char* what) {
        if (done())
            fail(std::string("here ") + what + " is missing");
        return words_[next_++].text;
    }
    std::string quoted(const char* what) {
        if (done() || !words_[next_].quoted)
            fail(std::string("here ") + what + " in quotes is missing");
        return words_[next_++].text;
    }
    double number(const char* what) {
        const std::string text = word(what);
        double value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
            fail("'" + text + "' is not " + what, 1);
        return value;
    }
    int count(const char* what) {
        const double value = number(what);
        if (value < 1 || value > 1000 || value != std::floor(value))
            fail(std::string("here ") + what + " has to be a whole number from 1 to 1000", 1);
        return static_cast<int>(value);
    }
    double size(const char* what) {
        const double value = number(what);
        if (value <= 0 || value > 100)
            fail(std::string(what) + " has to be above 0 and at most 100", 1);
        return value;
    }

private:
    std::vector<Word> words_;
    int number_, end_ = 1;
    std::size_t next_ = 0;
};

class Parser {
public:
    void line(Line&& line);
    Layout finish(int lines);

private:
    void page(Line& line);
    void sort(Line& line);
    void columns(Line& line);
    void band(Line& line);
    void item(Line& line, Item::Kind kind);
    static void style(Line& line, Item& item);

    Layout layout_;
};

void Parser::page(Line& line) {
    layout_.pageWidth = line.size("the page's width");
    layout_.pageHeight = line.size("the page's height");
    layout_.margin = line.number("the margin");
    if (layout_.margin < 0 || layout_.margin * 2 >= layout_.pageWidth || layout_.margin * 2 >= layout_.pageHeight)
        line.fail("the margin leaves no room on the page", 1);
}

void Parser::sort(Line& line) {
    layout_.sort = line.word("a field");
    while (!line.done())
        layout_.sort += ", " + line.word("a field");
}

void Parser::columns(Line& line) {
    layout_.columns.count = line.count("the number of columns");
    layout_.columns.width = line.size("a column's width");
    layout_.columns.rows = line.count("the number of rows");
    layout_.columns.key = line.word("the field of the columns");
}

void Parser::band(Line& line) {
    static constexpr std::array<std::pair<const char*, BandKind>, 9> kinds{{{"report-header", BandKind::ReportHeader},
                                                                            {"report-footer", BandKind::ReportFooter},
                                                                            {"page-header", BandKind::PageHeader},
                                                                            {"page-footer", BandKind::PageFooter},
                                                                            {"group-header", BandKind::GroupHeader},
                                                                            {"group-footer", BandKind::GroupFooter},
                                                                            {"details", BandKind::Details},
                                                                            {"column-header", BandKind::ColumnHeader},
                                                                            {"column-footer", BandKind::ColumnFooter}}};
    const std::string name = line.word("the kind of the band");
    for (const auto& [word, kind] : kinds) {
        if (name != word)
            continue;
        Band band;
        band.kind = kind;
        if (kind == BandKind::GroupHeader || kind == BandKind::GroupFooter)
            band.group = line.word("the field of the group");
        if (layout_.band(kind, band.group) != nullptr)
            line.fail("there is such a band already", 1);
        band.height = line.size("the band's height");
        layout_.bands.push_back(std::move(band));
        return;
    }
    line.fail("there is no band '" + name + "'", 1);
}

void Parser::style(Line& line, Item& item) {
    const std::string word = line.word("a style");
    if (word == "bold")
        item.bold = true;
    else if (word == "left" || word == "center" || word == "right")
        item.align = word == "left" ? Align::Left : word == "center" ? Align::Center : Align::Right;
    else if (word == "shrink" || word == "wrap")
        item.fit = word == "wrap" ? Fit::Wrap : Fit::Shrink;
    else if (word == "size")
        item.size = line.size("the size");
    else if (word == "thick")
        item.thickness = line.size("the thickness");
    else if (word == "last-page" || word == "not-last-page")
        item.pages = word == "last-page" ? OnPages::Last : OnPages::AllButLast;
    else if (word == "if" || word == "unless") {
        item.condition = line.word("a field");
        item.unless = word == "unless";
    } else
        line.fail("'" + word + "' is no style", 1);
}

void Parser::item(Line& line, Item::Kind kind) {
    if (layout_.bands.empty())
        line.fail("it stands in no band", 1);
    Item item;
    item.kind = kind;
    item.x = line.number("the left edge");
    item.y = line.number("the top edge");
    item.width = line.number("the width");
    item.height = line.number("the height");
    if (kind == Item::Kind::Text)
        item.text = line.quoted("the text");
    while (!line.done())
        style(line, item);
    layout_.bands.back().items.push_back(std::move(item));
}

void Parser::line(Line&& line) {
    if (line.done())
        return;
    const std::string word = line.word("a word");
    if (word == "page")
        page(line);
    else if (word == "sort")
        sort(line);
    else if (word == "columns")
        columns(line);
    else if (word == "sheet")
        layout_.sheet = line.word("a field");
    else if (word == "new-page")
        layout_.newPage = line.word("a field");
    else if (word == "subreport")
        layout_.subreportKey = line.word("a field");
    else if (word == "band")
        band(line);
    else if (word == "box")
        item(line, Item::Kind::Box);
    else if (word == "line")
        item(line, Item::Kind::Line);
    else if (word == "text")
        item(line, Item::Kind::Text);
    else
        line.fail("'" + word + "' is not known", 1);
    if (!line.done())
        line.fail("nothing more may stand here");
}

Layout Parser::finish(int lines) {
    if (layout_.band(BandKind::Details) == nullptr)
        throw LayoutError(lines, 1, "there is no band 'details'");
    double fixed = 0;
    for (const Band& band : layout_.bands)
        fixed += band.height * (band.kind == BandKind::Details && layout_.columns.count > 0 ? layout_.columns.rows : 1);
    if (fixed > layout_.pageHeight - 2 * layout_.margin)
        throw LayoutError(lines, 1, "the bands together are higher than the page");
    return std::move(layout_);
}

} // namespace

const Band* Layout::band(BandKind kind, std::string_view group) const {
    for (const Band& band : bands) {
        if (band.kind == kind && ado::equalIgnoringCase(band.group, group))
            return &band;
    }
    return nullptr;
}

std::vector<std::string> Layout::groups() const {
    std::vector<std::string> fields;
    for (const Band& band : bands) {
        const bool known = std::any_of(fields.begin(), fields.end(), [&band](const std::string& field) {
            return ado::equalIgnoringCase(field, band.group);
        });
        if (!band.group.empty() && !known)
            fields.push_back(band.group);
    }
    return fields;
}

Layout parseLayout(std::string_view text) {
    Parser parser;
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        parser.line(Line(text.substr(0, end), ++number));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parser.finish(number);
}

} // namespace zel::printing
