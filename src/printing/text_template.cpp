#include "printing/text_template.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zel::printing {

namespace {

/// The format of a time at which something ends.
constexpr std::string_view endOfDay = "24:00";

/// The rest of the expression when it begins with the word and a blank.
bool takes(std::string_view& expression, std::string_view word) {
    if (!expression.starts_with(word) || expression.size() <= word.size() || expression[word.size()] != ' ')
        return false;
    expression.remove_prefix(word.size() + 1);
    return true;
}

std::string written(const ado::Value& value, const std::string& format) {
    if (format.empty())
        return ado::toText(value);
    if (format != endOfDay)
        return ado::format(value, format);
    const std::string time = ado::format(value, "hh:nn");
    return time == "00:00" ? std::string(endOfDay) : time;
}

ado::Value difference(const ado::Value& from, const ado::Value& less) {
    const bool money = from.type() == ado::Value::Type::Currency || less.type() == ado::Value::Type::Currency;
    if (money)
        return (from.isEmpty() ? ado::Currency() : ado::toCurrency(from)) -
               (less.isEmpty() ? ado::Currency() : ado::toCurrency(less));
    return (from.isEmpty() ? 0.0 : ado::toDouble(from)) - (less.isEmpty() ? 0.0 : ado::toDouble(less));
}

} // namespace

TextTemplate::TextTemplate(const Layout& layout, const ReportData& data) : layout_(layout), data_(data) {
    const Rows& second = data_.subreport;
    for (std::size_t row = 0; row < second.rows.size() && !layout_.subreportKey.empty(); ++row)
        subreport_.emplace(ado::toText(second.value(row, layout_.subreportKey)), row);
}

TextTemplate::~TextTemplate() = default;

TextTemplate::Term TextTemplate::termOf(std::string_view words) const {
    static constexpr std::array<std::pair<std::string_view, Term::Kind>, 4> kinds{{{"sum", Term::Kind::Sum},
                                                                                   {"running", Term::Kind::Running},
                                                                                   {"total", Term::Kind::Total},
                                                                                   {"sub", Term::Kind::Sub}}};
    Term term;
    if (words.starts_with('?')) {
        term.kind = Term::Kind::Parameter;
        words.remove_prefix(1);
    }
    for (const auto& [word, kind] : kinds) {
        if (term.kind == Term::Kind::Field && takes(words, word))
            term.kind = kind;
    }
    term.name = words;
    if (term.kind == Term::Kind::Field)
        term.column = data_.main.find(words);
    return term;
}

TextTemplate::Piece TextTemplate::pieceOf(std::string_view expression) const {
    Piece piece;
    if (expression == "page" || expression == "pages") {
        piece.kind = expression == "page" ? Piece::Kind::Page : Piece::Kind::Pages;
        return piece;
    }
    piece.kind = Piece::Kind::Value;
    const std::size_t colon = expression.find(':');
    if (colon != std::string_view::npos)
        piece.text = expression.substr(colon + 1);
    expression = expression.substr(0, colon);
    constexpr std::string_view minus = " - ";
    const std::size_t less = expression.find(minus);
    piece.terms.push_back(termOf(expression.substr(0, less)));
    if (less != std::string_view::npos)
        piece.terms.push_back(termOf(expression.substr(less + minus.size())));
    return piece;
}

TextTemplate::Pieces TextTemplate::piecesOf(std::string_view text) const {
    Pieces pieces;
    int groups = 0, group = 0;
    const auto add = [&](Piece piece) {
        piece.group = group;
        pieces.push_back(std::move(piece));
    };
    while (!text.empty()) {
        const std::size_t stop = std::min(text.find_first_of("{[]"), text.size());
        if (stop > 0) {
            Piece words;
            words.text = text.substr(0, stop);
            add(std::move(words));
            text.remove_prefix(stop);
            continue;
        }
        std::size_t taken = 1;
        if (text.front() == '{') {
            const std::size_t close = text.find('}');
            add(pieceOf(text.substr(1, close == std::string_view::npos ? close : close - 1)));
            taken = close == std::string_view::npos ? text.size() : close + 1;
        } else {
            group = text.front() == '[' ? ++groups : 0;
        }
        text.remove_prefix(taken);
    }
    return pieces;
}

const TextTemplate::Prepared& TextTemplate::prepared(const Item& item) {
    const auto known = prepared_.find(&item);
    if (known != prepared_.end())
        return known->second;
    Prepared made{piecesOf(item.text), {}};
    if (!item.condition.empty())
        made.condition = termOf(item.condition);
    return prepared_.emplace(&item, std::move(made)).first->second;
}

