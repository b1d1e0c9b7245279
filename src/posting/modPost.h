#pragma once

#include "ado/date_time.h"
#include "forms/dialogs.h"

#include <cstdint>
#include <string>

namespace zel::core {
class Session;
}

namespace zel::posting {

/// One stretch of one person's time on one day against one account. A caller that posts for several persons keeps the
/// object, so that the question about midnight comes once: see Asked and Answer.
struct PersonPosting {
    ado::DateTime ActivityDT, Start, Stop;
    std::string KindCode;
    std::int32_t PersonID = 0;
    /// Whether a period across midnight may become two rows; else it ends at midnight.
    bool AllowSplit = true;
    std::string Premium;
    /// The question about midnight was asked, and what the clerk said.
    bool Asked = false;
    forms::Answer Answer = forms::Answer::No;
    /// A return travel day: the row has no stop.
    bool ReturnTravel = false;
    std::int32_t AccountingID = -1;
    /// The dialogue about clashing rows offers Yes and No only.
    bool YesNoOnly = false;
};

/// Writes the posting as a row of `PersonsPost`: asks about clashing rows, which Yes deletes, and about midnight. True
/// when a row was written. A new row carries hours but no amount; an edit of the row or a report gives it one.
///
/// The delete of clashing rows and the insert are not one transaction: a failure says what was deleted.
bool PostPerson(core::Session& session, PersonPosting& posting);

/// The two rows of a posting across midnight.
struct SplitPosting {
    ado::DateTime ActivityDT, Start, Stop;
    std::int32_t PersonID = 0;
    std::string KindCode, Class;
    float Rate = 0.0F;
    std::string Premium;
    bool ReturnTravel = false;
    std::int32_t AccountingID = 0;
};

/// Writes both rows, each with a key of its own: up to midnight, and from 00:01 of the next day. They carry amounts.
/// True when both were written; a failure says which were not.
bool PostPersonSplit(core::Session& session, SplitPosting& posting);

/// Special codes whose hours do not follow from the times: "GUAR", "COP", "DAY OFF".
[[nodiscard]] bool isFixedHoursCode(const std::string& Premium);

} // namespace zel::posting
