#pragma once

#include "settings/RandomGenerator.h"

#include <string>
#include <string_view>

namespace quillmark {

/// Scrambles a text with a key, or unscrambles it, so that nobody reads a password in passing. It
/// is no encryption: every copy of the program knows the key.
class Cipher {
public:
    /// Sets the key and starts the stream of numbers that belongs to it.
    void KeyString(std::string_view key);
    /// The text to work on: the input of the next operation, then its result.
    void Text(std::string_view text) { text_ = text; }
    const std::string& Text() const { return text_; }

    /// Combines each byte with the next number of the stream; the length stays as it is.
    void DoXor();
    /// Spreads any bytes over the printable characters ";" to "z": n bytes become n + (n + 2) / 3.
    void Stretch();
    /// Undoes Stretch(). Throws invalidProcedureCall() for an empty text, and for a text with a
    /// character below ";" where the low bits of a byte belong.
    void Shrink();

private:
    void SeedFromKey(std::string_view key);

    RandomGenerator generator_;
    std::string text_;
};

/// The form in which a profile file holds a password; an empty password stays empty.
std::string EncryptPassword(std::string_view clear);

/// The password of a profile file in clear; an empty text is an empty password.
/// Throws invalidProcedureCall() for a text that cannot be a stored password.
std::string DecryptPassword(std::string_view stored);

} // namespace quillmark
