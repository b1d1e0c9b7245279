#include "kept_statements.h"

#include "ado/convert.h"

#include <algorithm>

namespace zel::bench {

RawParameters::RawParameters(const std::vector<ado::Value>& values) {
    raw_.reserve(values.size());
    for (const ado::Value& value : values)
        raw_.push_back(rawOf(value));
}

raw_parameter RawParameters::rawOf(const ado::Value& value) {
    using Type = ado::Value::Type;
    const auto text = [this](std::string made) -> raw_parameter {
        return {raw_text, 0, 0, texts_.emplace_back(std::move(made)).c_str()};
    };
    switch (value.type()) {
    case Type::Null:
        break;
    case Type::Boolean:
        return {raw_integer, value.as<bool>() ? 1 : 0, 0, nullptr};
    case Type::Integer:
        return {raw_integer, value.as<std::int64_t>(), 0, nullptr};
    case Type::Double:
        return {raw_real, 0, value.as<double>(), nullptr};
    case Type::Single:
        return {raw_real, 0, value.as<float>(), nullptr};
    case Type::Currency:
        return text(value.as<ado::Currency>().toFixedText());
    case Type::DateTime:
        return text(ado::toIsoText(value.as<ado::DateTime>()));
    case Type::Text:
        return text(value.as<std::string>());
    }
    return {raw_null, 0, 0, nullptr};
}

KeptStatements::~KeptStatements() {
    for (const Kept& kept : kept_)
        if (kept.statement != nullptr)
            raw_sqlite_finalize(kept.statement);
}

std::size_t KeptStatements::keep(const std::string& text) {
    const auto found = std::ranges::find(kept_, text, &Kept::text);
    if (found != kept_.end())
        return static_cast<std::size_t>(found - kept_.begin());
    Kept made{text, "raw_" + std::to_string(kept_.size()), nullptr};
    if (sqlite_ != nullptr)
        made.statement = raw_sqlite_prepare(sqlite_, text.c_str());
    else
        raw_postgres_prepare(postgres_, made.name.c_str(), text.c_str());
    kept_.push_back(std::move(made));
    return kept_.size() - 1;
}

long long KeptStatements::run(std::size_t place, const RawParameters& parameters, Cells cells) {
    const Kept& kept = kept_[place];
    const int copied = cells == Cells::Copied ? 1 : 0;
    if (kept.statement != nullptr)
        return raw_sqlite_run(kept.statement, parameters.data(), parameters.count(), copied, &rowsRead_);
    return raw_postgres_run(postgres_, kept.name.c_str(), parameters.data(), parameters.count(), copied, &rowsRead_);
}

} // namespace zel::bench
