#include "posting/overlap_check.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"
#include "ado/recordset.h"
#include "core/session.h"
#include "posting/modMath.h"

#include <fmt/format.h>

namespace zel::posting {

using ado::DateTime;
using ado::Sql;

namespace {

enum class Shape { SameDay, ToMidnight, FirstDay, NextDay };

struct Period {
    DateTime start, stop;
};

/// One query: what it asks about which day.
struct Half {
    Shape shape;
    DateTime day;
};

std::vector<Half> halvesOf(const Period& period, DateTime day) {
    if (period.start < period.stop)
        return {{Shape::SameDay, day}};
    if (period.stop == endOfDay)
        return {{Shape::ToMidnight, day}};
    return {{Shape::FirstDay, day}, {Shape::NextDay, day.addDays(1)}};
}

struct Columns {
    Sql start, stop, key;
    std::string startName, stopName, keyName;
};

Columns columnsOf(std::string_view start, std::string_view stop, std::string_view key) {
    return {Sql::words(start),  Sql::words(stop),  Sql::words(key),
            std::string(start), std::string(stop), std::string(key)};
}

Columns personColumns() {
    return columnsOf("StartTime", "StopTime", "PersonsPostID");
}

Columns equipColumns(std::string_view mode) {
    return mode == "Special" ? columnsOf("SStartTime", "SStopTime", "ContractorPostID")
                             : columnsOf("StartTime", "StopTime", "ContractorPostID");
}

/// A date or time as a literal of the dialect.
class Literals {
public:
    explicit Literals(bool server) : server_(server) {}

    [[nodiscard]] Sql day(DateTime day) const { return quoted("", Sql::of(day)); }
    [[nodiscard]] Sql time(DateTime time) const { return quoted("1899-12-30 ", Sql::of(time)); }
    /// The midnight constants stand bare in both dialects.
    [[nodiscard]] Sql bareTime(DateTime time) const { return quoted("", Sql::of(time)); }

private:
    [[nodiscard]] Sql quoted(ado::Words serverDay, const Sql& text) const {
        return server_ ? "'" + (serverDay + text) + "'" : "#" + text + "#";
    }
    bool server_;
};

Sql periodTest(Shape shape, const Columns& c, const Period& period, const Literals& literals) {
    const Sql s = literals.time(period.start);
    const Sql e = literals.time(period.stop);
    switch (shape) {
    case Shape::SameDay:
        return " AND ((" + c.start + ">=" + s + " AND " + c.start + "<" + e + ") OR (" + c.stop + ">" + s + " AND " +
               c.stop + "<=" + e + ") OR (" + c.start + "<=" + s + " AND " + c.stop + ">=" + e + "))";
    case Shape::ToMidnight:
        return " AND ((" + c.start + ">=" + s + ") OR (" + c.stop + ">" + s + ") OR (" + c.stop + "=" + e + "))";
    case Shape::FirstDay:
        return " AND ((" + c.start + ">=" + s + ") OR (" + c.stop + ">" + s + ") OR (" + c.start + "<=" + s + " AND " +
               c.stop + "=" + literals.bareTime(endOfDay) + "))";
    case Shape::NextDay:
        break;
    }
    return " AND ((" + c.start + "<" + e + ") OR (" + c.stop + "<=" + e + ") OR (" + c.start + "=" +
           literals.bareTime(oneMinutePastMidnight) + " AND " + c.stop + ">=" + e + "))";
}

Sql statementFor(const Sql& head, const Half& half, const Columns& columns, const Period& period, bool server) {
    const Literals literals(server);
    return head + " AND ActivityDT=" + literals.day(half.day) + periodTest(half.shape, columns, period, literals) +
           " ORDER BY ActivityDT," + columns.start + " ASC";
}

std::vector<Sql> statementsFor(const Sql& head, const Columns& columns, const Period& period, DateTime day,
                               bool server) {
    std::vector<Sql> statements;
    for (const Half& half : halvesOf(period, day))
        statements.push_back(statementFor(head, half, columns, period, server));
    return statements;
}

Sql personHead(std::int32_t personId, std::int32_t postId) {
    return "SELECT * FROM PersonsPost WHERE PersonsPostID<>" + Sql::of(postId) + " AND PersonID=" + Sql::of(personId);
}

Sql equipHead(const core::Session& session, std::int32_t equipmentId, std::int32_t resourceId, std::int32_t postId) {
    const Sql head = "SELECT * FROM ContractorPost WHERE ContractorPostID<>" + Sql::of(postId);
    // The desktop dialect tells equipment by its resource until the equipment tab has been used.
    if (session.gServerDialect || session.gEquipTabOpen)
        return head + " AND EquipmentID=" + Sql::of(equipmentId);
    return head + " AND ResourceID=" + Sql::of(resourceId);
}

/// The two ends of a line, worded.
struct Stretch {
    std::string from, to;
};

using TimeText = std::string (*)(DateTime);

std::string defaultText(DateTime time) {
    return ado::toText(time);
}
std::string hourMinuteText(DateTime time) {
    return ado::format(time, "HH:mm");
}

/// A row's times without any date part.
Period rowTimes(const ado::Recordset& rows, const Columns& columns) {
    const auto timeOfDay = [&rows](const std::string& column) {
        return ado::toDateTime(ado::format(rows.value(column), "HH:mm"));
    };
    return {timeOfDay(columns.startName), timeOfDay(columns.stopName)};
}

Stretch sameDayStretch(const Period& row, const Period& period, TimeText text) {
    const auto [r, q] = row;
    const auto [s, e] = period;
    if (r >= s && r < e)
        return {text(r), q < e && q != endOfDay ? text(q) : text(e)};
    if (q >= s && q < e)
        return {text(r < s ? s : r), text(q)};
    if (r < s && q > e)
        return {text(s), text(e)};
    return {text(r), text(q)};
}

Stretch toMidnightStretch(const Period& row, const Period& period, TimeText text) {
    const auto [r, q] = row;
    const DateTime s = period.start;
    if (r < s)
        return {text(s), q <= s ? "24:00" : text(q)};
    return {text(r), q == endOfDay ? "24:00" : text(q)};
}

Stretch firstDayStretch(const Period& row, const Period& period, TimeText text) {
    const auto [r, q] = row;
    if (r < period.start && q > endOfDay)
        return {text(period.start), "24:00"};
    const std::string stop = ado::format(q, "hh:mm");
    return {text(r), stop == "00:00" ? "24:00" : stop};
}

Stretch nextDayStretch(const Period& row, const Period& period, TimeText text) {
    const auto [r, q] = row;
    const auto [s, e] = period;
    if (r >= oneMinutePastMidnight && r < e)
        return {text(r), text(q < e ? q : e)};
    if (r < s && q > e)
        return {"00:01", text(e)};
    return {text(r), text(q)};
}

Stretch stretchOf(Shape shape, const Period& row, const Period& period, TimeText text) {
    switch (shape) {
    case Shape::SameDay:
        return sameDayStretch(row, period, text);
    case Shape::ToMidnight:
        return toMidnightStretch(row, period, text);
    case Shape::FirstDay:
        return firstDayStretch(row, period, text);
    case Shape::NextDay:
        break;
    }
    return nextDayStretch(row, period, text);
}

/// Runs the queries of one check and words what they find.
class Scan {
public:
    Scan(core::Session& session, Columns columns, Period period, TimeText text)
        : session_(session), columns_(std::move(columns)), period_(period), text_(text) {
        session_.vYNMSa.clear();
    }

