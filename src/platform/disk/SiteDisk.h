#pragma once

#include "run/SiteSource.h"

namespace quillmark {

/// A site on the local disk.
class SiteDisk : public SiteSource {
public:
    std::vector<SiteEntry> list(const std::string& folder) override;
    std::string_view read(const std::string& file, std::string& buffer) override;
    std::string_view readBlock(const std::string& file, std::uint64_t offset,
                               std::string& buffer) override;
    bool answers(const std::string& path) override;
    bool severalAtOnce() const override { return true; }
};

} // namespace quillmark
