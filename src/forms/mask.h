#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::forms {

/// An input mask: which characters may stand where, and which stand there by themselves.
///
/// `#` and `9` a digit, `?` a letter, `a` and `A` a letter or digit, `&`, `C` and `@` any character; `>` and `<` make
/// what follows upper or lower case; `\` takes the next character as it is; everything else is a literal.
class Mask {
public:
    enum class Kind { Literal, Digit, Letter, Alphanumeric, Any };
    enum class Case { AsTyped, Upper, Lower };
    struct Cell {
        Kind kind = Kind::Literal;
        Case letters = Case::AsTyped;
        char32_t literal = 0;
    };

    Mask() = default;
    explicit Mask(std::string_view pattern);

    [[nodiscard]] bool empty() const noexcept { return cells_.empty(); }
    [[nodiscard]] int size() const noexcept { return static_cast<int>(cells_.size()); }
    [[nodiscard]] bool isLiteral(int position) const { return cells_[position].kind == Kind::Literal; }
    /// Literals in their places and the prompt everywhere else.
    [[nodiscard]] std::u32string blank(char32_t prompt) const;
    /// The character as it stands at the position, its case changed; nothing when it may not stand there.
    [[nodiscard]] std::optional<char32_t> fit(int position, char32_t character) const;
    /// The first position from `position` on that can be typed into, size() when there is none.
    [[nodiscard]] int nextFree(int position) const;
    /// The last one before `position`, -1 when there is none.
    [[nodiscard]] int previousFree(int position) const;
    /// A whole text laid over the mask, with its literals and prompts or, where it has none, without: "07042005" as
    /// well as "07/04/2005". Nothing when a character does not fit.
    [[nodiscard]] std::optional<std::u32string> lay(std::u32string_view text, char32_t prompt) const;

private:
    [[nodiscard]] std::optional<std::u32string> layOver(std::u32string_view text, char32_t prompt,
                                                        bool withLiterals) const;

    std::vector<Cell> cells_;
};

} // namespace zel::forms
