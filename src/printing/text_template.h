#pragma once

#include "printing/pages.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zel::printing {

/// Rows that a band speaks of: the one it shows, and those that its sums run over, `last` not included.
struct Scope {
    std::size_t row = 0, first = 0, last = 0;
    /// The first row of the sheet's rows.
    std::size_t sheetFirst = 0;
};

/// Stand for the page's number and the number of pages until all pages are there.
inline constexpr char pageMark = '\x01', pagesMark = '\x02';

/// Fills the fields of a layout's texts. Each text is taken apart once, when it is first printed.
class TextTemplate {
public:
    /// Layout and data have to outlive it.
    TextTemplate(const Layout& layout, const ReportData& data);
    ~TextTemplate();
    TextTemplate(const TextTemplate&) = delete;
    TextTemplate& operator=(const TextTemplate&) = delete;

    /// The item is one of the layout's.
    [[nodiscard]] std::string fill(const Item& item, const Scope& scope);
    /// Whether an item is to be printed.
    [[nodiscard]] bool shown(const Item& item, const Scope& scope);
    /// Whether the item is the same wherever it stands: it has no field and no condition.
    [[nodiscard]] bool isFixed(const Item& item);

private:
    /// One value of a field's text: a column of the rows, a sum of it, a parameter.
    struct Term {
        enum class Kind { Field, Sum, Running, Total, Sub, Parameter };
        Kind kind = Kind::Field;
        std::string name;
        std::optional<std::size_t> column; ///< of a field that the rows have
    };
    /// Words, or a value less another one, with what is optional kept together by a number.
    struct Piece {
        enum class Kind { Words, Value, Page, Pages };
        Kind kind = Kind::Words;
        std::string text; ///< the words, or the format
        std::vector<Term> terms;
        int group = 0; ///< pieces of one pair of brackets have one number; 0 is none
    };
    using Pieces = std::vector<Piece>;
    struct Prepared {
        Pieces pieces;
        std::optional<Term> condition;
    };
    /// Sums of a field from the first row on, one more than there are rows, so that a sum is a difference.
    struct Sums {
        bool money = false;
        std::vector<std::int64_t> ticks;
        std::vector<double> numbers;
    };

    const Prepared& prepared(const Item& item);
    [[nodiscard]] Pieces piecesOf(std::string_view text) const;
    [[nodiscard]] Piece pieceOf(std::string_view expression) const;
    [[nodiscard]] Term termOf(std::string_view words) const;
    [[nodiscard]] std::string write(const Piece& piece, const Scope& scope, bool& empty);
    [[nodiscard]] ado::Value valueOf(const Piece& piece, const Scope& scope);
    [[nodiscard]] ado::Value valueOf(const Term& term, const Scope& scope);
    [[nodiscard]] ado::Value sum(const Term& term, std::size_t first, std::size_t last);
    [[nodiscard]] ado::Value ofSubreport(const Term& term, const Scope& scope);
    const Sums& sumsOf(const Term& term);

    const Layout& layout_;
    const ReportData& data_;
    std::unordered_map<const Item*, Prepared> prepared_;
    std::unordered_map<std::string, Sums> sums_;
    /// Rows of the second source by the text of their key.
    std::unordered_map<std::string, std::size_t> subreport_;
};

} // namespace zel::printing
