#pragma once

#include "ado/connection.h"
#include "forms/control_array.h"
#include "forms/mask_ed_box.h"
#include "forms/tdb_combo.h"

#include <cstdint>

namespace zel::core {
class Session;
}

namespace zel::incident {

/// The fields of an administrative office: name, two address lines, city, zip in mskOffice(0) to (4), the state in
/// dbcState. Two screens have them.
class OfficeFields {
public:
    OfficeFields(forms::ControlArray<forms::MaskEdBox>& boxes, forms::TDBCombo& state)
        : mskOffice_(boxes), dbcState_(state) {}

    /// Masks, widths and the list of states.
    void prepare(core::Session& session);
    void clear();
    /// Writes a new office under a new key and gives the key.
    std::int32_t insert(ado::Connection& connection) const;
    void update(ado::Connection& connection, std::int32_t office) const;

private:
    [[nodiscard]] ado::Sql text(int box) const;

    forms::ControlArray<forms::MaskEdBox>& mskOffice_;
    forms::TDBCombo& dbcState_;
};

} // namespace zel::incident
