#include "posting/grid_edit_checks.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"
#include "ado/recordset.h"
#include "core/failure.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/tdb_grid.h"
#include "posting/modMath.h"
#include "posting/modPost.h"
#include "posting/overlap_check.h"
#include "services/time_rules.h"

#include <fmt/format.h>

namespace zel::posting {

using ado::DateTime;
using ado::Sql;
using ado::Value;
using forms::Answer;
using forms::Buttons;
using forms::Icon;

namespace {

constexpr float hoursAtOnce = 8.0F;
constexpr float overtimeMultiplier = 1.5F;

/// The two times of a row, rounded to the quarter hour in their cells.
struct Times {
    DateTime start, stop;
};

DateTime roundedTime(core::Session& session, forms::TDBGrid& grid, std::string_view column) {
    // Digits alone are taken as typed: the format of the column would read 930 as a number of days.
    const Value typed = grid.Columns(column).value();
    const bool digits = typed.type() == Value::Type::Text && ado::toText(typed).find(':') == std::string::npos;
    const std::string rounded =
        services::RoundQuarterHour(session, digits ? ado::toText(typed) : grid.Columns(column).Text());
    grid.Columns(column).setText(rounded);
    return ado::toDateTime(rounded);
}

Times roundedTimes(core::Session& session, forms::TDBGrid& grid, std::string_view start, std::string_view stop) {
    const DateTime from = roundedTime(session, grid, start);
    return {from, roundedTime(session, grid, stop)};
}

DateTime dayOf(forms::TDBGrid& grid) {
    return ado::toDateTime(ado::format(grid.Columns("Date").value(), "mm/dd/yyyy"));
}

std::int32_t key(forms::TDBGrid& grid, std::string_view column) {
    const Value id = grid.Columns(column).value();
    return id.isEmpty() ? 0 : ado::toLong(id);
}

double number(const Value& value) {
    return value.isEmpty() ? 0.0 : ado::toDouble(value);
}

/// True when there is no clash; else the clerk is told which posting to edit first.
bool free(core::Session& session, std::string_view who, const std::string& overlap) {
    if (overlap.empty())
        return true;
    session.dialogs.message(
        fmt::format("\r\nThis {} has overlapping hours for the period(s) of: \r\n\r\n{}\r\n\r\nEdit "
                    "that one first.",
                    who, overlap),
        session.title(": Overlapping Hours"), Buttons::OK, Icon::Critical);
    return false;
}

bool wantsSplit(core::Session& session) {
    return session.dialogs.message("This post spans midnight.  If you continue, this posting will be split.\r\nThis "
                                   "could cause conflicts if "
                                   "there are posts after this one!\r\n\r\nDo you really want to continue?",
                                   session.title(": WARNING Posting Spans Midnight"), Buttons::YesNo,
                                   Icon::Question) == Answer::Yes;
}

bool splitPersonRow(core::Session& session, forms::TDBGrid& grid, const Times& times) {
    SplitPosting halves;
    halves.ActivityDT = dayOf(grid);
    halves.Start = times.start;
    halves.Stop = times.stop;
    halves.PersonID = key(grid, "PersonID");
    halves.Class = ado::toText(grid.Columns("Class").value());
    halves.Rate = static_cast<float>(number(grid.Columns("Rate").value()));
    halves.Premium = ado::toText(grid.Columns("Special").value());
    return PostPersonSplit(session, halves);
}

void payPersonRow(forms::TDBGrid& grid, const Times& times) {
    const float hours = CalcHours(times.start, times.stop);
    grid.Columns("Hours").setValue(hours);
    const ado::Currency rate = ado::Currency::fromDouble(number(grid.Columns("Rate").value()));
    if (rate == ado::Currency())
        grid.Columns("Rate").setValue(0);
    grid.Columns("Amt").setValue(CalcAmount(hours, rate, hoursAtOnce, overtimeMultiplier));
}

/// Runs a check at the edge of the grid's event: a failure is told and refuses the edit.
template <typename Check>
bool guardedCheck(core::Session& session, Check&& check) {
    bool stands = false;
    core::guarded(session, [&] { stands = check(); });
    return stands;
}

/// The first letter of the area and the fourth of the class: "E" and "AD-3" make "E3".
std::string payPlanCode(std::string_view area, std::string_view Class) {
    return std::string(area.substr(0, 1)).append(Class.size() > 3 ? Class.substr(3, 1) : "");
}

} // namespace

bool CheckPersonPostEdit(core::Session& session, forms::TDBGrid& grid) {
    if (session.Working)
        return false;
    return guardedCheck(session, [&] {
        const Times times = roundedTimes(session, grid, "Start", "Stop");
        if (!free(session, "person",
                  CheckPersonOverlap(session, dayOf(grid), key(grid, "PersonID"), key(grid, "PersonsPostID"),
                                     times.start, times.stop)))
            return false;
        session.gSplitDone = false;
        if (!crossesMidnight(times.start, times.stop)) {
            payPersonRow(grid, times);
            return true;
        }
        if (!wantsSplit(session))
            return false;
        session.gSplitDone = splitPersonRow(session, grid, times);
        return true;
    });
}

bool CheckEquipPostEdit(core::Session& session, forms::TDBGrid& grid, std::string_view Mode,
                        const EquipSplitter& split) {
    if (session.Working)
        return false;
    const std::string side = Mode == "Primary" ? "" : "S";
    return guardedCheck(session, [&] {
        const Times times = roundedTimes(session, grid, side + "Start", side + "Stop");
        const DateTime day = dayOf(grid);
        const std::string overlap = CheckEquipOverlap(session, day, key(grid, "EquipmentID"), key(grid, "ResourceID"),
                                                      key(grid, "ContractorPostID"), times.start, times.stop, Mode);
        if (!free(session, "resource", overlap))
            return false;
        session.gSplitDone = false;
        const double rate = number(grid.Columns(side + "Rate").value());
        if (!crossesMidnight(times.start, times.stop)) {
            const float hours = CalcHours(times.start, times.stop);
            grid.Columns(side + "Units").setValue(hours);
            if (rate == 0.0)
                grid.Columns(side + "Rate").setValue(0);
            grid.Columns(side + "Amt").setValue(ado::Currency::fromDouble(rate * static_cast<double>(hours)));
            return true;
        }
        if (!wantsSplit(session))
            return false;
        session.gSplitDone = split(
            {day, times.start, times.stop, rate, std::string(Mode), ado::toText(grid.Columns("Guarantee").value())});
        return true;
    });
}

bool checkSpecialCode(core::Session& session, forms::TDBGrid& grid, const std::string& code) {
    return guardedCheck(session, [&] {
        if (isFixedHoursCode(code)) {
            const std::string Class = ado::toText(grid.Columns("Class").value());
            grid.Columns("Amt").setValue(0);
            grid.Columns("Hours").setValue(Class.starts_with("AD") && code != "DAY OFF" ? 8 : 0);
            return true;
        }
        if (!code.empty() &&
            core::CountRows(session.connection(), "L_Premium", "PremiumCode = '" + Sql::of(code) + "'") == 0) {
            session.dialogs.message("Invalid Special Code.", session.title(":Update Error"), Buttons::OK,
                                    Icon::Exclamation);
            return false;
        }
        const Value start = grid.Columns("Start").value();
        const Value stop = grid.Columns("Stop").value();
        const float hours = start.isEmpty() || stop.isEmpty()
                                ? 0.0F
                                : CalcHours(ado::toDateTime(start).time(), ado::toDateTime(stop).time());
        grid.Columns("Hours").setValue(hours);
        grid.Columns("Amt").setValue(
            ado::Currency::fromDouble(static_cast<double>(hours) * number(grid.Columns("Rate").value())));
        return true;
    });
}

bool fClassChanged(core::Session& session, forms::TDBGrid& grid, std::string_view area) {
    return guardedCheck(session, [&] {
        const std::string Class = ado::upperCase(ado::trim(grid.Columns("Class").Text()));
        ado::Currency rate;
        if (Class == "AD-5") {
            const std::string typed =
                session.dialogs.input({"Enter the rate. (ie 18.20)", session.title(":AD-5 Rate"), ""});
            if (typed.empty()) // taken back
                return false;
            rate = ado::toCurrency(typed);
        } else {
            ado::Recordset rates;
            rates.Open("SELECT Rate from L_ClassRates WHERE (Class = '" + Sql::of(Class) +
                           "') AND (ClassRatesCode = '" + Sql::of(payPlanCode(area, Class)) + "')",
                       session.connection());
            if (rates.EOF_()) {
                session.dialogs.message("Cannot find a rate to match the class.", session.title(":Class Error"),
                                        Buttons::OK, Icon::Exclamation);
                return false;
            }
            rate = ado::toCurrency(rates.value("Rate"));
        }
        grid.Columns("Class").setText(Class);
        grid.Columns("Rate").setValue(rate);
        grid.Columns("Amt").setValue(
            ado::Currency::fromDouble(rate.toDouble() * number(grid.Columns("Hours").value())));
        return true;
    });
}

} // namespace zel::posting
