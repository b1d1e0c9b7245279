#pragma once

#include "ado/recordset.h"
#include "forms/control.h"

#include <memory>

namespace zel::forms {

/// The data control: a record set that lists and grids of a screen are bound to.
class Adodc : public Control {
public:
    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "Adodc"; }

    /// Points the control at an open connection; a record set that is open stays until Refresh.
    void setConnection(ado::Connection& connection) { connection_ = &connection; }
    [[nodiscard]] ado::Connection* connection() const noexcept { return connection_; }
    /// Kept for the record only: the connection is what counts.
    [[nodiscard]] const std::string& ConnectionString() const noexcept { return connectionString_; }
    void setConnectionString(std::string text) { connectionString_ = std::move(text); }
    [[nodiscard]] const std::string& Password() const noexcept { return password_; }
    void setPassword(std::string password) { password_ = std::move(password); }
    [[nodiscard]] const ado::Sql& RecordSource() const noexcept { return source_; }
    void setRecordSource(ado::Sql source) { source_ = std::move(source); }

    /// Opens the record source anew on its first row. Lists and grids follow.
    void Refresh();
    void Close();
    [[nodiscard]] bool isOpen() const noexcept;
    /// Throws ado::Error 3704 while none is open.
    [[nodiscard]] ado::Recordset& Recordset() const;
    /// Takes a record set that was opened elsewhere.
    void setRecordset(ado::Recordset records);
    /// Clone of the record set, for walking through it without moving the screen.
    [[nodiscard]] ado::Recordset clone() const { return Recordset().Clone(); }
    /// Filter and order of the record set; set before its rows are needed they travel into the statement.
    void setFilter(ado::Sql filter);
    void setSort(std::string sort);
    /// Tells the lists and grids that are bound here that rows changed by program.
    void rowsChanged() { notify(Property::Items); }
    /// Counts up as another record set takes the place of the one before.
    [[nodiscard]] int openings() const noexcept { return openings_; }
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "RecordSource"; }

private:
    ado::Connection* connection_ = nullptr;
    std::string connectionString_, password_;
    ado::Sql source_;
    std::unique_ptr<ado::Recordset> records_;
    int openings_ = 0;
};

} // namespace zel::forms
