#include "settings/RandomGenerator.h"

#include <bit>

namespace quillmark {

namespace {

constexpr std::uint32_t StateBits = 0xFFFFFF;

} // namespace

float RandomGenerator::next() {
    state_ = (state_ * 0x43FD43FD + 0xC39EC3) & StateBits;
    return current();
}

float RandomGenerator::reseed(float number) {
    if (number == 0) {
        return current();
    }
    const auto bits = std::bit_cast<std::uint32_t>(number);
    // The state has no room for the top byte, which is added to the rest.
    state_ = (bits + (bits >> 24)) & StateBits;
    return next();
}

void RandomGenerator::mix(float number) {
    // The upper half of a double: its sign, its exponent and the first bits of its fraction.
    const auto bits =
        static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(double{number}) >> 32);
    const std::uint32_t folded = (bits & 0xFFFF) ^ (bits >> 16);
    state_ = (folded << 8) | (state_ & 0xFF);
}

float RandomGenerator::current() const {
    return static_cast<float>(state_) / (StateBits + 1);
}

} // namespace quillmark
