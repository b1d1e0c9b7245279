#pragma once

#include <string>
#include <string_view>

/// Characters by position in UTF-8 text. Bytes that are no UTF-8 count as one character each and survive a round trip.
namespace zel::forms::utf8 {

[[nodiscard]] int length(std::string_view text) noexcept;
/// The byte where the character at `position` begins; the size of the text behind its end.
[[nodiscard]] std::size_t offset(std::string_view text, int position) noexcept;
/// `count` characters from `position` on, as many as there are.
[[nodiscard]] std::string_view middle(std::string_view text, int position, int count) noexcept;
[[nodiscard]] std::string encode(char32_t character);
[[nodiscard]] std::string encode(std::u32string_view text);
[[nodiscard]] std::u32string decode(std::string_view text);

} // namespace zel::forms::utf8
