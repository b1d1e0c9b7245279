#include "printing/text_template.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"

#include <algorithm>
#include <utility>

namespace zel::printing {

namespace {

/// The rest of the expression when it begins with the word and a blank.
bool takes(std::string_view& expression, std::string_view word) {
    if (!expression.starts_with(word) || expression.size() <= word.size() || expression[word.size()] != ' ')
        return false;
    expression.remove_prefix(word.size() + 1);
    return true;
}

} // namespace

const TextTemplate::Sums& TextTemplate::sumsOf(std::string_view name) {
    if (const auto known = sums_.find(name); known != sums_.end())
        return known->second;
    Sums sums;
    sums.ticks.push_back(0);
    sums.numbers.push_back(0);
    for (std::size_t row = 0; row < data_.main.rows.size(); ++row) {
        const ado::Value& value = data_.main.value(row, name);
        const bool money = value.type() == ado::Value::Type::Currency;
        sums.money = sums.money || money;
        sums.ticks.push_back(sums.ticks.back() + (money ? value.as<ado::Currency>().ticks() : 0));
        sums.numbers.push_back(sums.numbers.back() + (ado::isNumeric(value) ? ado::toDouble(value) : 0));
    }
    return sums_.emplace(name, std::move(sums)).first->second;
}

ado::Value TextTemplate::sum(std::string_view name, std::size_t first, std::size_t last) {
    const Sums& sums = sumsOf(name);
    if (sums.money)
        return ado::Currency::fromTicks(sums.ticks[last] - sums.ticks[first]);
    return sums.numbers[last] - sums.numbers[first];
}

ado::Value TextTemplate::subreport(std::string_view name, const Scope& scope) const {
    if (scope.row >= data_.main.rows.size())
        return {};
    const std::string key = ado::toText(data_.main.value(scope.row, layout_.subreportKey));
    for (std::size_t row = 0; row < data_.subreport.rows.size(); ++row) {
        if (ado::toText(data_.subreport.value(row, layout_.subreportKey)) == key)
            return data_.subreport.value(row, name);
    }
    return {};
}

ado::Value TextTemplate::value(std::string_view name, const Scope& scope) {
    const std::size_t rows = data_.main.rows.size();
    if (name.starts_with('?')) {
        const auto parameter = data_.parameters.find(std::string(name.substr(1)));
        return parameter == data_.parameters.end() ? ado::Value() : parameter->second;
    }
    if (takes(name, "sum"))
        return sum(name, scope.first, scope.last);
    if (takes(name, "running"))
        return sum(name, 0, std::min(scope.row + 1, rows));
    if (takes(name, "total"))
        return sum(name, scope.sheetFirst, std::min(scope.row + 1, rows));
    if (takes(name, "sub"))
        return subreport(name, scope);
    return scope.row < rows ? data_.main.value(scope.row, name) : ado::Value();
}

std::string TextTemplate::field(std::string_view expression, const Scope& scope) {
    if (expression == "page")
        return {pageMark};
    if (expression == "pages")
        return {pagesMark};
    const std::size_t colon = expression.find(':');
    const ado::Value found = value(expression.substr(0, colon), scope);
    return colon == std::string_view::npos ? ado::toText(found) : ado::format(found, expression.substr(colon + 1));
}

std::string TextTemplate::fill(std::string_view text, const Scope& scope) {
    std::string filled;
    while (!text.empty()) {
        const std::size_t open = text.find('{');
        const std::size_t close = open == std::string_view::npos ? open : text.find('}', open);
        filled += text.substr(0, close == std::string_view::npos ? close : open);
        if (close == std::string_view::npos)
            break;
        filled += field(text.substr(open + 1, close - open - 1), scope);
        text.remove_prefix(close + 1);
    }
    return filled;
}

bool TextTemplate::shown(const Item& item, const Scope& scope) {
    if (item.condition.empty())
        return true;
    const ado::Value found = value(item.condition, scope);
    const bool holds = !found.isEmpty() && ado::toText(found) != "0" && ado::toText(found) != "False";
    return holds != item.unless;
}

} // namespace zel::printing
