#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zel::korvandb {

/// Numbers that look random and are the same on every machine (SplitMix64).
class DemoRandom {
public:
    explicit DemoRandom(std::uint64_t seed) noexcept : state_(seed) {}

    /// From 0 up to but not including `limit`.
    [[nodiscard]] int below(int limit) noexcept {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        mixed ^= mixed >> 31U;
        return static_cast<int>(mixed % static_cast<std::uint64_t>(limit));
    }

    template <typename T>
    [[nodiscard]] const T& of(const std::vector<T>& items) noexcept {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }

private:
    std::uint64_t state_;
};

} // namespace zel::korvandb
