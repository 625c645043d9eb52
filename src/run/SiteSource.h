#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// A name in a folder of a site.
struct SiteEntry {
    enum class Kind : std::uint8_t { File, Folder, Link };

    std::string name;
    Kind kind = Kind::File;
    std::uint64_t size = 0; ///< Of a file, in bytes.
    std::string leadsTo;    ///< The path in a link: from the link's folder on, or a full one.
};

/// The folders and files of a site as they are, hidden names and symbolic links included. Paths are
/// full paths in "/" form, as bytes; a folder ends in "/".
class SiteSource {
public:
    virtual ~SiteSource() = default;

    /// Announces what will be listed or read after all that was announced before, so that a source
    /// that is far away can fetch it ahead.
    virtual void expectListing(const std::string& /*folder*/) {}
    virtual void expectRead(const std::string& /*file*/) {}

    /// The names in a folder, in any order. Throws a Failure when it cannot be listed.
    virtual std::vector<SiteEntry> list(const std::string& folder) = 0;

    /// The bytes of a file, through links, in a buffer that grows to hold them. Throws a Failure if
    /// it cannot be read or is not a plain file.
    virtual std::string_view read(const std::string& file, std::string& buffer) = 0;

    /// Up to a mebibyte of a file from `offset` on, empty at its end. Throws a Failure as read()
    /// does.
    virtual std::string_view readBlock(const std::string& file, std::uint64_t offset,
                                       std::string& buffer) = 0;

    /// Whether there is a file or folder at this path, through links; true where only fetching it
    /// could tell.
    virtual bool answers(const std::string& path) = 0;

    /// Whether several threads may read and ask at once.
    virtual bool severalAtOnce() const = 0;
};

} // namespace quillmark
