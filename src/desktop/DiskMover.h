#pragma once

#include "platform/NativePath.h"
#include "platform/disk/FileMove.h"
#include "windows/outside/FileMover.h"

namespace quillmark {

/// The files of this machine.
class DiskMover : public FileMover {
public:
    void move(std::string_view source, const std::filesystem::path& target) override {
        moveFile(nativePath(source), target);
    }
};

} // namespace quillmark
