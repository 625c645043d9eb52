#pragma once

#include "run/LocalDisk.h"

namespace quillmark {

/// The local disk of this machine.
class DiskAdapter : public LocalDisk {
public:
    FolderListing list(std::string_view folder) override;
    int CopyFileBinary(std::string_view source, std::string_view target) override;
    void read(std::string_view file,
              const std::function<void(std::string_view block)>& take) override;
    void deleteIfThere(std::string_view file) override;
};

} // namespace quillmark
