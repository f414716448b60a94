#pragma once
// The window or the paper: the two places every layout value and attribute is kept for.
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace hlyd {

// Where a two-slot table's values apply: the window (and the HTML, which follows it) or the paper.
// The numbers are those the settings and the dumps have always used.
enum class Destination : std::uint8_t { kDisplay = 1, kPrint = 2 };
inline constexpr Destination kDisplay = Destination::kDisplay;
inline constexpr Destination kPrint = Destination::kPrint;
inline constexpr std::array<Destination, 2> kDestinations{kDisplay, kPrint};

// One value for each destination, reached by the destination alone, so that no slot number is
// written out (or mistaken) at the places that read it.
template <class T>
class PerDestination {
public:
    PerDestination() = default;
    PerDestination(T display, T print) : slots_{std::move(display), std::move(print)} {}
    T& operator[](Destination d) { return slots_[index(d)]; }
    const T& operator[](Destination d) const { return slots_[index(d)]; }

private:
    static constexpr std::size_t index(Destination d) { return static_cast<std::size_t>(d) - 1; }
    std::array<T, 2> slots_{};
};

}  // namespace hlyd
