#pragma once

#include "store/TextStore.h"
#include "web/site/Inventory.h"
#include "web/site/PathTable.h"

#include <mutex>
#include <optional>
#include <string_view>

namespace quillmark::web {

/// Finds files and folders whose paths differ from a given one only in letter case or in the
/// composition of accents. Several threads may ask at once. The first question builds the table: a
/// site without mistakes never asks.
class Spellings {
public:
    explicit Spellings(const Inventory& inventory) : inventory_(inventory) {}

    /// The path in the inventory, relative to the top of the site; the first of several.
    std::optional<std::string_view> find(std::string_view path) const;

private:
    void prepare() const;
    void add(std::string_view path) const;

    const Inventory& inventory_;
    mutable std::once_flag prepared_;
    mutable TextStore texts_;
    mutable PathTable numbers_;
    mutable std::vector<std::string_view> paths_;
};

} // namespace quillmark::web
