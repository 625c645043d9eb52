#pragma once

#include <cstdint>

namespace quillmark {

/// The pseudo-random numbers that passwords are scrambled with: a linear congruential generator
/// with a state of 24 bits. No step of it may ever change, or the saved passwords of all users are
/// lost.
class RandomGenerator {
public:
    /// The next number of the sequence, at least 0 and below 1.
    float next();
    /// Starts the sequence that belongs to a negative number and returns its first number. Zero
    /// starts nothing and returns the last number again.
    float reseed(float number);
    /// Folds a number into the state. Its lowest eight bits stay as they are.
    void mix(float number);

private:
    float current() const;

    std::uint32_t state_ = 327680;
};

} // namespace quillmark
