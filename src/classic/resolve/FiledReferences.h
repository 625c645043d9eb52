#pragma once

#include "store/ResultLists.h"

#include <memory_resource>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace quillmark {

/// ReferenceList with ReferenceListFrom. Whether a page filed a reference before takes one probe
/// instead of a walk. All appends and removals of the pair during a run go through here.
class FiledReferences {
public:
    explicit FiledReferences(ResultLists& lists)
        : pair_(lists.ReferenceList, lists.ReferenceListFrom) {}

    /// Appends a reference and the page that makes it. Returns false and does nothing if the page
    /// filed that reference before.
    bool append(std::string_view reference, std::string_view from);
    /// Appends line i of another pair, whether it was filed before or not.
    void appendFrom(const ListPair& other, int i);
    /// Removes line i of both lists.
    void remove(int i);

    const ListPair& pair() const { return pair_; }
    const ResultList& lines() const { return pair_.lines(); }
    const ResultList& from() const { return pair_.from(); }

private:
    using Entry = std::pair<std::string_view, std::string_view>;
    struct EntryHash {
        std::size_t operator()(const Entry& entry) const;
    };

    void remember();

    ListPair pair_;
    std::pmr::monotonic_buffer_resource memory_;
    std::pmr::unordered_set<Entry, EntryHash> filed_{&memory_};
};

} // namespace quillmark
