#pragma once

#include "ado/value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {

/// Words of the program: only a literal converts to it, so a clerk's text can never be taken for one by accident.
class Words {
public:
    template <std::size_t N>
    consteval Words(const char (&literal)[N]) : text_(literal, N - 1) {}
    [[nodiscard]] constexpr std::string_view text() const noexcept { return text_; }

private:
    std::string_view text_;
};

/// A statement, or a piece of one, that remembers which of its characters are the program's words and which are values.
///
///     Sql q = "delete from AdminOffice where AdminOfficeID = " + Sql::of(id);
///
/// The text is exactly the two joined: nothing is quoted, doubled or bound here, because the wording of the statements
/// is fixed. The connection asks valueBreaksOut() before it sends anything: a value that would leave its literal
/// (O'BRIEN between single quotes) is answered with the provider's syntax error instead, so no value can widen a
/// statement.
class Sql {
public:
    struct Span {
        std::size_t begin = 0, end = 0;
    };

    Sql() = default;
    Sql(Words words) : text_(words.text()) {}
    /// A literal is the program's own; a buffer is not.
    template <std::size_t N>
    Sql(const char (&literal)[N]) : text_(literal, N - 1) {}
    template <std::size_t N>
    Sql(char (&buffer)[N]) = delete;
    /// Text that the program owns though it is not a literal: a column name from a control's tag, a statement kept in
    /// one.
    [[nodiscard]] static Sql words(std::string_view programText);
    /// A value in its default text, put in as it stands.
    [[nodiscard]] static Sql of(std::string_view text);
    [[nodiscard]] static Sql of(const char* text) { return of(std::string_view(text)); }
    [[nodiscard]] static Sql of(const std::string& text) { return of(std::string_view(text)); }
    [[nodiscard]] static Sql of(int number);
    [[nodiscard]] static Sql of(std::int64_t number);
    [[nodiscard]] static Sql of(const Value& value);

    Sql& operator+=(const Sql& tail);
    friend Sql operator+(Sql head, const Sql& tail) { return std::move(head += tail); }

    [[nodiscard]] const std::string& text() const noexcept { return text_; }
    [[nodiscard]] bool empty() const noexcept { return text_.empty(); }
    /// Where the words stand, ignoring case; std::string::npos when they do not.
    [[nodiscard]] std::size_t find(std::string_view lowerCaseWords) const;
    /// The characters from `begin` up to but not including `end`, with what is known of them.
    [[nodiscard]] Sql slice(std::size_t begin, std::size_t end = std::string::npos) const;
    [[nodiscard]] const std::vector<Span>& values() const noexcept { return values_; }

private:
    std::string text_;
    std::vector<Span> values_; // ascending, not overlapping
};

/// Whether a value in the statement is more than (a part of) one literal: see Sql.
[[nodiscard]] bool valueBreaksOut(const Sql& statement);

} // namespace zel::ado
