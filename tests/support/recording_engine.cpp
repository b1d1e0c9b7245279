#include "support/recording_engine.h"

#include "ado/key_numbers.h"

namespace zel::test {

class RecordingEngine::Statement final : public ado::PreparedStatement {
public:
    Statement(std::shared_ptr<ado::PreparedStatement> statement, std::string text, std::shared_ptr<EngineLog> log)
        : statement_(std::move(statement)), text_(std::move(text)), log_(std::move(log)) {}

    [[nodiscard]] const std::vector<ado::ResultColumn>& columns() override { return statement_->columns(); }
    std::int64_t execute(std::span<const ado::Value> parameters) override {
        note(parameters, false);
        return statement_->execute(parameters);
    }
    void query(std::span<const ado::Value> parameters, ado::RowStore& rows) override {
        note(parameters, true);
        statement_->query(parameters, rows);
    }

private:
    void note(std::span<const ado::Value> parameters, bool query) {
        if (log_->recording)
            log_->runs.push_back({text_, {parameters.begin(), parameters.end()}, query});
    }

    std::shared_ptr<ado::PreparedStatement> statement_;
    std::string text_;
    std::shared_ptr<EngineLog> log_;
};

std::shared_ptr<ado::PreparedStatement> RecordingEngine::prepare(const std::string& engineText, bool writes) {
    ++log_->prepared[engineText];
    return std::make_shared<Statement>(engine_->prepare(engineText, writes), engineText, log_);
}

std::int32_t RecordingEngine::nextNumber(std::string_view table, std::string_view field) {
    if (log_->recording)
        log_->runs.push_back({ado::moveNumberText(kind() == ado::EngineKind::Sqlite ? "?1" : "$1"),
                              {ado::Value(ado::keyColumn(catalog(), table, field).table)},
                              true});
    return log_->lastNumber = engine_->nextNumber(table, field);
}

} // namespace zel::test