const TextTemplate::Sums& TextTemplate::sumsOf(const Term& term) {
    if (const auto known = sums_.find(term.name); known != sums_.end())
        return known->second;
    Sums sums;
    sums.ticks.push_back(0);
    sums.numbers.push_back(0);
    for (std::size_t row = 0; row < data_.main.rows.size(); ++row) {
        const ado::Value& value = data_.main.value(row, term.name);
        const bool money = value.type() == ado::Value::Type::Currency;
        sums.money = sums.money || money;
        sums.ticks.push_back(sums.ticks.back() + (money ? value.as<ado::Currency>().ticks() : 0));
        sums.numbers.push_back(sums.numbers.back() + (ado::isNumeric(value) ? ado::toDouble(value) : 0));
    }
    return sums_.emplace(term.name, std::move(sums)).first->second;
}

ado::Value TextTemplate::sum(const Term& term, std::size_t first, std::size_t last) {
    const Sums& sums = sumsOf(term);
    if (sums.money)
        return ado::Currency::fromTicks(sums.ticks[last] - sums.ticks[first]);
    return sums.numbers[last] - sums.numbers[first];
}

ado::Value TextTemplate::ofSubreport(const Term& term, const Scope& scope) {
    if (scope.row >= data_.main.rows.size())
        return {};
    const auto found = subreport_.find(ado::toText(data_.main.value(scope.row, layout_.subreportKey)));
    return found == subreport_.end() ? ado::Value() : data_.subreport.value(found->second, term.name);
}

ado::Value TextTemplate::valueOf(const Term& term, const Scope& scope) {
    const std::size_t rows = data_.main.rows.size();
    switch (term.kind) {
    case Term::Kind::Parameter: {
        const auto parameter = data_.parameters.find(term.name);
        return parameter == data_.parameters.end() ? ado::Value() : parameter->second;
    }
    case Term::Kind::Sum:
        return sum(term, scope.first, scope.last);
    case Term::Kind::Running:
        return sum(term, 0, std::min(scope.row + 1, rows));
    case Term::Kind::Total:
        return sum(term, scope.sheetFirst, std::min(scope.row + 1, rows));
    case Term::Kind::Sub:
        return ofSubreport(term, scope);
    case Term::Kind::Field:
        break;
    }
    if (scope.row >= rows)
        return {};
    return term.column ? data_.main.rows[scope.row][*term.column] : data_.main.value(scope.row, term.name);
}

ado::Value TextTemplate::valueOf(const Piece& piece, const Scope& scope) {
    ado::Value value = valueOf(piece.terms.front(), scope);
    return piece.terms.size() == 1 ? value : difference(value, valueOf(piece.terms.back(), scope));
}

std::string TextTemplate::write(const Piece& piece, const Scope& scope, bool& empty) {
    switch (piece.kind) {
    case Piece::Kind::Page:
        return {pageMark};
    case Piece::Kind::Pages:
        return {pagesMark};
    case Piece::Kind::Words:
        return piece.text;
    case Piece::Kind::Value:
        break;
    }
    const ado::Value value = valueOf(piece, scope);
    empty = empty || value.isEmpty();
    return written(value, piece.text);
}

std::string TextTemplate::fill(const Item& item, const Scope& scope) {
    const Pieces& pieces = prepared(item).pieces;
    std::string filled;
    for (std::size_t i = 0; i < pieces.size();) {
        // What stands in brackets goes when one of its fields is empty.
        const int group = pieces[i].group;
        bool empty = false;
        std::string together;
        do
            together += write(pieces[i], scope, empty);
        while (++i < pieces.size() && group != 0 && pieces[i].group == group);
        if (group == 0 || !empty)
            filled += together;
    }
    return filled;
}

bool TextTemplate::shown(const Item& item, const Scope& scope) {
    if (item.condition.empty())
        return true;
    const ado::Value found = valueOf(*prepared(item).condition, scope);
    const bool holds = !found.isEmpty() && ado::toText(found) != "0" && ado::toText(found) != "False";
    return holds != item.unless;
}

bool TextTemplate::isFixed(const Item& item) {
    return item.condition.empty() && std::ranges::all_of(prepared(item).pieces, [](const Piece& piece) {
               return piece.kind == Piece::Kind::Words;
           });
}

} // namespace zel::printing
