#pragma once

#include "ado/engine.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zel::test {

/// What an engine was asked to do.
struct EngineLog {
    struct Run {
        std::string text;
        std::vector<ado::Value> parameters;
        /// Rows were wanted.
        bool query = false;
    };
    bool recording = false;
    std::vector<Run> runs;
    /// How often each text was prepared.
    std::map<std::string, int> prepared;
    /// The key given out last.
    std::int32_t lastNumber = 0;
};

/// An engine that keeps a record of its statements and hands them on.
class RecordingEngine final : public ado::Engine {
public:
    explicit RecordingEngine(std::unique_ptr<ado::Engine> engine) : engine_(std::move(engine)) {}

    [[nodiscard]] const std::shared_ptr<EngineLog>& log() const noexcept { return log_; }

    [[nodiscard]] ado::EngineKind kind() const noexcept override { return engine_->kind(); }
    [[nodiscard]] std::string connectionText() const override { return engine_->connectionText(); }
    [[nodiscard]] const ado::Catalog& catalog() override { return engine_->catalog(); }
    void refreshCatalog() override { engine_->refreshCatalog(); }
    [[nodiscard]] std::shared_ptr<ado::PreparedStatement> prepare(const std::string& engineText, bool writes) override;
    void begin() override { engine_->begin(); }
    void commit() override { engine_->commit(); }
    void rollback() noexcept override { engine_->rollback(); }
    /// Recorded as the statement that moves a table's number.
    [[nodiscard]] std::int32_t nextNumber(std::string_view table, std::string_view field) override;
    void onWait(std::function<void()> idle) override { engine_->onWait(std::move(idle)); }

private:
    class Statement;
    std::unique_ptr<ado::Engine> engine_;
    std::shared_ptr<EngineLog> log_ = std::make_shared<EngineLog>();
};

} // namespace zel::test
