#pragma once

#include "ado/date_time.h"

#include <cstdint>

namespace zel::core {
class Session;
}

namespace zel::posting {

/// The date and rate rules that posting, debits, persons and crews share. Each screen keeps one.
///
/// The dates to compare with are texts of the session that the screens keep current; one that is no date passes.
class clsBusiness {
public:
    explicit clsBusiness(core::Session& session) : session_(session) {}

    /// False when the latest invoice ends on or after the activity date. The caller words it.
    [[nodiscard]] bool CompareInvoiceDate(const ado::DateTime& activity) const;
    /// False, and told to the clerk, when the incident starts after the activity date.
    [[nodiscard]] bool CompareIncStartDate(const ado::DateTime& activity) const;
    /// The same for the hire date of the resource.
    [[nodiscard]] bool CompareHireDate(const ado::DateTime& activity) const;
    /// Asks about a rate above 100. On No the rate becomes 0 and the answer is false.
    [[nodiscard]] bool ValidRate(float& rate) const;
    /// Whether an invoice of the person ends on or after the activity date.
    [[nodiscard]] bool PostDateInvoiced(std::int32_t person, const ado::DateTime& activity) const;

private:
    core::Session& session_;
};

} // namespace zel::posting
