#include "base/NameComparison.h"

#include "base/UpperCase.h"

#include <algorithm>
#include <cstdint>
#include <functional>

namespace quillmark {

namespace {

unsigned char upperByte(char c) {
    return static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
}

/// FNV-1a, 64 bits (Fowler, Noll, Vo), of the upper-cased bytes. Plain ASCII names, nearly all of
/// them, are hashed without a copy.
std::size_t hashAsciiUpper(std::string_view name) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : name) {
        hash = (hash ^ upperByte(c)) * 1099511628211U;
    }
    return static_cast<std::size_t>(hash);
}

} // namespace

std::size_t NameHash::operator()(std::string_view name) const {
    if (comparison_ == NameComparison::Exact) {
        return std::hash<std::string_view>()(name);
    }
    if (isAscii(name)) {
        return hashAsciiUpper(name);
    }
    return hashAsciiUpper(upperCase(name));
}

bool NameEqual::operator()(std::string_view a, std::string_view b) const {
    if (a == b) {
        return true;
    }
    if (comparison_ == NameComparison::Exact) {
        return false;
    }
    if (!isAscii(a) || !isAscii(b)) {
        return upperCase(a) == upperCase(b);
    }
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return upperByte(x) == upperByte(y); });
}

} // namespace quillmark
