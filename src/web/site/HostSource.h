#pragma once

#include "run/FtpComponent.h"
#include "run/LocalDisk.h"
#include "run/SiteSource.h"

#include <string>
#include <string_view>

namespace quillmark::web {

/// A site on a web host, over its one connection.
class HostSource : public SiteSource {
public:
    /// `workingCopy` is the file that others are retrieved into, full path in "\" form.
    HostSource(FtpComponent& ftp, LocalDisk& disk, std::string workingCopy)
        : ftp_(ftp), disk_(disk), workingCopy_(std::move(workingCopy)) {}

    void expectListing(const std::string& folder) override { ftp_.expectListing(folder); }
    void expectRead(const std::string& file) override { ftp_.expectFile(file); }
    std::vector<SiteEntry> list(const std::string& folder) override;
    std::string_view read(const std::string& file, std::string& buffer) override;
    std::string_view readBlock(const std::string& file, std::uint64_t offset,
                               std::string& buffer) override;
    bool answers(const std::string& /*path*/) override { return true; }
    bool severalAtOnce() const override { return false; }

private:
    FtpComponent& ftp_;
    LocalDisk& disk_;
    std::string workingCopy_;
};

} // namespace quillmark::web