    std::string run(const Sql& head, DateTime day) {
        try {
            for (const Half& half : halvesOf(period_, day))
                scan(half, statementFor(head, half, columns_, period_, session_.gServerDialect));
        } catch (const ado::Error&) {
            // A row without a stop (a return travel day) or a lost database ends the scan; a check reports no failure.
        }
        return std::move(found_);
    }

private:
    void scan(const Half& half, const Sql& statement) {
        ado::Recordset rows;
        rows.Open(statement, session_.connection(), ado::CursorType::Keyset, ado::LockType::Optimistic);
        const bool spansMidnight = half.shape == Shape::FirstDay || half.shape == Shape::NextDay;
        if (spansMidnight && !rows.EOF_())
            found_ += "     For " + ado::format(half.day, "mm/dd/yyyy") + "\r\n";
        for (; !rows.EOF_(); rows.MoveNext()) {
            const Stretch stretch = stretchOf(half.shape, rowTimes(rows, columns_), period_, text_);
            found_ += fmt::format("\tOverlapping hours from {} to {}\r\n", stretch.from, stretch.to);
            session_.vYNMSa += "," + ado::toText(rows.value(columns_.keyName));
        }
    }

    core::Session& session_;
    Columns columns_;
    Period period_;
    TimeText text_;
    std::string found_;
};

} // namespace

std::string CheckPersonOverlap(core::Session& session, DateTime ActivityDT, std::int32_t PersonID,
                               std::int32_t PersonsPostID, DateTime Start, DateTime Stop) {
    return Scan(session, personColumns(), {Start, Stop}, defaultText)
        .run(personHead(PersonID, PersonsPostID), ActivityDT);
}

std::string CheckEquipOverlap(core::Session& session, DateTime ActivityDT, std::int32_t EquipmentID,
                              std::int32_t ResourceID, std::int32_t ContractorPostID, DateTime Start, DateTime Stop,
                              std::string_view Mode) {
    return Scan(session, equipColumns(Mode), {Start, Stop}, hourMinuteText)
        .run(equipHead(session, EquipmentID, ResourceID, ContractorPostID), ActivityDT);
}

std::vector<Sql> personOverlapStatements(const core::Session& session, DateTime ActivityDT, std::int32_t PersonID,
                                         std::int32_t PersonsPostID, DateTime Start, DateTime Stop) {
    return statementsFor(personHead(PersonID, PersonsPostID), personColumns(), {Start, Stop}, ActivityDT,
                         session.gServerDialect);
}

std::vector<Sql> equipOverlapStatements(const core::Session& session, DateTime ActivityDT, std::int32_t EquipmentID,
                                        std::int32_t ResourceID, std::int32_t ContractorPostID, DateTime Start,
                                        DateTime Stop, std::string_view Mode) {
    return statementsFor(equipHead(session, EquipmentID, ResourceID, ContractorPostID), equipColumns(Mode),
                         {Start, Stop}, ActivityDT, session.gServerDialect);
}

} // namespace zel::posting
