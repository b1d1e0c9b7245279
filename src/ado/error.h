#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zel::ado {

/// Provider error numbers that screens look at, as the platform numbers them.
namespace errors {
inline constexpr std::int32_t invalidUseOfNull = 94;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t bofOrEof = 3021;
inline constexpr std::int32_t notAllowed = 3219;
inline constexpr std::int32_t notProvided = 3251;
inline constexpr std::int32_t itemNotFound = 3265;
inline constexpr std::int32_t objectClosed = 3704;
inline constexpr std::int32_t objectOpen = 3705;
inline constexpr std::int32_t invalidArgument = 3001;
/// A constraint (a second row with the same key or the same unique columns) refused the write.
inline constexpr std::int32_t failed = static_cast<std::int32_t>(0x80004005);
/// The statement could not be run: syntax, unknown name, refused text.
inline constexpr std::int32_t errorsInCommand = static_cast<std::int32_t>(0x80040E14);
/// A value does not fit the column it is written to.
inline constexpr std::int32_t errorsOccurred = static_cast<std::int32_t>(0x80040E21);
inline constexpr std::int32_t noSuchTable = static_cast<std::int32_t>(0x80040E37);
/// The row can't be located for updating: another clerk changed or deleted it since it was read.
inline constexpr std::int32_t rowNotLocated = static_cast<std::int32_t>(0x80040E38);
inline constexpr std::int32_t loginFailed = static_cast<std::int32_t>(0x80040E4D);
} // namespace errors

/// What went wrong, for code that has to decide; clerks see number and description.
enum class ErrorKind {
    Conversion,     ///< a value is not what it should be
    Statement,      ///< the statement as composed cannot run; nothing was sent or nothing was done
    Constraint,     ///< the database refused the row
    Conflict,       ///< optimistic update found the row changed
    Busy,           ///< another user holds the database
    ReadOnly,       ///< the database may not be written
    Lost,           ///< the connection is gone; a read or nothing was under way
    UnknownOutcome, ///< the connection is gone while a write was under way; it may or may not have happened
    Open,           ///< the database could not be opened
    State,          ///< the operation needs an open object or a current row
    File,           ///< a file or device could not be read or written
    Engine,         ///< anything else the engine reports
};

/// Failure of the world below the screens. One family, caught at the event handler that began the work.
class Error : public std::runtime_error {
public:
    Error(ErrorKind kind, std::int32_t number, const std::string& description, std::string statement = {})
        : std::runtime_error(description), kind_(kind), number_(number), statement_(std::move(statement)) {}

    [[nodiscard]] ErrorKind kind() const noexcept { return kind_; }
    [[nodiscard]] std::int32_t number() const noexcept { return number_; }
    [[nodiscard]] std::string description() const { return what(); }
    /// The statement as composed, when one was involved.
    [[nodiscard]] const std::string& statement() const noexcept { return statement_; }

private:
    ErrorKind kind_;
    std::int32_t number_;
    std::string statement_;
};

} // namespace zel::ado
