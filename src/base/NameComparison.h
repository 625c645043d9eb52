#pragma once

#include <cstddef>
#include <string_view>

namespace quillmark {

/// How two names of files are compared: byte for byte, or after upper-casing both.
enum class NameComparison { Exact, IgnoreCase };

/// Hash of a name under a comparison: names that compare equal hash alike.
class NameHash {
public:
    explicit NameHash(NameComparison comparison) : comparison_(comparison) {}
    std::size_t operator()(std::string_view name) const;

private:
    NameComparison comparison_;
};

/// Equality of two names under a comparison.
class NameEqual {
public:
    explicit NameEqual(NameComparison comparison) : comparison_(comparison) {}
    bool operator()(std::string_view a, std::string_view b) const;

private:
    NameComparison comparison_;
};

} // namespace quillmark
